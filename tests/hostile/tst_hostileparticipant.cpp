#include "canvas/paintscene.h"
#include "fuzz/targets/clientworld.h"
#include "invitation/invitationdialog.h"
#include "protocol/messagewriter.h"
#include "whiteboard/whiteboard.h"

#include <QAction>
#include <QMessageBox>
#include <QTest>

#include <algorithm>

namespace {

/// Where a connection stands when a hostile message comes.
struct standing {
    const char* name;
    clientworld::connection connection;
    QList<QByteArray> before; ///< records that lead there from the open world
    sessionstate state;
};

QList<standing> standings()
{
    return {
        {"idle", clientworld::idle, {}, session_none},
        {"question open", clientworld::idle, {"4\x01 2 2"}, session_invited},
        {"lobby of the host", clientworld::lobbyAsHost, {}, session_hosting},
        {"lobby of a guest", clientworld::lobbyAsGuest, {}, session_joining},
        {"whiteboard of the host", clientworld::boardAsHost, {}, session_running},
        {"whiteboard of a guest", clientworld::boardAsGuest, {}, session_running},
        {"guest asked for a password",
         clientworld::lobbyAsGuest,
         {"3\x10 2 64 48 2 true 77 /cat.png"},
         session_running},
        {"guest downloading", clientworld::lobbyAsGuest, {"3\x10 2 64 48 1 true 77 /cat.png"}, session_running},
    };
}

// Participants and hosts, a stranger, nobody, the own client, and numbers that are cut to 16 bits.
const QList<QByteArray> senders{"2", "3", "4", "0", "1", "65535", "65536", "65538", "4294967298", "x"};

// What the number becomes on the way to a signal, by either of the ways in which readers take it.
anyID cut(const QByteArray& sender) { return static_cast<anyID>(sender.toULongLong()); }
anyID cutOrNone(const QByteArray& sender) { return static_cast<anyID>(sender.toUInt()); }

QByteArray messageFrom(messagekind kind, const QByteArray& sender)
{
    const QByteArray head = static_cast<char>(kind) + QByteArray(" ");
    switch (kind) {
    case messagekind::invite:
        return head + "2 " + sender;
    case messagekind::start:
        return head + sender + " 64 48 0 false 0 ";
    case messagekind::draw:
        return head + sender + " \x02 #ff0000 3 10|10 20|20";
    case messagekind::extendedDraw:
        return head + sender + " \x0a #00ff00 5|5";
    case messagekind::downloadFinished:
        return head + sender + " true";
    case messagekind::ping:
    case messagekind::pong:
    case messagekind::busy:
        return head + sender;
    default:
        return head + sender + " 3 4 65535 70000";
    }
}

// The state in which the message leaves the connection.
sessionstate expectedAfter(const standing& where, messagekind kind, const QByteArray& sender)
{
    const bool waits = where.state == session_joining;
    if (waits && kind == messagekind::start && cutOrNone(sender) == 2)
        return session_running;
    if (waits && (kind == messagekind::takeBack || kind == messagekind::logout) && cut(sender) == 2)
        return session_none;
    const bool invites = kind == messagekind::invite && cutOrNone(sender) != 0;
    return where.state == session_none && invites ? session_invited : where.state;
}

QByteArray record(int connection, const QByteArray& text) { return QByteArray::number(connection) + text; }

// As long as the voice client lets a message be.
QList<QByteArray> longTexts(int kind)
{
    constexpr int longest = 8192;
    QList<QByteArray> texts;
    for (const char* piece : {" ", "3 ", "9", "\xff", "1|2 ", "|", "#", "\t"}) {
        const QByteArray head = static_cast<char>(kind) + QByteArray(" 2 ");
        const QByteArray paint = head + "\x02 #ff0000 9 ";
        texts.append((head + QByteArray(piece).repeated(longest)).left(longest));
        texts.append((paint + QByteArray(piece).repeated(longest)).left(longest));
    }
    return texts;
}

QByteArray startOf(const QByteArray& width, const QByteArray& height)
{
    return "\x10 2 " + width + ' ' + height + " 0 false 0 ";
}

// One message of each tool and operation, as participant 2 sends it.
QList<QByteArray> paintRecords(int connection)
{
    QList<QByteArray> records;
    for (char tool = 0; tool < 32; ++tool) {
        const QByteArray sender = QByteArray(" 2 ") + tool;
        records.append(record(connection, '\x11' + sender + " #ff0000 7 3|3 30|30 9|9 40|40"));
        records.append(record(connection, '\x13' + sender + " #ff0000 3|3"));
        records.append(record(connection, '\x13' + sender + " full"));
        records.append(record(connection, '\x13' + sender + " 3|3 30|30"));
        records.append(record(connection, '\x13' + sender + " #ff0000 7 3|3 40|40 word"));
    }
    return records;
}

} // namespace

