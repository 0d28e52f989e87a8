#include "programrun.h"

#include "standin/director/paintinggroup.h"
#include "standin/director/picturecompare.h"
#include "standin/director/stage.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

#define PLAY(player, line)                                                                                             \
    QVERIFY2((player)->ask(QStringLiteral(line)), qPrintable(QStringLiteral(line ": ") + (player)->problem()))

// Whole sessions of processes with the real library.
class tst_sessions : public QObject {
    Q_OBJECT

private slots:
    void eachScriptRunsToItsEnd_data();
    void eachScriptRunsToItsEnd();
    void thePluginCanBeUnloadedInAnyState_data();
    void thePluginCanBeUnloadedInAnyState();
    void theServerMayBeLostInAnyState_data();
    void theServerMayBeLostInAnyState();
    void aHostThatFailsAtRandomIsSurvived_data();
    void aHostThatFailsAtRandomIsSurvived();
    void twoConnectionsDoNotHearEachOther_data();
    void twoConnectionsDoNotHearEachOther();
    void namesFromStrangersAreShownAsPlainText();
    void aFloodingPainterIsCutShort();
    void strokesAreFollowedFromTheMouseToAPeersWindow();

private:
    static scriptplayer player(const char* name);
    static stageprops props();
    static void states();
    /// Brings Alice into a state; Bob does his part.
    void enterState(stage* boards, const QString& state);
    static int memoryOf(playedprocess* client);
};

scriptplayer tst_sessions::player(const char* name)
{
    scriptplayer one;
    one.name = QString::fromUtf8(name);
    return one;
}

stageprops tst_sessions::props()
{
    stageprops wanted;
    wanted.programs = QStringLiteral(PROGRAMS);
    wanted.plugins = QStringList{QStringLiteral(KELVOR_LIBRARY)};
    return wanted;
}

int tst_sessions::memoryOf(playedprocess* client)
{
    const QString status = client->ask(QStringLiteral("status")).value_or(QString());
    return QJsonDocument::fromJson(status.toUtf8()).object().value(QStringLiteral("memory")).toInt(-1);
}

void tst_sessions::eachScriptRunsToItsEnd_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QStringList>("more");
    QTest::newRow("road") << QStringLiteral("road") << QStringList();
    QTest::newRow("road of five") << QStringLiteral("road") << QStringList{"--players", "5"};
    QTest::newRow("tools") << QStringLiteral("tools") << QStringList();
    QTest::newRow("picture") << QStringLiteral("picture") << QStringList();
    QTest::newRow("lobby") << QStringLiteral("lobby") << QStringList();
    QTest::newRow("unruly") << QFINDTESTDATA("data/unruly.play") << QStringList();
}

void tst_sessions::eachScriptRunsToItsEnd()
{
    QFETCH(const QString, script);
    QFETCH(const QStringList, more);
    const QTemporaryDir shots;
    const QStringList arguments{QStringLiteral("--plugin"),      QStringLiteral(KELVOR_LIBRARY),
                                QStringLiteral("--script"),      script,
                                QStringLiteral("--screenshots"), shots.path()};
    const programrun run = runProgram(QStringLiteral("director"), arguments + more);
    QVERIFY2(run.status == 0, qPrintable(run.output + run.errors));
    QVERIFY2(run.output.contains(QStringLiteral("All scripts ran to their end.")), qPrintable(run.output));
}

void tst_sessions::states()
{
    QTest::addColumn<QString>("state");
    for (const char* state : {"idle", "lobby", "question", "file dialog", "password", "transfer", "painting",
                              "mid-stroke", "text box", "colour dialog", "about box", "settings"})
        QTest::newRow(state) << QString::fromLatin1(state);
}

