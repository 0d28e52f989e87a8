#include "programfixture.h"

#include "standin/client/voiceclient.h"

#include <QFile>

#include <csignal>

// The three programs as processes: what they refuse, and that they always end.
class tst_programs : public programfixture {
    Q_OBJECT

private slots:
    void init() { startServer(); }
    void cleanup() { endServer(); }
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
    void aScriptThatFailsNamesItsLine();
    void anInterruptedDirectorLeavesNobody();
    void theOpenHouseEndsWhenAllWindowsAreClosed();

private:
    static QList<qint64> childrenOf(qint64 process);
};

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
    QTest::newRow("client: unknown interface")
        << voiceclient << QStringList{"--interface", "9"} << QStringLiteral("--interface");
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
    QTest::newRow("another version") << QStringLiteral(TESTPLUGIN7) << QStringLiteral("API version");
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
    QTest::newRow("terminal closed") << SIGHUP;
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
