#pragma once

#include "hostapi/hosttypes.h"
#include "invitestate.h"

#include <QHash>
#include <QList>

/// The lists of a lobby: who has accepted, been invited or refused, and which channels are marked. A client stands in
/// one of the three client lists at most, and there once. Client 0 is none and never gets in: it would end the arrays
/// that go to the peers before their end.
class invitees {
public:
    const QList<anyID>& accepted() const { return acceptedClients; } ///< in order of acceptance
    const QList<anyID>& invited() const { return invitedClients; }
    const QList<anyID>& rejected() const { return rejectedClients; }
    const QList<uint64>& channels() const { return invitedChannels; }

    /// Puts the client into the list of its new state, at the end, and takes it out of the others. Every refusal goes
    /// into the same list; with any other state it is taken out as by release().
    void set(anyID client, invitestate state);
    /// Takes the client out of the accepted and the invited ones. A refusal stays on record.
    void release(anyID client);
    /// Takes the client out of whatever list it stands in.
    void remove(anyID client);

    void markChannel(uint64 channel) { invitedChannels.append(channel); }
    void unmarkChannel(uint64 channel) { invitedChannels.removeAll(channel); }

private:
    using list = QList<anyID> invitees::*;
    static list listOf(invitestate state);

    QList<anyID> acceptedClients;
    QList<anyID> invitedClients;
    QList<anyID> rejectedClients; ///< rejected, busy or of another version
    QList<uint64> invitedChannels;
    // In which list a client stands. Without it every name in a peer's list would be looked for in all of ours.
    QHash<anyID, list> places;
};
