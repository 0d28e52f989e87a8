#include "controllerfixture.h"

#include "invitation/invitationdialog.h"
#include "whiteboard/whiteboard.h"

#include <QSettings>
#include <QTest>
#include <QTimer>

/// A session from the controller's side: opening, being asked, waiting, starting, closing, and every way in which it
/// can come to nothing. Peers are bytes that come in and bytes that were sent.
class tst_kelvorsession : public QObject {
    Q_OBJECT

private slots:
    void openingTwiceOnOneConnectionIsRefusedWithALine();
    void aConnectionThatCannotBeAskedOpensNothing();
    void twoConnectionsRunSideBySide();

    void anInvitationIsAskedAndAccepted();
    void anInvitationIsRejectedByNo();
    void anInvitationIsRejectedByClosingTheBox();
    void theQuestionNamesWhatItCannotReadByAWord();
    void percentMarksInNamesChangeTheQuestion();
    void namesAreNeverReadAsMarkup();
    void filtersAnswerBusyWithoutAQuestion_data();
    void filtersAnswerBusyWithoutAQuestion();
    void anUnknownAwayStatusCountsAsPresent();
    void theInvitationSoundIsPlayed();
    void aSoundThatCannotBePlayedIsToldAndTheQuestionStillComes();
    void aSecondInvitationDuringTheQuestionGetsBusy();
    void anInvitationOnAnotherConnectionAsksOnTopOfTheFirst();
    void theOwnHostInvitingAgainGetsBusy();

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
    static void acceptInvitation(controllerfixture& fixture, uint64 schid = 1);
    static invitationdialog* hostLobbyWithAnn(controllerfixture& fixture);
};

namespace {

const QByteArray inviteFromAnn("\x01 2 2");
const QByteArray startFromAnn("\x10 2 300 200 0 false 0 ");

void writeSetting(const controllerfixture& fixture, const char* key, const QVariant& value)
{
    QSettings(fixture.directory.filePath(QString::fromLatin1("kelvor.conf")), QSettings::IniFormat)
        .setValue(QString::fromLatin1(key), value);
}

} // namespace

void tst_kelvorsession::acceptInvitation(controllerfixture& fixture, uint64 schid)
{
    fixture.host.currentConnection = schid;
    fixture.answerNext(QMessageBox::Yes);
    fixture.receive(inviteFromAnn, schid);
}

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
    acceptInvitation(fixture, 2);
    QCOMPARE(controllerfixture::lobbies().size(), 2);
    QCOMPARE(fixture.controller->stateOf(1), session_hosting);
    QCOMPARE(fixture.controller->stateOf(2), session_joining);
    fixture.receive(startFromAnn, 1);
    QCOMPARE(fixture.controller->stateOf(2), session_joining);
    fixture.receive(startFromAnn, 2);
    QCOMPARE(fixture.controller->stateOf(1), session_hosting);
    QCOMPARE(fixture.controller->stateOf(2), session_running);
}

void tst_kelvorsession::anInvitationIsAskedAndAccepted()
{
    controllerfixture fixture;
    fixture.start();
    acceptInvitation(fixture);
    QCOMPARE(
        fixture.asked(),
        QString::fromLatin1("You are invited to a kelvor session on server Server 1 by Ann. Do you want to accept?"));
    QCOMPARE(fixture.controller->stateOf(1), session_joining);
    const QList<sentcommand> sent = fixture.host.takeSent();
    QVERIFY(!sent.isEmpty());
    QCOMPARE(sent.first(), (sentcommand{1, "id", "\x0d 1", PluginCommandTarget_CLIENT, {2}}));
    QCOMPARE(controllerfixture::lobbies().size(), 1);
    QCOMPARE(controllerfixture::lobbies().first()->sessionHost(), anyID(2));
    QCOMPARE(fixture.host.outstanding, 0);
}

void tst_kelvorsession::anInvitationIsRejectedByNo()
{
    controllerfixture fixture;
    fixture.start();
    fixture.answerNext(QMessageBox::No);
    fixture.receive(inviteFromAnn);
    QCOMPARE(fixture.host.sent, (QList<sentcommand>{{1, "id", "\x0e 1", PluginCommandTarget_CLIENT, {2}}}));
    QCOMPARE(fixture.controller->stateOf(1), session_none);
    QVERIFY(controllerfixture::lobbies().isEmpty());
}

