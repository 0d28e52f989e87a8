// A plugin that says what the client does with it: each event becomes a line in the current tab, and words behind the
// keyword "test" make it call the client. Built once for each version of the interface, and once for one that no client
// speaks. No toolkit and few headers: whatever left a unique symbol in it would keep it mapped.
#include "hostapi/ts3functions.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#define EXPORTED extern "C" __attribute__((visibility("default")))

namespace {

TS3Functions host;
char commandID[64] = "";

template <typename... Value> void say(const char* format, Value... values)
{
    char line[512];
    std::snprintf(line, sizeof(line), format, values...);
    host.printMessageToCurrentTab(line);
}

// Asks for texts and lists of each kind and gives all of them back.
void askAround(uint64 schid)
{
    char* text = nullptr;
    if (host.getServerVariableAsString(schid, VIRTUALSERVER_NAME, &text) == ERROR_ok && text) {
        say("server %s", text);
        host.freeMemory(text);
    }
    anyID* clients = nullptr;
    unsigned int error = host.getClientList(schid, &clients);
    if (error != ERROR_ok)
        say("clients failed with %u", error);
    for (const anyID* client = clients; client && *client; ++client) {
        error = host.getClientVariableAsString(schid, *client, CLIENT_NICKNAME, &text);
        if (error != ERROR_ok) {
            say("client failed with %u", error);
        } else {
            say("client %s", text ? text : "(null)");
            if (text)
                host.freeMemory(text);
        }
    }
    if (clients)
        host.freeMemory(clients);
    uint64* channels = nullptr;
    if (host.getChannelList(schid, &channels) == ERROR_ok && channels) {
        int count = 0;
        while (channels[count])
            ++count;
        say("channels %d", count);
        host.freeMemory(channels);
    }
}

void sendToSelf(uint64 schid, const char* id)
{
    anyID self[2] = {0, 0};
    if (host.getClientID(schid, self) != ERROR_ok)
        return;
#if KELVOR_HOST_INTERFACE == 26
    host.sendPluginCommand(schid, id, "\x11 hello", PluginCommandTarget_CLIENT, self, nullptr);
#else
    host.sendPluginCommand(schid, id, "\x11 hello", PluginCommandTarget_CLIENT, self);
#endif
}

void keepId(const char* id) { std::snprintf(commandID, sizeof(commandID), "%s", id); }

void sayMove(const char* event, uint64 schid, anyID client, uint64 before, uint64 channel, int visibility)
{
    say("%s %llu %u %llu %llu %d", event, static_cast<unsigned long long>(schid), unsigned(client),
        static_cast<unsigned long long>(before), static_cast<unsigned long long>(channel), visibility);
}

} // namespace

EXPORTED const char* ts3plugin_name() { return "test plugin"; }
EXPORTED const char* ts3plugin_version() { return "1"; }
EXPORTED int ts3plugin_apiVersion() { return TESTPLUGIN_API; }
EXPORTED const char* ts3plugin_author() { return "tests"; }
EXPORTED const char* ts3plugin_description() { return "says what the client does"; }
EXPORTED void ts3plugin_setFunctionPointers(const TS3Functions funcs) { host = funcs; }
EXPORTED int ts3plugin_init() { return std::getenv("TESTPLUGIN_REFUSES") ? 1 : 0; }
EXPORTED void ts3plugin_shutdown() { say("shutdown"); }
EXPORTED int ts3plugin_offersConfigure() { return PLUGIN_OFFERS_CONFIGURE_QT_THREAD; }
EXPORTED void ts3plugin_configure(void*, void* parent)
{
    say("configure %s", parent ? "with parent" : "without parent");
}
EXPORTED const char* ts3plugin_commandKeyword() { return "test"; }

#if KELVOR_HOST_INTERFACE == 26
EXPORTED void ts3plugin_registerPluginID(const char* id) { keepId(id); }

