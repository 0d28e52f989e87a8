#include "lobbyfixture.h"

#include <QTest>

#include <memory>

/// How the tree follows the voice client, in whatever order its events come in.
class tst_treeevents : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void clientThatConnectsGetsARow();
    void clientThatConnectsOutsideOfAllChannels();
    void clientThatConnectsTwiceKeepsItsRow();
    void clientMovesOnlyBetweenKnownChannels_data();
    void clientMovesOnlyBetweenKnownChannels();
    void invisibleClientAppearsInAKnownChannel();
    void clientLeavesForGood();
    void channelIsCreated_data();
    void channelIsCreated();
    void channelMoves_data();
    void channelMoves();
    void movedBranchKeepsItsLook();
    void movedClientKeepsItsSelection();
    void emptyChannelOpensForItsFirstRow();
    void closedChannelStaysClosed();
    void deletedChannelTakesItsRowsAlong();
    void entriesOfLostRowsAreSafe();
    void lostRowsComeBack();
    void pongBeforeAnything();

private:
    std::unique_ptr<lobbyfixture> lobby;
};

void tst_treeevents::init() { lobby = std::make_unique<lobbyfixture>(); }

void tst_treeevents::cleanup()
{
    delete lobby->dialog.data();
    QCOMPARE(lobby->host.outstanding, 0);
    lobby.reset();
}

void tst_treeevents::clientThatConnectsGetsARow()
{
    lobby->openHost();
    lobby->sent();
    lobby->server().addClient(77, "New", 3);
    emit lobby->controller.clientConnected(1, 77, 3);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo, New], Bert], Empty"));
    QCOMPARE(lookOf(lobby->client(77)), QString("none"));
    QCOMPARE(lobby->sent(), QStringList({"22 1>77"}));
    lobby->receive(23, "77");
    QCOMPARE(lookOf(lobby->client(77)), QString("plugin"));
}

void tst_treeevents::clientThatConnectsOutsideOfAllChannels()
{
    lobby->openHost();
    emit lobby->controller.clientConnected(1, 77, 99);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty, ERROR getting nickname"));
}

void tst_treeevents::clientThatConnectsTwiceKeepsItsRow()
{
    lobby->openHost();
    lobby->receive(23, "2");
    lobby->inviteClient(2);
    lobby->receive(13, "2");
    const mytreeitem* before = lobby->client(2);
    lobby->server().clients[2].nickname = "Anne";
    emit lobby->controller.clientConnected(1, 2, 4);
    emit lobby->controller.clientConnected(1, 2, 4);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Query], Games[Chess[Cleo], Bert], Empty[Anne]"));
    QCOMPARE(lobby->client(2), before);
    QCOMPARE(lookOf(lobby->client(2)), QString("accepted"));
    QVERIFY(lobby->client(2)->hasPlugin());
    emit lobby->controller.clientConnected(1, 2, 99);
    emit lobby->controller.clientConnected(1, 2, 99);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Query], Games[Chess[Cleo], Bert], Empty, Anne"));
    QVERIFY(lobby->client(2)->isSelected());
}

void tst_treeevents::clientMovesOnlyBetweenKnownChannels_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("rows");
    const QString before = "Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty";
    QTest::newRow("both known") << 2 << 1 << 3 << "Lobby[Me, Query], Games[Chess[Cleo, Anna], Bert], Empty";
    QTest::newRow("to an unknown one") << 2 << 1 << 99 << before;
    QTest::newRow("from an unknown one") << 2 << 99 << 4 << before;
    QTest::newRow("into no channel") << 2 << 1 << 0 << before;
    QTest::newRow("to where it is") << 2 << 1 << 1 << "Lobby[Me, Query, Anna], Games[Chess[Cleo], Bert], Empty";
    QTest::newRow("from where it is not") << 2 << 2 << 4 << "Lobby[Me, Query], Games[Chess[Cleo], Bert], Empty[Anna]";
    QTest::newRow("unknown client") << 77 << 1 << 4 << before;
}

void tst_treeevents::clientMovesOnlyBetweenKnownChannels()
{
    QFETCH(int, id);
    QFETCH(int, from);
    QFETCH(int, to);
    lobby->openHost();
    lobby->inviteChannel(4);
    lobby->sent();
    emit lobby->controller.clientMoved(1, anyID(id), uint64(from), uint64(to));
    QTEST(lobby->rows(), "rows");
    QCOMPARE(lobby->sent(), QStringList());
    QCOMPARE(lobby->lists(), QString("A|I|R|C 4"));
}

