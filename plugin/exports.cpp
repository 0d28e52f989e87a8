#include "kelvor.h"

#if KELVOR_HOST_INTERFACE == 26
#include "hostapi/pluginname.h"
#include "protocol/statedsender.h"
#endif

#include <new>

// The functions that the voice client finds by name. They hold no logic: each hands its call to the controller, if
// there is one. Texts become QStrings here byte by byte, but for a peer's message, which the endpoint reads itself.
// What differs between the versions of the interface stands together, in front of the events that do not.

namespace {

TS3Functions hostFunctions;
kelvor* controller = nullptr;

void takePluginID(const char* id)
{
    if (controller)
        controller->setPluginCommandID(id);
}

void takePluginCommand(uint64 schid, const QString& pluginName, const char* pluginCommand)
{
    if (controller)
        controller->handlePluginCommand(schid, pluginName, pluginCommand);
}

} // namespace

#ifdef _WIN32
#define KELVOR_EXPORT __declspec(dllexport)
#else
#define KELVOR_EXPORT __attribute__((visibility("default")))
#endif

extern "C" {

KELVOR_EXPORT const char* ts3plugin_name() { return "kelvor - Whiteboard"; }
KELVOR_EXPORT const char* ts3plugin_version() { return KELVOR_VERSION; }
KELVOR_EXPORT int ts3plugin_apiVersion() { return KELVOR_HOST_INTERFACE; }
KELVOR_EXPORT const char* ts3plugin_author() { return "The kelvor project"; }
KELVOR_EXPORT const char* ts3plugin_description() { return "Paint with other users on the TeamSpeak 3 server."; }
KELVOR_EXPORT const char* ts3plugin_commandKeyword() { return "kelvor"; }
KELVOR_EXPORT int ts3plugin_offersConfigure() { return PLUGIN_OFFERS_CONFIGURE_QT_THREAD; }

KELVOR_EXPORT void ts3plugin_setFunctionPointers(const TS3Functions functions) { hostFunctions = functions; }

KELVOR_EXPORT void ts3plugin_shutdown()
{
    // The pointer goes first: what the client says while the windows close has no receiver any more.
    kelvor* ending = controller;
    controller = nullptr;
    delete ending;
}

KELVOR_EXPORT int ts3plugin_init()
{
    ts3plugin_shutdown();
    controller = new (std::nothrow) kelvor(hostFunctions);
    return 0;
}

KELVOR_EXPORT void ts3plugin_configure(void*, void* qParentWidget)
{
    if (controller)
        controller->showConfigDialog(qParentWidget);
}

KELVOR_EXPORT int ts3plugin_processCommand(uint64 schid, const char* command)
{
    return controller && controller->handleCommand(schid, QString::fromLatin1(command)) ? 0 : 1;
}

#if KELVOR_HOST_INTERFACE == 26

// Whether the library is loaded with the client or by hand is the user's to decide.
KELVOR_EXPORT int ts3plugin_requestAutoload() { return 0; }

KELVOR_EXPORT void ts3plugin_registerPluginID(const char* pluginID) { takePluginID(pluginID); }

// Here the server says who spoke, so nobody can speak in another's name any more. Old servers leave the invoker 0.
KELVOR_EXPORT void ts3plugin_onPluginCommandEvent(uint64 schid, const char* pluginName, const char* pluginCommand,
                                                  anyID invokerClientID, const char*, const char*)
{
    if (wire::mayComeFrom(invokerClientID, pluginCommand))
        takePluginCommand(schid, pluginStem(QString::fromLatin1(pluginName)), pluginCommand);
}

#else

KELVOR_EXPORT void ts3plugin_registerPluginCommandID(const char* commandID) { takePluginID(commandID); }

KELVOR_EXPORT void ts3plugin_onPluginCommandEvent(uint64 schid, const char* pluginName, const char* pluginCommand)
{
    takePluginCommand(schid, QString::fromLatin1(pluginName), pluginCommand);
}

#endif

KELVOR_EXPORT void ts3plugin_onNewChannelEvent(uint64 schid, uint64 channelID, uint64 channelParentID)
{
    if (controller)
        emit controller->channelCreated(schid, channelID, channelParentID);
}

KELVOR_EXPORT void ts3plugin_onNewChannelCreatedEvent(uint64 schid, uint64 channelID, uint64 channelParentID, anyID,
                                                      const char*, const char*)
{
    ts3plugin_onNewChannelEvent(schid, channelID, channelParentID);
}

KELVOR_EXPORT void ts3plugin_onDelChannelEvent(uint64 schid, uint64 channelID, anyID, const char*, const char*)
{
    if (controller)
        emit controller->channelDeleted(schid, channelID);
}

KELVOR_EXPORT void ts3plugin_onChannelMoveEvent(uint64 schid, uint64 channelID, uint64 newChannelParentID, anyID,
                                                const char*, const char*)
{
    if (controller)
        emit controller->channelMoved(schid, channelID, newChannelParentID);
}

KELVOR_EXPORT void ts3plugin_onClientMoveEvent(uint64 schid, anyID clientID, uint64 oldChannelID, uint64 newChannelID,
                                               int visibility, const char*)
{
    if (controller)
        controller->handleClientMove(schid, clientID, oldChannelID, newChannelID, visibility);
}

KELVOR_EXPORT void ts3plugin_onClientMoveTimeoutEvent(uint64 schid, anyID clientID, uint64 oldChannelID,
                                                      uint64 newChannelID, int visibility, const char*)
{
    ts3plugin_onClientMoveEvent(schid, clientID, oldChannelID, newChannelID, visibility, nullptr);
}

KELVOR_EXPORT void ts3plugin_onClientMoveMovedEvent(uint64 schid, anyID clientID, uint64 oldChannelID,
                                                    uint64 newChannelID, int visibility, anyID, const char*,
                                                    const char*, const char*)
{
    ts3plugin_onClientMoveEvent(schid, clientID, oldChannelID, newChannelID, visibility, nullptr);
}

KELVOR_EXPORT void ts3plugin_onFileListEvent(uint64 schid, uint64 channelID, const char* path, const char* name,
                                             uint64 size, uint64 datetime, int type, uint64, const char*)
{
    if (controller)
        emit controller->fileList(schid, channelID, QString::fromLatin1(path), QString::fromLatin1(name), size,
                                  datetime, type);
}

// The client names the connection last here, unlike everywhere else.
KELVOR_EXPORT void ts3plugin_onFileTransferStatusEvent(anyID transferID, unsigned int status, const char* statusMessage,
                                                       uint64 remotefileSize, uint64 schid)
{
    if (controller)
        emit controller->fileTransferStatus(transferID, status, QString::fromLatin1(statusMessage), remotefileSize,
                                            schid);
}

} // extern "C"
