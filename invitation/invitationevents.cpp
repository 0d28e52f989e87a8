#include "invitationdialog.h"

#include "hostapi/hostcalls.h"
#include "lobbystate.h"
#include "protocol/kelvorprotocol.h"
#include "protocol/zeroended.h"

// What the lobby hears: events of the voice client and messages of peers. All windows of all connections hear all of
// them, so each slot first looks whether the event is its own.

void invitationdialog::onClientConnected(uint64 schandler, anyID clientID, uint64 channelID)
{
    if (!isReady(schandler))
        return;
    tree->addClient(clientID, channelID);
    protocol->sendPing(schandler, zeroEnded<anyID>({clientID}).constData());
}

void invitationdialog::onClientMoved(uint64 schandler, anyID clientID, uint64 oldChannelID, uint64 newChannelID)
{
    if (isReady(schandler))
        tree->moveClient(clientID, oldChannelID, newChannelID);
}

// On a guest this holds for the host as well: only a logout from it ends the lobby.
void invitationdialog::onClientLeft(uint64 schandler, anyID clientID, uint64)
{
    if (isReady(schandler))
        people->removeClient(clientID);
}

void invitationdialog::onChannelCreated(uint64 schandler, uint64 channelID, uint64 parent)
{
    if (isReady(schandler))
        tree->addChannel(channelID, parent);
}

void invitationdialog::onChannelMoved(uint64 schandler, uint64 channelID, uint64 newparent)
{
    if (isReady(schandler))
        tree->moveChannel(channelID, newparent);
}

void invitationdialog::onChannelDeleted(uint64 schandler, uint64 channelID)
{
    if (isReady(schandler))
        tree->removeChannel(channelID);
}

void invitationdialog::onFileList(uint64 schandler, uint64 channelID, QString path, QString name, uint64 size,
                                  uint64 datetime, int type)
{
    emit fileList(schandler, channelID, path, name, size, datetime, type);
}

void invitationdialog::onFileTransferStatusEvent(anyID transferID, uint status, QString statusMessage,
                                                 uint64 remotefileSize, uint64 schid)
{
    emit fileTransferStatus(transferID, status, statusMessage, remotefileSize, schid);
}

void invitationdialog::onClientAccepted(uint64 schandler, anyID client)
{
    if (isReady(schandler))
        people->onAccept(client);
}

void invitationdialog::onClientRejected(uint64 schandler, anyID client)
{
    if (isReady(schandler))
        people->onReject(client);
}

void invitationdialog::onClientRejectedVersion(uint64 schandler, anyID client)
{
    if (isReady(schandler))
        people->onRejectVersion(client);
}

void invitationdialog::onPong(uint64 schandler, anyID client)
{
    if (isMine(schandler))
        tree->setHasPlugin(client);
}

void invitationdialog::onBusy(uint64 schandler, anyID client)
{
    if (isMine(schandler))
        people->onBusy(client);
}

void invitationdialog::invite()
{
    if (!ended)
        people->inviteSelected();
}

void invitationdialog::takeBack()
{
    if (!ended)
        people->takeBackSelected();
}

void invitationdialog::mirrorList(const anyID* list, invitestate state)
{
    for (; *list; ++list)
        people->setClient(*list, state);
}

void invitationdialog::onAcceptListReceived(uint64 schandler, anyID* list, anyID sender)
{
    if (isFromHost(schandler, sender))
        mirrorList(list, invitestate::invite_accepted);
}

// The endpoint reads the next three messages one field off and names client 0 as their sender, so they come to nothing
// here: a new guest learns who has accepted, and of the others only what happens from now on.
void invitationdialog::onInvitelistReceived(uint64 schandler, anyID* list, anyID sender)
{
    if (isFromHost(schandler, sender))
        mirrorList(list, invitestate::invite_invited);
}

void invitationdialog::onRejectlistReceived(uint64 schandler, anyID* list, anyID sender)
{
    if (isFromHost(schandler, sender))
        mirrorList(list, invitestate::invite_rejected);
}

void invitationdialog::onChannelInvitelistReceived(uint64 schandler, uint64* list, anyID sender)
{
    if (!isFromHost(schandler, sender))
        return;
    for (; *list; ++list)
        people->setChannel(*list, invitestate::invite_invited);
}

void invitationdialog::onClientAcceptedInvite(uint64 schandler, anyID client, anyID sender)
{
    if (isFromHost(schandler, sender))
        people->setClient(client, invitestate::invite_accepted);
}

void invitationdialog::onClientInvited(uint64 schandler, anyID client, anyID sender)
{
    if (isFromHost(schandler, sender))
        people->setClient(client, invitestate::invite_invited);
}

void invitationdialog::onClientRejectedInvite(uint64 schandler, anyID client, anyID sender)
{
    if (isFromHost(schandler, sender))
        people->setClient(client, invitestate::invite_rejected);
}

void invitationdialog::onClientRejectedInivteVersion(uint64 schandler, anyID client, anyID sender)
{
    if (isFromHost(schandler, sender))
        people->setClient(client, invitestate::invite_rejectedversion);
}

void invitationdialog::onChannelInvited(uint64 schandler, uint64 channel, anyID sender)
{
    if (isFromHost(schandler, sender))
        people->setChannel(channel, invitestate::invite_invited);
}

void invitationdialog::onTakeBack(uint64 schandler, anyID sender)
{
    if (isFromHost(schandler, sender))
        reject();
}

void invitationdialog::onClientTakenBack(uint64 schandler, anyID client, anyID sender)
{
    if (isFromHost(schandler, sender))
        people->setClient(client, invitestate::invite_none);
}

void invitationdialog::onChannelTakenBack(uint64 schandler, uint64 channel, anyID sender)
{
    if (isFromHost(schandler, sender))
        people->setChannel(channel, invitestate::invite_none);
}

// On the session's host a leaver takes only itself away, and the other guests aren't told.
void invitationdialog::onLogout(uint64 schandler, anyID sender)
{
    if (!isMine(schandler))
        return;
    people->setClient(sender, invitestate::invite_none);
    if (!isFromHost(schandler, sender))
        return;
    hostcalls::printToCurrentTab(ts3Functions, QString::fromLatin1("The host has left the kelvor session"));
    reject();
}
