#pragma once

#include "hostapi/ts3functions.h"
#include "invitees.h"
#include "invitestate.h"

class invitetree;
class kelvorprotocol;
struct rowname;

/// Who stands where in a lobby, in rows and lists alike, and on the session's host what is said about it to whom. Owned
/// by the dialog, which has looked at connection and sender before it calls in here.
class lobbystate {
public:
    /// The endpoint, the table and the tree outlive this.
    lobbystate(kelvorprotocol* protocol, const TS3Functions& functions, uint64 schandler, invitetree* tree);

    const invitees& lists() const { return standings; }

    /// Sets a client's row and list.
    void setClient(anyID client, invitestate state);
    /// Marks a channel's row only; taken back, the channel leaves the list as well.
    void setChannel(uint64 channel, invitestate state);
    /// The client has left the server: its row goes, and it stands in no list any more.
    void removeClient(anyID client);

    // On the session's host only; each tells the clients that have accepted.
    void inviteSelected();
    void takeBackSelected();
    void onAccept(anyID client);
    void onReject(anyID client);
    void onRejectVersion(anyID client);
    void onBusy(anyID client);

private:
    void inviteClient(anyID client);
    void inviteChannel(uint64 channel);
    void takeBackClient(const rowname& name);
    void takeBackChannel(uint64 channel);
    void updateGuest(anyID client);
    template <typename Id> void broadcast(bool (kelvorprotocol::*send)(uint64, Id, const anyID*), Id id);

    kelvorprotocol* protocol;
    const TS3Functions& functions;
    uint64 schandler;
    invitetree* tree;
    invitees standings;
};