EXPORTED void ts3plugin_onPluginCommandEvent(uint64 schid, const char* plugin, const char* command, anyID invoker,
                                             const char* name, const char* identity)
{
    say("command %llu %s %s by %u %s %s", static_cast<unsigned long long>(schid), plugin, command + 2,
        unsigned(invoker), name, *identity ? "known" : "unknown");
}
#else
EXPORTED void ts3plugin_registerPluginCommandID(const char* id) { keepId(id); }

EXPORTED void ts3plugin_onPluginCommandEvent(uint64 schid, const char* plugin, const char* command)
{
    say("command %llu %s %s", static_cast<unsigned long long>(schid), plugin, command + 2);
}
#endif

EXPORTED int ts3plugin_processCommand(uint64 schid, const char* command)
{
    char* text = nullptr;
    if (std::strcmp(command, "ask") == 0) {
        askAround(schid);
    } else if (std::strcmp(command, "send") == 0) {
        sendToSelf(schid, commandID);
    } else if (std::strcmp(command, "forge") == 0) {
        sendToSelf(schid, "somebody else");
    } else if (std::strcmp(command, "leak") == 0) {
        host.getServerVariableAsString(schid, VIRTUALSERVER_NAME, &text);
    } else if (std::strcmp(command, "wrong") == 0) {
        int own = 0;
        host.freeMemory(&own);
    } else if (std::strcmp(command, "paths") == 0) {
        char path[256] = "";
        host.getConfigPath(path, sizeof(path));
        say("config %s", path);
#if KELVOR_HOST_INTERFACE == 26
        host.getPluginPath(path, sizeof(path), nullptr);
#else
        host.getPluginPath(path, sizeof(path));
#endif
        say("plugins %s", path);
    } else if (std::strcmp(command, "rare") == 0) {
        say("rare %u", host.requestServerGroupList(schid, nullptr));
    } else {
        return 1;
    }
    return 0;
}

EXPORTED void ts3plugin_onNewChannelEvent(uint64, uint64 channel, uint64 parent)
{
    say("channel %d below %d", int(channel), int(parent));
}

EXPORTED void ts3plugin_onNewChannelCreatedEvent(uint64, uint64 channel, uint64 parent, anyID invoker, const char* name,
                                                 const char*)
{
    say("new channel %d below %d by %d %s", int(channel), int(parent), int(invoker), name);
}

EXPORTED void ts3plugin_onDelChannelEvent(uint64, uint64 channel, anyID invoker, const char* name, const char*)
{
    say("gone channel %d by %d %s", int(channel), int(invoker), name);
}

EXPORTED void ts3plugin_onChannelMoveEvent(uint64, uint64 channel, uint64 parent, anyID invoker, const char* name,
                                           const char*)
{
    say("moved channel %d below %d by %d %s", int(channel), int(parent), int(invoker), name);
}

EXPORTED void ts3plugin_onClientMoveEvent(uint64 schid, anyID client, uint64 before, uint64 channel, int visibility,
                                          const char*)
{
    sayMove("move", schid, client, before, channel, visibility);
}

EXPORTED void ts3plugin_onClientMoveTimeoutEvent(uint64 schid, anyID client, uint64 before, uint64 channel,
                                                 int visibility, const char*)
{
    sayMove("timeout", schid, client, before, channel, visibility);
}

EXPORTED void ts3plugin_onClientMoveMovedEvent(uint64 schid, anyID client, uint64 before, uint64 channel,
                                               int visibility, anyID mover, const char* name, const char*, const char*)
{
    sayMove("moved", schid, client, before, channel, visibility);
    say("mover %d %s", int(mover), name);
}

EXPORTED void ts3plugin_onFileListEvent(uint64, uint64 channel, const char* path, const char* name, uint64 size, uint64,
                                        int type, uint64, const char*)
{
    say("file %d %s %s %d %d", int(channel), path, name, int(size), type);
}

EXPORTED void ts3plugin_onFileTransferStatusEvent(anyID transfer, unsigned int status, const char*, uint64 remaining,
                                                  uint64 schid)
{
    say("transfer %d %u %d on %d", int(transfer), status, int(remaining), int(schid));
}
