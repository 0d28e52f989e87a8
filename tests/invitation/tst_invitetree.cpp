#include "lobbyfixture.h"

#include <QTest>

#include <memory>

/// The tree as it is built, and the names in it.
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
    void namesAreOnOnePlainLine_data();
    void namesAreOnOnePlainLine();
    void strangersNamesKeepTheLayout();
    void bigTrees_data();
    void bigTrees();

private:
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
    QVERIFY(lobby->channel(3)->isChannel());
    QCOMPARE(lookOf(lobby->channel(3)), QString("channel"));
    QCOMPARE(lookOf(lobby->client(4)), QString("none"));
    QCOMPARE(lookOf(lobby->client(5)), QString("none"));
}

void tst_invitetree::channelBeforeItsParentStandsAtTheTop()
{
    lobby->server().channelOrder = {3, 2, 1, 4};
    lobby->openHost();
    QCOMPARE(lobby->rows(), QString("Chess[Cleo], Games[Bert], Lobby[Me, Anna, Query], Empty"));
}

void tst_invitetree::channelsAreNotSorted()
{
    lobby->server().channels[1].order = 4;
    lobby->server().channels[4].order = 0;
    lobby->openHost();
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty"));
    QVERIFY(!lobby->tree->isSortingEnabled());
}

void tst_invitetree::marksOwnAndHost()
{
    lobby->openGuest(3);
    QCOMPARE(lookOf(lobby->client(1)), QString("self"));
    QCOMPARE(lookOf(lobby->client(3)), QString("host"));
    QCOMPARE(lookOf(lobby->client(2)), QString("none"));
    lobby->receive(23, "3");
    QCOMPARE(lookOf(lobby->client(3)), QString("host"));
    lobby->receive(6, "3 3");
    QCOMPARE(lookOf(lobby->client(3)), QString("invited"));
}

void tst_invitetree::noRowIsHostOnTheHost()
{
    lobby->openHost();
    for (const anyID id : QList<anyID>{1, 2, 3, 4, 5})
        QVERIFY(lobby->client(id)->inviteState() != invitestate::invite_host);
}

void tst_invitetree::ownRowStaysAfterAPong()
{
    lobby->openHost();
    lobby->receive(23, "1");
    QVERIFY(lobby->client(1)->hasPlugin());
    QCOMPARE(lookOf(lobby->client(1)), QString("self"));
}

void tst_invitetree::unknownOwnIdMarksNobody()
{
    lobby->host.failing.insert("getClientID");
    lobby->openHost();
    for (const anyID id : QList<anyID>{1, 2, 3, 4, 5})
        QCOMPARE(lookOf(lobby->client(id)), QString("none"));
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
    lobby->server().clients[2].channel = 99;
    lobby->openHost();
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Query], Games[Chess[Cleo], Bert], Empty"));
    QVERIFY(lobby->client(2));
    QVERIFY(!lobby->client(2)->treeWidget());
    emit lobby->controller.clientMoved(1, 2, 99, 1);
    QVERIFY(!lobby->client(2)->treeWidget());
    // It counts all the same: its answers are heard and its row is ready for them.
    lobby->receive(24, "2");
    QCOMPARE(lookOf(lobby->client(2)), QString("busy"));
    QCOMPARE(lobby->lists(), QString("A|I|R 2|C"));
    emit lobby->controller.clientLeft(1, 2, 99);
    QVERIFY(!lobby->client(2));
    QCOMPARE(lobby->lists(), QString("A|I|R|C"));
}

void tst_invitetree::rowsListedTwiceAreShownOnce()
{
    lobby->server().channelOrder = {1, 2, 3, 2, 4, 1};
    lobby->server().clientOrder = {1, 2, 3, 2, 4, 5, 1};
    lobby->openHost();
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty"));
    QCOMPARE(lobby->sent(), QStringList({"22 1>1 2 3 2 4 5 1"}));
}

