#include "fakehost.h"

#include "hostapi/stubtable.h"

#include <cstdlib>
#include <cstring>

namespace {

fakehost* current = nullptr;

// Counts a call; true when the function is to fail.
bool enter(const char* function)
{
    ++current->calls[function];
    return current->failing.contains(function);
}

unsigned int giveText(const QByteArray& text, char** result)
{
    *result = static_cast<char*>(std::malloc(static_cast<std::size_t>(text.size()) + 1));
    std::memcpy(*result, text.constData(), static_cast<std::size_t>(text.size()) + 1);
    ++current->outstanding;
    return ERROR_ok;
}

template <typename T> unsigned int giveList(const QList<T>& list, T** result)
{
    *result = static_cast<T*>(std::calloc(static_cast<std::size_t>(list.size()) + 1, sizeof(T)));
    std::copy(list.begin(), list.end(), *result);
    ++current->outstanding;
    return ERROR_ok;
}

void givePath(const QByteArray& path, char* buffer, size_t length)
{
    qstrncpy(buffer, path.constData(), static_cast<uint>(length));
}

fakeserver* serverOf(uint64 schid)
{
    const auto found = current->servers.find(schid);
    return found == current->servers.end() ? nullptr : &*found;
}

fakeclient* clientOf(uint64 schid, anyID id)
{
    fakeserver* server = serverOf(schid);
    return server && server->clients.contains(id) ? &server->clients[id] : nullptr;
}

fakechannel* channelOf(uint64 schid, uint64 id)
{
    fakeserver* server = serverOf(schid);
    return server && server->channels.contains(id) ? &server->channels[id] : nullptr;
}

unsigned int getErrorMessage(unsigned int error, char** result)
{
    if (enter("getErrorMessage"))
        return current->failure;
    return giveText("error " + QByteArray::number(error, 16), result);
}

unsigned int freeMemory(void* pointer)
{
    --current->outstanding;
    std::free(pointer);
    return ERROR_ok;
}

unsigned int playWaveFile(uint64, const char* path)
{
    if (enter("playWaveFile"))
        return current->failure;
    current->played.append(path);
    return ERROR_ok;
}

unsigned int getClientID(uint64 schid, anyID* result)
{
    if (enter("getClientID") || !serverOf(schid))
        return current->failure;
    *result = serverOf(schid)->ownID;
    return ERROR_ok;
}

unsigned int getClientSelfVariableAsInt(uint64 schid, size_t flag, int* result)
{
    if (enter("getClientSelfVariableAsInt") || !serverOf(schid) || flag != CLIENT_AWAY)
        return current->failure;
    *result = serverOf(schid)->away ? 1 : 0;
    return ERROR_ok;
}

unsigned int getClientVariableAsString(uint64 schid, anyID id, size_t flag, char** result)
{
    const fakeclient* client = clientOf(schid, id);
    if (enter("getClientVariableAsString") || !client)
        return current->failure;
    if (flag == CLIENT_NICKNAME && !enter("getClientVariableAsString:nickname"))
        return giveText(client->nickname, result);
    if (flag == CLIENT_PLATFORM && !enter("getClientVariableAsString:platform"))
        return giveText(client->platform, result);
    return current->failure;
}

unsigned int getClientList(uint64 schid, anyID** result)
{
    if (enter("getClientList") || !serverOf(schid))
        return current->failure;
    return giveList(serverOf(schid)->clientOrder, result);
}

unsigned int getChannelOfClient(uint64 schid, anyID id, uint64* result)
{
    const fakeclient* client = clientOf(schid, id);
    if (enter("getChannelOfClient") || !client)
        return current->failure;
    *result = client->channel;
    return ERROR_ok;
}

unsigned int getChannelVariableAsInt(uint64 schid, uint64 id, size_t flag, int* result)
{
    const fakechannel* channel = channelOf(schid, id);
    if (enter("getChannelVariableAsInt") || !channel || flag != CHANNEL_FLAG_PASSWORD)
        return current->failure;
    *result = channel->password ? 1 : 0;
    return ERROR_ok;
}

unsigned int getChannelVariableAsUInt64(uint64 schid, uint64 id, size_t flag, uint64* result)
{
    const fakechannel* channel = channelOf(schid, id);
    if (enter("getChannelVariableAsUInt64") || !channel || flag != CHANNEL_ORDER)
        return current->failure;
    *result = channel->order;
    return ERROR_ok;
}

unsigned int getChannelVariableAsString(uint64 schid, uint64 id, size_t flag, char** result)
{
    const fakechannel* channel = channelOf(schid, id);
    if (enter("getChannelVariableAsString") || !channel || flag != CHANNEL_NAME)
        return current->failure;
    return giveText(channel->name, result);
}

unsigned int getChannelList(uint64 schid, uint64** result)
{
    if (enter("getChannelList") || !serverOf(schid))
        return current->failure;
    return giveList(serverOf(schid)->channelOrder, result);
}

unsigned int getParentChannelOfChannel(uint64 schid, uint64 id, uint64* result)
{
    const fakechannel* channel = channelOf(schid, id);
    if (enter("getParentChannelOfChannel") || !channel)
        return current->failure;
    *result = channel->parent;
    return ERROR_ok;
}

unsigned int getServerVariableAsString(uint64 schid, size_t flag, char** result)
{
    if (enter("getServerVariableAsString") || !serverOf(schid) || flag != VIRTUALSERVER_NAME)
        return current->failure;
    return giveText(serverOf(schid)->name, result);
}

unsigned int getConnectionStatus(uint64 schid, int* result)
{
    if (enter("getConnectionStatus") || !serverOf(schid))
        return current->failure;
    *result = STATUS_CONNECTION_ESTABLISHED;
    return ERROR_ok;
}

unsigned int startTransfer(const char* function, uint64 schid, uint64 channel, const char* password, const char* file,
                           int overwrite, int resume, const char* directory, anyID* result)
{
    if (enter(function))
        return current->failure;
    *result = current->nextTransfer++;
    current->requests.append({function, schid, channel, password, file, directory, overwrite, resume, *result});
    return ERROR_ok;
}

unsigned int sendFile(uint64 schid, uint64 channel, const char* password, const char* file, int overwrite, int resume,
                      const char* directory, anyID* result, const char*)
{
    return startTransfer("sendFile", schid, channel, password, file, overwrite, resume, directory, result);
}

unsigned int requestFile(uint64 schid, uint64 channel, const char* password, const char* file, int overwrite,
                         int resume, const char* directory, anyID* result, const char*)
{
    return startTransfer("requestFile", schid, channel, password, file, overwrite, resume, directory, result);
}

unsigned int requestFileList(uint64 schid, uint64 channel, const char* password, const char* path, const char*)
{
    if (enter("requestFileList"))
        return current->failure;
    current->requests.append({"requestFileList", schid, channel, password, path, QByteArray(), -1, -1, 0});
    return ERROR_ok;
}

void getConfigPath(char* path, size_t length)
{
    enter("getConfigPath");
    givePath(current->configPath, path, length);
}

#if KELVOR_HOST_INTERFACE == 26
void getPluginPath(char* path, size_t length, const char*)
#else
void getPluginPath(char* path, size_t length)
#endif
{
    enter("getPluginPath");
    givePath(current->pluginPath, path, length);
}

uint64 getCurrentServerConnectionHandlerID() { return current->currentConnection; }

void printMessageToCurrentTab(const char* message) { current->printed.append(message); }

void record(uint64 schid, const char* pluginID, const char* command, int mode, const anyID* targets)
{
    QList<anyID> list;
    for (; targets && *targets; ++targets)
        list.append(*targets);
    current->sent.append({schid, pluginID, command, mode, list});
}

#if KELVOR_HOST_INTERFACE == 26
void sendPluginCommand(uint64 schid, const char* pluginID, const char* command, int mode, const anyID* targets,
                       const char*)
#else
void sendPluginCommand(uint64 schid, const char* pluginID, const char* command, int mode, const anyID* targets)
#endif
{
    record(schid, pluginID, command, mode, targets);
}

} // namespace

