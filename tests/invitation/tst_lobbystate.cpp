#include "lobbyfixture.h"

#include <QTest>

#include <memory>

/// What the host's lobby does beyond the single transition: whole lists, many rows at once.
class tst_lobbystate : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void newGuestIsBroughtUpToDateInOrder();
    void listsThatAreEmptyAreLeftOut();
    void lateAcceptIsIgnored_data();
    void lateAcceptIsIgnored();
    void doubledAnswersChangeNothingMore();
    void busyIsARejectionToTheOthers();
    void logoutIsNotTold();
    void logoutWithoutASenderLeavesTheLobbyOpen();
    void answersOfClientZeroStandInNoList();
    void selectionIsInvitedInOneGo();
    void selectionIsTakenBackInOneGo();
    void nothingSelectedDoesNothing();
    void ownRowCanBeTakenBackAndInvited();
    void queryClientsAreNeverInvited_data();
    void queryClientsAreNeverInvited();
    void unreadablePlatformIsInvited();
    void withoutAnOwnIdNothingIsSent();
    void rowsThatVanishMeanwhileAreSkipped();

private:
    std::unique_ptr<lobbyfixture> lobby;
};

void tst_lobbystate::init()
{
    lobby = std::make_unique<lobbyfixture>();
    lobby->openHost();
    lobby->sent();
}

void tst_lobbystate::cleanup()
{
    delete lobby->dialog.data();
    QCOMPARE(lobby->host.outstanding, 0);
    lobby.reset();
}

void tst_lobbystate::newGuestIsBroughtUpToDateInOrder()
{
    fakeserver& server = lobby->host.servers[1];
    for (anyID client = 10; client <= 15; ++client) {
        server.addClient(client, "Guest");
        emit lobby->controller.clientConnected(1, client, 1);
    }
    lobby->acceptClient(10);
    lobby->acceptClient(11);
    lobby->inviteClient(12);
    lobby->inviteClient(13);
    lobby->inviteClient(14);
    lobby->receive(14, "14");
    lobby->inviteClient(15);
    lobby->receive(24, "15");
    lobby->inviteChannel(4);
    lobby->inviteChannel(3);
    lobby->sent();
    QCOMPARE(lobby->lists(), QString("A 10 11|I 12 13 4|R 14 15|C 4 3"));

    lobby->receive(13, "12");

    QCOMPARE(lobby->sent(),
             QStringList({"4 1 10 11>12", "2 1 13 4>12", "5 1 14 15>12", "3 1 4 3>12", "10 1 12>10 11"}));
    QCOMPARE(lobby->lists(), QString("A 10 11 12|I 13 4|R 14 15|C 4 3"));
}

void tst_lobbystate::listsThatAreEmptyAreLeftOut()
{
    lobby->inviteClient(2);
    lobby->inviteClient(3);
    lobby->inviteChannel(4);
    lobby->sent();
    lobby->receive(13, "2");
    QCOMPARE(lobby->sent(), QStringList({"2 1 3>2", "3 1 4>2"}));
    lobby->receive(13, "3");
    QCOMPARE(lobby->sent(), QStringList({"4 1 2>3", "3 1 4>3", "10 1 3>2"}));
}

void tst_lobbystate::lateAcceptIsIgnored_data()
{
    QTest::addColumn<int>("answer"); ///< the message before it, 0 when the invitation was taken back
    QTest::addColumn<QString>("look");
    QTest::newRow("taken back") << 0 << "none";
    QTest::newRow("after a rejection") << 14 << "rejected";
    QTest::newRow("after another version") << 15 << "version";
    QTest::newRow("after busy") << 24 << "busy";
    QTest::newRow("after a logout") << 18 << "none";
}

void tst_lobbystate::lateAcceptIsIgnored()
{
    QFETCH(int, answer);
    lobby->inviteClient(2);
    if (answer == 0)
        lobby->takeBackClient(2);
    else
        lobby->receive(answer, "2");
    lobby->sent();
    lobby->receive(13, "2");
    QTEST(lookOf(lobby->client(2)), "look");
    QCOMPARE(lobby->dialog->accepted(), QList<anyID>());
    QCOMPARE(lobby->sent(), QStringList());
}

