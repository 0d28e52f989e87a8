#include "guesttransitions.h"
#include "lobbyfixture.h"

#include <QApplication>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <map>
#include <memory>

namespace {

constexpr anyID own = 1;
constexpr anyID anna = 2;
constexpr anyID sessionHost = 3;
constexpr anyID cleo = 4; ///< has accepted in every row of the table
constexpr anyID stranger = 5;

using action = std::function<void(lobbyfixture&, anyID subject, anyID sender)>;

// Sender, then the client that the message is about.
action about(int kind)
{
    return [kind](lobbyfixture& lobby, anyID subject, anyID sender) {
        lobby.receive(kind, QByteArray::number(sender) + ' ' + QByteArray::number(subject));
    };
}

const std::map<QByteArray, action> actions = {
    {"invitelist", about(2)},
    {"acceptlist", about(4)},
    {"rejectlist", about(5)},
    {"clientInvited", about(6)},
    {"clientTakenBack", about(8)},
    {"clientAcceptedInvite", about(10)},
    {"clientRejectedInvite", about(11)},
    {"clientRejectedInviteVersion", about(12)},
    {"logout", [](lobbyfixture& lobby, anyID subject, anyID) { lobby.receive(18, QByteArray::number(subject)); }},
    {"left", [](lobbyfixture& lobby, anyID subject, anyID) { emit lobby.controller.clientLeft(1, subject, 1); }},
    {"moved", [](lobbyfixture& lobby, anyID subject, anyID) { emit lobby.controller.clientMoved(1, subject, 1, 4); }},
    {"connected",
     [](lobbyfixture& lobby, anyID subject, anyID) { emit lobby.controller.clientConnected(1, subject, 4); }},
    {"channel moved", [](lobbyfixture& lobby, anyID, anyID) { emit lobby.controller.channelMoved(1, 2, 1); }},
    {"channel deleted",
     [](lobbyfixture& lobby, anyID subject, anyID) {
         emit lobby.controller.channelDeleted(1, subject == sessionHost ? 2 : 1);
     }},
};

const std::map<QByteArray, QList<QByteArray>> roads = {
    {"none", {}},
    {"invited", {"clientInvited"}},
    {"accepted", {"clientAcceptedInvite"}},
    {"rejected", {"clientRejectedInvite"}},
    {"version", {"clientRejectedInviteVersion"}},
    {"host", {}},
    {"self", {}},
};

// These decide by their sender; the voice client's events and a logout have none to compare.
const QList<QByteArray> fromTheHostOnly = {
    "invitelist",      "acceptlist",           "rejectlist",           "clientInvited",
    "clientTakenBack", "clientAcceptedInvite", "clientRejectedInvite", "clientRejectedInviteVersion"};

} // namespace

/// Every state of a client's and a channel's row on a guest, by everything that can happen to it.
class tst_guesttransitions : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyTransition_data();
    void everyTransition();
    void onlyTheHostIsHeard_data();
    void onlyTheHostIsHeard();
    void otherConnectionsComeToNothing_data();
    void otherConnectionsComeToNothing();
    void hostsMessagesComeToNothing_data();
    void hostsMessagesComeToNothing();
    void channelRowsFollowTheHost_data();
    void channelRowsFollowTheHost();
    void channelMessagesOfOthersComeToNothing();
    void threeListsNeverArrive();
    void threeListsFollowTheirSender();
    void listsEndAtTheirFirstZero();
    void nothingAUserDoesIsSent();

private:
    anyID prepare(const QByteArray& state);

    std::unique_ptr<lobbyfixture> lobby;
};

void tst_guesttransitions::init()
{
    lobby = std::make_unique<lobbyfixture>();
    lobby->openGuest(sessionHost);
    QCOMPARE(lobby->sent(), QStringList());
    lobby->receive(4, "3 4");
    QCOMPARE(lobby->lists(), QString("A 4|I|R|C"));
}

void tst_guesttransitions::cleanup()
{
    delete lobby->dialog.data();
    QCOMPARE(lobby->host.outstanding, 0);
    lobby.reset();
}

anyID tst_guesttransitions::prepare(const QByteArray& state)
{
    const anyID subject = state == "self" ? own : state == "host" ? sessionHost : anna;
    for (const QByteArray& step : roads.at(state))
        actions.at(step)(*lobby, subject, sessionHost);
    return subject;
}

void tst_guesttransitions::everyTransition_data() { addTransitions(guestTransitions); }

void tst_guesttransitions::everyTransition()
{
    QFETCH(QByteArray, state);
    QFETCH(QByteArray, event);
    const anyID subject = prepare(state);
    QCOMPARE(lookOf(lobby->dialog->clientRow(subject)), QString(state));
    QSignalSpy finished(lobby->dialog, &QDialog::finished);

    actions.at(event)(*lobby, subject, sessionHost);

    QTEST(lookOf(lobby->dialog->clientRow(subject)), "look");
    QTEST(lobby->lists(), "lists");
    QTEST(lobby->sent().join(", "), "sent");
    QCOMPARE(lookOf(lobby->dialog->clientRow(cleo)),
             QString(state == "host" && event == "channel deleted" ? "gone" : "accepted"));
    QCOMPARE(finished.count(), 0);
}

