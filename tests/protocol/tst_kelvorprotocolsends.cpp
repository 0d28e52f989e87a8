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

// What the endpoint hands to the client.
class tst_kelvorprotocolsends : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void sendsOneCommandToItsTargets_data();
    void sendsOneCommandToItsTargets();
    void sendsNothingWithoutAnOwnID_data();
    void sendsNothingWithoutAnOwnID();
    void rejectVersionReturnsFalseAfterSending();
    void listWithoutEntriesIsNeverSent();
    void pingToManyClientsIsOneMessage();
    void startPutsNoPictureAsABlankBehind();
    void drawWithoutPointsIsSent();
    void pluginIDIsNullBeforeItIsGiven();
    void pluginIDIsACopy();
    void laterPluginIDReplacesTheFirst();
    void testMessageGoesToClient123OnConnection1();

private:
    std::unique_ptr<fakehost> host;
    std::unique_ptr<kelvorprotocol> protocol;
    std::unique_ptr<signalrecorder> recorder;
};

void tst_kelvorprotocolsends::init()
{
    host = std::make_unique<fakehost>();
    host->addServer(schid).ownID = ownID;
    protocol = std::make_unique<kelvorprotocol>(host->table());
    protocol->setPluginCommandID("kelvor.so");
    recorder = std::make_unique<signalrecorder>(protocol.get());
}

void tst_kelvorprotocolsends::cleanup()
{
    recorder.reset();
    protocol.reset();
    host.reset();
}

void tst_kelvorprotocolsends::sendsOneCommandToItsTargets_data()
{
    QTest::addColumn<sendoperation>("operation");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QList<anyID>>("targets");
    const QVector<operationrow> rows = operations();
    QCOMPARE(rows.size(), 24);
    for (const operationrow& row : rows)
        QTest::newRow(row.name) << row.operation << row.text << row.targets;
}

void tst_kelvorprotocolsends::sendsOneCommandToItsTargets()
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

void tst_kelvorprotocolsends::sendsNothingWithoutAnOwnID_data() { sendsOneCommandToItsTargets_data(); }

void tst_kelvorprotocolsends::sendsNothingWithoutAnOwnID()
{
    QFETCH(sendoperation, operation);
    host->failing.insert("getClientID");
    QVERIFY(!operation(*protocol));
    QVERIFY(host->sent.isEmpty());
    QVERIFY(host->printed.isEmpty());
}

void tst_kelvorprotocolsends::rejectVersionReturnsFalseAfterSending()
{
    QVERIFY(!protocol->sendRejectVersion(schid, 34));
    QCOMPARE(host->takeTexts(), QList<QByteArray>{"\x0f 12"});
}

void tst_kelvorprotocolsends::listWithoutEntriesIsNeverSent()
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

void tst_kelvorprotocolsends::pingToManyClientsIsOneMessage()
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

void tst_kelvorprotocolsends::startPutsNoPictureAsABlankBehind()
{
    QVERIFY(protocol->sendStart(schid, 640, 480, 0, false, 0, QString(), group));
    const QByteArray text = host->takeTexts().value(0);
    QCOMPARE(text, QByteArray("\x10 12 640 480 0 false 0 "));
    protocol->dispatch(schid, text);
    QCOMPARE(recorder->take(), QList<QByteArray>{"start(640, 480, 0, false, 0, \"\", 12)"});
}

void tst_kelvorprotocolsends::drawWithoutPointsIsSent()
{
    QVERIFY(protocol->sendDraw(schid, 6, "#000000", 1, {}, group));
    const QByteArray text = host->takeTexts().value(0);
    QCOMPARE(text.split(' ').size(), 5);
    protocol->dispatch(schid, text);
    QCOMPARE(recorder->take(), QList<QByteArray>{"draw(6, \"#000000\", 1, [], 12)"});
}

void tst_kelvorprotocolsends::pluginIDIsNullBeforeItIsGiven()
{
    kelvorprotocol unnamed(host->table());
    unnamed.sendPing(schid, group);
    QVERIFY(host->sent.first().pluginID.isNull());
}

void tst_kelvorprotocolsends::pluginIDIsACopy()
{
    QByteArray id = "first";
    protocol->setPluginCommandID(id.constData());
    id.fill('x');
    protocol->sendPing(schid, group);
    QCOMPARE(host->sent.first().pluginID, QByteArray("first"));
}

void tst_kelvorprotocolsends::laterPluginIDReplacesTheFirst()
{
    protocol->setPluginCommandID("first");
    protocol->setPluginCommandID("second");
    protocol->sendPing(schid, group);
    QCOMPARE(host->sent.first().pluginID, QByteArray("second"));
}

void tst_kelvorprotocolsends::testMessageGoesToClient123OnConnection1()
{
    protocol->sendTestMessage();
    QCOMPARE(host->sent.size(), 1);
    const sentcommand expected{1, "kelvor.so", "Hallo", PluginCommandTarget_CLIENT, {123}};
    QVERIFY(host->sent.first() == expected);
    QCOMPARE(host->calls.value("getClientID"), 0);
}

QTEST_GUILESS_MAIN(tst_kelvorprotocolsends)
#include "tst_kelvorprotocolsends.moc"