void tst_sessions::enterState(stage* boards, const QString& state)
{
    playedprocess* const alice = boards->client(QStringLiteral("Alice"));
    playedprocess* const bob = boards->client(QStringLiteral("Bob"));
    PLAY(alice, "wait client Bob");
    if (state == QLatin1String("idle"))
        return;
    if (state == QLatin1String("settings")) {
        PLAY(alice, "configure");
        PLAY(alice, "wait window kelvorconfigdialog");
        return;
    }
    if (state == QLatin1String("question")) {
        PLAY(bob, "open chat");
        PLAY(bob, "row Alice in invitationdialog double");
        PLAY(alice, "question");
        return;
    }
    PLAY(alice, "open menu");
    PLAY(alice, "wait row Bob in invitationdialog \"[Client has kelvor running]\"");
    if (state == QLatin1String("lobby"))
        return;
    if (state == QLatin1String("file dialog") || state == QLatin1String("password")
        || state == QLatin1String("transfer")) {
        PLAY(alice, "click \"Load image\" in invitationdialog");
        PLAY(alice, "wait row Sketches in ts3filedialog");
        if (state == QLatin1String("password")) {
            PLAY(alice, "row \"Secret Garden\" in ts3filedialog double");
            PLAY(alice, "wait window QInputDialog");
        }
        if (state == QLatin1String("transfer")) {
            PLAY(boards->server(), "piece 10");
            PLAY(boards->server(), "pause 50");
            PLAY(alice, "row Sketches in ts3filedialog double");
            PLAY(alice, "row harbour.png in ts3filedialog double");
            PLAY(alice, "wait window ts3downloaddialog");
        }
        return;
    }
    PLAY(alice, "row Bob in invitationdialog double");
    PLAY(bob, "answer Yes");
    PLAY(alice, "wait row Bob in invitationdialog \"Client accepted invite\"");
    PLAY(alice, "click OK in invitationdialog");
    PLAY(alice, "wait window whiteboard");
    PLAY(bob, "wait window whiteboard");
    PLAY(alice, "tool pencil");
    PLAY(alice, "drag 10,10 50,50");
    if (state == QLatin1String("mid-stroke"))
        PLAY(alice, "press 60,60 70,70");
    if (state == QLatin1String("text box")) {
        PLAY(alice, "tool text");
        PLAY(alice, "drag 100,100 200,150");
        PLAY(alice, "type half");
    }
    if (state == QLatin1String("colour dialog")) {
        PLAY(alice, "click Color in whiteboard");
        PLAY(alice, "wait window QColorDialog");
    }
    if (state == QLatin1String("about box")) {
        PLAY(alice, "click Info in whiteboard");
        PLAY(alice, "wait window kelvoraboutdialog");
    }
}

void tst_sessions::thePluginCanBeUnloadedInAnyState_data() { states(); }

void tst_sessions::thePluginCanBeUnloadedInAnyState()
{
    QFETCH(const QString, state);
    stage boards(props());
    QString problem;
    QVERIFY2(boards.startServer(&problem) && boards.startClient(player("Alice"), QRect(), &problem)
                 && boards.startClient(player("Bob"), QRect(), &problem),
             qPrintable(problem));
    enterState(&boards, state);
    if (QTest::currentTestFailed())
        return;
    playedprocess* const alice = boards.client(QStringLiteral("Alice"));
    PLAY(alice, "plugin unload");
    QCOMPARE(memoryOf(alice), 0);
    PLAY(alice, "plugin load");
    PLAY(alice, "open chat");
    PLAY(alice, "wait window invitationdialog");
    QVERIFY2(boards.endAll(&problem), qPrintable(problem));
}

void tst_sessions::theServerMayBeLostInAnyState_data() { states(); }

void tst_sessions::theServerMayBeLostInAnyState()
{
    QFETCH(const QString, state);
    stage boards(props());
    QString problem;
    QVERIFY2(boards.startServer(&problem) && boards.startClient(player("Alice"), QRect(), &problem)
                 && boards.startClient(player("Bob"), QRect(), &problem),
             qPrintable(problem));
    enterState(&boards, state);
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(boards.server()->end(), 0);
    for (const char* name : {"Alice", "Bob"}) {
        playedprocess* const client = boards.client(QLatin1String(name));
        QTRY_VERIFY_WITH_TIMEOUT(!client->isRunning(), 20000);
        QCOMPARE(client->end(), 4);
    }
}

void tst_sessions::aHostThatFailsAtRandomIsSurvived_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<int>("seed");
    for (const int percent : {5, 30, 100}) {
        for (const int seed : {1, 2})
            QTest::addRow("%d percent, seed %d", percent, seed) << percent << seed;
    }
}

