#include "literalendpoint.h"

#include "calltext.h"
#include "literalwire.h"

#include <cstdio>

using calltext::call;

namespace {

QByteArray clientCall(const char* name, const char* command)
{
    const clientmessage message = literal::readClient(command);
    return call(name, message.client, message.sender);
}

QByteArray channelCall(const char* name, const char* command)
{
    const channelmessage message = literal::readChannel(command);
    return call(name, message.channel, message.sender);
}

template <typename List> QByteArray listCall(const char* name, const List& message)
{
    return call(name, message.list.data(), message.sender);
}

QByteArray trimmedCall(const char* name, const char* command)
{
    const auto message = literal::readTrimmedSender(command);
    return message ? call(name, message->sender) : QByteArray();
}

QByteArray inviteCall(const char* command)
{
    const auto message = literal::readInvite(command);
    if (!message)
        return {};
    return call(message->version == 2 ? "invited" : "sendRejectVersion", message->sender);
}

QByteArray acceptlistCall(const char* command)
{
    const auto message = literal::readAcceptlist(command);
    return message ? listCall("acceptlistReceived", *message) : QByteArray();
}

QByteArray startCall(const char* command)
{
    const auto message = literal::readStart(command);
    if (!message)
        return {};
    return call("start", message->width, message->height, message->channel, message->background, message->size,
                message->path, message->sender);
}

QByteArray drawCall(const char* command)
{
    const auto message = literal::readDraw(command);
    if (!message)
        return {};
    return call("draw", message->tool, message->color, message->thick, message->points, message->sender);
}

QByteArray extendedDrawCall(const char* command)
{
    const auto message = literal::readExtendedDraw(command);
    return message ? call("extendedDraw", message->tool, message->data, message->sender) : QByteArray();
}

QByteArray downloadFinishedCall(const char* command)
{
    const auto message = literal::readDownloadFinished(command);
    return message ? call("downloadFinished", message->result, message->sender) : QByteArray();
}

// The kinds whose shape is never tested.
QByteArray lobbyCall(signed char kind, const char* command)
{
    switch (kind) {
    case 2:
        return listCall("invitelistReceived", literal::readUntrimmedClients(command));
    case 3:
        return listCall("channelInvitelistReceived", literal::readUntrimmedChannels(command));
    case 5:
        return listCall("rejectlistReceived", literal::readUntrimmedClients(command));
    case 6:
        return clientCall("clientInvited", command);
    case 7:
        return channelCall("channelInvited", command);
    case 8:
        return clientCall("clientTakenBack", command);
    case 9:
        return channelCall("channelTakenBack", command);
    case 10:
        return clientCall("clientAcceptedInvite", command);
    case 11:
        return clientCall("clientRejectedInvite", command);
    default:
        return clientCall("clientRejectedInviteVersion", command);
    }
}

} // namespace

QByteArray literalDispatch(const char* command, bool pong)
{
    signed char kind = 0;
    std::sscanf(command, "%c", reinterpret_cast<char*>(&kind));
    switch (kind) {
    case 1:
        return inviteCall(command);
    case 4:
        return acceptlistCall(command);
    case 13:
        return call("accept", literal::readSender(command).sender);
    case 14:
        return call("reject", literal::readSender(command).sender);
    case 15:
        return call("rejectVersion", literal::readSender(command).sender);
    case 16:
        return startCall(command);
    case 17:
        return drawCall(command);
    case 18:
        return call("logout", literal::readSender(command).sender);
    case 19:
        return extendedDrawCall(command);
    case 20:
        return downloadFinishedCall(command);
    case 21:
        return call("takeBack", literal::readTakeBack(command).sender);
    case 22:
        return pong ? trimmedCall("sendPong", command) : QByteArray();
    case 23:
        return trimmedCall("pong", command);
    case 24:
        return trimmedCall("busy", command);
    default:
        return kind >= 1 && kind <= 24 ? lobbyCall(kind, command) : QByteArray();
    }
}
