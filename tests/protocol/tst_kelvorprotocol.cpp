#include "protocol/kelvorprotocol.h"
#include "signalrecorder.h"
#include "tests/support/fakehost.h"

#include <QtTest>

#include <memory>
#include <vector>

namespace {

constexpr uint64 schid = 77;
constexpr anyID ownID = 12;
const anyID group[] = {5, 6, 65535, 0};

} // namespace

// What the endpoint makes of commands that arrive.
class tst_kelvorprotocol : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void declaresItsSignalsInOrder();

    void emitsOneSignalForEachKind_data();
    void emitsOneSignalForEachKind();
    void dropsWhatIsNoMessage_data();
    void dropsWhatIsNoMessage();
    void dropsANullCommand();
    void inviteOfAnotherVersionIsAnsweredWithRejectVersion();
    void versionIsTestedInInviteOnly();
    void pingIsAnsweredOnItsConnection();
    void pingIsNotAnsweredWhenPongIsOff();
    void pingOfTheWrongShapeIsNotAnswered();
    void acceptlistArrayBeginsWithItsClients();
    void invitelistArrayBeginsWithItsSender();
    void channelInvitelistArrayBeginsWithItsSender();
    void startWithABlankInItsPathHasNone();
    void extendedDrawKeepsBlanksInItsData();
    void receivedListStandsWhileAnotherArrives();
    void endpointMayBeDeletedByASlot();

private:
    std::unique_ptr<fakehost> host;
    std::unique_ptr<kelvorprotocol> protocol;
    std::unique_ptr<signalrecorder> recorder;
};

void tst_kelvorprotocol::init()
{
    host = std::make_unique<fakehost>();
    host->addServer(schid).ownID = ownID;
    protocol = std::make_unique<kelvorprotocol>(host->table());
    protocol->setPluginCommandID("kelvor.so");
    recorder = std::make_unique<signalrecorder>(protocol.get());
}

void tst_kelvorprotocol::cleanup()
{
    recorder.reset();
    protocol.reset();
    host.reset();
}

void tst_kelvorprotocol::declaresItsSignalsInOrder()
{
    const QList<QByteArray> expected = {
        "invited(uint64,anyID)",
        "invitelistReceived(uint64,anyID*,anyID)",
        "channelInvitelistReceived(uint64,uint64*,anyID)",
        "acceptlistReceived(uint64,anyID*,anyID)",
        "rejectlistReceived(uint64,anyID*,anyID)",
        "clientInvited(uint64,anyID,anyID)",
        "channelInvited(uint64,uint64,anyID)",
        "clientAcceptedInvite(uint64,anyID,anyID)",
        "clientRejectedInvite(uint64,anyID,anyID)",
        "clientRejectedInviteVersion(uint64,anyID,anyID)",
        "accept(uint64,anyID)",
        "reject(uint64,anyID)",
        "rejectVersion(uint64,anyID)",
        "start(uint64,int,int,uint64,bool,uint64,QString,anyID)",
        // A qreal stands in the meta-object as the double that it is.
        "draw(uint64,char,QString,double,QList<QPoint>,anyID)",
        "extendedDraw(uint64,char,QString,anyID)",
        "logout(uint64,anyID)",
        "downloadFinished(uint64,bool,anyID)",
        "takeBack(uint64,anyID)",
        "clientTakenBack(uint64,anyID,anyID)",
        "channelTakenBack(uint64,uint64,anyID)",
        "pong(uint64,anyID)",
        "busy(uint64,anyID)",
    };
    const QMetaObject& type = kelvorprotocol::staticMetaObject;
    QList<QByteArray> declared;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        QCOMPARE(type.method(i).methodType(), QMetaMethod::Signal);
        declared.append(type.method(i).methodSignature());
    }
    QCOMPARE(declared, expected);
}

void tst_kelvorprotocol::emitsOneSignalForEachKind_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("signal");
    const auto row = [](const QByteArray& command, const QByteArray& signal) {
        QTest::newRow(signal.left(signal.indexOf('('))) << command << signal;
    };
    row("\x01 2 34", "invited(34)");
    row("\x02 34 5 6", "invitelistReceived([34 5 6], 0)");
    row("\x03 34 4500", "channelInvitelistReceived([34 4500], 0)");
    row("\x04 34 5 6", "acceptlistReceived([5 6], 34)");
    row("\x05 34 5 6", "rejectlistReceived([34 5 6], 0)");
    row("\x06 34 45", "clientInvited(45, 34)");
    row("\x07 34 4500", "channelInvited(4500, 34)");
    row("\x08 34 45", "clientTakenBack(45, 34)");
    row("\x09 34 4500", "channelTakenBack(4500, 34)");
    row("\x0a 34 45", "clientAcceptedInvite(45, 34)");
    row("\x0b 34 45", "clientRejectedInvite(45, 34)");
    row("\x0c 34 45", "clientRejectedInviteVersion(45, 34)");
    row("\x0d 34", "accept(34)");
    row("\x0e 34", "reject(34)");
    row("\x0f 34", "rejectVersion(34)");
    row("\x10 34 640 480 7 true 1234 /cat.png", "start(640, 480, 7, true, 1234, \"/cat.png\", 34)");
    row("\x11 34 \x02 #ff0000 1.5 10|20 11|21", "draw(2, \"#ff0000\", 1.5, [10|20 11|21], 34)");
    row("\x12 34", "logout(34)");
    row("\x13 34 \x0a #ff0000 1|2", "extendedDraw(10, \"#ff0000 1|2\", 34)");
    row("\x14 34 true", "downloadFinished(true, 34)");
    row("\x15 34", "takeBack(34)");
    row("\x17 34", "pong(34)");
    row("\x18 34", "busy(34)");
}

