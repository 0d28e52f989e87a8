#include "controllerfixture.h"

#include "invitation/invitationdialog.h"
#include "whiteboard/whiteboard.h"

#include <QTest>

/// A session from the controller's side: opening, waiting, starting, closing, and every way in which it can come to
/// nothing. Peers are bytes that come in and bytes that were sent.
class tst_kelvorsession : public QObject {
    Q_OBJECT

private slots:
    void openingTwiceOnOneConnectionIsRefusedWithALine();
    void aConnectionThatCannotBeAskedOpensNothing();
    void twoConnectionsRunSideBySide();

    void aHostAloneOpensAWindowAndSendsNothing();
    void startGoesToTheAcceptedClients();
    void aHostThatCancelsSaysLogoutToTheAcceptedOnly();
    void startOpensTheGuestsWindowWithAllOthers();
    void aStartFromAnotherClientEndsNoLobbyButIsKept();
    void aStartThatNobodyWaitsForIsUsedByTheNextLobby();
    void aGuestThatClosesItsLobbySaysLogoutToTheHost();
    void takeBackEndsTheGuestsLobby();
    void anAcceptAfterTheStartIsTurnedAway();
    void closingTheWindowFreesTheConnectionAndSaysLogout();
    void theEndSaysLogoutForEachOpenWindow();

private:
    static invitationdialog* hostLobbyWithAnn(controllerfixture& fixture);
};

namespace {

const QByteArray startFromAnn("\x10 2 300 200 0 false 0 ");

} // namespace

// The lobby of an own session in which Ann has accepted.
invitationdialog* tst_kelvorsession::hostLobbyWithAnn(controllerfixture& fixture)
{
    fixture.controller->openSession(1);
    invitationdialog* lobby = controllerfixture::lobbies().value(0);
    if (lobby) {
        auto* tree = lobby->findChild<QTreeWidget*>(QString::fromLatin1("tree"));
        const QList<QTreeWidgetItem*> rows =
            tree->findItems(QString::fromLatin1("Ann"), Qt::MatchExactly | Qt::MatchRecursive);
        tree->setCurrentItem(rows.value(0));
        QMetaObject::invokeMethod(lobby, "invite");
        fixture.receive("\x0d 2");
    }
    fixture.host.takeSent();
    return lobby;
}

void tst_kelvorsession::openingTwiceOnOneConnectionIsRefusedWithALine()
{
    controllerfixture fixture;
    fixture.start();
    fixture.controller->openSession(1);
    fixture.controller->openSession(1);
    QCOMPARE(controllerfixture::lobbies().size(), 1);
    QCOMPARE(fixture.host.printed, QList<QByteArray>{"There is already a kelvor session running on this server"});
}

void tst_kelvorsession::aConnectionThatCannotBeAskedOpensNothing()
{
    controllerfixture fixture;
    fixture.start();
    fixture.host.failing.insert("getConnectionStatus");
    fixture.controller->openSession(1);
    QVERIFY(controllerfixture::lobbies().isEmpty());
    QCOMPARE(fixture.controller->stateOf(1), session_none);
    QCOMPARE(fixture.host.printed, QList<QByteArray>{"error querying connection status"});
}

void tst_kelvorsession::twoConnectionsRunSideBySide()
{
    controllerfixture fixture;
    fixture.start();
    fixture.controller->openSession(1);
    fixture.acceptInvitation(2);
    QCOMPARE(controllerfixture::lobbies().size(), 2);
    QCOMPARE(fixture.controller->stateOf(1), session_hosting);
    QCOMPARE(fixture.controller->stateOf(2), session_joining);
    fixture.receive(startFromAnn, 1);
    QCOMPARE(fixture.controller->stateOf(2), session_joining);
    fixture.receive(startFromAnn, 2);
    QCOMPARE(fixture.controller->stateOf(1), session_hosting);
    QCOMPARE(fixture.controller->stateOf(2), session_running);
}

void tst_kelvorsession::aHostAloneOpensAWindowAndSendsNothing()
{
    controllerfixture fixture;
    fixture.start();
    fixture.controller->openSession(1);
    fixture.host.takeSent();
    controllerfixture::lobbies().first()->accept();
    QCOMPARE(controllerfixture::boards().size(), 1);
    QVERIFY(fixture.host.sent.isEmpty());
    QCOMPARE(fixture.controller->stateOf(1), session_running);
}

void tst_kelvorsession::startGoesToTheAcceptedClients()
{
    controllerfixture fixture;
    fixture.start();
    invitationdialog* lobby = hostLobbyWithAnn(fixture);
    QVERIFY(lobby);
    lobby->accept();
    QCOMPARE(fixture.host.takeSent(),
             (QList<sentcommand>{{1, "id", "\x10 1 640 320 0 false 0 ", PluginCommandTarget_CLIENT, {2}}}));
    QCOMPARE(controllerfixture::boards().size(), 1);
}

