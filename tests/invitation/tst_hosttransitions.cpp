#include "hosttransitions.h"
#include "lobbyfixture.h"

#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <map>
#include <memory>

namespace {

constexpr anyID anna = 2;
constexpr anyID bert = 3; ///< has accepted in every row of the table, so that broadcasts are seen
constexpr anyID own = 1;

using action = std::function<void(lobbyfixture&, anyID subject)>;

action message(int kind)
{
    return [kind](lobbyfixture& lobby, anyID subject) { lobby.receive(kind, QByteArray::number(subject)); };
}

// Of these kinds the session's host hears nothing: sender, then the client that they are about.
action guestMessage(int kind)
{
    return [kind](lobbyfixture& lobby, anyID subject) { lobby.receive(kind, "3 " + QByteArray::number(subject)); };
}

// How a client comes into a state, and what can happen to it there.
const std::map<QByteArray, action> actions = {
    {"accept", message(13)},
    {"reject", message(14)},
    {"rejectVersion", message(15)},
    {"busy", message(24)},
    {"logout", message(18)},
    {"pong", message(23)},
    {"takeBack received", message(21)},
    {"invitelist", guestMessage(2)},
    {"acceptlist", guestMessage(4)},
    {"rejectlist", guestMessage(5)},
    {"clientInvited", guestMessage(6)},
    {"clientTakenBack", guestMessage(8)},
    {"clientAcceptedInvite", guestMessage(10)},
    {"clientRejectedInvite", guestMessage(11)},
    {"clientRejectedInviteVersion", guestMessage(12)},
    {"invite", [](lobbyfixture& lobby, anyID subject) { lobby.inviteClient(subject); }},
    {"take back", [](lobbyfixture& lobby, anyID subject) { lobby.takeBackClient(subject); }},
    {"left", [](lobbyfixture& lobby, anyID subject) { emit lobby.controller.clientLeft(1, subject, 1); }},
    {"moved", [](lobbyfixture& lobby, anyID subject) { emit lobby.controller.clientMoved(1, subject, 1, 2); }},
    {"connected", [](lobbyfixture& lobby, anyID subject) { emit lobby.controller.clientConnected(1, subject, 4); }},
    {"channel deleted", [](lobbyfixture& lobby, anyID) { emit lobby.controller.channelDeleted(1, 1); }},
    {"channel moved", [](lobbyfixture& lobby, anyID) { emit lobby.controller.channelMoved(1, 1, 4); }},
};

const std::map<QByteArray, QList<QByteArray>> roads = {
    {"none", {}},
    {"plugin", {"pong"}},
    {"invited", {"invite"}},
    {"accepted", {"invite", "accept"}},
    {"rejected", {"invite", "reject"}},
    {"version", {"invite", "rejectVersion"}},
    {"busy", {"invite", "busy"}},
    {"self", {}},
};

const QList<QByteArray> guestsOnly = {"takeBack received",    "invitelist",           "acceptlist",
                                      "rejectlist",           "clientInvited",        "clientTakenBack",
                                      "clientAcceptedInvite", "clientRejectedInvite", "clientRejectedInviteVersion"};

} // namespace

/// Every state of a client's and a channel's row on the session's host, by everything that can happen to it.
class tst_hosttransitions : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyTransition_data();
    void everyTransition();
    void withoutAGuestNothingIsBroadcast_data();
    void withoutAGuestNothingIsBroadcast();
    void guestsMessagesComeToNothing_data();
    void guestsMessagesComeToNothing();
    void otherConnectionsComeToNothing_data();
    void otherConnectionsComeToNothing();
    void clientsWithoutARowStillCount_data();
    void clientsWithoutARowStillCount();

private:
    /// Brings the client into the state, with Bert among the accepted if there is to be a guest.
    anyID prepare(const QByteArray& state, bool guest);

    std::unique_ptr<lobbyfixture> lobby;
};

void tst_hosttransitions::init()
{
    lobby = std::make_unique<lobbyfixture>();
    lobby->openHost();
}

void tst_hosttransitions::cleanup()
{
    lobby->dialog->disconnect();
    delete lobby->dialog.data();
    QCOMPARE(lobby->host.outstanding, 0);
    lobby.reset();
}

