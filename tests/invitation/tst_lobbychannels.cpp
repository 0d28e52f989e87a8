#include "lobbyfixture.h"

#include <QTest>

#include <memory>

/// Inviting whole channels and taking them back, on the session's host.
class tst_lobbychannels : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void channelInvitesThoseInIt();
    void channelInvitesItsSubChannels();
    void channelInvitesOnlyFreshRows();
    void emptyChannelIsMarked();
    void channelActsOnce();
    void channelIsTakenBackWithThoseInIt();
    void subChannelIsTakenBackAsAClientZero();
    void channelRowByEachAction_data();
    void channelRowByEachAction();
    void deletedChannelStaysAmongTheInvited();

private:
    std::unique_ptr<lobbyfixture> lobby;
};

void tst_lobbychannels::init()
{
    lobby = std::make_unique<lobbyfixture>();
    lobby->openHost();
    lobby->sent();
}

void tst_lobbychannels::cleanup()
{
    delete lobby->dialog.data();
    QCOMPARE(lobby->host.outstanding, 0);
    lobby.reset();
}

void tst_lobbychannels::channelInvitesThoseInIt()
{
    lobby->acceptClient(3);
    lobby->inviteChannel(1);
    QCOMPARE(lobby->sent(), QStringList({"1 2 1>2", "6 1 2>3", "7 1 1>3"}));
    QCOMPARE(lobby->lists(), QString("A 3|I 2|R|C 1"));
    QCOMPARE(lookOf(lobby->channel(1)), QString("marked"));
    QCOMPARE(lookOf(lobby->client(1)), QString("self"));
    QCOMPARE(lookOf(lobby->client(5)), QString("none"));
}

void tst_lobbychannels::channelInvitesItsSubChannels()
{
    lobby->acceptClient(2);
    lobby->inviteChannel(2);
    QCOMPARE(lobby->sent(), QStringList({"1 2 1>4", "6 1 4>2", "7 1 3>2", "1 2 1>3", "6 1 3>2", "7 1 2>2"}));
    QCOMPARE(lobby->lists(), QString("A 2|I 4 3|R|C 3 2"));
    for (const uint64 channel : QList<uint64>{2, 3})
        QCOMPARE(lookOf(lobby->channel(channel)), QString("marked"));
}

void tst_lobbychannels::channelInvitesOnlyFreshRows()
{
    lobby->inviteClient(4);
    lobby->receive(14, "4");
    lobby->inviteChannel(3);
    lobby->takeBackChannel(3);
    // Taking back made the row fresh, though the refusal is still on record.
    QCOMPARE(lookOf(lobby->client(4)), QString("none"));
    QCOMPARE(lobby->lists(), QString("A|I|R 4|C"));
    lobby->receive(15, "4");
    lobby->sent();
    lobby->inviteChannel(2);
    QCOMPARE(lobby->sent(), QStringList({"1 2 1>3"}));
    QCOMPARE(lookOf(lobby->client(4)), QString("version"));
}

void tst_lobbychannels::emptyChannelIsMarked()
{
    lobby->acceptClient(3);
    lobby->inviteChannel(4);
    QCOMPARE(lobby->sent(), QStringList({"7 1 4>3"}));
    QCOMPARE(lookOf(lobby->channel(4)), QString("marked"));
    QCOMPARE(lobby->lists(), QString("A 3|I|R|C 4"));
}

void tst_lobbychannels::channelActsOnce()
{
    lobby->inviteChannel(4);
    lobby->inviteChannel(3);
    lobby->sent();
    emit lobby->controller.clientMoved(1, 2, 1, 4);
    emit lobby->controller.clientConnected(1, 77, 4);
    emit lobby->controller.clientMoved(1, 4, 3, 1);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Query, Cleo], Games[Chess, Bert], Empty[Anna, ERROR getting nickname]"));
    QCOMPARE(lobby->sent(), QStringList({"22 1>77"}));
    QCOMPARE(lobby->lists(), QString("A|I 4|R|C 4 3"));
    QCOMPARE(lookOf(lobby->client(2)), QString("none"));
    QCOMPARE(lookOf(lobby->client(4)), QString("invited"));
}

