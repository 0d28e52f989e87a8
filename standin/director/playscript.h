#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

/// What one line of a script asks for.
enum class stepkind {
    note, ///< text: said on standard output
    server, ///< text: a command to the server
    command, ///< who, whom, text: a command to players
    settle, ///< everything that was sent has arrived
    same, ///< who: their pictures are equal, pixel for pixel
    equal, ///< text: two files of pictures are equal
    place, ///< text: a kind of window, put side by side, each player's in a place of its own
};

struct scriptstep {
    stepkind kind = stepkind::note;
    int line = 0;
    QString who; ///< a player's name, "all" or "guests" (all but the first)
    QString whom; ///< the command is given once for each of these, as {name}
    QString text;
    std::optional<QString> expected; ///< what the answer must hold
};

/// One player, before the curtain rises.
struct scriptplayer {
    QString name;
    QString channel;
    QString platform = QStringLiteral("Linux");
    bool hasPlugin = true;
    bool away = false;
    QStringList settings; ///< lines of the plugin's settings file
};

/// A script as a person writes it: one step a line, '#' begins a comment.
///
///     title Two people paint together
///     players 2                          two, or as many as --players says if that is more
///     player Dora channel="Coffee Corner" plugin=none away=yes setting="pong=false"
///     note The invitation
///     server: delay 20
///     Alice: open menu
///     Alice for guests: row {name} double
///     Bob: question => Do you want to accept?
///     faulty                             what is sent may get lost or doubled: nobody counts it at the end
///     settle
///     same all
///     equal {shots}/saved-Alice.png {shots}/saved-Bob.png
///     place whiteboard
struct playscript {
    QString title;
    QVector<scriptplayer> players;
    QVector<scriptstep> steps;
    bool faulty = false;
};

/// Empty, with the line and what is wrong with it, when the text is no script. wantedPlayers: 0 for the script's own.
std::optional<playscript> readScript(const QString& text, int wantedPlayers, QString* error);
