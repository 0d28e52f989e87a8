#include "protocol/kelvorprotocol.h"
#include "signalrecorder.h"
#include "tests/support/fakehost.h"

#include <QtTest>

#include <functional>
#include <memory>
#include <vector>

namespace {

constexpr uint64 schid = 77;
constexpr anyID ownID = 12;
const anyID group[] = {5, 6, 65535, 0};

using sendoperation = std::function<bool(kelvorprotocol&)>;

struct operationrow {
    const char* name;
    sendoperation operation;
    QByteArray text;
    QList<anyID> targets;
};

// Every send operation with what it is to hand to the client.
QVector<operationrow> operations()
{
    using p = kelvorprotocol&;
    static const anyID clients[] = {7, 8, 0};
    static const uint64 channels[] = {4500, ~uint64(0), 0};
    const QList<anyID> one = {34};
    const QList<anyID> all = {5, 6, 65535};
    return {
        {"sendInvite", [](p e) { return e.sendInvite(schid, 34); }, "\x01 2 12", one},
        {"sendInviteList", [](p e) { return e.sendInviteList(schid, clients, 34); }, "\x02 12 7 8", one},
        {"sendChannelInviteList", [](p e) { return e.sendChannelInviteList(schid, channels, 34); },
         "\x03 12 4500 18446744073709551615", one},
        {"sendAcceptList", [](p e) { return e.sendAcceptList(schid, clients, 34); }, "\x04 12 7 8", one},
        {"sendRejectList", [](p e) { return e.sendRejectList(schid, clients, 34); }, "\x05 12 7 8", one},
        {"sendClientInvited", [](p e) { return e.sendClientInvited(schid, 45, group); }, "\x06 12 45", all},
        {"sendChannelInvited", [](p e) { return e.sendChannelInvited(schid, 4500, group); }, "\x07 12 4500", all},
        {"sendClientTakenBack", [](p e) { return e.sendClientTakenBack(schid, 45, group); }, "\x08 12 45", all},
        {"sendChannelTakenBack", [](p e) { return e.sendChannelTakenBack(schid, 4500, group); }, "\x09 12 4500", all},
        {"sendClientAcceptedInvite", [](p e) { return e.sendClientAcceptedInvite(schid, 45, group); }, "\x0a 12 45",
         all},
        {"sendClientRejectedInvite", [](p e) { return e.sendClientRejectedInvite(schid, 45, group); }, "\x0b 12 45",
         all},
        {"sendClientRejectedInviteVersion", [](p e) { return e.sendClientRejectedInviteVersion(schid, 45, group); },
         "\x0c 12 45", all},
        {"sendAccept", [](p e) { return e.sendAccept(schid, 34); }, "\x0d 12", one},
        {"sendReject", [](p e) { return e.sendReject(schid, 34); }, "\x0e 12", one},
        {"sendRejectVersion", [](p e) { return e.sendRejectVersion(schid, 34); }, "\x0f 12", one},
        {"sendStart", [](p e) { return e.sendStart(schid, 640, 480, 7, true, 1234, "/cat.png", group); },
         "\x10 12 640 480 7 true 1234 /cat.png", all},
        {"sendDraw",
         [](p e) {
             return e.sendDraw(schid, 2, "#ff0000", 1.5, {{10, 20}, {11, 21}}, group);
         },
         "\x11 12 \x02 #ff0000 1.5 10|20 11|21", all},
        {"sendLogout", [](p e) { return e.sendLogout(schid, group); }, "\x12 12", all},
        {"sendExtendedDraw", [](p e) { return e.sendExtendedDraw(schid, 10, "#ff0000 1|2", group); },
         "\x13 12 \x0a #ff0000 1|2", all},
        {"sendDownloadFinished", [](p e) { return e.sendDownloadFinished(schid, true, group); }, "\x14 12 true", all},
        {"sendTakeBack", [](p e) { return e.sendTakeBack(schid, 34); }, "\x15 12", one},
        {"sendPing", [](p e) { return e.sendPing(schid, group); }, "\x16 12", all},
        {"sendPong", [](p e) { return e.sendPong(schid, 34); }, "\x17 12", one},
        {"sendBusy", [](p e) { return e.sendBusy(schid, 34); }, "\x18 12", one},
    };
}

} // namespace

Q_DECLARE_METATYPE(sendoperation)

class tst_kelvorprotocol : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void declaresItsSignalsInOrder();

    void sendsOneCommandToItsTargets_data();
    void sendsOneCommandToItsTargets();
    void sendsNothingWithoutAnOwnID_data();
    void sendsNothingWithoutAnOwnID();
    void rejectVersionReturnsFalseAfterSending();
    void listWithoutEntriesIsNeverSent();
    void pingToManyClientsIsOneMessage();
    void startPutsNoPictureAsABlankBehind();
    void drawWithoutPointsIsSent();
    void pluginIDIsACopy();
    void laterPluginIDReplacesTheFirst();
    void testMessageGoesToClient123OnConnection1();

    void emitsOneSignalForEachKind_data();
    void emitsOneSignalForEachKind();
    void dropsWhatIsNoMessage_data();
    void dropsWhatIsNoMessage();
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

