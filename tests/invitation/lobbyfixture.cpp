#include "lobbyfixture.h"

#include <QApplication>
#include <QTest>

namespace {

struct knownlook {
    const char* name;
    invitestate state;
    bool isChannel;
    const char* icon;
    const char* toolTip;
};

const knownlook knownLooks[] = {
    {"none", invitestate::invite_none, false, "player", "Rightclick or doubleclick to invite"},
    {"plugin", invitestate::invite_none, false, "player_withplugin",
     "Rightclick or doubleclick to invite [Client has kelvor running]"},
    {"busy", invitestate::invite_busy, false, "player_busy", "Client autorejected invite"},
    {"invited", invitestate::invite_invited, false, "player_invited", "Client is invited"},
    {"accepted", invitestate::invite_accepted, false, "player_accepted", "Client accepted invite"},
    {"rejected", invitestate::invite_rejected, false, "player_rejected", "Client rejected invite"},
    {"version", invitestate::invite_rejectedversion, false, "player_rejectedversion", "Plugin version mismatch"},
    {"host", invitestate::invite_host, false, "player_host", "Host"},
    {"self", invitestate::invite_self, false, "player_self", "You"},
    {"channel", invitestate::invite_none, true, "channel", "Rightclick or doubleclick to invite"},
    {"marked", invitestate::invite_invited, true, "channel_invited", "Channel is invited"},
};

template <typename T> QString listed(const char* name, const QList<T>& list)
{
    QString text = QString::fromLatin1(name);
    for (const T entry : list)
        text += QString::fromLatin1(" %1").arg(entry);
    return text;
}

QString rowText(const QTreeWidgetItem* row)
{
    QStringList below;
    for (int i = 0; i < row->childCount(); ++i)
        below.append(rowText(row->child(i)));
    return below.isEmpty() ? row->text(0) : row->text(0) + "[" + below.join(", ") + "]";
}

} // namespace

lobbyfixture::lobbyfixture()
    : protocol(host.table())
{
    qRegisterMetaType<uint64>("uint64");
    qRegisterMetaType<anyID>("anyID");
    qRegisterMetaType<uint64*>("uint64*");
    qRegisterMetaType<anyID*>("anyID*");
    protocol.setPluginCommandID("kelvor");
    for (const uint64 schid : {connection, otherConnection}) {
        fakeserver& server = host.addServer(schid);
        server.addChannel(2, "Games");
        server.addChannel(3, "Chess", 2);
        server.addChannel(4, "Empty");
        server.addClient(2, "Anna");
        server.addClient(3, "Bert", 2);
        server.addClient(4, "Cleo", 3);
        server.addClient(5, "Query", 1, "ServerQuery");
    }
}

lobbyfixture::~lobbyfixture() { delete dialog.data(); }

void lobbyfixture::openHost()
{
    open(0, 640, 480);
    connectHost();
}

void lobbyfixture::openGuest(anyID sessionHost)
{
    open(sessionHost, 0, 0);
    connectGuest();
}

void lobbyfixture::open(anyID sessionHost, int width, int height)
{
    dialog = new invitationdialog(sessionHost, &protocol, host.table(), connection, downloadDir, width, height);
    tree = dialog->findChild<invitetree*>("tree");
    QObject::connect(&controller, &fakecontroller::clientMoved, dialog, &invitationdialog::onClientMoved);
    QObject::connect(&controller, &fakecontroller::clientConnected, dialog, &invitationdialog::onClientConnected);
    QObject::connect(&controller, &fakecontroller::clientLeft, dialog, &invitationdialog::onClientLeft);
    QObject::connect(&controller, &fakecontroller::channelCreated, dialog, &invitationdialog::onChannelCreated);
    QObject::connect(&controller, &fakecontroller::channelDeleted, dialog, &invitationdialog::onChannelDeleted);
    QObject::connect(&controller, &fakecontroller::channelMoved, dialog, &invitationdialog::onChannelMoved);
    QObject::connect(&protocol, &kelvorprotocol::logout, dialog, &invitationdialog::onLogout);
    QObject::connect(dialog, &invitationdialog::inviteFinished, &controller, [this](int ret, uint64 schid) {
        QCOMPARE(schid, connection);
        results.append(ret);
    });
}

void lobbyfixture::show()
{
    dialog->show();
    QApplication::setActiveWindow(dialog);
    QVERIFY(QTest::qWaitForWindowActive(dialog));
}

void lobbyfixture::connectHost()
{
    QObject::connect(&controller, &fakecontroller::fileList, dialog, &invitationdialog::onFileList);
    QObject::connect(&controller, &fakecontroller::fileTransferStatus, dialog,
                     &invitationdialog::onFileTransferStatusEvent);
    QObject::connect(&protocol, &kelvorprotocol::accept, dialog, &invitationdialog::onClientAccepted);
    QObject::connect(&protocol, &kelvorprotocol::reject, dialog, &invitationdialog::onClientRejected);
    QObject::connect(&protocol, &kelvorprotocol::rejectVersion, dialog, &invitationdialog::onClientRejectedVersion);
    QObject::connect(&protocol, &kelvorprotocol::pong, dialog, &invitationdialog::onPong);
    QObject::connect(&protocol, &kelvorprotocol::busy, dialog, &invitationdialog::onBusy);
}

