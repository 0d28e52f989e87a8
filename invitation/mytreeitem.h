#pragma once

#include "hostapi/hosttypes.h"
#include "invitestate.h"

#include <QTreeWidgetItem>

class rowlooks;

/// A row of the lobby's tree: a channel, or a client. Owned by the tree. It has no order of its own, since the tree is
/// never sorted and shows what the voice client lists, in that order.
class mytreeitem : public QTreeWidgetItem {
public:
    /// The looks belong to the tree and outlive the row's use.
    mytreeitem(anyID client, const rowlooks& looks);
    mytreeitem(uint64 channel, const rowlooks& looks);

    bool isChannel() const { return ischannel; }
    uint64 channelID() const { return channel; } ///< 0 on a client's row
    anyID clientID() const { return client; } ///< 0 on a channel's row
    invitestate inviteState() const { return state; }
    bool hasPlugin() const { return hasplugin; }

    /// Sets the state with icon and tool tip.
    void setState(invitestate newState);
    /// The client runs the plugin. The row shows it while nothing else is going on with the client, at once or later.
    void setHasPlugin();
    void setChannelOrder(uint64 order) { channelorder = order; }
    void setParentChannel(uint64 parent) { parentchannel = parent; }

private:
    mytreeitem(bool ischannel, uint64 channel, anyID client, const rowlooks& looks);

    bool ischannel;
    uint64 channel;
    anyID client;
    bool hasplugin = false;
    uint64 channelorder = ~uint64(0); ///< the voice client's sort order; kept, but the tree follows the list's order
    uint64 parentchannel = 0; ///< the parent at the time of the first build, 0 when it had no row
    invitestate state = invitestate::invite_none;
    const rowlooks* looks;
};
