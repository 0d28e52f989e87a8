// Fills the table of functions for the plugin. Compiled once for each version of the interface, since the versions'
// tables bear one name; the build gives each its own, and names the function at the end after the version.

#include "hostflavour.h"
#include "hostservice.h"

#include "hostapi/stubtable.h"

#include <QFile>

#include <algorithm>

namespace {

constexpr int apiVersion = KELVOR_HOST_INTERFACE;

// Runs a function of the host, unless it was told to fail.
template <typename Work> unsigned int serve(const char* function, Work work)
{
    hostservice& host = hostservice::instance();
    const hostfailure failure = host.failures.next(function);
    return failure.kind == failurekind::error ? failure.code : work(host);
}

// The same for what hands out a text or a list, which can also come back empty or as null.
template <typename Result, typename Work> unsigned int hand(const char* function, Result** result, Work work)
{
    hostservice& host = hostservice::instance();
    const hostfailure failure = host.failures.next(function);
    if (failure.kind == failurekind::error)
        return failure.code;
    if (failure.kind == failurekind::nothing) {
        *result = nullptr;
        return ERROR_ok;
    }
    const unsigned int error = work(host);
    if (error == ERROR_ok && failure.kind == failurekind::empty)
        **result = 0;
    return error;
}

void copyPath(const char* function, const QByteArray& path, char* target, size_t length)
{
    if (length == 0)
        return;
    const bool works = hostservice::instance().failures.next(function).kind == failurekind::none;
    const size_t used = works ? std::min(size_t(path.size()), length - 1) : 0;
    std::copy_n(path.constData(), used, target);
    target[used] = '\0';
}

transferrequest requestOf(uint64 channel, const char* password, const char* file, int overwrite, const char* directory)
{
    return {channel, password ? password : "", file ? file : "", QFile::decodeName(directory ? directory : ""),
            overwrite != 0};
}

void fillMemory(TS3Functions* table)
{
    table->getClientLibVersion = [](char** result) {
        return hand("getClientLibVersion", result, [=](hostservice& host) {
            *result = host.memory.text("stand-in");
            return static_cast<unsigned int>(ERROR_ok);
        });
    };
    table->getErrorMessage = [](unsigned int code, char** text) {
        return hand("getErrorMessage", text, [=](hostservice& host) { return host.getErrorMessage(code, text); });
    };
    // Giving memory back never fails: a plugin could do nothing about it.
    table->freeMemory = [](void* memory) { return hostservice::instance().freeMemory(memory); };
}

void fillClients(TS3Functions* table)
{
    table->getClientID = [](uint64 schid, anyID* result) {
        return serve("getClientID", [=](hostservice& host) { return host.getClientID(schid, result); });
    };
    table->getClientSelfVariableAsInt = [](uint64 schid, size_t flag, int* result) {
        return serve("getClientSelfVariableAsInt",
                     [=](hostservice& host) { return host.getClientSelfVariableAsInt(schid, flag, result); });
    };
    table->getClientVariableAsString = [](uint64 schid, anyID client, size_t flag, char** result) {
        return hand("getClientVariableAsString", result,
                    [=](hostservice& host) { return host.getClientVariableAsString(schid, client, flag, result); });
    };
    table->getClientList = [](uint64 schid, anyID** result) {
        return hand("getClientList", result, [=](hostservice& host) { return host.getClientList(schid, result); });
    };
    table->getChannelOfClient = [](uint64 schid, anyID client, uint64* result) {
        return serve("getChannelOfClient",
                     [=](hostservice& host) { return host.getChannelOfClient(schid, client, result); });
    };
    table->getChannelClientList = [](uint64 schid, uint64 channel, anyID** result) {
        return hand("getChannelClientList", result,
                    [=](hostservice& host) { return host.getChannelClientList(schid, channel, result); });
    };
}

void fillChannels(TS3Functions* table)
{
    table->getChannelList = [](uint64 schid, uint64** result) {
        return hand("getChannelList", result, [=](hostservice& host) { return host.getChannelList(schid, result); });
    };
    table->getParentChannelOfChannel = [](uint64 schid, uint64 channel, uint64* result) {
        return serve("getParentChannelOfChannel",
                     [=](hostservice& host) { return host.getParentChannelOfChannel(schid, channel, result); });
    };
    table->getChannelVariableAsInt = [](uint64 schid, uint64 channel, size_t flag, int* result) {
        return serve("getChannelVariableAsInt",
                     [=](hostservice& host) { return host.getChannelVariableAsInt(schid, channel, flag, result); });
    };
    table->getChannelVariableAsUInt64 = [](uint64 schid, uint64 channel, size_t flag, uint64* result) {
        return serve("getChannelVariableAsUInt64",
                     [=](hostservice& host) { return host.getChannelVariableAsUInt64(schid, channel, flag, result); });
    };
    table->getChannelVariableAsString = [](uint64 schid, uint64 channel, size_t flag, char** result) {
        return hand("getChannelVariableAsString", result,
                    [=](hostservice& host) { return host.getChannelVariableAsString(schid, channel, flag, result); });
    };
}

void fillServers(TS3Functions* table)
{
    table->getServerVariableAsString = [](uint64 schid, size_t flag, char** result) {
        return hand("getServerVariableAsString", result,
                    [=](hostservice& host) { return host.getServerVariableAsString(schid, flag, result); });
    };
    table->getConnectionStatus = [](uint64 schid, int* result) {
        return serve("getConnectionStatus", [=](hostservice& host) { return host.getConnectionStatus(schid, result); });
    };
    table->getServerConnectionHandlerList = [](uint64** result) {
        return hand("getServerConnectionHandlerList", result,
                    [=](hostservice& host) { return host.getServerConnectionHandlerList(result); });
    };
    table->getCurrentServerConnectionHandlerID = [] { return hostservice::instance().currentConnection; };
}

void fillFiles(TS3Functions* table)
{
    table->requestFileList = [](uint64 schid, uint64 channel, const char* password, const char* path, const char*) {
        return serve("requestFileList",
                     [=](hostservice& host) { return host.requestFileList(schid, channel, password, path); });
    };
    table->sendFile = [](uint64 schid, uint64 channel, const char* password, const char* file, int overwrite, int,
                         const char* directory, anyID* result, const char*) {
        return serve("sendFile", [=](hostservice& host) {
            return host.sendFile(schid, requestOf(channel, password, file, overwrite, directory), result);
        });
    };
    table->requestFile = [](uint64 schid, uint64 channel, const char* password, const char* file, int overwrite, int,
                            const char* directory, anyID* result, const char*) {
        return serve("requestFile", [=](hostservice& host) {
            return host.requestFile(schid, requestOf(channel, password, file, overwrite, directory), result);
        });
    };
    table->haltTransfer = [](uint64 schid, anyID transfer, int, const char*) {
        return serve("haltTransfer", [=](hostservice& host) { return host.haltTransfer(schid, transfer); });
    };
}

// The arguments that only one version has are taken and left alone.
void fillPathsAndMessages(TS3Functions* table)
{
    table->getAppPath = [](char* path, size_t length) {
        copyPath("getAppPath", hostservice::instance().configPath(), path, length);
    };
    table->getResourcesPath = [](char* path, size_t length) {
        copyPath("getResourcesPath", hostservice::instance().configPath(), path, length);
    };
    table->getConfigPath = [](char* path, size_t length) {
        copyPath("getConfigPath", hostservice::instance().configPath(), path, length);
    };
    table->getPluginPath = [](char* path, size_t length, auto...) {
        copyPath("getPluginPath", hostservice::instance().pluginPath(), path, length);
    };
    table->playWaveFile = [](uint64 schid, const char* path) {
        return serve("playWaveFile", [=](hostservice& host) { return host.playWaveFile(schid, path); });
    };
    table->printMessageToCurrentTab = [](const char* text) { hostservice::instance().printMessageToCurrentTab(text); };
    table->sendPluginCommand = [](uint64 schid, const char* plugin, const char* command, int mode, const anyID* targets,
                                  auto...) {
        hostservice& host = hostservice::instance();
        if (host.failures.next("sendPluginCommand").kind == failurekind::none)
            host.sendPluginCommand(schid, plugin, command, mode, targets);
    };
}

void offerTable(QFunctionPointer setFunctionPointers)
{
    TS3Functions table = stubTable();
    fillMemory(&table);
    fillClients(&table);
    fillChannels(&table);
    fillServers(&table);
    fillFiles(&table);
    fillPathsAndMessages(&table);
    reinterpret_cast<void (*)(const TS3Functions)>(setFunctionPointers)(table);
}

void deliverCommand(QFunctionPointer event, uint64 schid, const char* plugin, const char* command,
                    const commandinvoker& invoker)
{
    if constexpr (apiVersion >= 26) {
        using receiver = void (*)(uint64, const char*, const char*, anyID, const char*, const char*);
        reinterpret_cast<receiver>(event)(schid, plugin, command, invoker.id, invoker.name, invoker.identity);
    } else {
        using receiver = void (*)(uint64, const char*, const char*);
        reinterpret_cast<receiver>(event)(schid, plugin, command);
    }
}

} // namespace

const hostflavour& KELVOR_FLAVOUR_NAME()
{
    static const hostflavour flavour{
        apiVersion, apiVersion >= 26 ? "ts3plugin_registerPluginID" : "ts3plugin_registerPluginCommandID", &offerTable,
        &deliverCommand};
    return flavour;
}
