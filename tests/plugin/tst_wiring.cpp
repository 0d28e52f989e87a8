#include "canvas/paintscene.h"
#include "controllerfixture.h"
#include "invitation/invitationdialog.h"
#include "invitation/mytreeitem.h"
#include "whiteboard/whiteboard.h"

#include <QListWidget>
#include <QTest>
#include <QTreeWidget>

Q_DECLARE_METATYPE(invitestate)

/// Which messages of peers and which events of the client the controller lets reach a lobby and a drawing window. The
/// windows of a session's host and of a guest are connected differently, and peers rely on the difference.
class tst_wiring : public QObject {
    Q_OBJECT

private slots:
    void aGuestsLobbyHearsTheHost_data();
    void aGuestsLobbyHearsTheHost();
    void aHostsLobbyHearsTheInvited_data();
    void aHostsLobbyHearsTheInvited();
    void onlyAHostsLobbyLearnsWhoHasThePlugin_data() { addRoles(); }
    void onlyAHostsLobbyLearnsWhoHasThePlugin();
    void onlyAHostsLobbyHearsOfFiles_data() { addRoles(); }
    void onlyAHostsLobbyHearsOfFiles();
    void everyLobbyFollowsTheServer_data() { addRoles(); }
    void everyLobbyFollowsTheServer();

    void everyWindowHearsTheOthers_data() { addRoles(); }
    void everyWindowHearsTheOthers();
    void whoeverLeavesTheServerLeavesEveryWindow_data() { addRoles(); }
    void whoeverLeavesTheServerLeavesEveryWindow();
    void onlyAHostsWindowTurnsLateGuestsAway_data() { addRoles(); }
    void onlyAHostsWindowTurnsLateGuestsAway();
    void onlyAHostsWindowHearsOfTransfers_data() { addRoles(); }
    void onlyAHostsWindowHearsOfTransfers();

private:
    static void addRoles();
    static invitationdialog* openLobby(controllerfixture& fixture, bool hosting);
    static whiteboard* openBoard(controllerfixture& fixture, bool hosting);
    static void invite(invitationdialog& lobby, anyID client);
};

namespace {

constexpr anyID ann = 2; ///< the host of every session that isn't the own one
constexpr anyID ben = 3;
constexpr uint64 games = 7;

QRgb pixelOf(whiteboard* board) { return board->findChild<paintscene*>()->picture().pixel(50, 50); }

} // namespace

void tst_wiring::addRoles()
{
    QTest::addColumn<bool>("hosting");
    QTest::newRow("host") << true;
    QTest::newRow("guest") << false;
}

invitationdialog* tst_wiring::openLobby(controllerfixture& fixture, bool hosting)
{
    fixture.host.servers[1].addChannel(games, "Games");
    fixture.start();
    if (hosting) {
        fixture.controller->openSession(1);
    } else {
        fixture.answerNext(QMessageBox::Yes);
        fixture.receive("\x01 2 2");
    }
    fixture.host.takeSent();
    return controllerfixture::lobbies().value(0);
}

whiteboard* tst_wiring::openBoard(controllerfixture& fixture, bool hosting)
{
    invitationdialog* lobby = openLobby(fixture, hosting);
    if (hosting) {
        invite(*lobby, ann);
        fixture.receive("\x0d 2");
        lobby->accept();
    } else {
        fixture.receive("\x10 2 300 200 0 false 0 ");
    }
    fixture.host.takeSent();
    return controllerfixture::boards().value(0);
}

void tst_wiring::invite(invitationdialog& lobby, anyID client)
{
    auto* tree = lobby.findChild<QTreeWidget*>(QString::fromLatin1("tree"));
    tree->setCurrentItem(const_cast<mytreeitem*>(lobby.clientRow(client)));
    lobby.invite();
}

