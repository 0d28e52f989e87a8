// The questions of the plugin about clients, channels and files; the rest of hostservice stands in hostservice.cpp.
#include "hostservice.h"

#include "voiceconnection.h"

namespace {

QByteArray bytesOf(const char* text) { return text ? QByteArray(text) : QByteArray(); }

// Lets work(connection) answer, when there is a connection that it can be asked of.
template <typename Work> unsigned int ask(const hostservice& host, uint64 schid, Work work)
{
    voiceconnection* const server = host.connection(schid);
    return server && server->isEstablished() ? work(*server) : static_cast<unsigned int>(ERROR_not_connected);
}

// The same for work(channel).
template <typename Work> unsigned int askChannel(const hostservice& host, uint64 schid, uint64 id, Work work)
{
    return ask(host, schid, [&](const voiceconnection& server) {
        return server.voices().hasChannel(id) ? work(server.voices().channel(id))
                                              : static_cast<unsigned int>(ERROR_channel_invalid_id);
    });
}

// The same for work(client).
template <typename Work> unsigned int askClient(const hostservice& host, uint64 schid, anyID id, Work work)
{
    return ask(host, schid, [&](const voiceconnection& server) {
        return server.voices().hasClient(id) ? work(server.voices().client(id))
                                             : static_cast<unsigned int>(ERROR_client_invalid_id);
    });
}

// Stores what was asked for when the variable is one that the stand-in keeps.
template <typename Value, typename Result> unsigned int giveIf(bool known, const Value& value, Result* result)
{
    if (!known)
        return ERROR_not_implemented;
    *result = Result(value);
    return ERROR_ok;
}

} // namespace

unsigned int hostservice::getClientID(uint64 schid, anyID* result) const
{
    return ask(*this, schid, [&](const voiceconnection& server) { return giveIf(true, server.ownID(), result); });
}

unsigned int hostservice::getClientSelfVariableAsInt(uint64 schid, size_t flag, int* result) const
{
    return ask(*this, schid,
               [&](const voiceconnection& server) { return giveIf(flag == CLIENT_AWAY, server.isAway(), result); });
}

unsigned int hostservice::getServerVariableAsString(uint64 schid, size_t flag, char** result)
{
    return ask(*this, schid, [&](const voiceconnection& server) -> unsigned int {
        if (flag != VIRTUALSERVER_NAME)
            return ERROR_not_implemented;
        *result = memory.text(server.title().toUtf8());
        return ERROR_ok;
    });
}

unsigned int hostservice::getClientVariableAsString(uint64 schid, anyID client, size_t flag, char** result)
{
    return askClient(*this, schid, client, [&](const voiceclientinfo& info) -> unsigned int {
        if (flag != CLIENT_NICKNAME && flag != CLIENT_PLATFORM)
            return ERROR_not_implemented;
        *result = memory.text((flag == CLIENT_NICKNAME ? info.nickname : info.platform).toUtf8());
        return ERROR_ok;
    });
}

unsigned int hostservice::getClientList(uint64 schid, anyID** result)
{
    return ask(*this, schid, [&](const voiceconnection& server) {
        return giveIf(true, memory.list(server.voices().clientIDs().toVector()), result);
    });
}

unsigned int hostservice::getChannelClientList(uint64 schid, uint64 channel, anyID** result)
{
    return ask(*this, schid, [&](const voiceconnection& server) -> unsigned int {
        if (!server.voices().hasChannel(channel))
            return ERROR_channel_invalid_id;
        *result = memory.list(server.voices().clientsIn(channel).toVector());
        return ERROR_ok;
    });
}

unsigned int hostservice::getChannelOfClient(uint64 schid, anyID client, uint64* result) const
{
    return askClient(*this, schid, client,
                     [&](const voiceclientinfo& info) { return giveIf(true, info.channel, result); });
}

unsigned int hostservice::getChannelList(uint64 schid, uint64** result)
{
    return ask(*this, schid, [&](const voiceconnection& server) {
        return giveIf(true, memory.list(server.voices().branch(0)), result);
    });
}

unsigned int hostservice::getParentChannelOfChannel(uint64 schid, uint64 channel, uint64* result) const
{
    return askChannel(*this, schid, channel,
                      [&](const voicechannel& info) { return giveIf(true, info.parent, result); });
}

unsigned int hostservice::getChannelVariableAsInt(uint64 schid, uint64 channel, size_t flag, int* result) const
{
    return askChannel(*this, schid, channel, [&](const voicechannel& info) {
        return giveIf(flag == CHANNEL_FLAG_PASSWORD, info.hasPassword, result);
    });
}

unsigned int hostservice::getChannelVariableAsUInt64(uint64 schid, uint64 channel, size_t flag, uint64* result) const
{
    return askChannel(*this, schid, channel,
                      [&](const voicechannel& info) { return giveIf(flag == CHANNEL_ORDER, info.order, result); });
}

unsigned int hostservice::getChannelVariableAsString(uint64 schid, uint64 channel, size_t flag, char** result)
{
    return askChannel(*this, schid, channel, [&](const voicechannel& info) -> unsigned int {
        if (flag != CHANNEL_NAME)
            return ERROR_not_implemented;
        *result = memory.text(info.name.toUtf8());
        return ERROR_ok;
    });
}

unsigned int hostservice::getServerConnectionHandlerList(uint64** result)
{
    QVector<quint64> ids;
    for (const voiceconnection* server : qAsConst(connections))
        ids.append(server->id());
    *result = memory.list(ids);
    return ERROR_ok;
}

unsigned int hostservice::requestFileList(uint64 schid, uint64 channel, const char* password, const char* path)
{
    return ask(*this, schid,
               [&](voiceconnection& server) { return server.listFiles(channel, bytesOf(password), bytesOf(path)); });
}

unsigned int hostservice::sendFile(uint64 schid, const transferrequest& request, anyID* result)
{
    return ask(*this, schid, [&](voiceconnection& server) { return server.transfers().startUpload(request, result); });
}

unsigned int hostservice::requestFile(uint64 schid, const transferrequest& request, anyID* result)
{
    return ask(*this, schid,
               [&](voiceconnection& server) { return server.transfers().startDownload(request, result); });
}

unsigned int hostservice::haltTransfer(uint64 schid, anyID transfer)
{
    return ask(*this, schid, [&](voiceconnection& server) { return server.transfers().halt(transfer); });
}
