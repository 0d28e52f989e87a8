#pragma once

#include "filetransfers.h"
#include "hostfailures.h"
#include "hostmemory.h"
#include "trafficcount.h"

#include "hostapi/hosttypes.h"

#include <QList>
#include <QObject>
#include <QString>

class voiceconnection;

/// What the client does for the plugin, behind the functions of either interface version: the same names, no table. One
/// lives a process, since those functions know no object.
class hostservice : public QObject {
    Q_OBJECT

public:
    /// configDirectory: the client's, ending in a separator.
    explicit hostservice(const QString& configDirectory, QObject* parent = nullptr);
    ~hostservice() override;
    static hostservice& instance();

    void addConnection(voiceconnection* connection);
    voiceconnection* connection(uint64 schid) const;
    const QList<voiceconnection*>& all() const { return connections; }

    hostmemory memory;
    hostfailures failures;
    trafficcount traffic;
    uint64 currentConnection = 1; ///< of the active tab
    QByteArray pluginID; ///< the id that the plugin was given, for this load of it only
    QByteArray pluginName; ///< what peers read as the command's sender

    QByteArray configPath() const { return config; }
    QByteArray pluginPath() const { return config + "plugins/"; }

    unsigned int getErrorMessage(unsigned int code, char** text);
    unsigned int freeMemory(void* handedOut);
    unsigned int getConnectionStatus(uint64 schid, int* result) const;
    unsigned int getClientID(uint64 schid, anyID* result) const;
    unsigned int getClientSelfVariableAsInt(uint64 schid, size_t flag, int* result) const;
    unsigned int getServerVariableAsString(uint64 schid, size_t flag, char** result);
    unsigned int getClientVariableAsString(uint64 schid, anyID client, size_t flag, char** result);
    unsigned int getClientList(uint64 schid, anyID** result);
    unsigned int getChannelClientList(uint64 schid, uint64 channel, anyID** result);
    unsigned int getChannelOfClient(uint64 schid, anyID client, uint64* result) const;
    unsigned int getChannelList(uint64 schid, uint64** result);
    unsigned int getParentChannelOfChannel(uint64 schid, uint64 channel, uint64* result) const;
    unsigned int getChannelVariableAsInt(uint64 schid, uint64 channel, size_t flag, int* result) const;
    unsigned int getChannelVariableAsUInt64(uint64 schid, uint64 channel, size_t flag, uint64* result) const;
    unsigned int getChannelVariableAsString(uint64 schid, uint64 channel, size_t flag, char** result);
    unsigned int getServerConnectionHandlerList(uint64** result);
    unsigned int requestFileList(uint64 schid, uint64 channel, const char* password, const char* path);
    unsigned int sendFile(uint64 schid, const transferrequest& request, anyID* result);
    unsigned int requestFile(uint64 schid, const transferrequest& request, anyID* result);
    unsigned int haltTransfer(uint64 schid, anyID transfer);
    unsigned int playWaveFile(uint64 schid, const char* path);
    void printMessageToCurrentTab(const char* text);
    void sendPluginCommand(uint64 schid, const char* plugin, const char* command, int targetMode, const anyID* targets);

signals:
    /// A line in the tab of a connection.
    void printed(quint64 schid, const QString& line);
    /// The plugin did something that a real client would resent; the text says what.
    void misused(const QString& sentence);

private:
    const QByteArray config;
    QList<voiceconnection*> connections;
};
