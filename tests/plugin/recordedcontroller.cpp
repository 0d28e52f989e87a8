#include "recordedcontroller.h"

#include "plugin/kelvor.h"
#include "tests/protocol/calltext.h"

using calltext::call;

namespace {

QList<QByteArray> calls;

template <typename... Arguments> void record(const char* name, const Arguments&... arguments)
{
    calls.append(call(name, arguments...));
}

template <typename... Arguments> auto recorder(const char* name)
{
    return [name](Arguments... arguments) { record(name, arguments...); };
}

} // namespace

namespace recordedcontroller {

int living = 0;
bool handlesCommands = true;
TS3Functions table;

QList<QByteArray> takeCalls()
{
    QList<QByteArray> taken;
    taken.swap(calls);
    return taken;
}

} // namespace recordedcontroller

kelvor::kelvor(const TS3Functions& functions)
{
    ++recordedcontroller::living;
    recordedcontroller::table = functions;
    connect(this, &kelvor::channelCreated, recorder<uint64, uint64, uint64>("channelCreated"));
    connect(this, &kelvor::channelDeleted, recorder<uint64, uint64>("channelDeleted"));
    connect(this, &kelvor::channelMoved, recorder<uint64, uint64, uint64>("channelMoved"));
    connect(this, &kelvor::fileList, recorder<uint64, uint64, QString, QString, uint64, uint64, int>("fileList"));
    connect(this, &kelvor::fileTransferStatus, recorder<anyID, uint, QString, uint64, uint64>("fileTransferStatus"));
}

kelvor::~kelvor() { --recordedcontroller::living; }

bool kelvor::handleCommand(uint64 schid, const QString& command)
{
    record("handleCommand", schid, command);
    return recordedcontroller::handlesCommands;
}

void kelvor::handlePluginCommand(uint64 schid, const QString& pluginName, const char* pluginCommand)
{
    record("handlePluginCommand", schid, pluginName, QString::fromLatin1(pluginCommand));
}

void kelvor::handleClientMove(uint64 schid, anyID client, uint64 oldChannel, uint64 newChannel, int visibility)
{
    record("handleClientMove", schid, client, oldChannel, newChannel, visibility);
}

void kelvor::setPluginCommandID(const char* id) { record("setPluginCommandID", QString::fromLatin1(id)); }

void kelvor::showConfigDialog(void* parent) { record("showConfigDialog", reinterpret_cast<quintptr>(parent)); }

// The table of slots names these; no export calls them.
void kelvor::createMenu() { }
void kelvor::startWhiteboard() { }
void kelvor::onInviteFinishedHost(int, uint64) { }
void kelvor::onInviteFinishedInvited(int, uint64) { }
void kelvor::onWhiteboardClosed(uint64) { }
void kelvor::onMainWindowGone() { }
void kelvor::onInvited(uint64, anyID) { }
void kelvor::onStart(uint64, int, int, uint64, bool, uint64, QString, anyID) { }