anyID tst_hosttransitions::prepare(const QByteArray& state, bool guest)
{
    if (guest) {
        lobby->inviteClient(bert);
        lobby->receive(13, "3");
    }
    const anyID subject = state == "self" ? own : anna;
    for (const QByteArray& step : roads.at(state))
        actions.at(step)(*lobby, subject);
    lobby->sent();
    return subject;
}

void tst_hosttransitions::everyTransition_data() { addTransitions(hostTransitions); }

void tst_hosttransitions::everyTransition()
{
    QFETCH(QByteArray, state);
    QFETCH(QByteArray, event);
    const anyID subject = prepare(state, true);
    QCOMPARE(lookOf(lobby->dialog->clientRow(subject)), QString(state));
    const QString before = lobby->rows();

    actions.at(event)(*lobby, subject);

    QTEST(lookOf(lobby->dialog->clientRow(subject)), "look");
    QTEST(lobby->lists(), "lists");
    QTEST(lobby->sent().join(", "), "sent");
    const QString name = subject == own ? "Me" : "Anna";
    const QString rest = subject == own ? "Anna, Query" : "Me, Query";
    QString after = before;
    if (event == "left")
        after = QString("Lobby[%1], Games[Chess[Cleo], Bert], Empty").arg(rest);
    else if (event == "moved")
        after = QString("Lobby[%1], Games[Chess[Cleo], Bert, %2], Empty").arg(rest, name);
    else if (event == "connected")
        after = QString("Lobby[%1], Games[Chess[Cleo], Bert], Empty[%2]").arg(rest, name);
    else if (event == "channel deleted")
        after = "Games[Chess[Cleo], Bert], Empty";
    else if (event == "channel moved")
        after = "Games[Chess[Cleo], Bert], Empty[Lobby[Me, Anna, Query]]";
    QCOMPARE(lobby->rows(), after);
}

void tst_hosttransitions::withoutAGuestNothingIsBroadcast_data()
{
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<QByteArray>("event");
    QTest::addColumn<QString>("look");
    QTest::addColumn<QString>("lists");
    QTest::addColumn<QString>("sent");
    const transition rows[] = {
        {"none", "invite", "invited", "A|I 2|R|C", "1 2 1>2"},
        {"invited", "accept", "accepted", "A 2|I|R|C", ""},
        {"invited", "reject", "rejected", "A|I|R 2|C", ""},
        {"invited", "rejectVersion", "version", "A|I|R 2|C", ""},
        {"invited", "busy", "busy", "A|I|R 2|C", ""},
        {"invited", "take back", "none", "A|I|R|C", "21 1>2"},
        // The one who is taken back is no guest any more when the others are told.
        {"accepted", "take back", "none", "A|I|R|C", "21 1>2"},
        {"accepted", "reject", "rejected", "A|I|R 2|C", ""},
    };
    for (const transition& row : rows)
        QTest::addRow("%s, %s", row.state, row.event) << QByteArray(row.state) << QByteArray(row.event)
                                                      << QString(row.look) << QString(row.lists) << QString(row.sent);
}

void tst_hosttransitions::withoutAGuestNothingIsBroadcast()
{
    QFETCH(QByteArray, state);
    QFETCH(QByteArray, event);
    const anyID subject = prepare(state, false);
    actions.at(event)(*lobby, subject);
    QTEST(lookOf(lobby->dialog->clientRow(subject)), "look");
    QTEST(lobby->lists(), "lists");
    QTEST(lobby->sent().join(", "), "sent");
}

void tst_hosttransitions::guestsMessagesComeToNothing_data()
{
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<QByteArray>("event");
    for (const auto& road : roads) {
        for (const QByteArray& event : guestsOnly)
            QTest::addRow("%s, %s", road.first.constData(), event.constData()) << road.first << event;
    }
}

