#include "lobbyfixture.h"

#include <QTest>

#include <memory>

namespace {

// Whether all rows above this one are open, so that the user sees it.
bool isOpenAbove(const QTreeWidgetItem* row)
{
    for (const QTreeWidgetItem* above = row->parent(); above; above = above->parent()) {
        if (!above->isExpanded())
            return false;
    }
    return row->treeWidget() != nullptr;
}

} // namespace

class tst_invitetree : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void showsTheServerInTheClientsOrder();
    void channelBeforeItsParentStandsAtTheTop();
    void channelsAreNotSorted();
    void marksOwnAndHost();
    void noRowIsHostOnTheHost();
    void ownRowStaysAfterAPong();
    void unknownOwnIdMarksNobody();
    void failingCalls_data();
    void failingCalls();
    void channelOfAClientUnknownToTheHost();
    void clientInAnUnknownChannelIsInvisible();
    void rowsListedTwiceAreShownOnce();
    void everythingIsOpenAtFirst();

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

    void namesAreOnOnePlainLine_data();
    void namesAreOnOnePlainLine();
    void strangersNamesKeepTheLayout();
    void bigTrees_data();
    void bigTrees();

private:
    fakeserver& server() { return lobby->host.servers[lobbyfixture::connection]; }
    const mytreeitem* client(anyID id) { return lobby->dialog->clientRow(id); }
    const mytreeitem* channel(uint64 id) { return lobby->dialog->channelRow(id); }

    std::unique_ptr<lobbyfixture> lobby;
};

void tst_invitetree::init() { lobby = std::make_unique<lobbyfixture>(); }

void tst_invitetree::cleanup()
{
    delete lobby->dialog.data();
    QCOMPARE(lobby->host.outstanding, 0);
    lobby.reset();
}

void tst_invitetree::showsTheServerInTheClientsOrder()
{
    lobby->openHost();
    // The sub-channels of a channel come before the clients in it.
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty"));
    QVERIFY(channel(3)->isChannel());
    QCOMPARE(lookOf(channel(3)), QString("channel"));
    QCOMPARE(lookOf(client(4)), QString("none"));
    QCOMPARE(lookOf(client(5)), QString("none"));
}

void tst_invitetree::channelBeforeItsParentStandsAtTheTop()
{
    server().channelOrder = {3, 2, 1, 4};
    lobby->openHost();
    QCOMPARE(lobby->rows(), QString("Chess[Cleo], Games[Bert], Lobby[Me, Anna, Query], Empty"));
}

void tst_invitetree::channelsAreNotSorted()
{
    server().channels[1].order = 4;
    server().channels[4].order = 0;
    lobby->openHost();
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty"));
    QVERIFY(!lobby->tree->isSortingEnabled());
}

void tst_invitetree::marksOwnAndHost()
{
    lobby->openGuest(3);
    QCOMPARE(lookOf(client(1)), QString("self"));
    QCOMPARE(lookOf(client(3)), QString("host"));
    QCOMPARE(lookOf(client(2)), QString("none"));
    lobby->receive(23, "3");
    QCOMPARE(lookOf(client(3)), QString("host"));
    lobby->receive(6, "3 3");
    QCOMPARE(lookOf(client(3)), QString("invited"));
}

void tst_invitetree::noRowIsHostOnTheHost()
{
    lobby->openHost();
    for (const anyID id : QList<anyID>{1, 2, 3, 4, 5})
        QVERIFY(client(id)->inviteState() != invitestate::invite_host);
}

void tst_invitetree::ownRowStaysAfterAPong()
{
    lobby->openHost();
    lobby->receive(23, "1");
    QVERIFY(client(1)->hasPlugin());
    QCOMPARE(lookOf(client(1)), QString("self"));
}

void tst_invitetree::unknownOwnIdMarksNobody()
{
    lobby->host.failing.insert("getClientID");
    lobby->openHost();
    for (const anyID id : QList<anyID>{1, 2, 3, 4, 5})
        QCOMPARE(lookOf(client(id)), QString("none"));
}

