#include "pluginevents.h"

#include "errortexts.h"
#include "hostservice.h"
#include "pluginlibrary.h"
#include "voiceconnection.h"

namespace {

// Stands for the public key that a real server knows each client by.
QByteArray identityOf(quint16 client) { return client == 0 ? QByteArray() : "stand-in-" + QByteArray::number(client); }

} // namespace

pluginevents::pluginevents(voiceconnection* connection, pluginlibrary* plugin)
    : QObject(connection)
    , connection(connection)
    , plugin(plugin)
{
    connectChannels();
    connectClients();
    connectFiles();
    connect(connection, &voiceconnection::commandReceived, this, &pluginevents::tellCommand);
}

void pluginevents::connectChannels()
{
    const uint64 schid = connection->id();
    const auto nameOf = [this](quint16 client) { return connection->voices().client(client).nickname.toUtf8(); };
    connect(connection, &voiceconnection::channelAdded, this,
            [=](quint64 channel, quint64 parent, quint16 invoker, bool initial) {
                if (initial)
                    plugin->callEvent("ts3plugin_onNewChannelEvent", schid, uint64(channel), uint64(parent));
                else
                    plugin->callEvent("ts3plugin_onNewChannelCreatedEvent", schid, uint64(channel), uint64(parent),
                                      anyID(invoker), nameOf(invoker).constData(), identityOf(invoker).constData());
            });
    connect(connection, &voiceconnection::channelRemoved, this, [=](quint64 channel, quint16 invoker) {
        plugin->callEvent("ts3plugin_onDelChannelEvent", schid, uint64(channel), anyID(invoker),
                          nameOf(invoker).constData(), identityOf(invoker).constData());
    });
    connect(connection, &voiceconnection::channelMoved, this, [=](quint64 channel, quint64 parent, quint16 invoker) {
        plugin->callEvent("ts3plugin_onChannelMoveEvent", schid, uint64(channel), uint64(parent), anyID(invoker),
                          nameOf(invoker).constData(), identityOf(invoker).constData());
    });
}

void pluginevents::connectClients()
{
    const uint64 schid = connection->id();
    connect(connection, &voiceconnection::clientEntered, this, [=](quint16 client, quint64 channel) {
        plugin->callEvent("ts3plugin_onClientMoveEvent", schid, anyID(client), uint64(0), uint64(channel),
                          int(ENTER_VISIBILITY), "");
    });
    connect(connection, &voiceconnection::clientLeft, this, [=](quint16 client, quint64 channel, bool timedOut) {
        plugin->callEvent(timedOut ? "ts3plugin_onClientMoveTimeoutEvent" : "ts3plugin_onClientMoveEvent", schid,
                          anyID(client), uint64(channel), uint64(0), int(LEAVE_VISIBILITY),
                          timedOut ? "connection lost" : "leaving");
    });
    connect(connection, &voiceconnection::clientMoved, this, &pluginevents::tellMove);
}

void pluginevents::connectFiles()
{
    const uint64 schid = connection->id();
    connect(connection, &voiceconnection::fileListed, this,
            [=](quint64 channel, const QByteArray& path, const fileentry& entry) {
                plugin->callEvent("ts3plugin_onFileListEvent", schid, uint64(channel), path.constData(),
                                  entry.name.constData(), uint64(entry.size), uint64(entry.modified),
                                  int(entry.directory ? FileListType_Directory : FileListType_File), uint64(0),
                                  static_cast<const char*>(nullptr));
            });
    connect(connection, &voiceconnection::transferStatus, this,
            [=](quint16 transfer, unsigned int status, quint64 remaining) {
                const QByteArray words = errorWords(status).toUtf8();
                plugin->callEvent("ts3plugin_onFileTransferStatusEvent", anyID(transfer), status, words.constData(),
                                  uint64(remaining), schid);
            });
}

void pluginevents::tellMove(quint16 client, quint64 before, quint64 channel, quint16 invoker)
{
    const uint64 schid = connection->id();
    if (invoker == client) {
        plugin->callEvent("ts3plugin_onClientMoveEvent", schid, anyID(client), uint64(before), uint64(channel),
                          int(RETAIN_VISIBILITY), "");
        return;
    }
    const QByteArray name = connection->voices().client(invoker).nickname.toUtf8();
    plugin->callEvent("ts3plugin_onClientMoveMovedEvent", schid, anyID(client), uint64(before), uint64(channel),
                      int(RETAIN_VISIBILITY), anyID(invoker), name.constData(), identityOf(invoker).constData(), "");
}

void pluginevents::tellCommand(const QByteArray& sender, const QByteArray& text, quint16 invoker)
{
    // Counted also when no plugin runs: a client that is played by hand looks for what it gets.
    plugin->service().traffic.countReceived(text, invoker);
    const QByteArray name = connection->voices().client(invoker).nickname.toUtf8();
    const QByteArray identity = identityOf(invoker);
    plugin->deliverCommand(connection->id(), sender, text, {invoker, name.constData(), identity.constData()});
}