/// Peers that send what no peer of ours sends, in every state of a connection. The world of the fuzzers looks after
/// each message whether states and windows agree and all memory came back, and closes every window at the end.
class tst_hostileparticipant : public QObject {
    Q_OBJECT

private slots:
    void init() { world.restore(); }
    void cleanup() { world.restore(); }

    void statesAreAsToldAfterEachMessage_data();
    void statesAreAsToldAfterEachMessage();
    void messagesOnAnotherConnectionChangeNothing_data() { statesAreAsToldAfterEachMessage_data(); }
    void messagesOnAnotherConnectionChangeNothing();
    void longMessagesAreSurvivedInEveryState_data() { statesAreAsToldAfterEachMessage_data(); }
    void longMessagesAreSurvivedInEveryState();
    void onlyParticipantsPaint_data();
    void onlyParticipantsPaint();
    void absurdSizesOpenAWindowWithoutACanvas_data();
    void absurdSizesOpenAWindowWithoutACanvas();
    void aLobbyOfTenThousandNamesIsKeptAndStarts();
    void aFloodOfInvitationsAsksOnceAConnection();
    void aFloodOfFillsAndEffectsLeavesTheCanvasWhole();

private:
    QImage pictureOf(int connection) const;

    clientworld world;
};

QImage tst_hostileparticipant::pictureOf(int connection) const
{
    const whiteboard* board = world.boardOf(connection);
    return board ? board->findChild<paintscene*>()->picture() : QImage();
}

void tst_hostileparticipant::statesAreAsToldAfterEachMessage_data()
{
    QTest::addColumn<int>("place");
    const QList<standing> all = standings();
    for (int place = 0; place < all.size(); ++place)
        QTest::newRow(all.at(place).name) << place;
}

void tst_hostileparticipant::statesAreAsToldAfterEachMessage()
{
    QFETCH(int, place);
    const standing where = standings().at(place);
    for (int kind = 1; kind <= 24; ++kind) {
        for (const QByteArray& sender : senders) {
            const QByteArray text = messageFrom(static_cast<messagekind>(kind), sender);
            sessionstate state = session_none;
            world.play(where.before + QList<QByteArray>{record(where.connection, text)},
                       [&] { state = world.stateOf(where.connection); });
            QVERIFY2(state == expectedAfter(where, static_cast<messagekind>(kind), sender), text.toHex(' '));
            world.restore();
        }
    }
}

void tst_hostileparticipant::messagesOnAnotherConnectionChangeNothing()
{
    QFETCH(int, place);
    const standing where = standings().at(place);
    const int other =
        where.connection == clientworld::boardAsHost ? clientworld::boardAsGuest : clientworld::boardAsHost;
    for (int kind = 1; kind <= 24; ++kind) {
        const QByteArray text = messageFrom(static_cast<messagekind>(kind), "2");
        sessionstate state = session_none;
        world.play(where.before + QList<QByteArray>{record(other, text), record(clientworld::unknown, text)},
                   [&] { state = world.stateOf(where.connection); });
        QVERIFY2(state == where.state, text.toHex(' '));
        world.restore();
    }
}