void tst_lobbychannels::channelIsTakenBackWithThoseInIt()
{
    lobby->acceptClient(3);
    lobby->acceptClient(4);
    lobby->inviteChannel(3);
    lobby->sent();
    lobby->takeBackChannel(3);
    QCOMPARE(lobby->sent(), QStringList({"21 1>4", "8 1 4>3", "9 1 3>3"}));
    QCOMPARE(lobby->lists(), QString("A 3|I|R|C"));
    QCOMPARE(lookOf(lobby->channel(3)), QString("channel"));
    QCOMPARE(lookOf(lobby->client(4)), QString("none"));
}

// The rows below the sub-channel stay as they are, and it stays on record as invited.
void tst_lobbychannels::subChannelIsTakenBackAsAClientZero()
{
    lobby->acceptClient(2);
    lobby->inviteChannel(2);
    lobby->sent();
    lobby->takeBackChannel(2);
    QCOMPARE(lobby->sent(), QStringList({"21 1>", "8 1 0>2", "21 1>3", "8 1 3>2", "9 1 2>2"}));
    QCOMPARE(lobby->lists(), QString("A 2|I 4|R|C 3"));
    QCOMPARE(lookOf(lobby->channel(3)), QString("channel"));
    QCOMPARE(lookOf(lobby->client(4)), QString("invited"));
    QCOMPARE(lookOf(lobby->channel(2)), QString("channel"));
}

void tst_lobbychannels::channelRowByEachAction_data()
{
    QTest::addColumn<bool>("marked");
    QTest::addColumn<QString>("event");
    QTest::addColumn<QString>("look");
    QTest::addColumn<QString>("lists");
    QTest::addColumn<QString>("sent");
    QTest::newRow("none, invite") << false << "invite"
                                  << "marked"
                                  << "A 2|I 4|R|C 3"
                                  << "1 2 1>4, 6 1 4>2, 7 1 3>2";
    QTest::newRow("none, take back") << false << "take back"
                                     << "channel"
                                     << "A 2|I|R|C"
                                     << "";
    QTest::newRow("none, created again") << false << "created"
                                         << "channel"
                                         << "A 2|I|R|C"
                                         << "";
    QTest::newRow("none, moved") << false << "moved"
                                 << "channel"
                                 << "A 2|I|R|C"
                                 << "";
    QTest::newRow("none, deleted") << false << "deleted"
                                   << "gone"
                                   << "A 2|I|R|C"
                                   << "";
    QTest::newRow("invited, invite") << true << "invite"
                                     << "marked"
                                     << "A 2|I 4|R|C 3"
                                     << "";
    QTest::newRow("invited, take back") << true << "take back"
                                        << "channel"
                                        << "A 2|I|R|C"
                                        << "21 1>4, 8 1 4>2, 9 1 3>2";
    QTest::newRow("invited, created again") << true << "created"
                                            << "marked"
                                            << "A 2|I 4|R|C 3"
                                            << "";
    QTest::newRow("invited, moved") << true << "moved"
                                    << "marked"
                                    << "A 2|I 4|R|C 3"
                                    << "";
    QTest::newRow("invited, deleted") << true << "deleted"
                                      << "gone"
                                      << "A 2|I 4|R|C 3"
                                      << "";
}

void tst_lobbychannels::channelRowByEachAction()
{
    QFETCH(bool, marked);
    QFETCH(QString, event);
    lobby->acceptClient(2);
    if (marked)
        lobby->inviteChannel(3);
    lobby->sent();
    if (event == "invite")
        lobby->inviteChannel(3);
    else if (event == "take back")
        lobby->takeBackChannel(3);
    else if (event == "created")
        emit lobby->controller.channelCreated(1, 3, 2);
    else if (event == "moved")
        emit lobby->controller.channelMoved(1, 3, 1);
    else
        emit lobby->controller.channelDeleted(1, 3);
    QTEST(lookOf(lobby->channel(3)), "look");
    QTEST(lobby->lists(), "lists");
    QTEST(lobby->sent().join(", "), "sent");
}

void tst_lobbychannels::deletedChannelStaysAmongTheInvited()
{
    lobby->inviteChannel(4);
    emit lobby->controller.channelDeleted(1, 4);
    lobby->inviteClient(2);
    lobby->sent();
    lobby->receive(13, "2");
    QCOMPARE(lobby->sent(), QStringList({"3 1 4>2"}));
}

QTEST_MAIN(tst_lobbychannels)
#include "tst_lobbychannels.moc"