void tst_kelvorsession::anInvitationIsRejectedByClosingTheBox()
{
    controllerfixture fixture;
    fixture.start();
    fixture.duringNextQuestion([] { controllerfixture::questions().last()->reject(); });
    fixture.receive(inviteFromAnn);
    QCOMPARE(fixture.host.takeTexts(), QList<QByteArray>{"\x0e 1"});
    QCOMPARE(fixture.controller->stateOf(1), session_none);
}

void tst_kelvorsession::theQuestionNamesWhatItCannotReadByAWord()
{
    controllerfixture fixture;
    fixture.start();
    fixture.host.failing = {"getServerVariableAsString", "getClientVariableAsString"};
    fixture.answerNext(QMessageBox::No);
    fixture.receive(inviteFromAnn);
    QCOMPARE(fixture.asked(),
             QString::fromLatin1(
                 "You are invited to a kelvor session on server SERVERNAME by NICKNAME. Do you want to accept?"));
}

void tst_kelvorsession::percentMarksInNamesChangeTheQuestion()
{
    controllerfixture fixture;
    fixture.start();
    fixture.host.servers[1].name = "50%2";
    fixture.answerNext(QMessageBox::No);
    fixture.receive(inviteFromAnn);
    QCOMPARE(fixture.asked(),
             QString::fromLatin1("You are invited to a kelvor session on server 50Ann by Ann. Do you want to accept?"));
}

void tst_kelvorsession::namesAreNeverReadAsMarkup()
{
    controllerfixture fixture;
    fixture.start();
    fixture.host.servers[1].clients[2].nickname = "<img src=/dev/zero>";
    Qt::TextFormat format = Qt::AutoText;
    fixture.duringNextQuestion([&format] {
        format = controllerfixture::questions().last()->textFormat();
        controllerfixture::questions().last()->reject();
    });
    fixture.receive(inviteFromAnn);
    QCOMPARE(format, Qt::PlainText);
    QVERIFY(fixture.asked().contains(QLatin1String("<img src=/dev/zero>")));
}

void tst_kelvorsession::filtersAnswerBusyWithoutAQuestion_data()
{
    QTest::addColumn<QByteArray>("setting");
    QTest::addColumn<bool>("value");
    QTest::addColumn<bool>("away");
    QTest::addColumn<bool>("otherTab");
    QTest::addColumn<bool>("busy");
    QTest::newRow("present, front tab") << QByteArray("awayreject") << true << false << false << false;
    QTest::newRow("away, rejecting") << QByteArray("awayreject") << true << true << false << true;
    QTest::newRow("away, not rejecting") << QByteArray("awayreject") << false << true << false << false;
    QTest::newRow("other tab, front only") << QByteArray("onlyactivetab") << true << false << true << true;
    QTest::newRow("other tab, any") << QByteArray("onlyactivetab") << false << false << true << false;
}

void tst_kelvorsession::filtersAnswerBusyWithoutAQuestion()
{
    QFETCH(QByteArray, setting);
    QFETCH(bool, value);
    QFETCH(bool, away);
    QFETCH(bool, otherTab);
    QFETCH(bool, busy);
    controllerfixture fixture;
    writeSetting(fixture, setting.constData(), value);
    fixture.host.servers[1].away = away;
    fixture.host.currentConnection = otherTab ? 2 : 1;
    fixture.start();
    if (!busy)
        fixture.answerNext(QMessageBox::No);
    fixture.receive(inviteFromAnn);
    QCOMPARE(fixture.host.takeTexts(), QList<QByteArray>{busy ? "\x18 1" : "\x0e 1"});
    QCOMPARE(fixture.asked().isEmpty(), busy);
    QCOMPARE(fixture.controller->stateOf(1), session_none);
}

void tst_kelvorsession::anUnknownAwayStatusCountsAsPresent()
{
    controllerfixture fixture;
    writeSetting(fixture, "awayreject", true);
    fixture.host.failing.insert("getClientSelfVariableAsInt");
    fixture.start();
    fixture.answerNext(QMessageBox::No);
    fixture.receive(inviteFromAnn);
    QVERIFY(!fixture.asked().isEmpty());
    QCOMPARE(fixture.host.printed, QList<QByteArray>{"Error querying own away status"});
}

