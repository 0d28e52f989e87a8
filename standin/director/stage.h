#pragma once

#include "playedprocess.h"
#include "playscript.h"

#include <QObject>
#include <QRect>
#include <QTemporaryDir>

#include <memory>
#include <vector>

/// Where the programs are, and what the clients load.
struct stageprops {
    QString programs; ///< directory of voiceserver and voiceclient
    QStringList plugins; ///< the clients take them in turn
    QString serverTitle = QStringLiteral("Paint Town");
};

/// One server and its clients as processes. They and their files are gone when this is destroyed.
class stage : public QObject {
    Q_OBJECT

public:
    explicit stage(const stageprops& props, QObject* parent = nullptr);
    ~stage() override;

    bool startServer(QString* error);
    /// Returns when the client is connected.
    bool startClient(const scriptplayer& player, const QRect& geometry, QString* error);
    /// Lets all end; false, with what went wrong, when one did not end well.
    bool endAll(QString* error);
    void interrupt();

    playedprocess* server() const { return voiceServer.get(); }
    playedprocess* client(const QString& name) const;
    const std::vector<std::unique_ptr<playedprocess>>& clients() const { return voiceClients; }
    /// The name under which the server is found.
    QString address() const { return serverName; }
    QString workDirectory() const { return work.path(); }
    /// The place of one of several windows side by side, in pixels of the screen; asks a client for its size.
    QRect placeFor(int index, int count);

signals:
    void clientEnded();

private:
    QString configFor(const scriptplayer& player, QString* error) const;

    const stageprops props;
    const QTemporaryDir work;
    QString serverName;
    std::unique_ptr<playedprocess> voiceServer;
    std::vector<std::unique_ptr<playedprocess>> voiceClients;
    QSize screen;
    bool interrupted = false;
};