void tst_invitetree::failingCalls_data()
{
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("sent");
    const QString all = "Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty";
    const QString ping = "22 1>1 2 3 4 5";
    QTest::newRow("no list of channels") << QByteArray("getChannelList") << "" << ping;
    QTest::newRow("no list of clients") << QByteArray("getClientList") << "Lobby, Games[Chess], Empty"
                                        << "";
    QTest::newRow("no order") << QByteArray("getChannelVariableAsUInt64") << all << ping;
    QTest::newRow("no parents") << QByteArray("getParentChannelOfChannel")
                                << "Lobby[Me, Anna, Query], Games[Bert], Chess[Cleo], Empty" << ping;
    QTest::newRow("no nicknames") << QByteArray("getClientVariableAsString")
                                  << "Lobby[ERROR getting nickname, ERROR getting nickname, ERROR getting nickname], "
                                     "Games[Chess[ERROR getting nickname], ERROR getting nickname], Empty"
                                  << ping;
    QTest::newRow("no channel names")
        << QByteArray("getChannelVariableAsString")
        << "ERROR getting channel name[Me, Anna, Query], "
           "ERROR getting channel name[ERROR getting channel name[Cleo], Bert], ERROR getting channel name"
        << ping;
    QTest::newRow("no channels of clients")
        << QByteArray("getChannelOfClient") << "Lobby, Games[Chess], Empty, Me, Anna, Bert, Cleo, Query" << ping;
}

void tst_invitetree::failingCalls()
{
    QFETCH(QByteArray, function);
    lobby->host.failing.insert(function);
    lobby->openHost();
    QTEST(lobby->rows(), "rows");
    QTEST(lobby->sent().join(", "), "sent");
}

void tst_invitetree::channelOfAClientUnknownToTheHost()
{
    lobby->host.failing.insert("getChannelOfClient");
    lobby->openHost();
    emit lobby->controller.clientMoved(1, 2, 1, 4);
    QCOMPARE(lobby->rows(), QString("Lobby, Games[Chess], Empty[Anna], Me, Bert, Cleo, Query"));
}

void tst_invitetree::clientInAnUnknownChannelIsInvisible()
{
    server().clients[2].channel = 99;
    lobby->openHost();
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Query], Games[Chess[Cleo], Bert], Empty"));
    QVERIFY(client(2));
    QVERIFY(!client(2)->treeWidget());
    emit lobby->controller.clientMoved(1, 2, 99, 1);
    QVERIFY(!client(2)->treeWidget());
    // It counts all the same: its answers are heard and its row is ready for them.
    lobby->receive(24, "2");
    QCOMPARE(lookOf(client(2)), QString("busy"));
    QCOMPARE(lobby->lists(), QString("A|I|R 2|C"));
    emit lobby->controller.clientLeft(1, 2, 99);
    QVERIFY(!client(2));
    QCOMPARE(lobby->lists(), QString("A|I|R|C"));
}

void tst_invitetree::rowsListedTwiceAreShownOnce()
{
    server().channelOrder = {1, 2, 3, 2, 4, 1};
    server().clientOrder = {1, 2, 3, 2, 4, 5, 1};
    lobby->openHost();
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty"));
    QCOMPARE(lobby->sent(), QStringList({"22 1>1 2 3 2 4 5 1"}));
}

void tst_invitetree::everythingIsOpenAtFirst()
{
    lobby->openHost();
    for (const anyID id : QList<anyID>{1, 2, 3, 4, 5})
        QVERIFY(isOpenAbove(client(id)));
    QVERIFY(!lobby->tree->expandsOnDoubleClick());
}

void tst_invitetree::clientThatConnectsGetsARow()
{
    lobby->openHost();
    lobby->sent();
    server().addClient(77, "New", 3);
    emit lobby->controller.clientConnected(1, 77, 3);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo, New], Bert], Empty"));
    QCOMPARE(lookOf(client(77)), QString("none"));
    QCOMPARE(lobby->sent(), QStringList({"22 1>77"}));
    lobby->receive(23, "77");
    QCOMPARE(lookOf(client(77)), QString("plugin"));
}

