#pragma once

#include "fuzz/targets/nestedplayer.h"
#include "plugin/kelvor.h"
#include "tests/support/fakehost.h"

#include <QList>
#include <QSize>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <vector>

class invitationdialog;
class paintscene;
class whiteboard;

/// One message on its way from a member to another.
struct letter {
    anyID from = 0;
    anyID to = 0;
    QByteArray text;
};

/// Some people on one voice server, each with a controller of its own, in one process: client i has the connection i.
/// What one sends is held back here until the test hands it to the other, so that the test is the voice server. Windows
/// are real and come up by the messages and the clicks that open them, but are not painted.
class company {
public:
    /// Clients 1 to size; the pictures of their sessions have the size of the canvas.
    explicit company(int size, const QSize& canvas = QSize(120, 90));
    ~company();

    int size() const { return static_cast<int>(controllers.size()); }
    fakeserver& serverOf(anyID member) { return host.servers[member]; }
    kelvor& controllerOf(anyID member) { return *controllers.at(member - 1U); }
    sessionstate stateOf(anyID member) { return controllerOf(member).stateOf(member); }
    /// Null when there is none to be seen.
    invitationdialog* lobbyOf(anyID member) const;
    whiteboard* boardOf(anyID member) const;
    paintscene* canvasOf(anyID member) const;

    /// Carries out an act of a member's user or client; the windows that it opens are the member's.
    void act(anyID member, const std::function<void(kelvor&)>& deed);
    /// Takes what was sent since the last call.
    QList<letter> takeLetters();
    void deliver(const letter& one);

    /// Carries out steps in an event loop until one returns false, also inside the loops of the questions that they
    /// bring up; windows that were closed are gone then.
    void play(const std::function<bool()>& step);
    /// Hands over everything that is on its way and what comes of it, in order. Questions are answered by Yes.
    void deliverAll();

    /// The way of a session: the first invites all others, they accept, the first presses OK. False when somebody has
    /// no whiteboard in the end.
    bool startSession();
    /// The host's user invites a member; nothing happens without a row in a lobby.
    void invite(anyID sessionHost, anyID member);
    /// Presses the button of the topmost question; false when there is none.
    static bool answer(bool yes);

    /// As the user of a window chooses them: by the dialog, by the spin box. Both return what the window has then.
    QColor chooseColor(anyID member, const QColor& color);
    double chooseThickness(anyID member, double thickness);

    fakehost host;

private:
    template <typename Window> Window* windowOf(anyID member) const;
    void nameWindows(anyID member);

    QTemporaryDir directory;
    nestedplayer player;
    std::vector<std::unique_ptr<kelvor>> controllers;
};
