#pragma once

#include "nestedplayer.h"
#include "plugin/kelvor.h"
#include "tests/plugin/mainwindow.h"
#include "tests/support/fakehost.h"

#include <QTemporaryDir>

#include <memory>

/// A voice client with a running controller and six server connections, one in each state that lasts. On each of them
/// the own client is 1, and 2, 3 and 4 are others; 4 takes part in nothing. Channel 1 is open, channel 2 below it has a
/// password, channel 3 stands beside it. A download brings nothing, but the names cat.png and broken.png lie in the
/// download directory already.
class clientworld {
public:
    enum connection : uint64 {
        boardAsHost = 1, ///< whiteboard of 64 by 48 pixels with 2 and 3
        lobbyAsHost = 2, ///< 2 has accepted, 3 has not answered
        lobbyAsGuest = 3, ///< waiting in the lobby of 2; 3 has accepted
        idle = 4,
        boardAsGuest = 5, ///< whiteboard of 64 by 48 pixels with 3 and 2, the host of the session
        unknown = 6, ///< the client knows no such connection
    };

    clientworld();
    ~clientworld();

    /// Makes a controller, and opens its sessions or not. What ran before is ended.
    void open();
    void openIdle();
    /// Deletes the controller, as the client does at its end.
    void shutdown();

    /// Plays records, each ended by a NUL; worldscript.h has their forms. States and windows are looked at after each.
    /// True when nothing but pictures can have changed.
    bool play(const QByteArray& script);
    bool play(const QList<QByteArray>& records);

    /// Ends the process unless states and windows agree, no connection has two windows or two questions, and all memory
    /// of the client was given back.
    void checkSound() const;
    /// What the fake client has recorded since the last call is looked at in the same way, and forgotten.
    void checkSent();

    QString downloadDir() const { return directory.path(); }

    fakehost host;
    nestedplayer player;
    std::unique_ptr<kelvor> controller;

private:
    void checkQuestions() const;
    int countOf(std::initializer_list<sessionstate> states) const;

    QTemporaryDir directory;
    MainWindow mainWindow{6};
};
