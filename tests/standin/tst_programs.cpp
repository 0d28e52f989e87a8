#include "programrun.h"

#include "standin/client/voiceclient.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

// The three programs as processes: what they refuse, how they answer, and that they always end.
class tst_programs : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void whatIsWrongOnTheCommandLineIsNamed_data();
    void whatIsWrongOnTheCommandLineIsNamed();
    void helpTellsTheOptions_data();
    void helpTellsTheOptions();
    void aServerNameInUseIsRefused();
    void anUnusablePluginIsRefused_data();
    void anUnusablePluginIsRefused();
    void withoutADisplayTheClientSaysSo();
    void anUnknownServerIsNamed();
    void aNicknameInUseEndsTheClient();
    void aLostServerEndsTheClient();
    void signalsEndWell_data();
    void signalsEndWell();
    void theEndOfInputEndsTheServer();
    void eachCommandIsAnsweredByOneLine();
    void theServerIsPlayedToo();
    void whatThePluginLeavesBehindIsReported_data();
    void whatThePluginLeavesBehindIsReported();
    void aPluginIsLoadedAnewAndUnloaded();
    void typedWordsReachThePlugin();
    void aScriptThatFailsNamesItsLine();
    void anInterruptedDirectorLeavesNobody();
    void theOpenHouseEndsWhenAllWindowsAreClosed();

private:
    QStringList clientArguments(const QStringList& more = QStringList()) const;
    bool start(QProcess* process, const QString& program, const QStringList& arguments) const;
    /// The answers to these lines; the client ends behind them.
    programrun play(const QByteArray& lines, const QStringList& more = QStringList()) const;
    static QList<qint64> childrenOf(qint64 process);

    std::unique_ptr<QTemporaryDir> place;
    std::unique_ptr<QProcess> server;
    QString serverName;
};

void tst_programs::init()
{
    static int number = 0;
    place = std::make_unique<QTemporaryDir>();
    serverName = QStringLiteral("kelvor-programs-%1-%2").arg(QCoreApplication::applicationPid()).arg(++number);
    server = std::make_unique<QProcess>();
    QVERIFY(start(server.get(), QStringLiteral("voiceserver"),
                  {QStringLiteral("--name"), serverName, QStringLiteral("--play")}));
    QTRY_VERIFY(server->canReadLine());
    QCOMPARE(server->readLine(), "ready " + serverName.toUtf8() + '\n');
}

void tst_programs::cleanup()
{
    server->closeWriteChannel();
    QVERIFY(server->state() == QProcess::NotRunning || server->waitForFinished());
    server.reset();
    place.reset();
}

QStringList tst_programs::clientArguments(const QStringList& more) const
{
    return QStringList{QStringLiteral("--server"), serverName, QStringLiteral("--config"), place->path()} + more;
}

bool tst_programs::start(QProcess* process, const QString& program, const QStringList& arguments) const
{
    process->start(QStringLiteral(PROGRAMS "/") + program, arguments);
    return process->waitForStarted();
}

programrun tst_programs::play(const QByteArray& lines, const QStringList& more) const
{
    return runProgram(QStringLiteral("voiceclient"), clientArguments(QStringList{QStringLiteral("--play")} + more),
                      "wait connected\n" + lines + "quit\n");
}

QList<qint64> tst_programs::childrenOf(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/task/%1/children").arg(process));
    QList<qint64> children;
    if (file.open(QIODevice::ReadOnly)) {
        const QList<QByteArray> words = file.readAll().simplified().split(' ');
        for (const QByteArray& word : words)
            children.append(word.toLongLong());
    }
    return children;
}

