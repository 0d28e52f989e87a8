#include "kelvorprotocol.h"

#include "hostapi/hostcalls.h"
#include "messagereader.h"
#include "messagerelay.h"
#include "messagewriter.h"

namespace {

// Copies a list that is ended by 0, terminator included.
template <typename ID> std::vector<ID> withTerminator(const ID* list)
{
    const ID* last = list;
    while (*last != 0)
        ++last;
    return {list, last + 1};
}

} // namespace

kelvorprotocol::kelvorprotocol(const TS3Functions& functions)
    : functions(functions)
{
}

kelvorprotocol::~kelvorprotocol() = default;

void kelvorprotocol::setPong(bool answer) { answersPing = answer; }

void kelvorprotocol::setPluginCommandID(const char* id) { pluginID.reset(qstrdup(id)); }

void kelvorprotocol::dispatch(uint64 schid, const char* command)
{
    if (!command)
        return;
    using self = kelvorprotocol;
    // Any other first byte, the end of an empty text among them, is no message and falls through.
    switch (static_cast<messagekind>(*command)) {
    case messagekind::invite:
        return wire::relay(this, schid, wire::readInvite(command));
    case messagekind::invitelist:
        return wire::relay(this, &self::invitelistReceived, schid, wire::readUntrimmedClients(command));
    case messagekind::channelInvitelist:
        return wire::relay(this, schid, wire::readUntrimmedChannels(command));
    case messagekind::acceptlist:
        return wire::relay(this, &self::acceptlistReceived, schid, wire::readAcceptlist(command));
    case messagekind::rejectlist:
        return wire::relay(this, &self::rejectlistReceived, schid, wire::readUntrimmedClients(command));
    case messagekind::clientInvited:
        return wire::relay(this, &self::clientInvited, schid, wire::readClient(command));
    case messagekind::channelInvited:
        return wire::relay(this, &self::channelInvited, schid, wire::readChannel(command));
    case messagekind::clientTakenBack:
        return wire::relay(this, &self::clientTakenBack, schid, wire::readClient(command));
    case messagekind::channelTakenBack:
        return wire::relay(this, &self::channelTakenBack, schid, wire::readChannel(command));
    case messagekind::clientAcceptedInvite:
        return wire::relay(this, &self::clientAcceptedInvite, schid, wire::readClient(command));
    case messagekind::clientRejectedInvite:
        return wire::relay(this, &self::clientRejectedInvite, schid, wire::readClient(command));
    case messagekind::clientRejectedInviteVersion:
        return wire::relay(this, &self::clientRejectedInviteVersion, schid, wire::readClient(command));
    case messagekind::accept:
        return wire::relay(this, &self::accept, schid, wire::readSender(command));
    case messagekind::reject:
        return wire::relay(this, &self::reject, schid, wire::readSender(command));
    case messagekind::rejectVersion:
        return wire::relay(this, &self::rejectVersion, schid, wire::readSender(command));
    case messagekind::start:
        return wire::relay(this, schid, wire::readStart(command));
    case messagekind::draw:
        return wire::relay(this, schid, wire::readDraw(command));
    case messagekind::logout:
        return wire::relay(this, &self::logout, schid, wire::readSender(command));
    case messagekind::extendedDraw:
        return wire::relay(this, schid, wire::readExtendedDraw(command));
    case messagekind::downloadFinished:
        return wire::relay(this, schid, wire::readDownloadFinished(command));
    case messagekind::takeBack:
        return wire::relay(this, &self::takeBack, schid, wire::readTakeBack(command));
    case messagekind::ping:
        return answersPing ? wire::answer(this, schid, wire::readTrimmedSender(command)) : void();
    case messagekind::pong:
        return wire::relay(this, &self::pong, schid, wire::readTrimmedSender(command));
    case messagekind::busy:
        return wire::relay(this, &self::busy, schid, wire::readTrimmedSender(command));
    }
}

void kelvorprotocol::sendTestMessage()
{
    const anyID targets[] = {123, 0};
    hostcalls::sendToClients(functions, 1, pluginID.get(), "Hallo", targets);
}

// Writes by write(own id) and sends to targets.
template <typename Write> bool kelvorprotocol::send(uint64 schid, const anyID* targets, Write write) const
{
    const std::optional<anyID> sender = hostcalls::ownClientID(functions, schid);
    if (!sender)
        return false;
    hostcalls::sendToClients(functions, schid, pluginID.get(), write(*sender).constData(), targets);
    return true;
}

bool kelvorprotocol::sendSender(messagekind kind, uint64 schid, const anyID* targets) const
{
    return send(schid, targets, [=](anyID sender) { return wire::write(kind, sendermessage{sender}); });
}

bool kelvorprotocol::sendSenderTo(messagekind kind, uint64 schid, anyID target) const
{
    const anyID targets[] = {target, 0};
    return sendSender(kind, schid, targets);
}

bool kelvorprotocol::sendClient(messagekind kind, uint64 schid, anyID client, const anyID* targets) const
{
    return send(schid, targets, [=](anyID sender) { return wire::write(kind, clientmessage{client, sender}); });
}

