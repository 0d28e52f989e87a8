#pragma once

#include "loadedplugin.h"
#include "tests/support/fakehost.h"
#include "threadwatch.h"

#include <QDir>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>

/// The library on a fake client, and the roads into all states that a user can leave it in.
class unloadstage {
public:
    struct state {
        const char* name;
        /// The plugin is shut down on the road already where the state is a modal window: in that window's own loop.
        std::function<void(unloadstage&)> reach;
        bool withMenu = true; ///< whether the client has the menu that the plugin looks for
    };
    static const QList<state>& states();

    /// Maps the library. Files are kept in the directory, which holds a directory "plugins" and a file "old.png".
    explicit unloadstage(const QDir& directory);

    /// Starts the plugin, gets it into the state and shuts it down there.
    void play(const state& left);

    loadedplugin& library() { return *plugin; }
    QStringList threadsOfPlugin() const { return threads.startedByOthers(); }
    /// Texts and lists of the client that were not given back.
    int outstanding() const { return host.outstanding; }

private:
    void shutdown();
    /// Calls act as soon as a modal window of the class shows.
    void whenBoxShows(const char* className, const std::function<void(QWidget&)>& act);
    void shutdownInside(const char* className);

    void openLobby();
    void openLobbysFiles();
    void joinLobby();
    void receivePicture();
    void openBoard();
    void joinBoard();
    void triggerOnBoard(const char* actionText);
    void press(const char* toolTip);

    // Modal windows of which one opens another, the last of which the plugin does not survive.
    void fetchForLobby();
    void askForPasswordOfFiles();
    void upload();
    void overwriteOnSave();
    void chooseForSettings();

    QDir directory;
    fakehost host;
    threadwatch threads;
    std::unique_ptr<loadedplugin> plugin;
    bool isShutDown = false;
    int awaitedBoxes = 0;
    QObject watches; ///< for modal windows that have not shown yet
};
