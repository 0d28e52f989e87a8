#pragma once

#include "nestedplayer.h"
#include "plugin/kelvor.h"
#include "tests/plugin/mainwindow.h"
#include "tests/support/fakehost.h"

#include <QMap>
#include <QSet>
#include <QTemporaryDir>

class invitationdialog;
class whiteboard;

/// A voice client that runs the plugin by its exported functions, with six server connections, one in each state that
/// lasts. On each of them the own client is 1, and 2, 3 and 4 are others; 4 takes part in nothing. Channel 1 is open,
/// channel 2 below it has a password, channel 3 stands beside it. A download brings nothing, but the names cat.png and
/// broken.png lie in the download directory already. Connections have numbers here, and a new handler each time they
/// are opened.
class clientworld {
public:
    enum connection : int {
        boardAsHost = 1, ///< whiteboard of 64 by 48 pixels with 2 and 3
        lobbyAsHost = 2, ///< 2 has accepted, 3 has not answered
        lobbyAsGuest = 3, ///< waiting in the lobby of 2; 3 has accepted
        idle = 4,
        boardAsGuest = 5, ///< whiteboard of 64 by 48 pixels with 3 and 2, the host of the session
        unknown = 6, ///< the client knows no such connection
    };
    static constexpr int connections = 6;

    clientworld();
    ~clientworld();

    /// Starts the plugin; what ran before is ended. All connections are idle.
    void start() { start(host.table()); }
    void start(const TS3Functions& table);
    /// Ends the plugin, as the client does at its own end.
    void shutdown();
    /// Closes what is open on the connections that were touched since the last call, and opens there what is said
    /// above.
    void restore();

    /// Plays records, each ended by a NUL; worldscript.h has their forms. States and windows are looked at after each.
    /// then is called behind the last, while the modal windows that the records opened are still open.
    void play(const QByteArray& script, const std::function<void()>& then = nullptr);
    void play(const QList<QByteArray>& records, const std::function<void()>& then = nullptr);

    /// The handler of a connection, 0 for a number that is none.
    uint64 handler(int connection) const { return handlers.value(connection); }
    sessionstate stateOf(int connection) const;
    /// Null when there is none to be seen.
    invitationdialog* lobbyOf(int connection) const;
    whiteboard* boardOf(int connection) const;
    /// From now on the connection counts as one that is not as it was opened.
    void touch(int connection) { touched.insert(connection); }

    /// Ends the process unless states and windows agree, no connection asks twice, and all memory of the client was
    /// given back.
    void checkSound();

    /// How often windows of each kind were seen, and how many messages were sent.
    QMap<QByteArray, int> reached() const { return counts; }

    fakehost host;
    nestedplayer player;
    kelvor* controller = nullptr; ///< the one that the plugin runs, to be looked at

private:
    void connectServer(int connection);
    void leave(const QSet<int>& left);
    template <typename Window> int nameWindows(std::initializer_list<sessionstate> states);
    template <typename Window> Window* windowOf(int connection) const;
    void checkSent();

    QTemporaryDir directory;
    QByteArray temporary; ///< the environment's directory for temporary files, outside this world
    MainWindow mainWindow{6};
    QMap<int, uint64> handlers;
    QSet<int> touched;
    uint64 nextHandler = 1;
    QMap<QByteArray, int> counts{{"question", 0}, {"lobby", 0}, {"whiteboard", 0}, {"transfer", 0}, {"message", 0}};
};