bool kelvorprotocol::sendChannel(messagekind kind, uint64 schid, uint64 channel, const anyID* targets) const
{
    return send(schid, targets, [=](anyID sender) { return wire::write(kind, channelmessage{channel, sender}); });
}

bool kelvorprotocol::sendClientList(messagekind kind, uint64 schid, const anyID* list, anyID target) const
{
    if (!list || *list == 0)
        return false;
    const anyID targets[] = {target, 0};
    return send(schid, targets, [=](anyID sender) {
        return wire::write(kind, clientlistmessage{withTerminator(list), sender});
    });
}

bool kelvorprotocol::sendInvite(uint64 schid, anyID target)
{
    const anyID targets[] = {target, 0};
    return send(schid, targets, [](anyID sender) { return wire::write(invitemessage{protocolVersion, sender}); });
}

bool kelvorprotocol::sendInviteList(uint64 schid, const anyID* list, anyID target)
{
    return sendClientList(messagekind::invitelist, schid, list, target);
}

bool kelvorprotocol::sendChannelInviteList(uint64 schid, const uint64* list, anyID target)
{
    if (!list || *list == 0)
        return false;
    const anyID targets[] = {target, 0};
    return send(schid, targets, [=](anyID sender) {
        return wire::write(channellistmessage{withTerminator(list), sender});
    });
}

bool kelvorprotocol::sendAcceptList(uint64 schid, const anyID* list, anyID target)
{
    return sendClientList(messagekind::acceptlist, schid, list, target);
}

bool kelvorprotocol::sendRejectList(uint64 schid, const anyID* list, anyID target)
{
    return sendClientList(messagekind::rejectlist, schid, list, target);
}

bool kelvorprotocol::sendClientInvited(uint64 schid, anyID client, const anyID* targets)
{
    return sendClient(messagekind::clientInvited, schid, client, targets);
}

bool kelvorprotocol::sendChannelInvited(uint64 schid, uint64 channel, const anyID* targets)
{
    return sendChannel(messagekind::channelInvited, schid, channel, targets);
}

bool kelvorprotocol::sendClientTakenBack(uint64 schid, anyID client, const anyID* targets)
{
    return sendClient(messagekind::clientTakenBack, schid, client, targets);
}

bool kelvorprotocol::sendChannelTakenBack(uint64 schid, uint64 channel, const anyID* targets)
{
    return sendChannel(messagekind::channelTakenBack, schid, channel, targets);
}

bool kelvorprotocol::sendClientAcceptedInvite(uint64 schid, anyID client, const anyID* targets)
{
    return sendClient(messagekind::clientAcceptedInvite, schid, client, targets);
}

bool kelvorprotocol::sendClientRejectedInvite(uint64 schid, anyID client, const anyID* targets)
{
    return sendClient(messagekind::clientRejectedInvite, schid, client, targets);
}

bool kelvorprotocol::sendClientRejectedInviteVersion(uint64 schid, anyID client, const anyID* targets)
{
    return sendClient(messagekind::clientRejectedInviteVersion, schid, client, targets);
}

bool kelvorprotocol::sendAccept(uint64 schid, anyID target) { return sendSenderTo(messagekind::accept, schid, target); }

bool kelvorprotocol::sendReject(uint64 schid, anyID target) { return sendSenderTo(messagekind::reject, schid, target); }

bool kelvorprotocol::sendRejectVersion(uint64 schid, anyID target)
{
    sendSenderTo(messagekind::rejectVersion, schid, target);
    return false;
}

bool kelvorprotocol::sendStart(uint64 schid, int width, int height, uint64 channel, bool background, uint64 size,
                               const QString& path, const anyID* targets)
{
    return send(schid, targets, [&](anyID sender) {
        return wire::write(startmessage{width, height, channel, background, size, path, sender});
    });
}

bool kelvorprotocol::sendDraw(uint64 schid, char tool, const QString& color, qreal thick, const QList<QPoint>& points,
                              const anyID* targets)
{
    return send(schid, targets, [&](anyID sender) {
        return wire::write(drawmessage{tool, color, thick, points, sender});
    });
}

bool kelvorprotocol::sendLogout(uint64 schid, const anyID* targets)
{
    return sendSender(messagekind::logout, schid, targets);
}

bool kelvorprotocol::sendExtendedDraw(uint64 schid, char tool, const QString& data, const anyID* targets)
{
    return send(schid, targets, [&](anyID sender) { return wire::write(extendeddrawmessage{tool, data, sender}); });
}

bool kelvorprotocol::sendDownloadFinished(uint64 schid, bool result, const anyID* targets)
{
    return send(schid, targets, [=](anyID sender) { return wire::write(downloadfinishedmessage{result, sender}); });
}

bool kelvorprotocol::sendTakeBack(uint64 schid, anyID target)
{
    return sendSenderTo(messagekind::takeBack, schid, target);
}

bool kelvorprotocol::sendPing(uint64 schid, const anyID* targets)
{
    return sendSender(messagekind::ping, schid, targets);
}

bool kelvorprotocol::sendPong(uint64 schid, anyID target) { return sendSenderTo(messagekind::pong, schid, target); }

bool kelvorprotocol::sendBusy(uint64 schid, anyID target) { return sendSenderTo(messagekind::busy, schid, target); }
