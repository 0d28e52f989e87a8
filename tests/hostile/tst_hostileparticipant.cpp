#include "canvas/paintscene.h"
#include "fuzz/targets/clientworld.h"
#include "hostilemessages.h"
#include "invitation/invitationdialog.h"
#include "invitation/mytreeitem.h"
#include "whiteboard/whiteboard.h"

#include <QAction>
#include <QListWidget>
#include <QMessageBox>
#include <QTest>
#include <QTreeWidget>

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

// The state in which the message leaves the connection.
sessionstate expectedAfter(const standing& where, messagekind kind, const QByteArray& sender)
{
    const bool waits = where.state == session_joining;
    if (waits && kind == messagekind::start && hostile::cutOrNone(sender) == 2)
        return session_running;
    if (waits && (kind == messagekind::takeBack || kind == messagekind::logout) && hostile::cut(sender) == 2)
        return session_none;
    const bool invites = kind == messagekind::invite && hostile::cutOrNone(sender) != 0;
    return where.state == session_none && invites ? session_invited : where.state;
}

// Whether a message of this sender can be seen nowhere: of one who takes part in nothing, and what only the host of a
// session tells from one who is not the host.
bool isIgnored(const standing& where, messagekind kind, const QByteArray& sender)
{
    const auto takesPart = [](anyID client) { return client >= 1 && client <= 3; };
    if (takesPart(hostile::cut(sender)) || takesPart(hostile::cutOrNone(sender)))
        return sender == "3" && hostile::tellsAboutOthers(kind);
    // A host believes everybody who answers, be it that an invitation was taken back on the way.
    const bool answers = kind == messagekind::reject || kind == messagekind::rejectVersion || kind == messagekind::pong
        || kind == messagekind::busy;
    return !answers || where.state != session_hosting;
}

QByteArray record(int connection, const QByteArray& text) { return QByteArray::number(connection) + text; }

QList<QByteArray> records(int connection, const QList<QByteArray>& texts)
{
    QList<QByteArray> all;
    for (const QByteArray& text : texts)
        all.append(record(connection, text));
    return all;
}

QString numbers(const QList<anyID>& clients)
{
    QString text;
    for (const anyID client : clients)
        text += QString::number(client) + QLatin1Char(' ');
    return text;
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
    void aGuestsLobbyFollowsItsHostAboutAnybody_data();
    void aGuestsLobbyFollowsItsHostAboutAnybody();
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
    QStringList seenIn(int connection) const;

    clientworld world;
};

QImage tst_hostileparticipant::pictureOf(int connection) const
{
    const whiteboard* board = world.boardOf(connection);
    return board ? board->findChild<paintscene*>()->picture() : QImage();
}

// What the windows of a connection show, and the lists behind the rows of a lobby.
QStringList tst_hostileparticipant::seenIn(int connection) const
{
    QStringList seen;
    if (const invitationdialog* lobby = world.lobbyOf(connection)) {
        for (QTreeWidgetItemIterator row(lobby->findChild<QTreeWidget*>()); *row; ++row) {
            const auto state = static_cast<const mytreeitem*>(*row)->inviteState();
            seen << (*row)->text(0) << (*row)->toolTip(0) << QString::number(static_cast<int>(state));
        }
        const invitees& lists = lobby->lists();
        seen << numbers(lists.accepted()) << numbers(lists.invited()) << numbers(lists.rejected());
    }
    if (const whiteboard* board = world.boardOf(connection)) {
        const auto* participants = board->findChild<QListWidget*>();
        for (int row = 0; row < participants->count(); ++row) {
            const QListWidgetItem* participant = participants->item(row);
            seen << participant->text() << participant->data(Qt::AccessibleDescriptionRole).toString();
        }
        const QImage picture = pictureOf(connection);
        seen << QString::number(qHashBits(picture.constBits(), static_cast<std::size_t>(picture.sizeInBytes())));
    }
    return seen;
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
    const QList<QByteArray> senders = hostile::senders();
    for (int number = 1; number <= 24; ++number) {
        const auto kind = static_cast<messagekind>(number);
        for (const QByteArray& sender : senders) {
            const QList<QByteArray> texts = hostile::messagesFrom(kind, sender);
            const QStringList before = seenIn(where.connection);
            QStringList after;
            sessionstate state = session_none;
            world.play(where.before + records(where.connection, texts), [&] {
                state = world.stateOf(where.connection);
                after = seenIn(where.connection);
            });
            QVERIFY2(state == expectedAfter(where, kind, sender), texts.first().toHex(' '));
            // What leads to the other places changes what is seen itself.
            if (where.before.isEmpty() && isIgnored(where, kind, sender))
                QVERIFY2(after == before, texts.first().toHex(' '));
            world.restore();
        }
    }
}

void tst_hostileparticipant::aGuestsLobbyFollowsItsHostAboutAnybody_data()
{
    QTest::addColumn<QByteArray>("told");
    const QList<QByteArray> told = hostile::told();
    for (const QByteArray& number : told)
        QTest::newRow(number.constData()) << number;
}