void tst_wiring::aGuestsLobbyHearsTheHost_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<invitestate>("state");
    QTest::newRow("acceptlist") << QByteArray("\x04 2 3") << invitestate::invite_accepted;
    QTest::newRow("clientTakenBack") << QByteArray("\x08 2 3") << invitestate::invite_none;
    QTest::newRow("clientAcceptedInvite") << QByteArray("\x0a 2 3") << invitestate::invite_accepted;
    QTest::newRow("clientRejectedInvite") << QByteArray("\x0b 2 3") << invitestate::invite_rejected;
    QTest::newRow("clientRejectedInviteVersion") << QByteArray("\x0c 2 3") << invitestate::invite_rejectedversion;
    QTest::newRow("logout") << QByteArray("\x12 3") << invitestate::invite_none;
    // These are a host's to hear.
    QTest::newRow("accept") << QByteArray("\x0d 3") << invitestate::invite_invited;
    QTest::newRow("reject") << QByteArray("\x0e 3") << invitestate::invite_invited;
    QTest::newRow("rejectVersion") << QByteArray("\x0f 3") << invitestate::invite_invited;
    QTest::newRow("busy") << QByteArray("\x18 3") << invitestate::invite_invited;
}

void tst_wiring::aGuestsLobbyHearsTheHost()
{
    QFETCH(QByteArray, message);
    QFETCH(invitestate, state);
    controllerfixture fixture;
    const invitationdialog* lobby = openLobby(fixture, false);
    fixture.receive("\x06 2 3");
    QCOMPARE(lobby->clientRow(ben)->inviteState(), invitestate::invite_invited);
    fixture.receive(message);
    QCOMPARE(lobby->clientRow(ben)->inviteState(), state);
    fixture.receive("\x07 2 7");
    QCOMPARE(lobby->channelRow(games)->inviteState(), invitestate::invite_invited);
    fixture.receive("\x09 2 7");
    QCOMPARE(lobby->channelRow(games)->inviteState(), invitestate::invite_none);
    QVERIFY(fixture.host.sent.isEmpty());
}

void tst_wiring::aHostsLobbyHearsTheInvited_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<invitestate>("state");
    QTest::newRow("accept") << QByteArray("\x0d 3") << invitestate::invite_accepted;
    QTest::newRow("reject") << QByteArray("\x0e 3") << invitestate::invite_rejected;
    QTest::newRow("rejectVersion") << QByteArray("\x0f 3") << invitestate::invite_rejectedversion;
    QTest::newRow("busy") << QByteArray("\x18 3") << invitestate::invite_busy;
    QTest::newRow("logout") << QByteArray("\x12 3") << invitestate::invite_none;
}

void tst_wiring::aHostsLobbyHearsTheInvited()
{
    QFETCH(QByteArray, message);
    QFETCH(invitestate, state);
    controllerfixture fixture;
    invitationdialog* lobby = openLobby(fixture, true);
    invite(*lobby, ben);
    QCOMPARE(lobby->clientRow(ben)->inviteState(), invitestate::invite_invited);
    fixture.receive(message);
    QCOMPARE(lobby->clientRow(ben)->inviteState(), state);
}

void tst_wiring::onlyAHostsLobbyLearnsWhoHasThePlugin()
{
    QFETCH(bool, hosting);
    controllerfixture fixture;
    const invitationdialog* lobby = openLobby(fixture, hosting);
    fixture.receive("\x17 3");
    QCOMPARE(lobby->clientRow(ben)->hasPlugin(), hosting);
}

void tst_wiring::onlyAHostsLobbyHearsOfFiles()
{
    QFETCH(bool, hosting);
    controllerfixture fixture;
    const invitationdialog* lobby = openLobby(fixture, hosting);
    int lists = 0;
    int transfers = 0;
    connect(lobby, &invitationdialog::fileList, this, [&lists] { ++lists; });
    connect(lobby, &invitationdialog::fileTransferStatus, this, [&transfers] { ++transfers; });
    emit fixture.controller->fileList(1, games, QString(), QString(), 0, 0, 1);
    emit fixture.controller->fileTransferStatus(100, 0, QString(), 0, 1);
    QCOMPARE(lists, hosting ? 1 : 0);
    QCOMPARE(transfers, hosting ? 1 : 0);
}