void tst_guesttransitions::onlyTheHostIsHeard_data()
{
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<QByteArray>("event");
    QTest::addColumn<int>("sender");
    for (const auto& road : roads) {
        for (const QByteArray& event : fromTheHostOnly) {
            for (const anyID sender : QList<anyID>{anyID(0), own, cleo, stranger})
                QTest::addRow("%s, %s from %d", road.first.constData(), event.constData(), sender)
                    << road.first << event << int(sender);
        }
    }
}

void tst_guesttransitions::onlyTheHostIsHeard()
{
    QFETCH(QByteArray, state);
    QFETCH(QByteArray, event);
    QFETCH(int, sender);
    const anyID subject = prepare(state);
    const QString lists = lobby->lists();
    actions.at(event)(*lobby, subject, anyID(sender));
    QCOMPARE(lookOf(lobby->dialog->clientRow(subject)), QString(state));
    QCOMPARE(lobby->lists(), lists);
    QCOMPARE(lobby->sent(), QStringList());
}

void tst_guesttransitions::otherConnectionsComeToNothing_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QByteArray>("rest");
    QTest::newRow("acceptlist") << 4 << QByteArray("3 2");
    QTest::newRow("clientInvited") << 6 << QByteArray("3 2");
    QTest::newRow("channelInvited") << 7 << QByteArray("3 1");
    QTest::newRow("clientTakenBack") << 8 << QByteArray("3 4");
    QTest::newRow("channelTakenBack") << 9 << QByteArray("3 4");
    QTest::newRow("clientAcceptedInvite") << 10 << QByteArray("3 2");
    QTest::newRow("clientRejectedInvite") << 11 << QByteArray("3 4");
    QTest::newRow("clientRejectedInviteVersion") << 12 << QByteArray("3 4");
    QTest::newRow("logout of a guest") << 18 << QByteArray("4");
    QTest::newRow("logout of the host") << 18 << QByteArray("3");
    QTest::newRow("takeBack") << 21 << QByteArray("3");
}

void tst_guesttransitions::otherConnectionsComeToNothing()
{
    QFETCH(int, kind);
    QFETCH(QByteArray, rest);
    lobby->receive(7, "3 4");
    QSignalSpy finished(lobby->dialog, &QDialog::finished);
    lobby->receive(kind, rest, lobbyfixture::otherConnection);
    QCOMPARE(lobby->lists(), QString("A 4|I|R|C"));
    QCOMPARE(lookOf(lobby->dialog->clientRow(anna)), QString("none"));
    QCOMPARE(lookOf(lobby->dialog->clientRow(cleo)), QString("accepted"));
    QCOMPARE(lookOf(lobby->dialog->channelRow(1)), QString("channel"));
    QCOMPARE(lookOf(lobby->dialog->channelRow(4)), QString("marked"));
    QCOMPARE(finished.count(), 0);
    QCOMPARE(lobby->host.printed, QList<QByteArray>());
}

// Answers to an invitation go to the host of a session; a guest shows who has the plugin to nobody.
void tst_guesttransitions::hostsMessagesComeToNothing_data()
{
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<int>("kind");
    for (const auto& road : roads) {
        for (const int kind : {13, 14, 15, 23, 24})
            QTest::addRow("%s, kind %d", road.first.constData(), kind) << road.first << kind;
    }
}

void tst_guesttransitions::hostsMessagesComeToNothing()
{
    QFETCH(QByteArray, state);
    QFETCH(int, kind);
    const anyID subject = prepare(state);
    const QString lists = lobby->lists();
    lobby->receive(kind, QByteArray::number(subject));
    QCOMPARE(lookOf(lobby->dialog->clientRow(subject)), QString(state));
    QCOMPARE(lobby->lists(), lists);
    QCOMPARE(lobby->sent(), QStringList());
}

void tst_guesttransitions::channelRowsFollowTheHost_data()
{
    QTest::addColumn<bool>("marked");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("look");
    QTest::newRow("none, invited") << false << 7 << "marked";
    QTest::newRow("none, taken back") << false << 9 << "channel";
    QTest::newRow("none, list of invited ones") << false << 3 << "channel";
    QTest::newRow("invited, invited") << true << 7 << "marked";
    QTest::newRow("invited, taken back") << true << 9 << "channel";
    QTest::newRow("invited, list of invited ones") << true << 3 << "marked";
}