void tst_hostileparticipant::aGuestsLobbyFollowsItsHostAboutAnybody()
{
    QFETCH(QByteArray, told);
    const int connection = clientworld::lobbyAsGuest;
    const invitees& lists = world.lobbyOf(connection)->lists();
    const anyID client = hostile::cut(told);
    const QList<anyID> known = client == 0 ? QList<anyID>() : QList<anyID>{client};
    const auto tell = [&](messagekind kind) {
        world.play(QList<QByteArray>{record(connection, static_cast<char>(kind) + QByteArray(" 2 ") + told)});
    };
    world.play(QList<QByteArray>{record(connection, "\x08 2 3")});
    QVERIFY(lists.accepted().isEmpty());
    for (const messagekind kind : {messagekind::acceptlist, messagekind::clientAcceptedInvite}) {
        tell(kind);
        QCOMPARE(lists.accepted(), known);
        tell(messagekind::clientInvited);
        QCOMPARE(lists.invited(), known);
        QVERIFY(lists.accepted().isEmpty());
    }
    for (const messagekind kind : {messagekind::clientRejectedInvite, messagekind::clientRejectedInviteVersion}) {
        tell(kind);
        QCOMPARE(lists.rejected(), known);
        tell(messagekind::clientInvited);
        QVERIFY(lists.rejected().isEmpty());
    }
    tell(messagekind::clientTakenBack);
    QVERIFY(lists.invited().isEmpty());
    // Of the channels the tree shows these.
    const QStringList before = seenIn(connection);
    tell(messagekind::channelInvited);
    QCOMPARE(seenIn(connection) != before, told == "3" || told == "1");
    tell(messagekind::channelTakenBack);
    QCOMPARE(seenIn(connection), before);
}

void tst_hostileparticipant::messagesOnAnotherConnectionChangeNothing()
{
    QFETCH(int, place);
    const standing where = standings().at(place);
    const int other =
        where.connection == clientworld::boardAsHost ? clientworld::boardAsGuest : clientworld::boardAsHost;
    for (int kind = 1; kind <= 24; ++kind) {
        const QList<QByteArray> texts = hostile::messagesFrom(static_cast<messagekind>(kind), "2");
        sessionstate state = session_none;
        world.play(where.before + records(other, texts) + records(clientworld::unknown, texts),
                   [&] { state = world.stateOf(where.connection); });
        QVERIFY2(state == where.state, texts.first().toHex(' '));
        world.restore();
    }
}

void tst_hostileparticipant::longMessagesAreSurvivedInEveryState()
{
    QFETCH(int, place);
    const standing where = standings().at(place);
    for (int kind = 0; kind <= 25; ++kind) {
        bool reached = false;
        world.play(where.before + records(where.connection, hostile::longTexts(kind)), [&] { reached = true; });
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
        const QList<QByteArray> senders = hostile::senders();
        for (const QByteArray& sender : senders) {
            const anyID client = hostile::cutOrNone(sender);
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
        world.play(records(connection, hostile::messagesFrom(kind, sender)));
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
    world.play(QList<QByteArray>{record(connection, hostile::startOf(width, height))});
    QCOMPARE(world.stateOf(connection), session_running);
    QVERIFY(world.boardOf(connection));
    QVERIFY(pictureOf(connection).isNull());
    // Peers paint on it, the user too, and every button is pressed; what a button asks is refused.
    QList<QByteArray> played = records(connection, hostile::paintTexts());
    for (int tool = 1; tool <= 17; ++tool)
        played << "us 3 " + QByteArray::number(tool) << "ud 3 1 1"
               << "um 3 9 9"
               << "ur 3 9 9"
               << "uq 3 65";
    const int actions = world.boardOf(connection)->findChildren<QAction*>().size();
    for (int action = 0; action < actions; ++action)
        played << "ub 3 " + QByteArray::number(action) << "n";
    world.play(played);
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
    world.play(QList<QByteArray>{record(clientworld::lobbyAsGuest, hostile::startOf("64", "48"))});
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
    QList<QByteArray> played;
    for (int client = 1; client <= rounds; ++client) {
        for (const int connection : {clientworld::idle, clientworld::unknown, clientworld::lobbyAsGuest})
            played.append(record(connection, "\x01 2 " + QByteArray::number(client)));
    }
    int questions = 0;
    int turnedAway = 0;
    world.play(played, [&] {
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
                                              hostile::startOf("2000", "2000").constData());
    });
    QCOMPARE(pictureOf(connection).size(), QSize(2000, 2000));
    world.play(QList<QByteArray>{record(connection, "\x11 2 \x02 #123456 5 10|10 1900|40 30|1700")});
    const QImage before = pictureOf(connection);
    // Each pair of effects undoes itself, and the two fills as well.
    QList<QByteArray> played;
    for (int round = 0; round < rounds; ++round) {
        for (const char* effect : {"\x0d", "\x0e", "\x0f", "\x10"}) {
            for (const char* area : {"full", "0|0 1999|1999"})
                played << record(connection, QByteArray("\x13 2 ") + effect + ' ' + area)
                       << record(connection, QByteArray("\x13 2 ") + effect + ' ' + area);
        }
        played << record(connection, "\x13 2 \x0a #00ff00 1990|1990")
               << record(connection, "\x13 2 \x0a #ffffff 1990|1990");
    }
    world.play(played);
    QCOMPARE(world.stateOf(connection), session_running);
    QVERIFY(pictureOf(connection) == before);
}

QTEST_MAIN(tst_hostileparticipant)
#include "tst_hostileparticipant.moc"