// Nobody can say how far such a session comes: the steps are tried with a short patience, and what counts is that
// everybody still answers, gives back all memory and ends well.
void tst_sessions::aHostThatFailsAtRandomIsSurvived()
{
    QFETCH(const int, percent);
    QFETCH(const int, seed);
    stage boards(props());
    QString problem;
    QVERIFY2(boards.startServer(&problem) && boards.startClient(player("Alice"), QRect(), &problem)
                 && boards.startClient(player("Bob"), QRect(), &problem),
             qPrintable(problem));
    playedprocess* const alice = boards.client(QStringLiteral("Alice"));
    playedprocess* const bob = boards.client(QStringLiteral("Bob"));
    PLAY(alice, "wait client Bob");
    for (playedprocess* client : {alice, bob})
        QVERIFY(client->ask(QStringLiteral("fail any %1 %2").arg(percent).arg(seed)));
    const QList<QPair<playedprocess*, QString>> steps = {
        {alice, QStringLiteral("open menu")},
        {alice, QStringLiteral("click \"Load image\" in invitationdialog")},
        {alice, QStringLiteral("row Sketches in ts3filedialog double")},
        {alice, QStringLiteral("row harbour.png in ts3filedialog double")},
        {alice, QStringLiteral("wait no window ts3filedialog")},
        {alice, QStringLiteral("cancel ts3filedialog")},
        {alice, QStringLiteral("row Bob in invitationdialog double")},
        {bob, QStringLiteral("answer Yes")},
        {alice, QStringLiteral("wait row Bob in invitationdialog \"Client accepted invite\"")},
        {alice, QStringLiteral("click OK in invitationdialog")},
        {bob, QStringLiteral("wait window whiteboard")},
        {alice, QStringLiteral("tool pencil")},
        {alice, QStringLiteral("drag 10,10 50,50")},
        {bob, QStringLiteral("close whiteboard")},
        {alice, QStringLiteral("close whiteboard")},
        {bob, QStringLiteral("open chat")},
    };
    for (const auto& step : steps)
        step.first->ask(QStringLiteral("within 0.4 ") + step.second);
    for (playedprocess* client : {alice, bob}) {
        QVERIFY2(client->isRunning(), qPrintable(client->problem()));
        QCOMPARE(memoryOf(client), 0);
    }
    QVERIFY2(boards.endAll(&problem), qPrintable(problem));
}

void tst_sessions::twoConnectionsDoNotHearEachOther_data()
{
    QTest::addColumn<bool>("sameServer");
    QTest::newRow("two servers") << false;
    QTest::newRow("twice one server") << true;
}

// Alice paints with Bob on her first connection and with Carla on her second, at the same time.
void tst_sessions::twoConnectionsDoNotHearEachOther()
{
    QFETCH(const bool, sameServer);
    stageprops otherProps = props();
    otherProps.serverTitle = QStringLiteral("Other Town");
    stage boards(props());
    stage others(otherProps);
    stage& second = sameServer ? boards : others;
    QString problem;
    QVERIFY2(boards.startServer(&problem) && others.startServer(&problem)
                 && boards.startClient(player("Alice"), QRect(), &problem)
                 && boards.startClient(player("Bob"), QRect(), &problem)
                 && second.startClient(player("Carla"), QRect(), &problem),
             qPrintable(problem));
    playedprocess* const alice = boards.client(QStringLiteral("Alice"));
    playedprocess* const bob = boards.client(QStringLiteral("Bob"));
    playedprocess* const carla = second.client(QStringLiteral("Carla"));
    QVERIFY(alice->ask(QStringLiteral("connect ") + second.address()));
    PLAY(alice, "wait connected");

    const auto openWith = [&](playedprocess* guest, const char* tab) {
        const QString name = guest->name();
        return alice->ask(QStringLiteral("tab ") + QLatin1String(tab)) && alice->ask(QStringLiteral("open chat"))
            && alice->ask(QStringLiteral("wait row %1 in invitationdialog \"[Client has kelvor running]\"").arg(name))
            && alice->ask(QStringLiteral("row %1 in invitationdialog double").arg(name))
            && guest->ask(QStringLiteral("answer Yes"))
            && alice->ask(QStringLiteral("wait row %1 in invitationdialog \"Client accepted invite\"").arg(name))
            && alice->ask(QStringLiteral("click OK in invitationdialog"))
            && guest->ask(QStringLiteral("wait window whiteboard"));
    };
    QVERIFY2(openWith(bob, "1"), qPrintable(alice->problem() + bob->problem()));
    QVERIFY2(openWith(carla, "2"), qPrintable(alice->problem() + carla->problem()));
    for (playedprocess* guest : {bob, carla}) {
        const QString colour = guest == bob ? QStringLiteral("#ff0000") : QStringLiteral("#0000ff");
        PLAY(guest, "tool pencil");
        QVERIFY(guest->ask(QStringLiteral("colour ") + colour));
        PLAY(guest, "thickness 9");
        PLAY(guest, "drag 20,20 100,20");
    }
    // On Alice's side each window shows its own guest's stroke.
    PLAY(alice, "wait row Bob");
    PLAY(alice, "wait row Carla");
    const QStringList windows =
        alice->ask(QStringLiteral("windows whiteboard")).value_or(QString()).split(QStringLiteral(" | "));
    QCOMPARE(windows.size(), 2);
    QVERIFY(alice->ask(QStringLiteral("canvas rows:Bob")));
    PLAY(alice, "wait pixel 60,20 #ff0000");
    QVERIFY(alice->ask(QStringLiteral("canvas rows:Carla")));
    PLAY(alice, "wait pixel 60,20 #0000ff");
    PLAY(bob, "wait pixel 60,20 #ff0000");
    PLAY(carla, "wait pixel 60,20 #0000ff");
    QVERIFY2(boards.endAll(&problem) && others.endAll(&problem), qPrintable(problem));
}