void tst_kelvorprotocol::emitsOneSignalForEachKind()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, signal);
    protocol->dispatch(schid, command);
    QCOMPARE(recorder->take(), QList<QByteArray>{signal});
    QCOMPARE(recorder->connections, QList<uint64>{schid});
    QVERIFY(host->sent.isEmpty());
}

void tst_kelvorprotocol::dropsWhatIsNoMessage_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::newRow("nothing") << QByteArray("");
    QTest::newRow("first byte 25") << QByteArray("\x19 34");
    QTest::newRow("first byte 127") << QByteArray("\x7f 34");
    QTest::newRow("first byte 128") << QByteArray("\x80 34");
    QTest::newRow("first byte 255") << QByteArray("\xff 34");
    // 1 to 24 with the highest bit set: a reader that masked it would take them for messages.
    QTest::newRow("first byte 129") << QByteArray("\x81 2 34");
    QTest::newRow("a blank") << QByteArray(" 34");
    QTest::newRow("a digit for the kind") << QByteArray("6 12 45");
    QTest::newRow("the test message") << QByteArray("Hallo");
    QTest::newRow("invite of four parts") << QByteArray("\x01 2 34 5");
    QTest::newRow("acceptlist without a sender") << QByteArray("\x04");
    QTest::newRow("start of six parts") << QByteArray("\x10 34 640 480 7 true");
    QTest::newRow("draw of four parts") << QByteArray("\x11 34 \x02 #ff0000");
    QTest::newRow("extendedDraw of three parts") << QByteArray("\x13 34 \x0a");
    QTest::newRow("downloadFinished of four parts") << QByteArray("\x14 34 true 5");
    QTest::newRow("pong of three parts") << QByteArray("\x17 34 5");
    QTest::newRow("busy without a sender") << QByteArray("\x18");
}

void tst_kelvorprotocol::dropsWhatIsNoMessage()
{
    QFETCH(QByteArray, command);
    protocol->dispatch(schid, command);
    QVERIFY(recorder->take().isEmpty());
    QVERIFY(host->sent.isEmpty());
}

void tst_kelvorprotocol::dropsANullCommand()
{
    protocol->dispatch(schid, nullptr);
    QVERIFY(recorder->take().isEmpty());
    QVERIFY(host->sent.isEmpty());
}

void tst_kelvorprotocol::inviteOfAnotherVersionIsAnsweredWithRejectVersion()
{
    protocol->dispatch(schid, "\x01 3 34");
    QVERIFY(recorder->take().isEmpty());
    const sentcommand expected{schid, "kelvor.so", "\x0f 12", PluginCommandTarget_CLIENT, {34}};
    QCOMPARE(host->sent.size(), 1);
    QVERIFY(host->sent.first() == expected);
}

void tst_kelvorprotocol::versionIsTestedInInviteOnly()
{
    protocol->dispatch(schid, "\x01 3 34");
    protocol->dispatch(schid, "\x10 34 640 480 0 false 0 ");
    QCOMPARE(recorder->take(), QList<QByteArray>{"start(640, 480, 0, false, 0, \"\", 34)"});
}

void tst_kelvorprotocol::pingIsAnsweredOnItsConnection()
{
    host->addServer(78).ownID = 3;
    protocol->dispatch(78, "\x16 34");
    protocol->dispatch(schid, "\x16 35");
    const QList<sentcommand> expected = {{78, "kelvor.so", "\x17 3", PluginCommandTarget_CLIENT, {34}},
                                         {schid, "kelvor.so", "\x17 12", PluginCommandTarget_CLIENT, {35}}};
    QVERIFY(host->sent == expected);
    QVERIFY(recorder->take().isEmpty());
}