void tst_kelvorsession::aHostThatCancelsSaysLogoutToTheAcceptedOnly()
{
    controllerfixture fixture;
    fixture.start();
    invitationdialog* lobby = hostLobbyWithAnn(fixture);
    QVERIFY(lobby);
    lobby->reject();
    QCOMPARE(fixture.host.takeSent(), (QList<sentcommand>{{1, "id", "\x12 1", PluginCommandTarget_CLIENT, {2}}}));
    QCOMPARE(fixture.controller->stateOf(1), session_none);
    fixture.controller->openSession(1);
    fixture.host.takeSent();
    controllerfixture::settle();
    controllerfixture::lobbies().first()->reject();
    QVERIFY(fixture.host.sent.isEmpty());
}

void tst_kelvorsession::startOpensTheGuestsWindowWithAllOthers()
{
    controllerfixture fixture;
    fixture.start();
    fixture.acceptInvitation();
    fixture.receive("\x04 2 3 4");
    fixture.host.takeSent();
    fixture.receive(startFromAnn);
    QCOMPARE(controllerfixture::boards().size(), 1);
    QVERIFY(controllerfixture::lobbies().isEmpty());
    QVERIFY(fixture.host.sent.isEmpty());
    controllerfixture::boards().first()->close();
    controllerfixture::settle();
    QCOMPARE(fixture.host.takeSent(), (QList<sentcommand>{{1, "id", "\x12 1", PluginCommandTarget_CLIENT, {3, 4, 2}}}));
}

void tst_kelvorsession::aStartFromAnotherClientEndsNoLobbyButIsKept()
{
    controllerfixture fixture;
    fixture.start();
    fixture.acceptInvitation();
    fixture.receive("\x10 3 300 200 0 false 0 ");
    QCOMPARE(controllerfixture::lobbies().size(), 1);
    QCOMPARE(fixture.controller->stateOf(1), session_joining);
    fixture.receive(startFromAnn);
    QCOMPARE(fixture.controller->stateOf(1), session_running);
}

void tst_kelvorsession::aStartThatNobodyWaitsForIsUsedByTheNextLobby()
{
    controllerfixture fixture;
    fixture.start();
    fixture.receive(startFromAnn);
    QVERIFY(controllerfixture::boards().isEmpty());
    fixture.acceptInvitation();
    controllerfixture::lobbies().first()->accept();
    QCOMPARE(controllerfixture::boards().size(), 1);
    QCOMPARE(fixture.controller->stateOf(1), session_running);
}

void tst_kelvorsession::aGuestThatClosesItsLobbySaysLogoutToTheHost()
{
    controllerfixture fixture;
    fixture.start();
    fixture.acceptInvitation();
    fixture.host.takeSent();
    controllerfixture::lobbies().first()->close();
    QCOMPARE(fixture.host.takeSent(), (QList<sentcommand>{{1, "id", "\x12 1", PluginCommandTarget_CLIENT, {2}}}));
    QCOMPARE(fixture.controller->stateOf(1), session_none);
}

void tst_kelvorsession::takeBackEndsTheGuestsLobby()
{
    controllerfixture fixture;
    fixture.start();
    fixture.acceptInvitation();
    fixture.receive("\x15 3");
    QCOMPARE(controllerfixture::lobbies().size(), 1);
    fixture.receive("\x15 2");
    QVERIFY(controllerfixture::lobbies().isEmpty());
    QCOMPARE(fixture.controller->stateOf(1), session_none);
}

void tst_kelvorsession::anAcceptAfterTheStartIsTurnedAway()
{
    controllerfixture fixture;
    fixture.start();
    fixture.controller->openSession(1);
    controllerfixture::lobbies().first()->accept();
    fixture.host.takeSent();
    fixture.receive("\x0d 3");
    QCOMPARE(fixture.host.takeSent(), (QList<sentcommand>{{1, "id", "\x15 1", PluginCommandTarget_CLIENT, {3}}}));
}

void tst_kelvorsession::closingTheWindowFreesTheConnectionAndSaysLogout()
{
    controllerfixture fixture;
    fixture.start();
    hostLobbyWithAnn(fixture)->accept();
    fixture.host.takeSent();
    controllerfixture::boards().first()->close();
    QCOMPARE(fixture.controller->stateOf(1), session_none);
    controllerfixture::settle();
    QCOMPARE(fixture.host.takeTexts(), QList<QByteArray>{"\x12 1"});
    fixture.controller->openSession(1);
    QCOMPARE(controllerfixture::lobbies().size(), 1);
}

void tst_kelvorsession::theEndSaysLogoutForEachOpenWindow()
{
    controllerfixture fixture;
    fixture.start();
    hostLobbyWithAnn(fixture)->accept();
    fixture.acceptInvitation(2);
    fixture.host.takeSent();
    fixture.controller.reset();
    QCOMPARE(fixture.host.takeSent(),
             (QList<sentcommand>{{1, "id", "\x12 1", PluginCommandTarget_CLIENT, {2}},
                                 {2, "id", "\x12 1", PluginCommandTarget_CLIENT, {2}}}));
    QVERIFY(controllerfixture::lobbies().isEmpty());
    QVERIFY(controllerfixture::boards().isEmpty());
    QCOMPARE(fixture.host.outstanding, 0);
}

QTEST_MAIN(tst_kelvorsession)
#include "tst_kelvorsession.moc"
