#include "hostcalls.h"

namespace {

// Takes over a text of the client: decodes it and gives the memory back.
QString takeText(const TS3Functions& functions, char* text)
{
    const QString decoded = QString::fromUtf8(text);
    functions.freeMemory(text);
    return decoded;
}

// Asks for a text by ask(char **), which returns an error code.
template <typename Ask> std::optional<QString> textOf(const TS3Functions& functions, Ask ask)
{
    char* text = nullptr;
    if (ask(&text) != ERROR_ok || !text)
        return std::nullopt;
    return takeText(functions, text);
}

// Asks for a list by ask(T **), ended by 0.
template <typename T, typename Ask> std::optional<QList<T>> listOf(const TS3Functions& functions, Ask ask)
{
    T* entries = nullptr;
    if (ask(&entries) != ERROR_ok || !entries)
        return std::nullopt;
    QList<T> list;
    for (const T* entry = entries; *entry; ++entry)
        list.append(*entry);
    functions.freeMemory(entries);
    return list;
}

} // namespace

namespace hostcalls {

std::optional<QString> serverName(const TS3Functions& functions, uint64 schid)
{
    return textOf(functions,
                  [&](char** text) { return functions.getServerVariableAsString(schid, VIRTUALSERVER_NAME, text); });
}

std::optional<QString> clientText(const TS3Functions& functions, uint64 schid, anyID client, ClientProperties property)
{
    return textOf(functions,
                  [&](char** text) { return functions.getClientVariableAsString(schid, client, property, text); });
}

std::optional<QString> channelName(const TS3Functions& functions, uint64 schid, uint64 channel)
{
    return textOf(functions, [&](char** text) {
        return functions.getChannelVariableAsString(schid, channel, CHANNEL_NAME, text);
    });
}

bool channelHasPassword(const TS3Functions& functions, uint64 schid, uint64 channel)
{
    int flag = 0;
    return functions.getChannelVariableAsInt(schid, channel, CHANNEL_FLAG_PASSWORD, &flag) == ERROR_ok && flag == 1;
}

QString errorText(const TS3Functions& functions, unsigned int error)
{
    return textOf(functions, [&](char** text) { return functions.getErrorMessage(error, text); }).value_or(QString());
}

std::optional<anyID> ownClientID(const TS3Functions& functions, uint64 schid)
{
    anyID id = 0;
    if (functions.getClientID(schid, &id) != ERROR_ok)
        return std::nullopt;
    return id;
}

std::optional<QList<anyID>> clients(const TS3Functions& functions, uint64 schid)
{
    return listOf<anyID>(functions, [&](anyID** list) { return functions.getClientList(schid, list); });
}

std::optional<QList<uint64>> channels(const TS3Functions& functions, uint64 schid)
{
    return listOf<uint64>(functions, [&](uint64** list) { return functions.getChannelList(schid, list); });
}

QString configPath(const TS3Functions& functions)
{
    char path[pathLength] = "";
    functions.getConfigPath(path, sizeof(path));
    path[sizeof(path) - 1] = '\0';
    return QString::fromLocal8Bit(path);
}

QString pluginPath(const TS3Functions& functions)
{
    char path[pathLength] = "";
#if KELVOR_HOST_INTERFACE == 26
    functions.getPluginPath(path, sizeof(path), nullptr);
#else
    functions.getPluginPath(path, sizeof(path));
#endif
    path[sizeof(path) - 1] = '\0';
    return QString::fromLocal8Bit(path);
}

void printToCurrentTab(const TS3Functions& functions, const QString& text)
{
    functions.printMessageToCurrentTab(text.toLatin1().constData());
}

void sendToClients(const TS3Functions& functions, uint64 schid, const char* pluginID, const char* command,
                   const anyID* targets)
{
#if KELVOR_HOST_INTERFACE == 26
    functions.sendPluginCommand(schid, pluginID, command, PluginCommandTarget_CLIENT, targets, nullptr);
#else
    functions.sendPluginCommand(schid, pluginID, command, PluginCommandTarget_CLIENT, targets);
#endif
}

} // namespace hostcalls
