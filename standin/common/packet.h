#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

/// What client and server of the stand-in say to each other. The fields stand behind each kind, in order; channel ids
/// and sizes are quint64, client and transfer ids quint16, errors quint32. These bytes are the stand-in's own affair:
/// they resemble no voice server's, and both ends are built from this file.
enum class packetkind : quint8 {
    // From the client.
    login = 1, ///< QString signature, nickname, platform, channel name or empty; bool away
    leave, ///< nothing: a farewell; a link that ends without it counts as timed out
    sendCommand, ///< QByteArray plugin, text; QVector<quint16> targets
    sendChat, ///< QString text, to the own channel
    moveClient, ///< client, channel, QString password
    setAway, ///< bool
    listFiles, ///< quint32 request, channel, QByteArray password, path
    upload, ///< transfer, channel, QByteArray password, path, quint64 size, bool overwrite
    uploadPiece, ///< transfer, QByteArray bytes
    download, ///< transfer, channel, QByteArray password, path
    haltTransfer, ///< transfer
    createChannel, ///< parent, QString name, password
    removeChannel, ///< channel
    moveChannel, ///< channel, new parent

    // From the server.
    welcome = 64, ///< own id, QString title of the server
    refused, ///< error, QString reason; the server closes the link
    channelAdded, ///< voicechannel, invoker, bool initial
    channelRemoved, ///< channel, invoker
    channelMoved, ///< channel, new parent, new order, invoker
    clientEntered, ///< voiceclientinfo, bool initial
    clientLeft, ///< client, channel, bool timedOut
    clientMoved, ///< client, old channel, new channel, invoker (the client itself for its own move)
    clientAway, ///< client, bool
    ready, ///< nothing: the initial channels and clients are told
    command, ///< QByteArray plugin, text, invoker
    chat, ///< sender, QString text
    notice, ///< error, QString text: the server did not do what was asked
    fileList, ///< quint32 request, error, QVector<fileentry>
    transferStarted, ///< transfer, error, quint64 size
    downloadPiece, ///< transfer, QByteArray bytes
    uploadProgress, ///< transfer, quint64 received, quint32 size of the piece that is to follow
    transferEnded, ///< transfer, status
};

struct packet {
    packetkind kind = packetkind::login;
    QByteArray body;
};

/// Fields in the order that the kind tells.
template <typename... Field> packet makePacket(packetkind kind, const Field&... fields)
{
    packet made{kind, QByteArray()};
    QDataStream stream(&made.body, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_12);
    (void)(stream << ... << fields);
    return made;
}

/// False when the body is not exactly these fields; what was read until then stands in them.
template <typename... Field> bool readPacket(const packet& message, Field&... fields)
{
    QDataStream stream(message.body);
    stream.setVersion(QDataStream::Qt_5_12);
    (void)(stream >> ... >> fields);
    return stream.status() == QDataStream::Ok && stream.atEnd();
}
