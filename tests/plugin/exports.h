#pragma once

#include "hostapi/ts3functions.h"

// The exported functions as the voice client declares them for itself.
extern "C" {

const char* ts3plugin_name();
const char* ts3plugin_version();
int ts3plugin_apiVersion();
const char* ts3plugin_author();
const char* ts3plugin_description();
const char* ts3plugin_commandKeyword();
int ts3plugin_offersConfigure();
void ts3plugin_setFunctionPointers(const TS3Functions functions);
int ts3plugin_init();
void ts3plugin_shutdown();
void ts3plugin_configure(void* handle, void* parent);
int ts3plugin_processCommand(uint64 schid, const char* command);
void ts3plugin_onNewChannelEvent(uint64 schid, uint64 channel, uint64 parent);
void ts3plugin_onNewChannelCreatedEvent(uint64 schid, uint64 channel, uint64 parent, anyID invoker, const char* name,
                                        const char* identity);
void ts3plugin_onDelChannelEvent(uint64 schid, uint64 channel, anyID invoker, const char* name, const char* identity);
void ts3plugin_onChannelMoveEvent(uint64 schid, uint64 channel, uint64 newParent, anyID invoker, const char* name,
                                  const char* identity);
void ts3plugin_onClientMoveEvent(uint64 schid, anyID client, uint64 oldChannel, uint64 newChannel, int visibility,
                                 const char* message);
void ts3plugin_onClientMoveTimeoutEvent(uint64 schid, anyID client, uint64 oldChannel, uint64 newChannel,
                                        int visibility, const char* message);
void ts3plugin_onClientMoveMovedEvent(uint64 schid, anyID client, uint64 oldChannel, uint64 newChannel, int visibility,
                                      anyID mover, const char* name, const char* identity, const char* message);
void ts3plugin_onFileListEvent(uint64 schid, uint64 channel, const char* path, const char* name, uint64 size,
                               uint64 datetime, int type, uint64 incompleteSize, const char* returnCode);
void ts3plugin_onFileTransferStatusEvent(anyID transfer, unsigned int status, const char* message, uint64 left,
                                         uint64 schid);

#if KELVOR_HOST_INTERFACE == 26
int ts3plugin_requestAutoload();
void ts3plugin_registerPluginID(const char* id);
void ts3plugin_onPluginCommandEvent(uint64 schid, const char* plugin, const char* command, anyID invoker,
                                    const char* name, const char* identity);
#else
void ts3plugin_registerPluginCommandID(const char* id);
void ts3plugin_onPluginCommandEvent(uint64 schid, const char* plugin, const char* command);
#endif

} // extern "C"
