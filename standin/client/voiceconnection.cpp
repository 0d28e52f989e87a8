#include "voiceconnection.h"

#include "hostapi/hosttypes.h"

#include <QTimer>

namespace {

constexpr int connectTime = 5000; // milliseconds
constexpr int answerTime = 3000;
constexpr int goodbyeTime = 1000;

} // namespace

voiceconnection::voiceconnection(quint64 id, const QString& server, const voiceidentity& identity, QObject* parent)
    : QObject(parent)
    , connectionID(id)
    , serverName(server)
    , identity(identity)
    , socket(new QLocalSocket)
    , link(socket)
    , moves(&link)
{
    connect(&link, &packetlink::received, this, &voiceconnection::receive);
    connect(&link, &packetlink::ended, this, &voiceconnection::linkEnded);
    connect(&moves, &filetransfers::statusChanged, this, &voiceconnection::transferStatus);
}

voiceconnection::~voiceconnection() { close(); }

bool voiceconnection::open(QString* error)
{
    socket->connectToServer(serverName);
    if (!socket->waitForConnected(connectTime)) {
        *error =
            QStringLiteral("Cannot reach the server '%1'. Is voiceserver running under that name?").arg(serverName);
        return false;
    }
    link.send(makePacket(packetkind::login, QString::fromLatin1(linkSignature), identity.nickname, identity.platform,
                         identity.channel, identity.away));
    return true;
}

void voiceconnection::close()
{
    if (link.isOpen()) {
        link.send(makePacket(packetkind::leave));
        link.close(goodbyeTime);
    }
    established = false;
}

void voiceconnection::sendCommand(const QByteArray& plugin, const QByteArray& text, const QVector<quint16>& targets)
{
    link.send(makePacket(packetkind::sendCommand, plugin, text, targets));
}

void voiceconnection::sendChat(const QString& text) { link.send(makePacket(packetkind::sendChat, text)); }

void voiceconnection::setAway(bool away) { link.send(makePacket(packetkind::setAway, away)); }

void voiceconnection::moveClient(quint16 client, quint64 channel, const QString& password)
{
    link.send(makePacket(packetkind::moveClient, client, channel, password));
}

void voiceconnection::createChannel(quint64 parent, const QString& name, const QString& password)
{
    link.send(makePacket(packetkind::createChannel, parent, name, password));
}

void voiceconnection::removeChannel(quint64 channel) { link.send(makePacket(packetkind::removeChannel, channel)); }

void voiceconnection::moveChannel(quint64 channel, quint64 parent)
{
    link.send(makePacket(packetkind::moveChannel, channel, parent));
}

unsigned int voiceconnection::listFiles(quint64 channel, const QByteArray& password, const QByteArray& path)
{
    const quint32 request = ++lastRequest;
    link.send(makePacket(packetkind::listFiles, request, channel, password, path));
    quint32 error = ERROR_ok;
    QVector<fileentry> entries;
    const auto isAnswer = [&](const packet& message) {
        quint32 about = 0;
        return message.kind == packetkind::fileList && readPacket(message, about, error, entries) && about == request;
    };
    if (!link.waitFor(isAnswer, answerTime))
        return ERROR_connection_lost;
    if (error == ERROR_ok) {
        QTimer::singleShot(0, this, [this, channel, path, entries] {
            for (const fileentry& entry : entries)
                emit fileListed(channel, path, entry);
        });
    }
    return error;
}

void voiceconnection::receive(const packet& message)
{
    const bool readable = moves.receive(message) || receiveChannel(message) || receiveClient(message)
        || receiveTalk(message) || receiveStanding(message);
    if (readable)
        return;
    link.abort();
    linkEnded();
}

bool voiceconnection::receiveChannel(const packet& message)
{
    quint64 channel = 0;
    quint64 parent = 0;
    quint64 order = 0;
    quint16 invoker = 0;
    switch (message.kind) {
    case packetkind::channelAdded:
        return addChannel(message);
    case packetkind::channelRemoved:
        if (!readPacket(message, channel, invoker))
            return false;
        model.removeChannel(channel);
        emit channelRemoved(channel, invoker);
        return true;
    case packetkind::channelMoved:
        if (!readPacket(message, channel, parent, order, invoker))
            return false;
        model.moveChannel(channel, parent);
        emit channelMoved(channel, parent, invoker);
        return true;
    default:
        return false;
    }
}

bool voiceconnection::receiveClient(const packet& message)
{
    voiceclientinfo client;
    quint16 id = 0;
    quint64 channel = 0;
    bool flag = false;
    QString text;
    switch (message.kind) {
    case packetkind::clientEntered:
        if (!readPacket(message, client, flag))
            return false;
        model.addClient(client);
        if (!flag)
            emit clientEntered(client.id, client.channel);
        return true;
    case packetkind::clientLeft:
        if (!readPacket(message, id, channel, flag))
            return false;
        text = model.client(id).nickname;
        model.removeClient(id);
        emit clientLeft(id, channel, flag, text);
        return true;
    case packetkind::clientMoved:
        return moveInModel(message);
    case packetkind::clientAway:
        if (!readPacket(message, id, flag))
            return false;
        model.setAway(id, flag);
        emit clientAway(id, flag);
        return true;
    default:
        return false;
    }
}

bool voiceconnection::receiveTalk(const packet& message)
{
    QByteArray plugin;
    QByteArray command;
    QString text;
    quint16 sender = 0;
    if (message.kind == packetkind::command && readPacket(message, plugin, command, sender)) {
        emit commandReceived(plugin, command, sender);
        return true;
    }
    if (message.kind == packetkind::chat && readPacket(message, sender, text)) {
        emit chatReceived(sender, text);
        return true;
    }
    return false;
}

bool voiceconnection::receiveStanding(const packet& message)
{
    quint32 error = 0;
    QString text;
    switch (message.kind) {
    case packetkind::welcome:
        return readPacket(message, own, serverTitle);
    case packetkind::ready:
        established = true;
        emit ready();
        return true;
    case packetkind::refused:
        if (!readPacket(message, error, text))
            return false;
        link.abort();
        established = false;
        emit refused(text);
        return true;
    case packetkind::notice:
        if (!readPacket(message, error, text))
            return false;
        emit noticed(text);
        return true;
    default:
        // Answers that came too late for whoever waited for them.
        return message.kind == packetkind::fileList || message.kind == packetkind::transferStarted;
    }
}

bool voiceconnection::addChannel(const packet& message)
{
    voicechannel channel;
    quint16 invoker = 0;
    bool initial = false;
    if (!readPacket(message, channel, invoker, initial))
        return false;
    model.addChannel(channel);
    emit channelAdded(channel.id, channel.parent, invoker, initial);
    return true;
}

bool voiceconnection::moveInModel(const packet& message)
{
    quint16 client = 0;
    quint64 before = 0;
    quint64 channel = 0;
    quint16 invoker = 0;
    if (!readPacket(message, client, before, channel, invoker))
        return false;
    model.moveClient(client, channel);
    emit clientMoved(client, before, channel, invoker);
    return true;
}

void voiceconnection::linkEnded()
{
    established = false;
    moves.breakAll();
    emit lost();
}
