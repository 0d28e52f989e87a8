#pragma once

#include "filetransfers.h"

#include "standin/common/packetlink.h"
#include "standin/common/voicemodel.h"

#include <QObject>

/// Who a client is on a server.
struct voiceidentity {
    QString nickname;
    QString platform;
    QString channel; ///< to enter at first, empty for the server's first
    bool away = false;
};

/// One connection of the client to one server: keeps the picture of the server up to date, tells what happens there,
/// and carries out what is asked. Signals come one at a time from the event loop, never from inside a request.
class voiceconnection : public QObject {
    Q_OBJECT

public:
    voiceconnection(quint64 id, const QString& server, const voiceidentity& identity, QObject* parent = nullptr);
    ~voiceconnection() override;

    /// Connects and says who we are; established() follows. False when nobody answers by that name.
    bool open(QString* error);
    /// Says goodbye; what was sent before still goes out.
    void close();

    quint64 id() const { return connectionID; }
    QString server() const { return serverName; }
    QString title() const { return serverTitle; }
    QString nickname() const { return identity.nickname; }
    quint16 ownID() const { return own; }
    quint64 ownChannel() const { return model.client(own).channel; }
    bool isEstablished() const { return established; }
    bool isAway() const { return model.client(own).away; }
    const voicemodel& voices() const { return model; }

    void sendCommand(const QByteArray& plugin, const QByteArray& text, const QVector<quint16>& targets);
    void sendChat(const QString& text);
    void setAway(bool away);
    void moveClient(quint16 client, quint64 channel, const QString& password);
    void createChannel(quint64 parent, const QString& name, const QString& password);
    void removeChannel(quint64 channel);
    void moveChannel(quint64 channel, quint64 parent);
    /// Waits for the server's word; the entries follow as fileListed from the event loop.
    unsigned int listFiles(quint64 channel, const QByteArray& password, const QByteArray& path);
    filetransfers& transfers() { return moves; }

signals:
    void ready();
    /// The server turned this client away, or shut it out.
    void refused(const QString& reason);
    void lost();
    void noticed(const QString& text);

    void channelAdded(quint64 channel, quint64 parent, quint16 invoker, bool initial);
    void channelRemoved(quint64 channel, quint16 invoker);
    void channelMoved(quint64 channel, quint64 parent, quint16 invoker);
    void clientEntered(quint16 client, quint64 channel);
    void clientLeft(quint16 client, quint64 channel, bool timedOut, const QString& nickname);
    void clientMoved(quint16 client, quint64 before, quint64 channel, quint16 invoker);
    void clientAway(quint16 client, bool away);
    void commandReceived(const QByteArray& plugin, const QByteArray& text, quint16 invoker);
    void chatReceived(quint16 sender, const QString& text);
    void fileListed(quint64 channel, const QByteArray& path, const fileentry& entry);
    void transferStatus(quint16 transfer, unsigned int status, quint64 remaining);

private:
    void receive(const packet& message);
    bool receiveChannel(const packet& message);
    bool receiveClient(const packet& message);
    bool receiveTalk(const packet& message);
    bool receiveStanding(const packet& message);
    bool addChannel(const packet& message);
    bool moveInModel(const packet& message);
    void linkEnded();

    const quint64 connectionID;
    const QString serverName;
    const voiceidentity identity;
    QLocalSocket* const socket; ///< owned by the link
    packetlink link;
    filetransfers moves;
    voicemodel model;
    QString serverTitle;
    quint16 own = 0;
    quint32 lastRequest = 0;
    bool established = false;
};