void tst_hostileparticipant::longMessagesAreSurvivedInEveryState()
{
    QFETCH(int, place);
    const standing where = standings().at(place);
    for (int kind = 0; kind <= 25; ++kind) {
        QList<QByteArray> records = where.before;
        const QList<QByteArray> texts = longTexts(kind);
        for (const QByteArray& text : texts)
            records.append(record(where.connection, text));
        bool reached = false;
        world.play(records, [&] { reached = true; });
        QVERIFY(reached);
        world.restore();
    }
}

void tst_hostileparticipant::onlyParticipantsPaint_data()
{
    QTest::addColumn<int>("connection");
    QTest::addColumn<QByteArray>("sender");
    QTest::addColumn<bool>("paints");
    for (const clientworld::connection connection : {clientworld::boardAsHost, clientworld::boardAsGuest}) {
        for (const QByteArray& sender : senders) {
            const anyID client = cutOrNone(sender);
            QTest::addRow("%s on %d", sender.constData(), connection)
                << int(connection) << sender << (client == 2 || client == 3);
        }
    }
}

void tst_hostileparticipant::onlyParticipantsPaint()
{
    QFETCH(int, connection);
    QFETCH(QByteArray, sender);
    QFETCH(bool, paints);
    for (const messagekind kind : {messagekind::draw, messagekind::extendedDraw}) {
        const QImage before = pictureOf(connection);
        QVERIFY(!before.isNull());
        world.play(QList<QByteArray>{record(connection, messageFrom(kind, sender))});
        QCOMPARE(pictureOf(connection) != before, paints);
    }
    world.touch(connection);
}

void tst_hostileparticipant::absurdSizesOpenAWindowWithoutACanvas_data()
{
    QTest::addColumn<QByteArray>("width");
    QTest::addColumn<QByteArray>("height");
    QTest::newRow("negative") << QByteArray("-1") << QByteArray("-1");
    QTest::newRow("least") << QByteArray("-2147483648") << QByteArray("-2147483648");
    QTest::newRow("zero") << QByteArray("0") << QByteArray("0");
    QTest::newRow("no width") << QByteArray("0") << QByteArray("48");
    QTest::newRow("no height") << QByteArray("64") << QByteArray("0");
    QTest::newRow("no number") << QByteArray("x") << QByteArray("48");
    QTest::newRow("a row above the limit") << QByteArray("8000") << QByteArray("8001");
    QTest::newRow("a line above the limit") << QByteArray("64000001") << QByteArray("1");
    QTest::newRow("large") << QByteArray("100000") << QByteArray("100000");
    QTest::newRow("product wraps to a small one") << QByteArray("65536") << QByteArray("65537");
    QTest::newRow("most") << QByteArray("2147483647") << QByteArray("2147483647");
    QTest::newRow("beyond an int") << QByteArray("2147483648") << QByteArray("48");
}

void tst_hostileparticipant::absurdSizesOpenAWindowWithoutACanvas()
{
    QFETCH(QByteArray, width);
    QFETCH(QByteArray, height);
    const int connection = clientworld::lobbyAsGuest;
    world.play(QList<QByteArray>{record(connection, startOf(width, height))});
    QCOMPARE(world.stateOf(connection), session_running);
    QVERIFY(world.boardOf(connection));
    QVERIFY(pictureOf(connection).isNull());
    // Peers paint on it, the user too, and every button is pressed; what a button asks is refused.
    QList<QByteArray> records = paintRecords(connection);
    for (int tool = 1; tool <= 17; ++tool)
        records << "us 3 " + QByteArray::number(tool) << "ud 3 1 1"
                << "um 3 9 9"
                << "ur 3 9 9"
                << "uq 3 65";
    const int actions = world.boardOf(connection)->findChildren<QAction*>().size();
    for (int action = 0; action < actions; ++action)
        records << "ub 3 " + QByteArray::number(action) << "n";
    world.play(records);
    QVERIFY(world.boardOf(connection));
    QVERIFY(pictureOf(connection).isNull());
}