void tst_programs::whatIsWrongOnTheCommandLineIsNamed_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("words");
    const QString voiceserver = QStringLiteral("voiceserver");
    const QString voiceclient = QStringLiteral("voiceclient");
    const QString director = QStringLiteral("director");
    QTest::newRow("server: unknown option") << voiceserver << QStringList{"--bogus"} << QStringLiteral("bogus");
    QTest::newRow("server: stray word") << voiceserver << QStringList{"stray"} << QStringLiteral("stray");
    QTest::newRow("server: no number") << voiceserver << QStringList{"--delay", "soon"} << QStringLiteral("--delay");
    QTest::newRow("server: too much") << voiceserver << QStringList{"--loss", "101"} << QStringLiteral("0 to 100");
    QTest::newRow("server: empty name") << voiceserver << QStringList{"--name", ""} << QStringLiteral("--name");
    QTest::newRow("server: unknown fault")
        << voiceserver << QStringList{"--transfers", "explode"} << QStringLiteral("explode");
    QTest::newRow("server: store that cannot be")
        << voiceserver << QStringList{"--store", "/proc/none"} << QStringLiteral("/proc/none");
    QTest::newRow("server: value missing") << voiceserver << QStringList{"--name"} << QStringLiteral("name");
    QTest::newRow("client: unknown option") << voiceclient << QStringList{"--bogus"} << QStringLiteral("bogus");
    QTest::newRow("client: no place") << voiceclient << QStringList{"--geometry", "1,2"}
                                      << QStringLiteral("--geometry");
    QTest::newRow("client: empty name") << voiceclient << QStringList{"--name", ""} << QStringLiteral("--name");
    QTest::newRow("client: long directory")
        << voiceclient << QStringList{"--config", QStringLiteral("/tmp/") + QString(250, QLatin1Char('x'))}
        << QStringLiteral("too long");
    QTest::newRow("client: directory that cannot be")
        << voiceclient << QStringList{"--config", "/proc/none"} << QStringLiteral("/proc/none");
    QTest::newRow("director: unknown option") << director << QStringList{"--bogus"} << QStringLiteral("bogus");
    QTest::newRow("director: no plugin") << director << QStringList() << QStringLiteral("--plugin");
    QTest::newRow("director: plugin that is not there")
        << director << QStringList{"--plugin", "/nowhere.so"} << QStringLiteral("/nowhere.so");
    QTest::newRow("director: no player") << director << QStringList{"--plugin", TESTPLUGIN8, "--players", "0"}
                                         << QStringLiteral("--players");
    QTest::newRow("director: unknown script")
        << director << QStringList{"--plugin", TESTPLUGIN8, "--script", "opera"} << QStringLiteral("opera");
    QTest::newRow("director: pictures that cannot be")
        << director << QStringList{"--plugin", TESTPLUGIN8, "--screenshots", "/proc/none"}
        << QStringLiteral("/proc/none");
}

void tst_programs::whatIsWrongOnTheCommandLineIsNamed()
{
    QFETCH(const QString, program);
    QFETCH(const QStringList, arguments);
    QFETCH(const QString, words);
    const programrun run = runProgram(program, arguments);
    QCOMPARE(run.status, 1);
    QVERIFY2(run.errors.startsWith(program + QStringLiteral(": ")) && run.errors.contains(words),
             qPrintable(run.errors));
}

void tst_programs::helpTellsTheOptions_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("option");
    QTest::newRow("server") << QStringLiteral("voiceserver") << QStringLiteral("--store");
    QTest::newRow("client") << QStringLiteral("voiceclient") << QStringLiteral("--plugin");
    QTest::newRow("director") << QStringLiteral("director") << QStringLiteral("--interactive");
}

void tst_programs::helpTellsTheOptions()
{
    QFETCH(const QString, program);
    QFETCH(const QString, option);
    const programrun run = runProgram(program, {QStringLiteral("--help")});
    QCOMPARE(run.status, 0);
    QVERIFY2(run.output.contains(option), qPrintable(run.output));
}