void tst_kelvorsession::theInvitationSoundIsPlayed()
{
    controllerfixture fixture;
    writeSetting(fixture, "playsound", true);
    writeSetting(fixture, "soundpath", QString::fromUtf8("/sounds/d\xc3\xafng \xe2\x82\xac.wav"));
    // The path goes as single bytes, whatever that makes of it.
    fixture.start();
    fixture.answerNext(QMessageBox::No);
    fixture.receive(inviteFromAnn);
    QCOMPARE(fixture.host.played, QList<QByteArray>{"/sounds/d\xefng ?.wav"});
}

void tst_kelvorsession::aSoundThatCannotBePlayedIsToldAndTheQuestionStillComes()
{
    controllerfixture fixture;
    writeSetting(fixture, "playsound", true);
    writeSetting(fixture, "soundpath", QString::fromLatin1("/sounds/ding.wav"));
    fixture.host.failing.insert("playWaveFile");
    fixture.host.failure = ERROR_file_not_found;
    fixture.start();
    fixture.answerNext(QMessageBox::No);
    fixture.receive(inviteFromAnn);
    QCOMPARE(fixture.host.printed, QList<QByteArray>{"Error playing wavefile (error 803)"});
    QVERIFY(!fixture.asked().isEmpty());
    QCOMPARE(fixture.host.outstanding, 0);
}

void tst_kelvorsession::aSecondInvitationDuringTheQuestionGetsBusy()
{
    controllerfixture fixture;
    fixture.start();
    fixture.duringNextQuestion([&fixture] {
        fixture.receive("\x01 2 3");
        QCOMPARE(fixture.host.takeSent(), (QList<sentcommand>{{1, "id", "\x18 1", PluginCommandTarget_CLIENT, {3}}}));
        QCOMPARE(controllerfixture::questions().size(), 1);
        controllerfixture::questions().last()->reject();
    });
    fixture.receive(inviteFromAnn);
    QCOMPARE(fixture.host.takeTexts(), QList<QByteArray>{"\x0e 1"});
}

void tst_kelvorsession::anInvitationOnAnotherConnectionAsksOnTopOfTheFirst()
{
    controllerfixture fixture;
    writeSetting(fixture, "onlyactivetab", false);
    fixture.start();
    fixture.duringNextQuestion([&fixture] {
        QMessageBox* first = controllerfixture::questions().first();
        QTimer::singleShot(0, first, [first] {
            QList<QMessageBox*> open = controllerfixture::questions();
            QCOMPARE(open.size(), 2);
            open.removeAll(first);
            open.first()->button(QMessageBox::Yes)->click();
        });
        fixture.receive(inviteFromAnn, 2);
        first->reject();
    });
    fixture.receive(inviteFromAnn, 1);
    QCOMPARE(fixture.controller->stateOf(1), session_none);
    QCOMPARE(fixture.controller->stateOf(2), session_joining);
}

void tst_kelvorsession::theOwnHostInvitingAgainGetsBusy()
{
    controllerfixture fixture;
    fixture.start();
    acceptInvitation(fixture);
    fixture.host.takeSent();
    fixture.receive(inviteFromAnn);
    QCOMPARE(fixture.host.takeTexts(), QList<QByteArray>{"\x18 1"});
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
    acceptInvitation(fixture);
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
    acceptInvitation(fixture);
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
    acceptInvitation(fixture);
    controllerfixture::lobbies().first()->accept();
    QCOMPARE(controllerfixture::boards().size(), 1);
    QCOMPARE(fixture.controller->stateOf(1), session_running);
}

void tst_kelvorsession::aGuestThatClosesItsLobbySaysLogoutToTheHost()
{
    controllerfixture fixture;
    fixture.start();
    acceptInvitation(fixture);
    fixture.host.takeSent();
    controllerfixture::lobbies().first()->close();
    QCOMPARE(fixture.host.takeSent(), (QList<sentcommand>{{1, "id", "\x12 1", PluginCommandTarget_CLIENT, {2}}}));
    QCOMPARE(fixture.controller->stateOf(1), session_none);
}

void tst_kelvorsession::takeBackEndsTheGuestsLobby()
{
    controllerfixture fixture;
    fixture.start();
    acceptInvitation(fixture);
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
    acceptInvitation(fixture, 2);
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