void tst_lobbystate::doubledAnswersChangeNothingMore()
{
    lobby->acceptClient(3);
    lobby->inviteClient(2);
    lobby->sent();
    lobby->receive(13, "2");
    lobby->sent();
    lobby->receive(13, "2");
    QCOMPARE(lobby->sent(), QStringList());
    QCOMPARE(lobby->lists(), QString("A 3 2|I|R|C"));
    lobby->receive(14, "2");
    lobby->receive(14, "2");
    QCOMPARE(lobby->lists(), QString("A 3|I|R 2|C"));
}

void tst_lobbystate::busyIsARejectionToTheOthers()
{
    lobby->acceptClient(3);
    lobby->inviteClient(2);
    lobby->sent();
    lobby->receive(24, "2");
    QCOMPARE(lookOf(lobby->client(2)), QString("busy"));
    QCOMPARE(lobby->sent(), QStringList({"11 1 2>3"}));

    lobby.reset();
    lobby = std::make_unique<lobbyfixture>();
    lobby->openGuest(1);
    lobby->receive(11, "1 2");
    QCOMPARE(lookOf(lobby->client(2)), QString("rejected"));
}

void tst_lobbystate::logoutIsNotTold()
{
    lobby->acceptClient(3);
    lobby->acceptClient(2);
    lobby->receive(18, "2");
    QCOMPARE(lookOf(lobby->client(2)), QString("none"));
    QCOMPARE(lobby->dialog->accepted(), QList<anyID>{3});
    QCOMPARE(lobby->sent(), QStringList());
}

// A number that can't be read is client 0, and so is the host of the own session.
void tst_lobbystate::logoutWithoutASenderLeavesTheLobbyOpen()
{
    int ended = 0;
    connect(lobby->dialog, &QDialog::finished, this, [&ended] { ++ended; });
    for (const char* sender : {"0", "", "x", "65536", "-65536"})
        lobby->receive(18, sender);
    QCOMPARE(ended, 0);
    QCOMPARE(lobby->host.printed, QList<QByteArray>());
}

void tst_lobbystate::answersOfClientZeroStandInNoList()
{
    lobby->acceptClient(3);
    for (const int kind : {13, 14, 15, 24, 18})
        lobby->receive(kind, "0");
    QCOMPARE(lobby->lists(), QString("A 3|I|R|C"));
    QCOMPARE(lobby->sent(), QStringList({"11 1 0>3", "12 1 0>3", "11 1 0>3"}));
}

void tst_lobbystate::selectionIsInvitedInOneGo()
{
    lobby->acceptClient(4);
    lobby->inviteClient(5);
    lobby->tree->selectAll();
    lobby->sent();
    lobby->dialog->invite();
    // Every row once, whether by itself or with its channel; the own one, the query client and the accepted one not.
    // In which order the toolkit lists a selection is its own business.
    QStringList sent = lobby->sent();
    sent.sort();
    QCOMPARE(sent,
             QStringList({"1 2 1>2", "1 2 1>3", "6 1 2>4", "6 1 3>4", "7 1 1>4", "7 1 2>4", "7 1 3>4", "7 1 4>4"}));
    QCOMPARE(lobby->dialog->lists().invited().toSet(), (QSet<anyID>{2, 3}));
    QCOMPARE(lobby->dialog->lists().channels().toSet(), (QSet<uint64>{1, 2, 3, 4}));
    QCOMPARE(lobby->dialog->lists().channels().size(), 4);
}

void tst_lobbystate::selectionIsTakenBackInOneGo()
{
    lobby->acceptClient(4);
    lobby->inviteClient(2);
    lobby->inviteClient(3);
    lobby->receive(14, "3");
    lobby->sent();
    lobby->select({lobby->client(2), lobby->client(3), lobby->channel(4)});
    lobby->dialog->takeBack();
    // The refused one too, though it alone would not have enabled the action; its refusal stays on record.
    QCOMPARE(lobby->sent(), QStringList({"21 1>2", "8 1 2>4", "21 1>3", "8 1 3>4"}));
    QCOMPARE(lobby->lists(), QString("A 4|I|R 3|C"));
    QCOMPARE(lookOf(lobby->client(3)), QString("none"));
}