void tst_programs::aServerNameInUseIsRefused()
{
    const programrun run = runProgram(QStringLiteral("voiceserver"), {QStringLiteral("--name"), serverName});
    QCOMPARE(run.status, 1);
    QVERIFY2(run.errors.contains(QStringLiteral("in use")), qPrintable(run.errors));
}

void tst_programs::anUnusablePluginIsRefused_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("words");
    QTest::newRow("missing") << QStringLiteral("/nowhere.so") << QStringLiteral("There is no plugin");
    QTest::newRow("no library") << QStringLiteral("/proc/self/status") << QStringLiteral("cannot be loaded");
    QTest::newRow("no plugin") << QStringLiteral(NOPLUGIN) << QStringLiteral("does not export");
    QTest::newRow("another version") << QStringLiteral(TESTPLUGIN7) << QStringLiteral("interface 7");
}

void tst_programs::anUnusablePluginIsRefused()
{
    QFETCH(const QString, file);
    QFETCH(const QString, words);
    const programrun run =
        runProgram(QStringLiteral("voiceclient"), clientArguments({QStringLiteral("--plugin"), file}));
    QCOMPARE(run.status, 1);
    QVERIFY2(run.errors.contains(words), qPrintable(run.errors));
}

void tst_programs::withoutADisplayTheClientSaysSo()
{
    QProcess client;
    QProcessEnvironment bare = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        bare.remove(QLatin1String(name));
    client.setProcessEnvironment(bare);
    QVERIFY(start(&client, QStringLiteral("voiceclient"), clientArguments()));
    QVERIFY(client.waitForFinished());
    QCOMPARE(client.exitCode(), 1);
    QVERIFY(client.readAllStandardError().contains("no display"));
}

void tst_programs::anUnknownServerIsNamed()
{
    const programrun run = runProgram(
        QStringLiteral("voiceclient"),
        {QStringLiteral("--server"), QStringLiteral("nobody-listens"), QStringLiteral("--config"), place->path()});
    QCOMPARE(run.status, 1);
    QVERIFY2(run.errors.contains(QStringLiteral("nobody-listens")), qPrintable(run.errors));
}

void tst_programs::aNicknameInUseEndsTheClient()
{
    QProcess first;
    QVERIFY(start(&first, QStringLiteral("voiceclient"), clientArguments({QStringLiteral("--play")})));
    first.write("wait connected\n");
    QTRY_VERIFY(first.canReadLine());
    const programrun run = runProgram(QStringLiteral("voiceclient"), clientArguments());
    QCOMPARE(run.status, voiceclient::statusServerLost);
    QVERIFY2(run.errors.contains(QStringLiteral("in use")), qPrintable(run.errors));
    first.closeWriteChannel();
    QVERIFY(first.waitForFinished());
    QCOMPARE(first.exitCode(), 0);
}

void tst_programs::aLostServerEndsTheClient()
{
    QProcess client;
    QVERIFY(
        start(&client, QStringLiteral("voiceclient"),
              clientArguments({QStringLiteral("--play"), QStringLiteral("--plugin"), QStringLiteral(TESTPLUGIN8)})));
    client.write("wait connected\n");
    QTRY_VERIFY(client.canReadLine());
    server->kill();
    QVERIFY(client.waitForFinished());
    QCOMPARE(client.exitStatus(), QProcess::NormalExit);
    QCOMPARE(client.exitCode(), voiceclient::statusServerLost);
    QVERIFY(client.readAllStandardError().contains(serverName.toUtf8()));
}

void tst_programs::signalsEndWell_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("interrupt") << SIGINT;
    QTest::newRow("terminate") << SIGTERM;
}

void tst_programs::signalsEndWell()
{
    QFETCH(const int, number);
    QProcess client;
    QVERIFY(
        start(&client, QStringLiteral("voiceclient"),
              clientArguments({QStringLiteral("--play"), QStringLiteral("--plugin"), QStringLiteral(TESTPLUGIN8)})));
    client.write("wait connected\n");
    QTRY_VERIFY(client.canReadLine());
    for (QProcess* process : {&client, server.get()}) {
        ::kill(pid_t(process->processId()), number);
        QVERIFY(process->waitForFinished());
        QCOMPARE(process->exitStatus(), QProcess::NormalExit);
        QCOMPARE(process->exitCode(), 0);
    }
}