void tst_wiring::everyLobbyFollowsTheServer()
{
    QFETCH(bool, hosting);
    controllerfixture fixture;
    const invitationdialog* lobby = openLobby(fixture, hosting);
    emit fixture.controller->clientMoved(1, ben, 1, games);
    QCOMPARE(lobby->clientRow(ben)->parent(), lobby->channelRow(games));
    emit fixture.controller->clientLeft(1, ben, games);
    QVERIFY(!lobby->clientRow(ben));
    emit fixture.controller->clientConnected(1, ben, games);
    QCOMPARE(lobby->clientRow(ben)->parent(), lobby->channelRow(games));
    emit fixture.controller->channelCreated(1, 8, games);
    QCOMPARE(lobby->channelRow(8)->parent(), lobby->channelRow(games));
    emit fixture.controller->channelMoved(1, 8, 1);
    QCOMPARE(lobby->channelRow(8)->parent(), lobby->channelRow(1));
    emit fixture.controller->channelDeleted(1, 8);
    QVERIFY(!lobby->channelRow(8));
}

void tst_wiring::everyWindowHearsTheOthers()
{
    QFETCH(bool, hosting);
    controllerfixture fixture;
    whiteboard* board = openBoard(fixture, hosting);
    fixture.receive("\x11 2 \x02 #ff0000 9 50|50 50|50");
    QCOMPARE(pixelOf(board), QColor(Qt::red).rgba());
    fixture.receive("\x13 2 \x10 full");
    QCOMPARE(pixelOf(board), QColor(Qt::cyan).rgba());
    auto* list = board->findChild<QListWidget*>();
    fixture.receive("\x14 2 true");
    QVERIFY(!list->item(0)->icon().isNull());
    fixture.receive("\x12 2");
    QCOMPARE(list->count(), 0);
}

void tst_wiring::whoeverLeavesTheServerLeavesEveryWindow()
{
    QFETCH(bool, hosting);
    controllerfixture fixture;
    const whiteboard* board = openBoard(fixture, hosting);
    QCOMPARE(board->findChild<QListWidget*>()->count(), 1);
    emit fixture.controller->clientLeft(1, ann, 1);
    QCOMPARE(board->findChild<QListWidget*>()->count(), 0);
}

void tst_wiring::onlyAHostsWindowTurnsLateGuestsAway()
{
    QFETCH(bool, hosting);
    controllerfixture fixture;
    openBoard(fixture, hosting);
    fixture.receive("\x0d 3");
    const sentcommand takeBack{1, "id", "\x15 1", PluginCommandTarget_CLIENT, {ben}};
    QCOMPARE(fixture.host.takeSent(), hosting ? QList<sentcommand>{takeBack} : QList<sentcommand>());
}

// A guest without a picture hears of no transfer, so that its uploads show no progress.
void tst_wiring::onlyAHostsWindowHearsOfTransfers()
{
    QFETCH(bool, hosting);
    controllerfixture fixture;
    const whiteboard* board = openBoard(fixture, hosting);
    int lists = 0;
    int transfers = 0;
    connect(board, &whiteboard::fileList, this, [&lists] { ++lists; });
    connect(board, &whiteboard::fileTransferStatus, this, [&transfers] { ++transfers; });
    emit fixture.controller->fileList(1, games, QString(), QString(), 0, 0, 1);
    emit fixture.controller->fileTransferStatus(100, 0, QString(), 0, 1);
    QCOMPARE(lists, 1);
    QCOMPARE(transfers, hosting ? 1 : 0);
}

QTEST_MAIN(tst_wiring)
#include "tst_wiring.moc"
