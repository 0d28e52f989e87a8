#pragma once

#include "invitation/invitationdialog.h"
#include "invitation/invitetree.h"
#include "invitation/mytreeitem.h"
#include "protocol/kelvorprotocol.h"
#include "tests/support/fakehost.h"

#include <QPointer>
#include <QStringList>

/// What a lobby knows of the controller: the sender of the voice client's events.
class fakecontroller : public QObject {
    Q_OBJECT

signals:
    void clientConnected(uint64 schid, anyID client, uint64 channel);
    void clientLeft(uint64 schid, anyID client, uint64 channel);
    void clientMoved(uint64 schid, anyID client, uint64 oldChannel, uint64 newChannel);
    void channelCreated(uint64 schid, uint64 channel, uint64 parent);
    void channelDeleted(uint64 schid, uint64 channel);
    void channelMoved(uint64 schid, uint64 channel, uint64 newParent);
    void fileList(uint64 schid, uint64 channel, QString path, QString name, uint64 size, uint64 datetime, int type);
    void fileTransferStatus(anyID transfer, uint status, QString statusMessage, uint64 remotefileSize, uint64 schid);
};

/// One lobby on connection 1, made and connected as the controller does it. The server, with clients in brackets:
///
///     1 Lobby     [1 Me, 2 Anna, 5 Query of a query client]
///     2 Games     [3 Bert]
///       3 Chess   [4 Cleo]
///     4 Empty
class lobbyfixture {
public:
    static constexpr uint64 connection = 1;
    static constexpr uint64 otherConnection = 2;

    lobbyfixture();
    ~lobbyfixture();

    void openHost();
    /// A guest's, with the client as the session's host.
    void openGuest(anyID sessionHost);
    /// Brings the window up as the active one.
    void show();

    /// A message of a peer as the voice client delivers it: the kind byte, and the rest behind a blank.
    void receive(int kind, const QByteArray& rest, uint64 schid = connection);
    /// What was sent since the last call, one text a message: "kind rest>targets".
    QStringList sent();
    /// "A 3 2|I|R 4|C": accepted, invited, rejected clients, invited channels.
    QString lists() const;
    /// The rows as text: names in order, each with those below it in brackets.
    QString rows() const;

    void selectClient(anyID client);
    void selectChannel(uint64 channel);
    void select(const QList<const QTreeWidgetItem*>& rows);
    /// The session host's user: selects the row and chooses the action.
    void inviteClient(anyID client);
    void inviteChannel(uint64 channel);
    void takeBackClient(anyID client);
    void takeBackChannel(uint64 channel);
    /// Invites a client that then accepts, and forgets what was sent for it.
    void acceptClient(anyID client);

    fakeserver& server() { return host.servers[connection]; }
    const mytreeitem* client(anyID id) const { return dialog->clientRow(id); }
    const mytreeitem* channel(uint64 id) const { return dialog->channelRow(id); }
    template <typename Widget> Widget* widget(const char* name) const
    {
        auto* found = dialog->findChild<Widget*>(name);
        Q_ASSERT(found);
        return found;
    }

    QString downloadDir = "/downloads"; ///< of the lobby that is opened next
    fakehost host;
    kelvorprotocol protocol;
    fakecontroller controller;
    QPointer<invitationdialog> dialog;
    invitetree* tree = nullptr;
    QList<int> results; ///< that the lobby told at its end

private:
    void open(anyID sessionHost, int width, int height);
    void connectHost();
    void connectGuest();
};

/// What a row shows by state, icon and tool tip together: "none", "plugin" (none, and the client runs the plugin),
/// "busy", "invited", "accepted", "rejected", "version", "host", "self"; "channel" and "marked" of a channel; "gone"
/// without a row; "mixed" when the three don't fit together.
QString lookOf(const mytreeitem* row);

/// Whether all rows above the row are open, so that the user sees it.
bool isOpenAbove(const QTreeWidgetItem* row);
