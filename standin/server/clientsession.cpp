#include "clientsession.h"

#include "voiceserver.h"

#include "hostapi/hosttypes.h"

clientsession::clientsession(QLocalSocket* socket, voiceserver* server)
    : QObject(server)
    , server(server)
    , link(socket)
    , desk(server->files().channelDirectory(0), server->settings().pace, server->settings().transfers)
{
    clock.start();
    connect(&link, &packetlink::received, this, &clientsession::receive);
    connect(&link, &packetlink::ended, this, &clientsession::linkEnded);
    connect(&desk, &transferdesk::answer, this, &clientsession::send);
}

void clientsession::refuse(unsigned int error, const QString& reason)
{
    link.send(makePacket(packetkind::refused, quint32(error), reason));
    link.close(1000);
    leave(false);
}

void clientsession::cut()
{
    link.abort();
    leave(true);
}

void clientsession::receive(const packet& message)
{
    if (gone)
        return;
    const bool readable = ownID == 0 ? login(message) : receiveFromMember(message);
    if (!readable)
        refuse(ERROR_parameter_invalid, QStringLiteral("The server does not understand this client."));
}

bool clientsession::receiveFromMember(const packet& message)
{
    bool away = false;
    QString text;
    switch (message.kind) {
    case packetkind::leave:
        leave(false);
        return true;
    case packetkind::sendCommand:
        return relayCommand(message);
    case packetkind::sendChat:
        if (!readPacket(message, text))
            return false;
        server->chat(ownID, text);
        return true;
    case packetkind::setAway:
        if (!readPacket(message, away))
            return false;
        server->setAway(ownID, away);
        return true;
    case packetkind::moveClient:
        return moveClient(message);
    case packetkind::createChannel:
    case packetkind::removeChannel:
    case packetkind::moveChannel:
        return changeChannels(message);
    default:
        return receiveFileRequest(message);
    }
}

bool clientsession::receiveFileRequest(const packet& message)
{
    quint16 transfer = 0;
    QByteArray bytes;
    switch (message.kind) {
    case packetkind::listFiles:
        return listFiles(message);
    case packetkind::upload:
        return upload(message);
    case packetkind::download:
        return download(message);
    case packetkind::uploadPiece:
        if (!readPacket(message, transfer, bytes))
            return false;
        desk.receivePiece(transfer, bytes);
        return true;
    case packetkind::haltTransfer:
        if (!readPacket(message, transfer))
            return false;
        desk.halt(transfer);
        return true;
    default:
        return false;
    }
}

bool clientsession::login(const packet& message)
{
    QString signature;
    QString channel;
    QString reason;
    voiceclientinfo info;
    if (message.kind != packetkind::login
        || !readPacket(message, signature, info.nickname, info.platform, channel, info.away)
        || signature != QLatin1String(linkSignature))
        return false;
    info.channel = server->voices().channelNamed(channel);
    if (const unsigned int error = server->enter(this, info, &reason))
        refuse(error, reason);
    return true;
}

bool clientsession::relayCommand(const packet& message)
{
    relayedcommand command;
    QVector<quint16> targets;
    if (!readPacket(message, command.plugin, command.text, targets))
        return false;
    if (command.text.size() > int(longestPluginCommand)) {
        server->countDropped();
        notice(ERROR_parameter_invalid, QStringLiteral("A plugin command was too long and was not relayed."));
        return true;
    }
    if (server->settings().flood) {
        const floodverdict verdict = flood.commandAt(clock.elapsed());
        if (verdict == floodverdict::block) {
            server->block(server->voices().client(ownID).nickname);
            refuse(ERROR_client_is_flooding, QStringLiteral("You sent too much and were shut out."));
            return true;
        }
        if (verdict == floodverdict::drop) {
            server->countDropped();
            notice(ERROR_client_is_flooding, QStringLiteral("You send too much: a plugin command was dropped."));
            return true;
        }
    }
    command.sender = ownID;
    for (const quint16 target : qAsConst(targets)) {
        command.target = target;
        server->relayCommand(command);
    }
    return true;
}

bool clientsession::listFiles(const packet& message)
{
    quint32 request = 0;
    quint64 channel = 0;
    QByteArray password;
    QByteArray path;
    if (!readPacket(message, request, channel, password, path))
        return false;
    QVector<fileentry> entries;
    unsigned int error = server->checkPassword(channel, password);
    if (error == ERROR_ok)
        error = server->files().list(channel, path, &entries);
    send(makePacket(packetkind::fileList, request, quint32(error), entries));
    return true;
}

bool clientsession::upload(const packet& message)
{
    transferwish wish;
    quint64 size = 0;
    bool overwrite = false;
    if (!readPacket(message, wish.transfer, wish.channel, wish.password, wish.path, size, overwrite))
        return false;
    const filestore& files = server->files();
    const QString file =
        locate(wish, [&](QString* place) { return files.locateForWriting(wish.channel, wish.path, overwrite, place); });
    if (!file.isEmpty())
        desk.beginUpload(wish.transfer, file, size);
    return true;
}

bool clientsession::download(const packet& message)
{
    transferwish wish;
    if (!readPacket(message, wish.transfer, wish.channel, wish.password, wish.path))
        return false;
    const filestore& files = server->files();
    const QString file =
        locate(wish, [&](QString* place) { return files.locateForReading(wish.channel, wish.path, place); });
    if (!file.isEmpty())
        desk.beginDownload(wish.transfer, file);
    return true;
}

QString clientsession::locate(const transferwish& wish, const std::function<unsigned int(QString*)>& inStore)
{
    QString file;
    unsigned int error = server->checkPassword(wish.channel, wish.password);
    if (error == ERROR_ok)
        error = inStore(&file);
    if (error == ERROR_ok)
        return file;
    desk.refuse(wish.transfer, error);
    return QString();
}

bool clientsession::changeChannels(const packet& message)
{
    quint64 channel = 0;
    quint64 parent = 0;
    QString name;
    QString password;
    unsigned int error = ERROR_ok;
    if (message.kind == packetkind::createChannel) {
        if (!readPacket(message, parent, name, password))
            return false;
        error = server->addChannel(parent, name, password, ownID) == 0 ? ERROR_channel_invalid_id : ERROR_ok;
    } else if (message.kind == packetkind::removeChannel) {
        if (!readPacket(message, channel))
            return false;
        error = server->removeChannel(channel, ownID);
    } else {
        if (!readPacket(message, channel, parent))
            return false;
        error = server->moveChannel(channel, parent, ownID);
    }
    if (error != ERROR_ok)
        notice(error, QStringLiteral("The channel could not be changed."));
    return true;
}

bool clientsession::moveClient(const packet& message)
{
    quint16 client = 0;
    quint64 channel = 0;
    QString password;
    if (!readPacket(message, client, channel, password))
        return false;
    if (const unsigned int error = server->moveClient(client, channel, password, ownID))
        notice(error, QStringLiteral("The channel could not be entered."));
    return true;
}

void clientsession::notice(unsigned int error, const QString& text)
{
    send(makePacket(packetkind::notice, quint32(error), text));
}

void clientsession::linkEnded() { leave(true); }

void clientsession::leave(bool timedOut)
{
    if (gone)
        return;
    gone = true;
    server->remove(this, timedOut);
    deleteLater();
}