void tst_programs::theEndOfInputEndsTheServer()
{
    server->closeWriteChannel();
    QVERIFY(server->waitForFinished());
    QCOMPARE(server->exitCode(), 0);
}

void tst_programs::eachCommandIsAnsweredByOneLine()
{
    const programrun run = play("dance\n"
                                "type \"open\n"
                                "\n"
                                "within soon wait connected\n"
                                "within 0.05 wait window nowhere\n"
                                "within 0.05 click Nothing in MainWindow\n"
                                "wait something\n"
                                "place MainWindow here\n"
                                "screen\n");
    QCOMPARE(run.status, 0);
    const QStringList answers = run.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(answers.size(), 10);
    QCOMPARE(answers.at(0), QStringLiteral("ok"));
    QCOMPARE(answers.at(1), QStringLiteral("error unknown command 'dance'"));
    QCOMPARE(answers.at(2), QStringLiteral("error a quote is left open"));
    QCOMPARE(answers.at(3), QStringLiteral("error 'within' takes seconds"));
    QCOMPARE(answers.at(4), QStringLiteral("error waited in vain: window 'nowhere'"));
    QVERIFY(answers.at(5).startsWith(QStringLiteral("error waited in vain")));
    QCOMPARE(answers.at(6), QStringLiteral("error unknown condition 'something'"));
    QCOMPARE(answers.at(7), QStringLiteral("error 'here' is no place"));
    QVERIFY(answers.at(8).startsWith(QStringLiteral("ok ")));
    QCOMPARE(answers.at(9), QStringLiteral("ok"));
}

void tst_programs::theServerIsPlayedToo()
{
    const QList<QPair<QByteArray, QByteArray>> talk = {
        {"loss 10", "ok"},
        {"loss 0", "ok"},
        {"loss much", "error 'much' is no number for loss"},
        {"transfers none", "ok"},
        {"transfers burn", "error unknown fault 'burn'"},
        {"cut Nobody", "error nobody is called 'Nobody'"},
        {"sing", "error unknown command 'sing'"},
        {"status", "ok {\"channels\":7,\"clients\":0,\"delivered\":0,\"dropped\":0,\"relayed\":0}"},
    };
    for (const auto& exchange : talk) {
        server->write(exchange.first + '\n');
        QTRY_VERIFY(server->canReadLine());
        QCOMPARE(server->readLine().trimmed(), exchange.second);
    }
}

void tst_programs::whatThePluginLeavesBehindIsReported_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("report");
    QTest::newRow("nothing") << QByteArray("ask") << 0 << QString();
    QTest::newRow("a text") << QByteArray("leak") << int(voiceclient::statusLeftovers)
                            << QStringLiteral("did not give back 1 texts");
    QTest::newRow("memory of its own given back")
        << QByteArray("wrong") << int(voiceclient::statusLeftovers) << QStringLiteral("did not get from the client");
    QTest::newRow("a foreign id") << QByteArray("forge") << int(voiceclient::statusLeftovers)
                                  << QStringLiteral("id that it was not given");
}

void tst_programs::whatThePluginLeavesBehindIsReported()
{
    QFETCH(const QByteArray, words);
    QFETCH(const int, status);
    QFETCH(const QString, report);
    const programrun run =
        play("chat \"/test " + words + "\"\n", {QStringLiteral("--plugin"), QStringLiteral(TESTPLUGIN8)});
    QCOMPARE(run.status, status);
    QVERIFY2(run.errors.contains(report), qPrintable(run.errors));
}

