#pragma once

#include "clientoptions.h"
#include "hostservice.h"
#include "pluginlibrary.h"
#include "voiceconnection.h"

#include <QObject>

#include <functional>
#include <memory>

class MainWindow;

/// The client as a whole: brings up window, plugin and connections, and takes them down in the order that the plugin
/// needs. Lives in main().
class voiceclient : public QObject {
    Q_OBJECT

public:
    /// Statuses of the process beside 0 and 1.
    static constexpr int statusLeftovers = 3; ///< the plugin left something behind
    static constexpr int statusServerLost = 4; ///< the last server went away or refused the client

    explicit voiceclient(const clientoptions& options);
    ~voiceclient() override;

    /// False with the reason when plugin or servers are not to be had.
    bool start(QString* error);
    /// Ends plugin and connections, then the event loops; finish() does the rest.
    void end(int status);
    /// After the event loop ended: unmaps the plugin and looks for what it left. Gives the status of the process.
    int finish(int status);

    QString nickname() const { return options.nickname; }
    QStringList knownServers() const;
    MainWindow* window() const { return mainWindow.get(); }
    hostservice& host() { return service; }
    pluginlibrary& plugin() { return library; }
    bool isConnected() const;
    QString keyword() { return library.keyword(); }
    QString pluginTitle();
    /// What is left in the process of a plugin that was unloaded; empty when nothing is.
    QStringList leftovers() const;

    bool runChatCommand(quint64 schid, const QString& word, const QString& rest);
    void askForServer();
    void connectAgain(const QString& server);
    void configurePlugin(QWidget* parent) { library.configure(parent); }
    void reloadPlugin();
    void unloadPlugin();
    void tabChosen(quint64 schid);

signals:
    /// Every connection is established.
    void connected();
    void pluginReloaded();

private:
    voiceidentity identityFor(const QString& server) const;
    /// Loads the plugin that was named, or the first of the installed ones that fits; tells of each that was not taken.
    bool loadPlugin(QStringList* refusals);
    QStringList installedPlugins() const;
    bool connectTo(const QString& server, const voiceidentity& who, QString* error);
    void connectionLost(voiceconnection* connection, const QString& reason);
    void report(quint64 schid, const QString& line);
    /// Runs work as soon as no nested event loop is left, whose code may be the plugin's.
    void whenUnwound(const std::function<void()>& work);
    void unloadUnwound();

    const clientoptions options;
    hostservice service;
    pluginlibrary library;
    std::unique_ptr<MainWindow> mainWindow;
    quint64 lastConnection = 0;
    QStringList problems; ///< what the plugin left behind so far
    bool ending = false;
};
