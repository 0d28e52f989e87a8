#include "lobbystate.h"

#include "hostapi/hostcalls.h"
#include "invitetree.h"
#include "mytreeitem.h"
#include "protocol/kelvorprotocol.h"
#include "protocol/zeroended.h"

lobbystate::lobbystate(kelvorprotocol* protocol, const TS3Functions& functions, uint64 schandler, invitetree* tree)
    : protocol(protocol)
    , functions(functions)
    , schandler(schandler)
    , tree(tree)
{
}

void lobbystate::setClient(anyID client, invitestate state)
{
    tree->setClientState(client, state);
    standings.set(client, state);
}

void lobbystate::setChannel(uint64 channel, invitestate state)
{
    tree->setChannelState(channel, state);
    if (state == invitestate::invite_none)
        standings.unmarkChannel(channel);
}

void lobbystate::removeClient(anyID client)
{
    tree->removeClient(client);
    standings.remove(client);
}

// The names are taken first and each row is looked at again when its turn comes: a channel's invitation has changed the
// rows below it, which may be selected too, and an event may have taken one away.
void lobbystate::inviteSelected()
{
    const QList<rowname> names = tree->selectedRows();
    for (const rowname& name : names) {
        const mytreeitem* row = tree->row(name);
        if (!row)
            continue;
        const invitestate state = row->inviteState();
        if (state == invitestate::invite_accepted || state == invitestate::invite_invited
            || state == invitestate::invite_self)
            continue;
        if (name.isChannel)
            inviteChannel(name.channel);
        else
            inviteClient(name.client);
    }
}

void lobbystate::inviteClient(anyID client)
{
    const std::optional<QString> platform = hostcalls::clientText(functions, schandler, client, CLIENT_PLATFORM);
    if (platform && platform->toLower().contains(QLatin1String("serverquery")))
        return;
    setClient(client, invitestate::invite_invited);
    protocol->sendInvite(schandler, client);
    broadcast(&kelvorprotocol::sendClientInvited, client);
}

// Acts once, on those who are there now: whoever enters the channel later isn't invited.
void lobbystate::inviteChannel(uint64 channel)
{
    const QList<rowname> names = tree->rowsBelow(channel);
    for (const rowname& name : names) {
        const mytreeitem* row = tree->row(name);
        if (!row || row->inviteState() != invitestate::invite_none)
            continue;
        if (name.isChannel)
            inviteChannel(name.channel);
        else
            inviteClient(name.client);
    }
    setChannel(channel, invitestate::invite_invited);
    standings.markChannel(channel);
    broadcast(&kelvorprotocol::sendChannelInvited, channel);
}

void lobbystate::takeBackSelected()
{
    const QList<rowname> names = tree->selectedRows();
    for (const rowname& name : names) {
        const mytreeitem* row = tree->row(name);
        if (!row || row->inviteState() == invitestate::invite_none)
            continue;
        if (name.isChannel)
            takeBackChannel(name.channel);
        else
            takeBackClient(name);
    }
}

// The own row isn't spared, and neither is a channel below a channel that is taken back: it has the client id 0, so its
// row is cleared, the message to it reaches nobody, and it stays among the invited channels.
void lobbystate::takeBackClient(const rowname& name)
{
    if (name.isChannel)
        tree->setChannelState(name.channel, invitestate::invite_none);
    else
        setClient(name.client, invitestate::invite_none);
    protocol->sendTakeBack(schandler, name.client);
    broadcast(&kelvorprotocol::sendClientTakenBack, name.client);
}

void lobbystate::takeBackChannel(uint64 channel)
{
    const QList<rowname> names = tree->rowsBelow(channel);
    for (const rowname& name : names) {
        const mytreeitem* row = tree->row(name);
        if (row && row->inviteState() != invitestate::invite_none)
            takeBackClient(name);
    }
    setChannel(channel, invitestate::invite_none);
    broadcast(&kelvorprotocol::sendChannelTakenBack, channel);
}

// Only whoever is waited for can accept. Anybody else, taken back or refused before, is ignored without an answer; its
// own lobby waits until its user closes it.
void lobbystate::onAccept(anyID client)
{
    if (!standings.invited().contains(client))
        return;
    tree->setClientState(client, invitestate::invite_accepted);
    standings.release(client);
    updateGuest(client);
    broadcast(&kelvorprotocol::sendClientAcceptedInvite, client);
    standings.set(client, invitestate::invite_accepted);
}

// Tells a new guest how things stand, itself in none of the lists. The order is the peers' protocol.
void lobbystate::updateGuest(anyID client)
{
    if (!standings.accepted().isEmpty())
        protocol->sendAcceptList(schandler, zeroEnded(standings.accepted()).constData(), client);
    if (!standings.invited().isEmpty())
        protocol->sendInviteList(schandler, zeroEnded(standings.invited()).constData(), client);
    if (!standings.rejected().isEmpty())
        protocol->sendRejectList(schandler, zeroEnded(standings.rejected()).constData(), client);
    if (!standings.channels().isEmpty())
        protocol->sendChannelInviteList(schandler, zeroEnded(standings.channels()).constData(), client);
}

void lobbystate::onReject(anyID client)
{
    setClient(client, invitestate::invite_rejected);
    broadcast(&kelvorprotocol::sendClientRejectedInvite, client);
}

void lobbystate::onRejectVersion(anyID client)
{
    setClient(client, invitestate::invite_rejectedversion);
    broadcast(&kelvorprotocol::sendClientRejectedInviteVersion, client);
}

// For the others a refusal is a refusal: only the host sees that nobody was asked.
void lobbystate::onBusy(anyID client)
{
    setClient(client, invitestate::invite_busy);
    broadcast(&kelvorprotocol::sendClientRejectedInvite, client);
}

template <typename Id> void lobbystate::broadcast(bool (kelvorprotocol::*send)(uint64, Id, const anyID*), Id id)
{
    if (!standings.accepted().isEmpty())
        (protocol->*send)(schandler, id, zeroEnded(standings.accepted()).constData());
}
