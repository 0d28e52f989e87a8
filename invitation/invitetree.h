#pragma once

#include "hostapi/ts3functions.h"
#include "invitestate.h"
#include "rowlooks.h"

#include <QHash>
#include <QList>
#include <QTreeWidget>

#include <optional>

class mytreeitem;

/// Names a row beyond its life: what is done with several rows sends messages in between, and the voice client may
/// report meanwhile that one of them is gone.
struct rowname {
    bool isChannel = false;
    uint64 channel = 0; ///< 0 on a client's row
    anyID client = 0; ///< 0 on a channel's row
};

/// The server as the voice client sees it: the channels with their sub-channels, and in each the clients. It follows
/// the events of one connection. Owned by the lobby's form; it owns the rows, those that aren't shown included.
class invitetree : public QTreeWidget {
    Q_OBJECT

public:
    explicit invitetree(QWidget* parent = nullptr);
    ~invitetree() override;

    /// Names the connection, before anything else; the table must outlive the tree's use.
    void setConnection(const TS3Functions& table, uint64 connection);
    /// The rows as the voice client lists them, channels first. host is the client whose row is marked as host's.
    void buildChannels();
    /// Gives back the clients that were listed, also those that aren't shown; empty when there is no list.
    std::optional<QList<anyID>> buildClients(anyID host);

    /// Null when there is no row.
    mytreeitem* clientRow(anyID client) const { return clientItems.value(client); }
    mytreeitem* channelRow(uint64 channel) const { return channelItems.value(channel); }
    mytreeitem* row(const rowname& name) const;
    QList<rowname> selectedRows() const;
    /// The rows right below a channel's, an empty list when the channel has no row.
    QList<rowname> rowsBelow(uint64 channel) const;

    /// Do nothing when there is no row.
    void setClientState(anyID client, invitestate state);
    void setChannelState(uint64 channel, invitestate state);
    void setHasPlugin(anyID client);

    void addClient(anyID client, uint64 channel);
    void moveClient(anyID client, uint64 oldChannel, uint64 newChannel);
    void removeClient(anyID client);
    void addChannel(uint64 channel, uint64 parent);
    void moveChannel(uint64 channel, uint64 newParent);
    void removeChannel(uint64 channel);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    mytreeitem* newClientRow(anyID client);
    mytreeitem* newChannelRow(uint64 channel);
    void nameClient(mytreeitem* row) const;
    void nameChannel(mytreeitem* row) const;
    void put(mytreeitem* row, mytreeitem* parent);
    void take(QTreeWidgetItem* row);

    const TS3Functions* functions = nullptr;
    uint64 schandler = 0;
    rowlooks looks;
    // The entries of rows that went with their channel stay, with a null pointer.
    QHash<uint64, mytreeitem*> channelItems;
    QHash<anyID, mytreeitem*> clientItems;
};