void tst_invitetree::clientThatConnectsOutsideOfAllChannels()
{
    lobby->openHost();
    emit lobby->controller.clientConnected(1, 77, 99);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty, ERROR getting nickname"));
}

void tst_invitetree::clientThatConnectsTwiceKeepsItsRow()
{
    lobby->openHost();
    lobby->receive(23, "2");
    lobby->inviteClient(2);
    lobby->receive(13, "2");
    const mytreeitem* before = client(2);
    server().clients[2].nickname = "Anne";
    emit lobby->controller.clientConnected(1, 2, 4);
    emit lobby->controller.clientConnected(1, 2, 4);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Query], Games[Chess[Cleo], Bert], Empty[Anne]"));
    QCOMPARE(client(2), before);
    QCOMPARE(lookOf(client(2)), QString("accepted"));
    QVERIFY(client(2)->hasPlugin());
    emit lobby->controller.clientConnected(1, 2, 99);
    emit lobby->controller.clientConnected(1, 2, 99);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Query], Games[Chess[Cleo], Bert], Empty, Anne"));
    QVERIFY(client(2)->isSelected());
}

void tst_invitetree::clientMovesOnlyBetweenKnownChannels_data()
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

void tst_invitetree::clientMovesOnlyBetweenKnownChannels()
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

void tst_invitetree::invisibleClientAppearsInAKnownChannel()
{
    server().clients[2].channel = 99;
    lobby->openHost();
    emit lobby->controller.channelCreated(1, 99, 0);
    emit lobby->controller.clientMoved(1, 2, 99, 4);
    QCOMPARE(lobby->rows(),
             QString("Lobby[Me, Query], Games[Chess[Cleo], Bert], Empty[Anna], ERROR getting channel name"));
    QVERIFY(isOpenAbove(client(2)));
}

void tst_invitetree::clientLeavesForGood()
{
    lobby->openHost();
    lobby->selectClient(3);
    emit lobby->controller.clientLeft(1, 3, 2);
    emit lobby->controller.clientLeft(1, 3, 2);
    emit lobby->controller.clientMoved(1, 3, 2, 1);
    lobby->receive(23, "3");
    QVERIFY(!client(3));
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo]], Empty"));
    QVERIFY(lobby->tree->selectedItems().isEmpty());
}

void tst_invitetree::channelIsCreated_data()
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

void tst_invitetree::channelIsCreated()
{
    QFETCH(int, id);
    QFETCH(int, parent);
    lobby->openHost();
    lobby->sent();
    if (id == 9)
        server().addChannel(9, "New", uint64(parent));
    emit lobby->controller.channelCreated(1, uint64(id), uint64(parent));
    QTEST(lobby->rows(), "rows");
    QCOMPARE(lookOf(channel(uint64(id))), QString("channel"));
    QCOMPARE(lobby->sent(), QStringList());
}

void tst_invitetree::channelMoves_data()
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

void tst_invitetree::channelMoves()
{
    QFETCH(int, id);
    QFETCH(int, parent);
    lobby->openHost();
    emit lobby->controller.channelMoved(1, uint64(id), uint64(parent));
    QTEST(lobby->rows(), "rows");
    for (const anyID client : QList<anyID>{1, 2, 3, 4, 5})
        QVERIFY(isOpenAbove(this->client(client)));
}

void tst_invitetree::movedBranchKeepsItsLook()
{
    server().addChannel(6, "Closed", 2);
    server().addClient(7, "Dora", 6);
    lobby->openHost();
    lobby->tree->setCurrentItem(lobby->tree->topLevelItem(1)->child(0)->child(0));
    lobby->select({client(4), channel(2), client(1)});
    const_cast<mytreeitem*>(channel(6))->setExpanded(false);
    const QString current = lobby->tree->currentItem()->text(0);
    QCOMPARE(current, QString("Cleo"));

    emit lobby->controller.channelMoved(1, 2, 4);

    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Empty[Games[Chess[Cleo], Closed[Dora], Bert]]"));
    QVERIFY(isOpenAbove(client(3)));
    QVERIFY(isOpenAbove(client(4)));
    QVERIFY(!channel(6)->isExpanded());
    QCOMPARE(lobby->tree->currentItem(), client(4));
    QCOMPARE(lobby->tree->selectedItems().size(), 3);
    for (const mytreeitem* row : {client(4), channel(2), client(1)})
        QVERIFY(row->isSelected());
}