void tst_lobbystate::nothingSelectedDoesNothing()
{
    lobby->tree->clearSelection();
    lobby->dialog->invite();
    lobby->dialog->takeBack();
    QCOMPARE(lobby->lists(), QString("A|I|R|C"));
    QCOMPARE(lobby->sent(), QStringList());
}

void tst_lobbystate::ownRowCanBeTakenBackAndInvited()
{
    lobby->takeBackClient(1);
    QCOMPARE(lobby->sent(), QStringList({"21 1>1"}));
    QCOMPARE(lookOf(lobby->client(1)), QString("none"));
    lobby->inviteClient(1);
    QCOMPARE(lobby->sent(), QStringList({"1 2 1>1"}));
    QCOMPARE(lookOf(lobby->client(1)), QString("invited"));
}

void tst_lobbystate::queryClientsAreNeverInvited_data()
{
    QTest::addColumn<QByteArray>("platform");
    QTest::addColumn<bool>("invited");
    QTest::newRow("ServerQuery") << QByteArray("ServerQuery") << false;
    QTest::newRow("in other letters, inside") << QByteArray("a SERVERquery!") << false;
    QTest::newRow("query alone") << QByteArray("query") << true;
    QTest::newRow("server query") << QByteArray("server query") << true;
    QTest::newRow("empty") << QByteArray() << true;
}

void tst_lobbystate::queryClientsAreNeverInvited()
{
    QFETCH(QByteArray, platform);
    QFETCH(bool, invited);
    lobby->host.servers[1].clients[5].platform = platform;
    lobby->inviteClient(5);
    QCOMPARE(lobby->sent(), invited ? QStringList("1 2 1>5") : QStringList());
    QCOMPARE(lookOf(lobby->client(5)), QString(invited ? "invited" : "none"));
    QCOMPARE(lobby->host.printed, QList<QByteArray>());
}

void tst_lobbystate::unreadablePlatformIsInvited()
{
    lobby->host.failing.insert("getClientVariableAsString:platform");
    lobby->inviteClient(5);
    QCOMPARE(lobby->sent(), QStringList({"1 2 1>5"}));
    QCOMPARE(lobby->lists(), QString("A|I 5|R|C"));
}

void tst_lobbystate::withoutAnOwnIdNothingIsSent()
{
    lobby->acceptClient(3);
    lobby->host.failing = {"getClientID", "getClientVariableAsString"};
    lobby->inviteChannel(1);
    lobby->inviteChannel(2);
    QCOMPARE(lobby->lists(), QString("A 3|I 2 5 4|R|C 1 3 2"));
    lobby->takeBackChannel(1);
    lobby->takeBackChannel(2);
    QCOMPARE(lobby->lists(), QString("A|I 4|R|C 3"));
    QCOMPARE(lobby->sent(), QStringList());
}

// The voice client may report something while it takes a message.
void tst_lobbystate::rowsThatVanishMeanwhileAreSkipped()
{
    const QMetaObject::Connection meanwhile =
        connect(lobby->tree, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item) {
            if (item == lobby->client(2)) {
                emit lobby->controller.clientLeft(1, 3, 2);
                emit lobby->controller.channelDeleted(1, 3);
            }
        });
    lobby->select({lobby->client(2), lobby->client(3), lobby->channel(2), lobby->channel(3)});
    lobby->dialog->invite();
    disconnect(meanwhile);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games, Empty"));
    QCOMPARE(lobby->lists(), QString("A|I 2|R|C 2"));
    QCOMPARE(lobby->sent(), QStringList({"1 2 1>2"}));
}

QTEST_MAIN(tst_lobbystate)
#include "tst_lobbystate.moc"