void tst_invitetree::everythingIsOpenAtFirst()
{
    lobby->openHost();
    for (const anyID id : QList<anyID>{1, 2, 3, 4, 5})
        QVERIFY(isOpenAbove(lobby->client(id)));
    QVERIFY(!lobby->tree->expandsOnDoubleClick());
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
    QTest::newRow("turned right to left") << QByteArray("\xe2\x80\xae"
                                                        "abc")
                                          << "abc";
    QTest::newRow("UTF-8") << QByteArray("J\xc3\xb6rg \xf0\x9f\x8e\xa8") << QString::fromUtf8("Jörg 🎨");
    QTest::newRow("empty") << QByteArray("") << "";
    QTest::newRow("very long") << QByteArray(10000, 'w') << QString(500, 'w');
    QTest::newRow("long enough") << QByteArray(500, 'w') << QString(500, 'w');
}

void tst_invitetree::namesAreOnOnePlainLine()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, shown);
    lobby->server().clients[2].nickname = name;
    lobby->server().channels[4].name = name;
    lobby->openHost();
    QCOMPARE(lobby->client(2)->text(0), shown);
    QCOMPARE(lobby->channel(4)->text(0), shown);
    QCOMPARE(lobby->client(2)->toolTip(0), QString("Rightclick or doubleclick to invite"));
    lobby->server().addClient(77, name);
    emit lobby->controller.clientConnected(1, 77, 1);
    QCOMPARE(lobby->client(77)->text(0), shown);
}

void tst_invitetree::strangersNamesKeepTheLayout()
{
    lobby->openHost();
    lobby->dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(lobby->dialog));
    const int rowHeight = lobby->tree->visualItemRect(lobby->client(1)).height();
    const QSize room = lobby->dialog->minimumSizeHint();
    delete lobby->dialog.data();
    lobby->server().clients[2].nickname = QByteArray(10000, 'w');
    lobby->server().clients[3].nickname = "one\ntwo\nthree";
    lobby->server().channels[1].name = "<h1>Lobby</h1><br><br>";
    lobby->openHost();
    lobby->dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(lobby->dialog));
    QCOMPARE(lobby->dialog->minimumSizeHint(), room);
    for (const anyID id : QList<anyID>{1, 2, 3})
        QCOMPARE(lobby->tree->visualItemRect(lobby->client(id)).height(), rowHeight);
    QCOMPARE(lobby->tree->visualItemRect(lobby->channel(1)).height(), rowHeight);
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
    lobby->server().addChannel(crowded, "Crowded");
    for (uint64 id = crowded + 1; id <= crowded + 100; ++id)
        lobby->server().addChannel(id, "Channel", id > crowded + 1 ? id - 1 : 0);
    for (int i = 0; i < clients; ++i)
        lobby->server().addClient(anyID(100 + i), "Client", i < together ? crowded : crowded + 1 + uint64(i % 100));
    lobby->openHost();
    QCOMPARE(lobby->sent().size(), 1);
    QCOMPARE(lobby->tree->findItems("Client", Qt::MatchExactly | Qt::MatchRecursive).size(), clients);

    for (int i = 0; i < clients; ++i)
        lobby->receive(23, QByteArray::number(100 + i));
    for (int i = 0; i < clients; ++i)
        QVERIFY(lobby->client(anyID(100 + i))->hasPlugin());
    QCOMPARE(lookOf(lobby->client(anyID(99 + clients))), QString("plugin"));

    lobby->inviteChannel(crowded);
    QCOMPARE(lobby->dialog->lists().invited().size(), together);
    QCOMPARE(lobby->sent().size(), together);
    for (int i = 0; i < together; ++i)
        lobby->receive(13, QByteArray::number(100 + i));
    QCOMPARE(lobby->dialog->accepted().size(), together);

    emit lobby->controller.channelMoved(1, crowded, crowded + 100);
    QVERIFY(isOpenAbove(lobby->client(100)));
    emit lobby->controller.channelDeleted(1, crowded + 1);
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Chess[Cleo], Bert], Empty"));
}

QTEST_MAIN(tst_invitetree)
#include "tst_invitetree.moc"