void tst_kelvorprotocol::pingIsNotAnsweredWhenPongIsOff()
{
    protocol->setPong(false);
    protocol->dispatch(schid, "\x16 34");
    QVERIFY(host->sent.isEmpty());
    QVERIFY(recorder->take().isEmpty());
    QVERIFY(host->printed.isEmpty());
    protocol->setPong(true);
    protocol->dispatch(schid, "\x16 34");
    QCOMPARE(host->takeTexts(), QList<QByteArray>{"\x17 12"});
}

void tst_kelvorprotocol::pingOfTheWrongShapeIsNotAnswered()
{
    protocol->dispatch(schid, "\x16");
    protocol->dispatch(schid, "\x16 ");
    protocol->dispatch(schid, "\x16 34 5");
    QVERIFY(host->sent.isEmpty());
}

void tst_kelvorprotocol::acceptlistArrayBeginsWithItsClients()
{
    std::vector<anyID> array;
    connect(protocol.get(), &kelvorprotocol::acceptlistReceived, this,
            [&](uint64, anyID* list, anyID) { array.assign(list, list + 5); });
    protocol->dispatch(schid, "\x04 34 5 6 7");
    QCOMPARE(array, (std::vector<anyID>{5, 6, 7, 0, 0}));
    QCOMPARE(recorder->take(), QList<QByteArray>{"acceptlistReceived([5 6 7], 34)"});
}

void tst_kelvorprotocol::invitelistArrayBeginsWithItsSender()
{
    std::vector<anyID> entries;
    anyID from = 99;
    connect(protocol.get(), &kelvorprotocol::invitelistReceived, this, [&](uint64, anyID* list, anyID sender) {
        entries.assign(list, list + 4);
        from = sender;
    });
    protocol->dispatch(schid, "\x02 34 5 6");
    QCOMPARE(entries, (std::vector<anyID>{34, 5, 6, 0}));
    QCOMPARE(from, anyID(0));
}

void tst_kelvorprotocol::channelInvitelistArrayBeginsWithItsSender()
{
    std::vector<uint64> entries;
    anyID from = 99;
    connect(protocol.get(), &kelvorprotocol::channelInvitelistReceived, this, [&](uint64, uint64* list, anyID sender) {
        entries.assign(list, list + 3);
        from = sender;
    });
    protocol->dispatch(schid, "\x03 34 18446744073709551615");
    QCOMPARE(entries, (std::vector<uint64>{34, ~uint64(0), 0}));
    QCOMPARE(from, anyID(0));
}

void tst_kelvorprotocol::startWithABlankInItsPathHasNone()
{
    QVERIFY(protocol->sendStart(schid, 640, 480, 7, true, 1234, "/my cat.png", group));
    protocol->dispatch(schid, host->takeTexts().value(0));
    QCOMPARE(recorder->take(), QList<QByteArray>{"start(640, 480, 7, true, 1234, \"\", 12)"});
}

void tst_kelvorprotocol::extendedDrawKeepsBlanksInItsData()
{
    const QString data = "#000000 1 30|40 200|80 hello  wide   world  ";
    QVERIFY(protocol->sendExtendedDraw(schid, 3, data, group));
    protocol->dispatch(schid, host->takeTexts().value(0));
    QCOMPARE(recorder->take(), QList<QByteArray>{"extendedDraw(3, \"" + data.toLatin1() + "\", 12)"});
}

void tst_kelvorprotocol::receivedListStandsWhileAnotherArrives()
{
    std::vector<anyID> entries;
    connect(protocol.get(), &kelvorprotocol::acceptlistReceived, this, [&](uint64, anyID* list, anyID sender) {
        if (sender != 34)
            return;
        protocol->dispatch(schid, "\x04 35 8 9");
        entries.assign(list, list + 3);
    });
    protocol->dispatch(schid, "\x04 34 5 6");
    QCOMPARE(entries, (std::vector<anyID>{5, 6, 0}));
}

void tst_kelvorprotocol::endpointMayBeDeletedByASlot()
{
    QList<anyID> told;
    for (const char* command : {"\x01 2 34", "\x04 34 5 6", "\x11 34 \x02 #ff0000 1.5 10|20"}) {
        auto* mortal = new kelvorprotocol(host->table());
        const auto remove = [&](anyID sender) {
            told.append(sender);
            delete mortal;
        };
        connect(mortal, &kelvorprotocol::invited, [=](uint64, anyID sender) { remove(sender); });
        connect(mortal, &kelvorprotocol::acceptlistReceived, [=](uint64, anyID*, anyID sender) { remove(sender); });
        connect(mortal, &kelvorprotocol::draw,
                [=](uint64, char, const QString&, qreal, const QList<QPoint>&, anyID sender) { remove(sender); });
        mortal->dispatch(schid, command);
    }
    QCOMPARE(told, (QList<anyID>{34, 34, 34}));
}

QTEST_GUILESS_MAIN(tst_kelvorprotocol)
#include "tst_kelvorprotocol.moc"