void tst_hostileparticipant::aLobbyOfTenThousandNamesIsKeptAndStarts()
{
    constexpr int names = 10000;
    QByteArray list = record(clientworld::lobbyAsGuest, "\x04 2");
    for (int client = 1; client <= names; ++client)
        list += ' ' + QByteArray::number(client);
    // The second one brings nobody new.
    world.play(QList<QByteArray>{list, list});
    QVERIFY(world.lobbyOf(clientworld::lobbyAsGuest));
    QCOMPARE(world.lobbyOf(clientworld::lobbyAsGuest)->accepted().size(), names);
    world.play(QList<QByteArray>{record(clientworld::lobbyAsGuest, startOf("64", "48"))});
    QVERIFY(world.boardOf(clientworld::lobbyAsGuest));
    QList<sentcommand> sent;
    world.play(QList<QByteArray>{"uw 3"}, [&] { sent = world.host.sent; });
    QCOMPARE(sent.size(), 1);
    QCOMPARE(sent.first().text, QByteArray("\x12 1"));
    // All names, and the host of the session behind them once more.
    QCOMPARE(sent.first().targets.size(), names + 1);
}

void tst_hostileparticipant::aFloodOfInvitationsAsksOnceAConnection()
{
    constexpr int rounds = 500;
    QList<QByteArray> records;
    for (int client = 1; client <= rounds; ++client) {
        for (const int connection : {clientworld::idle, clientworld::unknown, clientworld::lobbyAsGuest})
            records.append(record(connection, "\x01 2 " + QByteArray::number(client)));
    }
    int questions = 0;
    int turnedAway = 0;
    world.play(records, [&] {
        questions = world.player.shown<QMessageBox>().size();
        turnedAway = static_cast<int>(std::count_if(world.host.sent.begin(), world.host.sent.end(),
                                                    [](const sentcommand& sent) { return sent.text == "\x18 1"; }));
    });
    QCOMPARE(questions, 2);
    // All but the first that asked; on a connection that the client does not know nothing can be answered.
    QCOMPARE(turnedAway, 2 * rounds - 1);
    QCOMPARE(world.stateOf(clientworld::idle), session_none);
    QCOMPARE(world.stateOf(clientworld::lobbyAsGuest), session_joining);
}

void tst_hostileparticipant::aFloodOfFillsAndEffectsLeavesTheCanvasWhole()
{
    constexpr int rounds = 10;
    const int connection = clientworld::lobbyAsGuest;
    world.touch(connection);
    world.play(QByteArray(), [&] {
        world.controller->handlePluginCommand(world.handler(connection), QString::fromLatin1("kelvor"),
                                              startOf("2000", "2000").constData());
    });
    QCOMPARE(pictureOf(connection).size(), QSize(2000, 2000));
    world.play(QList<QByteArray>{record(connection, "\x11 2 \x02 #123456 5 10|10 1900|40 30|1700")});
    const QImage before = pictureOf(connection);
    // Each pair of effects undoes itself, and the two fills as well.
    QList<QByteArray> records;
    for (int round = 0; round < rounds; ++round) {
        for (const char* effect : {"\x0d", "\x0e", "\x0f", "\x10"}) {
            for (const char* area : {"full", "0|0 1999|1999"})
                records << record(connection, QByteArray("\x13 2 ") + effect + ' ' + area)
                        << record(connection, QByteArray("\x13 2 ") + effect + ' ' + area);
        }
        records << record(connection, "\x13 2 \x0a #00ff00 1990|1990")
                << record(connection, "\x13 2 \x0a #ffffff 1990|1990");
    }
    world.play(records);
    QCOMPARE(world.stateOf(connection), session_running);
    QVERIFY(pictureOf(connection) == before);
}

QTEST_MAIN(tst_hostileparticipant)
#include "tst_hostileparticipant.moc"