void tst_hosttransitions::guestsMessagesComeToNothing()
{
    QFETCH(QByteArray, state);
    QFETCH(QByteArray, event);
    const anyID subject = prepare(state, true);
    const QString lists = lobby->lists();
    const QString rows = lobby->rows();
    QSignalSpy finished(lobby->dialog, &QDialog::finished);
    actions.at(event)(*lobby, subject);
    QCOMPARE(lookOf(lobby->dialog->clientRow(subject)), QString(state));
    QCOMPARE(lobby->lists(), lists);
    QCOMPARE(lobby->rows(), rows);
    QCOMPARE(lobby->sent(), QStringList());
    QCOMPARE(finished.count(), 0);
}

void tst_hosttransitions::otherConnectionsComeToNothing_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("accept") << 13;
    QTest::newRow("reject") << 14;
    QTest::newRow("rejectVersion") << 15;
    QTest::newRow("logout") << 18;
    QTest::newRow("pong") << 23;
    QTest::newRow("busy") << 24;
    QTest::newRow("events of the voice client") << 0;
}

void tst_hosttransitions::otherConnectionsComeToNothing()
{
    QFETCH(int, kind);
    constexpr uint64 other = lobbyfixture::otherConnection;
    const anyID subject = prepare("invited", true);
    const QString rows = lobby->rows();
    if (kind == 0) {
        emit lobby->controller.clientLeft(other, subject, 1);
        emit lobby->controller.clientMoved(other, subject, 1, 2);
        emit lobby->controller.clientConnected(other, 77, 1);
        emit lobby->controller.channelCreated(other, 77, 1);
        emit lobby->controller.channelMoved(other, 1, 2);
        emit lobby->controller.channelDeleted(other, 1);
    } else {
        lobby->receive(kind, QByteArray::number(subject), other);
        lobby->receive(kind, QByteArray::number(bert), other);
        lobby->receive(kind, "4", other);
    }
    QCOMPARE(lookOf(lobby->dialog->clientRow(subject)), QString("invited"));
    QCOMPARE(lookOf(lobby->dialog->clientRow(bert)), QString("accepted"));
    QCOMPARE(lookOf(lobby->dialog->clientRow(4)), QString("none"));
    QCOMPARE(lobby->lists(), QString("A 3|I 2|R|C"));
    QCOMPARE(lobby->rows(), rows);
    QCOMPARE(lobby->sent(), QStringList());
}

void tst_hosttransitions::clientsWithoutARowStillCount_data()
{
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<QByteArray>("event");
    QTest::addColumn<QString>("lists");
    QTest::addColumn<QString>("sent");
    const transition rows[] = {
        {"invited", "accept", "", "A 3 2|I|R|C", "4 1 3>2, 10 1 2>3"},
        {"invited", "reject", "", "A 3|I|R 2|C", "11 1 2>3"},
        {"invited", "rejectVersion", "", "A 3|I|R 2|C", "12 1 2>3"},
        {"invited", "busy", "", "A 3|I|R 2|C", "11 1 2>3"},
        {"invited", "logout", "", "A 3|I|R|C", ""},
        {"invited", "left", "", "A 3|I|R|C", ""},
        {"accepted", "logout", "", "A 3|I|R|C", ""},
        {"accepted", "left", "", "A 3|I|R|C", ""},
        {"accepted", "pong", "", "A 3 2|I|R|C", ""},
        {"accepted", "moved", "", "A 3 2|I|R|C", ""},
        {"none", "reject", "", "A 3|I|R 2|C", "11 1 2>3"},
    };
    for (const transition& row : rows)
        QTest::addRow("%s, %s", row.state, row.event)
            << QByteArray(row.state) << QByteArray(row.event) << QString(row.lists) << QString(row.sent);
}

// The row goes with its channel; the client itself is still there.
void tst_hosttransitions::clientsWithoutARowStillCount()
{
    QFETCH(QByteArray, state);
    QFETCH(QByteArray, event);
    const anyID subject = prepare(state, true);
    emit lobby->controller.channelDeleted(1, 1);
    actions.at(event)(*lobby, subject);
    QVERIFY(!lobby->dialog->clientRow(subject));
    QTEST(lobby->lists(), "lists");
    QTEST(lobby->sent().join(", "), "sent");
    QCOMPARE(lobby->rows(), QString("Games[Chess[Cleo], Bert], Empty"));
}

QTEST_MAIN(tst_hosttransitions)
#include "tst_hosttransitions.moc"