void tst_guesttransitions::channelRowsFollowTheHost()
{
    QFETCH(bool, marked);
    QFETCH(int, kind);
    if (marked)
        lobby->receive(7, "3 2");
    lobby->receive(kind, "3 2");
    QTEST(lookOf(lobby->dialog->channelRow(2)), "look");
    // Only the row: who is in the channel is told one by one, and the list of channels is the host's alone.
    QCOMPARE(lookOf(lobby->dialog->channelRow(3)), QString("channel"));
    QCOMPARE(lookOf(lobby->dialog->clientRow(sessionHost)), QString("host"));
    QCOMPARE(lobby->lists(), QString("A 4|I|R|C"));
    QCOMPARE(lobby->sent(), QStringList());
}

void tst_guesttransitions::channelMessagesOfOthersComeToNothing()
{
    lobby->receive(7, "3 2");
    for (const char* sender : {"0", "1", "4", "5", "65539"}) {
        lobby->receive(7, QByteArray(sender) + " 1");
        lobby->receive(9, QByteArray(sender) + " 2");
        // A client id is cut to 16 bits, so that 65539 is the host's 3 again.
        const bool isHost = QByteArray(sender).toUInt() % 65536 == sessionHost;
        QCOMPARE(lookOf(lobby->dialog->channelRow(1)), QString(isHost ? "marked" : "channel"));
        QCOMPARE(lookOf(lobby->dialog->channelRow(2)), QString(isHost ? "channel" : "marked"));
    }
}

// As the endpoint reads them, their sender is client 0, whoever sends them.
void tst_guesttransitions::threeListsNeverArrive()
{
    QSignalSpy invited(&lobby->protocol, &kelvorprotocol::invitelistReceived);
    QSignalSpy rejected(&lobby->protocol, &kelvorprotocol::rejectlistReceived);
    QSignalSpy channels(&lobby->protocol, &kelvorprotocol::channelInvitelistReceived);
    lobby->receive(2, "3 2 5");
    lobby->receive(5, "3 2 5");
    lobby->receive(3, "3 1 2");
    QCOMPARE(invited.count() + rejected.count() + channels.count(), 3);
    QCOMPARE(lobby->lists(), QString("A 4|I|R|C"));
    for (const anyID client : QList<anyID>{anna, stranger})
        QCOMPARE(lookOf(lobby->dialog->clientRow(client)), QString("none"));
    for (const uint64 channel : QList<uint64>{1, 2})
        QCOMPARE(lookOf(lobby->dialog->channelRow(channel)), QString("channel"));
}

void tst_guesttransitions::threeListsFollowTheirSender()
{
    anyID clients[] = {anna, stranger, 0};
    uint64 channels[] = {2, 4, 0};
    lobby->dialog->onInvitelistReceived(1, clients, sessionHost);
    QCOMPARE(lobby->lists(), QString("A 4|I 2 5|R|C"));
    QCOMPARE(lookOf(lobby->dialog->clientRow(anna)), QString("invited"));
    lobby->dialog->onRejectlistReceived(1, clients, sessionHost);
    QCOMPARE(lobby->lists(), QString("A 4|I|R 2 5|C"));
    QCOMPARE(lookOf(lobby->dialog->clientRow(stranger)), QString("rejected"));
    lobby->dialog->onChannelInvitelistReceived(1, channels, sessionHost);
    QCOMPARE(lookOf(lobby->dialog->channelRow(2)), QString("marked"));
    QCOMPARE(lookOf(lobby->dialog->channelRow(4)), QString("marked"));
    QCOMPARE(lobby->lists(), QString("A 4|I|R 2 5|C"));
}

void tst_guesttransitions::listsEndAtTheirFirstZero()
{
    anyID clients[] = {0, anna, 0};
    uint64 channels[] = {0, 2, 0};
    lobby->dialog->onAcceptListReceived(1, clients, sessionHost);
    lobby->dialog->onInvitelistReceived(1, clients, sessionHost);
    lobby->dialog->onRejectlistReceived(1, clients, sessionHost);
    lobby->dialog->onChannelInvitelistReceived(1, channels, sessionHost);
    QCOMPARE(lobby->lists(), QString("A 4|I|R|C"));
    QCOMPARE(lookOf(lobby->dialog->clientRow(anna)), QString("none"));
    QCOMPARE(lookOf(lobby->dialog->channelRow(2)), QString("channel"));
}

void tst_guesttransitions::nothingAUserDoesIsSent()
{
    lobby->dialog->resize(400, 400);
    lobby->dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(lobby->dialog));
    QWidget* viewport = lobby->tree->viewport();
    const QPoint onAnna = lobby->tree->visualItemRect(lobby->dialog->clientRow(anna)).center();
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, onAnna);
    QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, onAnna);
    QTest::mouseClick(viewport, Qt::RightButton, Qt::NoModifier, onAnna);
    emit lobby->tree->customContextMenuRequested(onAnna);
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(lobby->dialog->findChildren<QMenu*>().isEmpty());
    QCOMPARE(lobby->sent(), QStringList());
    QCOMPARE(lobby->lists(), QString("A 4|I|R|C"));
}

QTEST_MAIN(tst_guesttransitions)
#include "tst_guesttransitions.moc"
