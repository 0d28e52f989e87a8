#include "worldscript.h"

#include "clientworld.h"
#include "protocol/messagereader.h"
#include "protocol/statedsender.h"
#include "tests/plugin/exports.h"
#include "worlduser.h"

namespace {

// A session of up to 64 megapixels is allowed, but takes a fuzzer's time to no end: nothing depends on the size beyond
// this one up to the limit.
constexpr qint64 mostPlayedPixels = 1000 * 1000;
constexpr qint64 fewestRefusedPixels = 64 * 1000 * 1000;

bool takesTooLong(const QByteArray& text)
{
    if (!text.startsWith(static_cast<char>(messagekind::start)))
        return false;
    const auto start = wire::readStart(text.constData());
    if (!start || start->width <= 0 || start->height <= 0)
        return false;
    const qint64 pixels = qint64{start->width} * start->height;
    return pixels > mostPlayedPixels && pixels <= fewestRefusedPixels;
}

// Nothing but the picture can change by these, and nothing at all by a byte that is no kind.
bool onlyPaints(char kind)
{
    switch (static_cast<messagekind>(kind)) {
    case messagekind::draw:
    case messagekind::extendedDraw:
    case messagekind::ping:
        return true;
    default:
        return kind < static_cast<char>(messagekind::invite) || kind > static_cast<char>(messagekind::busy);
    }
}

} // namespace

worldscript::worldscript(clientworld& world, const QByteArray& script)
    : world(world)
    , script(script)
{
}

QList<QByteArray> worldscript::hostFunctions()
{
    return {"getErrorMessage",
            "playWaveFile",
            "getClientID",
            "getClientSelfVariableAsInt",
            "getClientVariableAsString",
            "getClientVariableAsString:nickname",
            "getClientVariableAsString:platform",
            "getClientList",
            "getChannelOfClient",
            "getChannelVariableAsInt",
            "getChannelVariableAsUInt64",
            "getChannelVariableAsString",
            "getChannelList",
            "getParentChannelOfChannel",
            "getServerVariableAsString",
            "getConnectionStatus",
            "sendFile",
            "requestFile",
            "requestFileList"};
}

bool worldscript::playNext()
{
    if (at >= script.size() || !world.controller)
        return false;
    int end = script.indexOf('\0', at);
    if (end < 0)
        end = script.size();
    const QByteArray record = script.mid(at, end - at);
    at = end + 1;
    if (!record.isEmpty())
        playRecord(record);
    return true;
}

void worldscript::playRecord(const QByteArray& record)
{
    const char letter = record.at(0);
    if (letter >= '1' && letter < '1' + clientworld::connections)
        playMessage(letter - '0', record.mid(1));
    else if (letter == 'h' && record.size() > 1)
        playEvent(record.at(1), record.mid(2).trimmed().split(' '));
    else if (letter == 'f')
        playFailure(record.mid(1).trimmed());
    else if (letter == 'x')
        world.shutdown();
    else
        worlduser(world).act(record);
}

void worldscript::playMessage(int connection, const QByteArray& text)
{
    if (takesTooLong(text))
        return;
    if (!text.isEmpty() && !onlyPaints(text.at(0)))
        world.touch(connection);
#if KELVOR_HOST_INTERFACE == 26
    // A server that does not say who spoke, so that messages with any sender go on.
    ts3plugin_onPluginCommandEvent(world.handler(connection), "kelvor.so", text.constData(), 0, "", "");
#else
    // The later interface of the client tells who spoke; its reader of the same bytes runs along.
    wire::mayComeFrom(2, text.constData());
    ts3plugin_onPluginCommandEvent(world.handler(connection), "kelvor.so", text.constData());
#endif
}

void worldscript::playEvent(char kind, const QList<QByteArray>& parts)
{
    const int connection = parts.value(0).toInt();
    const uint64 schid = world.handler(connection);
    const auto number = [&](int place) { return static_cast<uint64>(parts.value(place).toULongLong()); };
    const auto client = [&](int place) { return static_cast<anyID>(parts.value(place).toUInt()); };
    // The texts stand in the parts, and an absent one is empty.
    const auto text = [&](int place) { return place < parts.size() ? parts.at(place).constData() : ""; };
    world.touch(connection);
    switch (kind) {
    case 'm':
        return ts3plugin_onClientMoveEvent(schid, client(1), number(2), number(3), parts.value(4).toInt(), "");
    case 'c':
        return ts3plugin_onNewChannelEvent(schid, number(1), number(2));
    case 'd':
        return ts3plugin_onDelChannelEvent(schid, number(1), 0, "", "");
    case 'v':
        return ts3plugin_onChannelMoveEvent(schid, number(1), number(2), 0, "", "");
    case 'l':
        return ts3plugin_onFileListEvent(schid, number(1), text(2), text(3), number(4), number(5),
                                         parts.value(6).toInt(), 0, "");
    case 't':
        return ts3plugin_onFileTransferStatusEvent(client(1), parts.value(2).toUInt(), text(4), number(3), schid);
    default:
        return;
    }
}

void worldscript::playFailure(const QByteArray& number)
{
    bool isNumber = false;
    const uint place = number.toUInt(&isNumber);
    const QList<QByteArray> functions = hostFunctions();
    if (isNumber)
        world.host.failing.insert(functions.at(static_cast<int>(place % static_cast<uint>(functions.size()))));
    else
        world.host.failing.clear();
}