void tst_treeevents::invisibleClientAppearsInAKnownChannel()
{
    lobby->server().clients[2].channel = 99;
    lobby->openHost();
    emit lobby->controller.channelCreated(1, 99, 0);
    emit lobby->controller.clientMoved(1, 2, 99, 4);
    QCOMPARE(lobby->rows(),
             QString("Lobby[Me, Query], Games[Chess[Cleo], Bert], Empty[Anna], ERROR getting channel name"));
    QVERIFY(isOpenAbove(lobby->client(2)));
}

void tst_treeevents::clientLeavesForGood()
{
    lobby->openHost();
    lobby->selectClient(3);
    emit lobby->controller.clientLeft(1, 3, 2);
    emit lobby->controller.clientLeft(1, 3, 2);
    emit lobby->controller.clientMoved(1, 3, 2, 1);
    lobby->receive(23, "3");
    QVERIFY(!lobby->client(3));
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo]], Empty"));
    QVERIFY(lobby->tree->selectedItems().isEmpty());
}

void tst_treeevents::channelIsCreated_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("parent");
    QTest::addColumn<QString>("rows");
    QTest::newRow("below a channel") << 9 << 4 << "Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty[New]";
    QTest::newRow("at the top") << 9 << 0 << "Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty, New";
    QTest::newRow("below an unknown one") << 9 << 99 << "Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty, New";
    QTest::newRow("below itself") << 9 << 9 << "Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty, New";
    QTest::newRow("again") << 2 << 0 << "Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty";
    QTest::newRow("again, elsewhere") << 2 << 4 << "Lobby[Me, Anna, Query], Empty[Games[Chess[Cleo], Bert]]";
    QTest::newRow("again, below its own") << 2 << 3 << "Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty";
}

void tst_treeevents::channelIsCreated()
{
    QFETCH(int, id);
    QFETCH(int, parent);
    lobby->openHost();
    lobby->sent();
    if (id == 9)
        lobby->server().addChannel(9, "New", uint64(parent));
    emit lobby->controller.channelCreated(1, uint64(id), uint64(parent));
    QTEST(lobby->rows(), "rows");
    QCOMPARE(lookOf(lobby->channel(uint64(id))), QString("channel"));
    QCOMPARE(lobby->sent(), QStringList());
}

void tst_treeevents::channelMoves_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("parent");
    QTest::addColumn<QString>("rows");
    const QString before = "Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty";
    QTest::newRow("between channels") << 3 << 1 << "Lobby[Me, Anna, Query, Chess[Cleo]], Games[Bert], Empty";
    QTest::newRow("from the top") << 1 << 4 << "Games[Chess[Cleo], Bert], Empty[Lobby[Me, Anna, Query]]";
    QTest::newRow("to where it is") << 3 << 2 << "Lobby[Me, Anna, Query], Games[Bert, Chess[Cleo]], Empty";
    QTest::newRow("to the top") << 3 << 0 << before;
    QTest::newRow("below an unknown one") << 3 << 99 << before;
    QTest::newRow("unknown channel") << 99 << 1 << before;
    QTest::newRow("below itself") << 2 << 2 << before;
    QTest::newRow("below its own") << 2 << 3 << before;
}

void tst_treeevents::channelMoves()
{
    QFETCH(int, id);
    QFETCH(int, parent);
    lobby->openHost();
    emit lobby->controller.channelMoved(1, uint64(id), uint64(parent));
    QTEST(lobby->rows(), "rows");
    for (const anyID client : QList<anyID>{1, 2, 3, 4, 5})
        QVERIFY(isOpenAbove(lobby->client(client)));
}