void lobbyfixture::connectGuest()
{
    QObject::connect(&protocol, &kelvorprotocol::acceptlistReceived, dialog, &invitationdialog::onAcceptListReceived);
    QObject::connect(&protocol, &kelvorprotocol::invitelistReceived, dialog, &invitationdialog::onInvitelistReceived);
    QObject::connect(&protocol, &kelvorprotocol::rejectlistReceived, dialog, &invitationdialog::onRejectlistReceived);
    QObject::connect(&protocol, &kelvorprotocol::channelInvitelistReceived, dialog,
                     &invitationdialog::onChannelInvitelistReceived);
    QObject::connect(&protocol, &kelvorprotocol::clientAcceptedInvite, dialog,
                     &invitationdialog::onClientAcceptedInvite);
    QObject::connect(&protocol, &kelvorprotocol::clientInvited, dialog, &invitationdialog::onClientInvited);
    QObject::connect(&protocol, &kelvorprotocol::clientRejectedInvite, dialog,
                     &invitationdialog::onClientRejectedInvite);
    QObject::connect(&protocol, &kelvorprotocol::clientRejectedInviteVersion, dialog,
                     &invitationdialog::onClientRejectedInivteVersion);
    QObject::connect(&protocol, &kelvorprotocol::channelInvited, dialog, &invitationdialog::onChannelInvited);
    QObject::connect(&protocol, &kelvorprotocol::takeBack, dialog, &invitationdialog::onTakeBack);
    QObject::connect(&protocol, &kelvorprotocol::clientTakenBack, dialog, &invitationdialog::onClientTakenBack);
    QObject::connect(&protocol, &kelvorprotocol::channelTakenBack, dialog, &invitationdialog::onChannelTakenBack);
}

void lobbyfixture::receive(int kind, const QByteArray& rest, uint64 schid)
{
    const QByteArray message = QByteArray(1, static_cast<char>(kind)) + ' ' + rest;
    protocol.dispatch(schid, message.constData());
}

QStringList lobbyfixture::sent()
{
    QStringList texts;
    const QList<sentcommand> commands = host.takeSent();
    for (const sentcommand& command : commands) {
        QStringList targets;
        for (const anyID target : command.targets)
            targets.append(QString::number(target));
        const QString connectionMark = command.schid == connection ? "" : QString(" on %1").arg(command.schid);
        texts.append(QString::number(command.text.at(0)) + command.text.mid(1) + ">" + targets.join(' ')
                     + connectionMark);
    }
    return texts;
}

QString lobbyfixture::lists() const
{
    const invitees& lists = dialog->lists();
    return QStringList{listed("A", lists.accepted()), listed("I", lists.invited()), listed("R", lists.rejected()),
                       listed("C", lists.channels())}
        .join("|");
}

QString lobbyfixture::rows() const
{
    QStringList texts;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        texts.append(rowText(tree->topLevelItem(i)));
    return texts.join(", ");
}

void lobbyfixture::selectClient(anyID client) { select({dialog->clientRow(client)}); }

void lobbyfixture::selectChannel(uint64 channel) { select({dialog->channelRow(channel)}); }

void lobbyfixture::select(const QList<const QTreeWidgetItem*>& rows)
{
    tree->clearSelection();
    for (const QTreeWidgetItem* row : rows)
        const_cast<QTreeWidgetItem*>(row)->setSelected(true);
}

void lobbyfixture::inviteClient(anyID client)
{
    selectClient(client);
    dialog->invite();
}

void lobbyfixture::inviteChannel(uint64 channel)
{
    selectChannel(channel);
    dialog->invite();
}

void lobbyfixture::takeBackClient(anyID client)
{
    selectClient(client);
    dialog->takeBack();
}

void lobbyfixture::takeBackChannel(uint64 channel)
{
    selectChannel(channel);
    dialog->takeBack();
}

void lobbyfixture::acceptClient(anyID client)
{
    inviteClient(client);
    receive(13, QByteArray::number(client));
    sent();
}

bool isOpenAbove(const QTreeWidgetItem* row)
{
    for (const QTreeWidgetItem* above = row->parent(); above; above = above->parent()) {
        if (!above->isExpanded())
            return false;
    }
    return row->treeWidget() != nullptr;
}

QString lookOf(const mytreeitem* row)
{
    if (!row)
        return "gone";
    for (const knownlook& look : knownLooks) {
        const QImage picture = QIcon(QString(":/gfx/gfx/%1.png").arg(look.icon)).pixmap(16).toImage();
        if (!picture.isNull() && row->icon(0).pixmap(16).toImage() == picture && row->toolTip(0) == look.toolTip
            && row->inviteState() == look.state && row->isChannel() == look.isChannel)
            return look.name;
    }
    return "mixed";
}