bool operator==(const sentcommand& a, const sentcommand& b)
{
    return a.schid == b.schid && a.pluginID == b.pluginID && a.text == b.text && a.targetMode == b.targetMode
        && a.targets == b.targets;
}

void fakeserver::addClient(anyID id, const QByteArray& nickname, uint64 channel, const QByteArray& platform)
{
    clientOrder.append(id);
    clients.insert(id, {nickname, channel, platform});
}

void fakeserver::addChannel(uint64 id, const QByteArray& name, uint64 parent, bool password)
{
    channelOrder.append(id);
    channels.insert(id, {name, parent, 0, password});
}

fakehost::fakehost()
{
    Q_ASSERT(!current);
    current = this;
}

fakehost::~fakehost() { current = nullptr; }

fakeserver& fakehost::addServer(uint64 schid)
{
    fakeserver& server = servers[schid];
    server.addChannel(1, "Lobby");
    server.addClient(1, "Me");
    return server;
}

QList<sentcommand> fakehost::takeSent()
{
    QList<sentcommand> taken;
    taken.swap(sent);
    return taken;
}

QList<QByteArray> fakehost::takeTexts()
{
    QList<QByteArray> texts;
    const QList<sentcommand> taken = takeSent();
    for (const sentcommand& command : taken)
        texts.append(command.text);
    return texts;
}

TS3Functions fakehost::table() const
{
    TS3Functions table = stubTable();
    table.getErrorMessage = getErrorMessage;
    table.freeMemory = freeMemory;
    table.playWaveFile = playWaveFile;
    table.getClientID = getClientID;
    table.getClientSelfVariableAsInt = getClientSelfVariableAsInt;
    table.getClientVariableAsString = getClientVariableAsString;
    table.getClientList = getClientList;
    table.getChannelOfClient = getChannelOfClient;
    table.getChannelVariableAsInt = getChannelVariableAsInt;
    table.getChannelVariableAsUInt64 = getChannelVariableAsUInt64;
    table.getChannelVariableAsString = getChannelVariableAsString;
    table.getChannelList = getChannelList;
    table.getParentChannelOfChannel = getParentChannelOfChannel;
    table.getServerVariableAsString = getServerVariableAsString;
    table.getConnectionStatus = getConnectionStatus;
    table.sendFile = sendFile;
    table.requestFile = requestFile;
    table.requestFileList = requestFileList;
    table.getConfigPath = getConfigPath;
    table.getPluginPath = getPluginPath;
    table.getCurrentServerConnectionHandlerID = getCurrentServerConnectionHandlerID;
    table.printMessageToCurrentTab = printMessageToCurrentTab;
    table.sendPluginCommand = sendPluginCommand;
    return table;
}