void tst_invitetree::movedClientKeepsItsSelection()
{
    lobby->openHost();
    lobby->select({client(2), client(3)});
    emit lobby->controller.clientMoved(1, 2, 1, 3);
    QCOMPARE(lobby->tree->selectedItems().size(), 2);
    lobby->sent();
    lobby->dialog->invite();
    QCOMPARE(lobby->dialog->lists().invited().size(), 2);
}

void tst_invitetree::emptyChannelOpensForItsFirstRow()
{
    lobby->openHost();
    emit lobby->controller.clientMoved(1, 2, 1, 4);
    QVERIFY(isOpenAbove(client(2)));
    server().addChannel(9, "New", 0);
    emit lobby->controller.channelCreated(1, 9, 0);
    emit lobby->controller.clientConnected(1, 77, 9);
    QVERIFY(isOpenAbove(client(77)));
}

void tst_invitetree::closedChannelStaysClosed()
{
    lobby->openHost();
    const_cast<mytreeitem*>(channel(1))->setExpanded(false);
    emit lobby->controller.clientMoved(1, 3, 2, 1);
    emit lobby->controller.clientConnected(1, 77, 1);
    QVERIFY(!channel(1)->isExpanded());
}

void tst_invitetree::deletedChannelTakesItsRowsAlong()
{
    lobby->openHost();
    lobby->select({channel(2), client(4)});
    emit lobby->controller.channelDeleted(1, 2);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Empty"));
    QVERIFY(!channel(2));
    QVERIFY(!channel(3));
    QVERIFY(!client(3));
    QVERIFY(!client(4));
    QVERIFY(lobby->tree->selectedItems().isEmpty());
    emit lobby->controller.channelDeleted(1, 2);
    emit lobby->controller.channelDeleted(1, 3);
    emit lobby->controller.channelDeleted(1, 99);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Empty"));
}

void tst_invitetree::entriesOfLostRowsAreSafe()
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

void tst_invitetree::lostRowsComeBack()
{
    lobby->openHost();
    emit lobby->controller.channelDeleted(1, 2);
    emit lobby->controller.channelCreated(1, 3, 0);
    emit lobby->controller.clientConnected(1, 4, 3);
    emit lobby->controller.clientConnected(1, 3, 1);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query, Bert], Empty, Chess[Cleo]"));
}

void tst_invitetree::pongBeforeAnything()
{
    lobby->openHost();
    for (const char* sender : {"0", "77", "65535", "65536", "x"})
        lobby->receive(23, sender);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty"));
}

void tst_invitetree::namesAreOnOnePlainLine_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("shown");
    QTest::newRow("html") << QByteArray("<img src=/dev/zero><b>x</b>") << "<img src=/dev/zero><b>x</b>";
    QTest::newRow("line breaks") << QByteArray("a\nb\r\nc\vd\fe") << "a b  c d e";
    QTest::newRow("line separators") << QByteArray("a\xe2\x80\xa8"
                                                   "b\xe2\x80\xa9"
                                                   "c\xc2\x85"
                                                   "d")
                                     << "a b c d";
    QTest::newRow("control characters") << QByteArray("\x01\t\x1b[31m\x7f") << "   [31m ";
    QTest::newRow("right to left") << QByteArray("\xe2\x80\xae"
                                                 "abc")
                                   << QString::fromUtf8("\xe2\x80\xae"
                                                        "abc");
    QTest::newRow("UTF-8") << QByteArray("J\xc3\xb6rg \xf0\x9f\x8e\xa8") << QString::fromUtf8("Jörg 🎨");
    QTest::newRow("empty") << QByteArray("") << "";
    QTest::newRow("very long") << QByteArray(10000, 'w') << QString(500, 'w');
    QTest::newRow("long enough") << QByteArray(500, 'w') << QString(500, 'w');
}