void tst_sessions::namesFromStrangersAreShownAsPlainText()
{
    const QString hostile = QString::fromUtf8("<img src=/dev/zero> <b>Bob</b> \u202eevil\u202c %1 %2");
    stage boards(props());
    QString problem;
    scriptplayer stranger = player("Bob");
    stranger.name = hostile;
    QVERIFY2(boards.startServer(&problem) && boards.startClient(player("Alice"), QRect(), &problem)
                 && boards.startClient(stranger, QRect(), &problem),
             qPrintable(problem));
    playedprocess* const alice = boards.client(QStringLiteral("Alice"));
    playedprocess* const bob = boards.client(hostile);
    PLAY(bob, "open chat");
    PLAY(bob, "wait row Alice in invitationdialog \"[Client has kelvor running]\"");
    PLAY(bob, "row Alice in invitationdialog double");
    const std::optional<QString> question = alice->ask(QStringLiteral("question"));
    QVERIFY(question);
    QVERIFY2(question->contains(QStringLiteral("<img src=/dev/zero>")), qPrintable(*question));
    PLAY(alice, "answer Yes");
    // Without the characters that turn the direction of writing.
    const QString shown = QStringLiteral("<img src=/dev/zero> <b>Bob</b> evil %1 %2");
    QVERIFY2(alice->ask(QStringLiteral("wait row \"%1\" in invitationdialog Host").arg(shown)),
             qPrintable(alice->problem()));
    QVERIFY2(boards.endAll(&problem), qPrintable(problem));
}

void tst_sessions::aFloodingPainterIsCutShort()
{
    stage boards(props());
    QString problem;
    QVERIFY2(boards.startServer(&problem) && boards.startClient(player("Alice"), QRect(), &problem)
                 && boards.startClient(player("Bob"), QRect(), &problem),
             qPrintable(problem));
    enterState(&boards, QStringLiteral("painting"));
    if (QTest::currentTestFailed())
        return;
    playedprocess* const alice = boards.client(QStringLiteral("Alice"));
    PLAY(boards.server(), "flood 1");
    PLAY(alice, "tool line");
    for (int i = 0; i < 40; ++i)
        QVERIFY(alice->ask(QStringLiteral("drag %1,10 %1,100").arg(i * 5)));
    PLAY(alice, "wait line \"You send too much\"");
    PLAY(alice, "close whiteboard");
    QVERIFY2(boards.endAll(&problem), qPrintable(problem));
}

void tst_sessions::strokesAreFollowedFromTheMouseToAPeersWindow()
{
    paintinggroup group(props());
    QString problem;
    QVERIFY2(group.open(3, &problem), qPrintable(problem));
    for (const int painters : {1, 3, 3}) {
        const std::optional<strokedelays> delays = group.paint(painters, 90, 1, &problem);
        QVERIFY2(delays, qPrintable(problem));
        QCOMPARE(delays->size(), 90);
        QVERIFY(*std::min_element(delays->begin(), delays->end()) > 0);
    }
    QVERIFY2(group.close(&problem), qPrintable(problem));
}

QTEST_GUILESS_MAIN(tst_sessions)
#include "tst_sessions.moc"