void tst_treeevents::movedBranchKeepsItsLook()
{
    lobby->server().addChannel(6, "Closed", 2);
    lobby->server().addClient(7, "Dora", 6);
    lobby->openHost();
    lobby->tree->setCurrentItem(lobby->tree->topLevelItem(1)->child(0)->child(0));
    lobby->select({lobby->client(4), lobby->channel(2), lobby->client(1)});
    const_cast<mytreeitem*>(lobby->channel(6))->setExpanded(false);
    const QString current = lobby->tree->currentItem()->text(0);
    QCOMPARE(current, QString("Cleo"));

    emit lobby->controller.channelMoved(1, 2, 4);

    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Empty[Games[Chess[Cleo], Closed[Dora], Bert]]"));
    QVERIFY(isOpenAbove(lobby->client(3)));
    QVERIFY(isOpenAbove(lobby->client(4)));
    QVERIFY(!lobby->channel(6)->isExpanded());
    QCOMPARE(lobby->tree->currentItem(), lobby->client(4));
    QCOMPARE(lobby->tree->selectedItems().size(), 3);
    for (const mytreeitem* row : {lobby->client(4), lobby->channel(2), lobby->client(1)})
        QVERIFY(row->isSelected());
}

void tst_treeevents::movedClientKeepsItsSelection()
{
    lobby->openHost();
    lobby->select({lobby->client(2), lobby->client(3)});
    emit lobby->controller.clientMoved(1, 2, 1, 3);
    QCOMPARE(lobby->tree->selectedItems().size(), 2);
    lobby->sent();
    lobby->dialog->invite();
    QCOMPARE(lobby->dialog->lists().invited().size(), 2);
}

void tst_treeevents::emptyChannelOpensForItsFirstRow()
{
    lobby->openHost();
    emit lobby->controller.clientMoved(1, 2, 1, 4);
    QVERIFY(isOpenAbove(lobby->client(2)));
    lobby->server().addChannel(9, "New", 0);
    emit lobby->controller.channelCreated(1, 9, 0);
    emit lobby->controller.clientConnected(1, 77, 9);
    QVERIFY(isOpenAbove(lobby->client(77)));
}

void tst_treeevents::closedChannelStaysClosed()
{
    lobby->openHost();
    const_cast<mytreeitem*>(lobby->channel(1))->setExpanded(false);
    emit lobby->controller.clientMoved(1, 3, 2, 1);
    emit lobby->controller.clientConnected(1, 77, 1);
    QVERIFY(!lobby->channel(1)->isExpanded());
}

void tst_treeevents::deletedChannelTakesItsRowsAlong()
{
    lobby->openHost();
    lobby->select({lobby->channel(2), lobby->client(4)});
    emit lobby->controller.channelDeleted(1, 2);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Empty"));
    QVERIFY(!lobby->channel(2));
    QVERIFY(!lobby->channel(3));
    QVERIFY(!lobby->client(3));
    QVERIFY(!lobby->client(4));
    QVERIFY(lobby->tree->selectedItems().isEmpty());
    emit lobby->controller.channelDeleted(1, 2);
    emit lobby->controller.channelDeleted(1, 3);
    emit lobby->controller.channelDeleted(1, 99);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Empty"));
}

void tst_treeevents::entriesOfLostRowsAreSafe()
{
    lobby->openHost();
    lobby->inviteChannel(2);
    lobby->sent();
    emit lobby->controller.channelDeleted(1, 2);

    lobby->receive(23, "4");
    lobby->receive(13, "4");
    lobby->receive(14, "3");
    lobby->receive(18, "4");
    emit lobby->controller.clientMoved(1, 4, 3, 1);
    emit lobby->controller.clientMoved(1, 2, 1, 3);
    emit lobby->controller.channelMoved(1, 3, 1);
    emit lobby->controller.channelMoved(1, 1, 3);
    emit lobby->controller.clientLeft(1, 4, 3);
    emit lobby->controller.clientLeft(1, 3, 2);
    emit lobby->controller.channelCreated(1, 9, 3);

    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Empty, ERROR getting channel name"));
    QCOMPARE(lobby->lists(), QString("A|I|R|C 3 2"));
    QCOMPARE(lobby->sent(), QStringList({"2 1 3>4", "3 1 3 2>4", "11 1 3>4"}));
}

void tst_treeevents::lostRowsComeBack()
{
    lobby->openHost();
    emit lobby->controller.channelDeleted(1, 2);
    emit lobby->controller.channelCreated(1, 3, 0);
    emit lobby->controller.clientConnected(1, 4, 3);
    emit lobby->controller.clientConnected(1, 3, 1);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query, Bert], Empty, Chess[Cleo]"));
}

void tst_treeevents::pongBeforeAnything()
{
    lobby->openHost();
    for (const char* sender : {"0", "77", "65535", "65536", "x"})
        lobby->receive(23, sender);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty"));
}

QTEST_MAIN(tst_treeevents)
#include "tst_treeevents.moc"