void tst_kelvorprotocol::sendsOneCommandToItsTargets_data()
{
    QTest::addColumn<sendoperation>("operation");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QList<anyID>>("targets");
    const QVector<operationrow> rows = operations();
    QCOMPARE(rows.size(), 24);
    for (const operationrow& row : rows)
        QTest::newRow(row.name) << row.operation << row.text << row.targets;
}

void tst_kelvorprotocol::sendsOneCommandToItsTargets()
{
    QFETCH(sendoperation, operation);
    QFETCH(QByteArray, text);
    QFETCH(QList<anyID>, targets);
    const bool isRejectVersion = text.at(0) == 15;
    QCOMPARE(operation(*protocol), !isRejectVersion);
    QCOMPARE(host->sent.size(), 1);
    const sentcommand expected{schid, "kelvor.so", text, PluginCommandTarget_CLIENT, targets};
    QVERIFY(host->sent.first() == expected);
    QCOMPARE(host->calls.value("getClientID"), 1);
    QVERIFY(recorder->take().isEmpty());
}

void tst_kelvorprotocol::sendsNothingWithoutAnOwnID_data() { sendsOneCommandToItsTargets_data(); }

void tst_kelvorprotocol::sendsNothingWithoutAnOwnID()
{
    QFETCH(sendoperation, operation);
    host->failing.insert("getClientID");
    QVERIFY(!operation(*protocol));
    QVERIFY(host->sent.isEmpty());
    QVERIFY(host->printed.isEmpty());
}

void tst_kelvorprotocol::rejectVersionReturnsFalseAfterSending()
{
    QVERIFY(!protocol->sendRejectVersion(schid, 34));
    QCOMPARE(host->takeTexts(), QList<QByteArray>{"\x0f 12"});
}

void tst_kelvorprotocol::listWithoutEntriesIsNeverSent()
{
    const anyID noClients[] = {0};
    const uint64 noChannels[] = {0};
    QVERIFY(!protocol->sendAcceptList(schid, noClients, 34));
    QVERIFY(!protocol->sendInviteList(schid, noClients, 34));
    QVERIFY(!protocol->sendRejectList(schid, noClients, 34));
    QVERIFY(!protocol->sendChannelInviteList(schid, noChannels, 34));
    QVERIFY(!protocol->sendAcceptList(schid, nullptr, 34));
    QVERIFY(!protocol->sendChannelInviteList(schid, nullptr, 34));
    QVERIFY(host->sent.isEmpty());
}

void tst_kelvorprotocol::pingToManyClientsIsOneMessage()
{
    std::vector<anyID> everybody;
    for (anyID client = 1; client <= 500; ++client)
        everybody.push_back(client);
    everybody.push_back(0);
    QVERIFY(protocol->sendPing(schid, everybody.data()));
    QCOMPARE(host->sent.size(), 1);
    QCOMPARE(host->sent.first().targets.size(), 500);
    QVERIFY(host->sent.first().targets.contains(ownID));
}

void tst_kelvorprotocol::startPutsNoPictureAsABlankBehind()
{
    QVERIFY(protocol->sendStart(schid, 640, 480, 0, false, 0, QString(), group));
    const QByteArray text = host->takeTexts().value(0);
    QCOMPARE(text, QByteArray("\x10 12 640 480 0 false 0 "));
    protocol->dispatch(schid, text);
    QCOMPARE(recorder->take(), QList<QByteArray>{"start(640, 480, 0, false, 0, \"\", 12)"});
}

void tst_kelvorprotocol::drawWithoutPointsIsSent()
{
    QVERIFY(protocol->sendDraw(schid, 6, "#000000", 1, {}, group));
    const QByteArray text = host->takeTexts().value(0);
    QCOMPARE(text.split(' ').size(), 5);
    protocol->dispatch(schid, text);
    QCOMPARE(recorder->take(), QList<QByteArray>{"draw(6, \"#000000\", 1, [], 12)"});
}

void tst_kelvorprotocol::pluginIDIsACopy()
{
    QByteArray id = "first";
    protocol->setPluginCommandID(id.constData());
    id.fill('x');
    protocol->sendPing(schid, group);
    QCOMPARE(host->sent.first().pluginID, QByteArray("first"));
}

void tst_kelvorprotocol::laterPluginIDReplacesTheFirst()
{
    protocol->setPluginCommandID("first");
    protocol->setPluginCommandID("second");
    protocol->sendPing(schid, group);
    QCOMPARE(host->sent.first().pluginID, QByteArray("second"));
}

void tst_kelvorprotocol::testMessageGoesToClient123OnConnection1()
{
    protocol->sendTestMessage();
    QCOMPARE(host->sent.size(), 1);
    const sentcommand expected{1, "kelvor.so", "Hallo", PluginCommandTarget_CLIENT, {123}};
    QVERIFY(host->sent.first() == expected);
    QCOMPARE(host->calls.value("getClientID"), 0);
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