void tst_invitetree::namesAreOnOnePlainLine()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, shown);
    server().clients[2].nickname = name;
    server().channels[4].name = name;
    lobby->openHost();
    QCOMPARE(client(2)->text(0), shown);
    QCOMPARE(channel(4)->text(0), shown);
    QCOMPARE(client(2)->toolTip(0), QString("Rightclick or doubleclick to invite"));
    server().addClient(77, name);
    emit lobby->controller.clientConnected(1, 77, 1);
    QCOMPARE(client(77)->text(0), shown);
}

void tst_invitetree::strangersNamesKeepTheLayout()
{
    lobby->openHost();
    lobby->dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(lobby->dialog));
    const int rowHeight = lobby->tree->visualItemRect(client(1)).height();
    const QSize room = lobby->dialog->minimumSizeHint();
    delete lobby->dialog.data();
    server().clients[2].nickname = QByteArray(10000, 'w');
    server().clients[3].nickname = "one\ntwo\nthree";
    server().channels[1].name = "<h1>Lobby</h1><br><br>";
    lobby->openHost();
    lobby->dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(lobby->dialog));
    QCOMPARE(lobby->dialog->minimumSizeHint(), room);
    for (const anyID id : QList<anyID>{1, 2, 3})
        QCOMPARE(lobby->tree->visualItemRect(client(id)).height(), rowHeight);
    QCOMPARE(lobby->tree->visualItemRect(channel(1)).height(), rowHeight);
    QVERIFY(lobby->tree->columnWidth(0) <= lobby->tree->viewport()->width());
    QVERIFY(!lobby->tree->grab().isNull());
}

void tst_invitetree::bigTrees_data()
{
    QTest::addColumn<int>("clients");
    QTest::newRow("10") << 10;
    QTest::newRow("1000") << 1000;
    QTest::newRow("5000") << 5000;
}

// 500 clients in one channel, the others spread over a hundred of them.
void tst_invitetree::bigTrees()
{
    QFETCH(int, clients);
    const int together = qMin(clients, 500);
    constexpr uint64 crowded = 1000;
    server().addChannel(crowded, "Crowded");
    for (uint64 id = crowded + 1; id <= crowded + 100; ++id)
        server().addChannel(id, "Channel", id > crowded + 1 ? id - 1 : 0);
    for (int i = 0; i < clients; ++i)
        server().addClient(anyID(100 + i), "Client", i < together ? crowded : crowded + 1 + uint64(i % 100));
    lobby->openHost();
    QCOMPARE(lobby->sent().size(), 1);
    QCOMPARE(lobby->tree->findItems("Client", Qt::MatchExactly | Qt::MatchRecursive).size(), clients);

    for (int i = 0; i < clients; ++i)
        lobby->receive(23, QByteArray::number(100 + i));
    for (int i = 0; i < clients; ++i)
        QVERIFY(client(anyID(100 + i))->hasPlugin());
    QCOMPARE(lookOf(client(anyID(99 + clients))), QString("plugin"));

    lobby->inviteChannel(crowded);
    QCOMPARE(lobby->dialog->lists().invited().size(), together);
    QCOMPARE(lobby->sent().size(), together);
    for (int i = 0; i < together; ++i)
        lobby->receive(13, QByteArray::number(100 + i));
    QCOMPARE(lobby->dialog->accepted().size(), together);

    emit lobby->controller.channelMoved(1, crowded, crowded + 100);
    QVERIFY(isOpenAbove(client(100)));
    emit lobby->controller.channelDeleted(1, crowded + 1);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty"));
}

QTEST_MAIN(tst_invitetree)
#include "tst_invitetree.moc"