void tst_programs::aPluginIsLoadedAnewAndUnloaded()
{
    const programrun run = play("plugin load\nwait line shutdown\nplugin unload\nwait no plugin\nplugin load\n"
                                "wait plugin\nconfigure\nwait line \"configure with parent\"\n",
                                {QStringLiteral("--plugin"), QStringLiteral(TESTPLUGIN26)});
    QCOMPARE(run.status, 0);
    QVERIFY2(!run.output.contains(QStringLiteral("error")), qPrintable(run.output));
}

void tst_programs::typedWordsReachThePlugin()
{
    const programrun run = play("chat \"/test ask\"\nwait line \"server Paint Town\"\n"
                                "chat \"/test dance\"\nwait line \"Nobody here knows the command '/test dance'\"\n"
                                "chat /other\nwait line \"Nobody here knows the command '/other'\"\n"
                                "chat hello\nwait line \"Painter: hello\"\n",
                                {QStringLiteral("--plugin"), QStringLiteral(TESTPLUGIN8)});
    QCOMPARE(run.status, 0);
    QVERIFY2(!run.output.contains(QStringLiteral("error")), qPrintable(run.output));
}

void tst_programs::aScriptThatFailsNamesItsLine()
{
    QFile script(place->filePath(QStringLiteral("failing.play")));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("players 1\nAlice: within 0.1 wait window nowhere\n");
    script.close();
    const programrun run = runProgram(
        QStringLiteral("director"),
        {QStringLiteral("--plugin"), QStringLiteral(TESTPLUGIN8), QStringLiteral("--script"), script.fileName()});
    QCOMPARE(run.status, 1);
    QVERIFY2(run.errors.contains(QStringLiteral("Line 2: Alice: within 0.1 wait window nowhere: waited in vain")),
             qPrintable(run.errors));
}

void tst_programs::anInterruptedDirectorLeavesNobody()
{
    QFile script(place->filePath(QStringLiteral("waiting.play")));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("players 2\nnote the curtain is up\nAlice: within 60 wait window nowhere\n");
    script.close();
    QProcess director;
    QVERIFY(start(
        &director, QStringLiteral("director"),
        {QStringLiteral("--plugin"), QStringLiteral(TESTPLUGIN8), QStringLiteral("--script"), script.fileName()}));
    QByteArray said;
    const auto hasBegun = [&] { return (said += director.readAllStandardOutput()).contains("the curtain is up"); };
    QTRY_VERIFY_WITH_TIMEOUT(hasBegun(), 20000);
    const QList<qint64> children = childrenOf(director.processId());
    QCOMPARE(children.size(), 3);
    ::kill(pid_t(director.processId()), SIGINT);
    QVERIFY(director.waitForFinished());
    QCOMPARE(director.exitCode(), 1);
    for (const qint64 child : children)
        QVERIFY2(::kill(pid_t(child), 0) != 0, "a client or the server still runs");
}

void tst_programs::theOpenHouseEndsWhenAllWindowsAreClosed()
{
    QProcess director;
    QVERIFY(start(&director, QStringLiteral("director"),
                  {QStringLiteral("--plugin"), QStringLiteral(TESTPLUGIN8), QStringLiteral("--interactive"),
                   QStringLiteral("--players"), QStringLiteral("3")}));
    QTRY_VERIFY_WITH_TIMEOUT(director.canReadLine(), 20000);
    const QList<qint64> children = childrenOf(director.processId());
    QCOMPARE(children.size(), 4);
    // The first child is the server. To a client, SIGTERM is what a click on the window's cross is.
    for (const qint64 client : children.mid(1))
        ::kill(pid_t(client), SIGTERM);
    QVERIFY(director.waitForFinished());
    QCOMPARE(director.exitCode(), 0);
    QVERIFY(::kill(pid_t(children.first()), 0) != 0);
}

QTEST_GUILESS_MAIN(tst_programs)
#include "tst_programs.moc"
