#include "programfixture.h"

#include "standin/client/voiceclient.h"

#include <QDir>
#include <QFile>

// Client and server as they are played by lines, and what the client finds out about its plugin.
class tst_played : public programfixture {
    Q_OBJECT

private slots:
    void init() { startServer(); }
    void cleanup() { endServer(); }
    void eachCommandIsAnsweredByOneLine();
    void theServerIsPlayedToo();
    void whatThePluginLeavesBehindIsReported_data();
    void whatThePluginLeavesBehindIsReported();
    void aPluginIsLoadedAnewAndUnloaded();
    void whatIsInstalledIsLoadedAndWhatDoesNotFitIsTold();
    void aClientWithoutAPluginSaysSoWhenAskedForOne();
    void typedWordsReachThePlugin();

private:
    /// What comes of these lines; the client ends behind them.
    programrun play(const QByteArray& lines, const QStringList& more = QStringList()) const;
};

programrun tst_played::play(const QByteArray& lines, const QStringList& more) const
{
    return runProgram(QStringLiteral("voiceclient"), clientArguments(QStringList{QStringLiteral("--play")} + more),
                      "wait connected\n" + lines + "quit\n");
}

void tst_played::eachCommandIsAnsweredByOneLine()
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

void tst_played::theServerIsPlayedToo()
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

void tst_played::whatThePluginLeavesBehindIsReported_data()
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

void tst_played::whatThePluginLeavesBehindIsReported()
{
    QFETCH(const QByteArray, words);
    QFETCH(const int, status);
    QFETCH(const QString, report);
    const programrun run =
        play("chat \"/test " + words + "\"\n", {QStringLiteral("--plugin"), QStringLiteral(TESTPLUGIN8)});
    QCOMPARE(run.status, status);
    QVERIFY2(run.errors.contains(report), qPrintable(run.errors));
}

void tst_played::aPluginIsLoadedAnewAndUnloaded()
{
    const programrun run = play("plugin load\nwait line shutdown\nplugin unload\nwait no plugin\nplugin load\n"
                                "wait plugin\nconfigure\nwait line \"configure with parent\"\n",
                                {QStringLiteral("--plugin"), QStringLiteral(TESTPLUGIN26)});
    QCOMPARE(run.status, 0);
    QVERIFY2(!run.output.contains(QStringLiteral("error")), qPrintable(run.output));
}

void tst_played::whatIsInstalledIsLoadedAndWhatDoesNotFitIsTold()
{
    const QDir directory(place->path());
    QVERIFY(directory.mkdir(QStringLiteral("plugins")));
    QVERIFY(QFile::copy(QStringLiteral(TESTPLUGIN8), directory.filePath(QStringLiteral("plugins/a.so"))));
    QVERIFY(QFile::copy(QStringLiteral(TESTPLUGIN26), directory.filePath(QStringLiteral("plugins/b.so"))));
    const QByteArray refusal = "wait line \"'a.so' is not loaded: its API version is not compatible. This client takes "
                               "26, the plugin has 8.\"\n";
    const programrun run = play(refusal + "wait plugin\nstatus\nplugin load\nwait plugin\n",
                                {QStringLiteral("--interface"), QStringLiteral("26")});
    QCOMPARE(run.status, 0);
    QVERIFY2(!run.output.contains(QStringLiteral("error")), qPrintable(run.output));
    QVERIFY2(run.output.contains(QStringLiteral("\"library\":\"%1\"").arg(directory.filePath("plugins/b.so"))),
             qPrintable(run.output));
}

void tst_played::aClientWithoutAPluginSaysSoWhenAskedForOne()
{
    const programrun run = play("wait no plugin\nwithin 0.1 plugin load\nwait line \"There is no plugin to load.\"\n");
    QCOMPARE(run.status, 0);
    QCOMPARE(run.output.count(QStringLiteral("error")), 1);
}

void tst_played::typedWordsReachThePlugin()
{
    const programrun run = play("chat \"/test ask\"\nwait line \"server Paint Town\"\n"
                                "chat \"/test dance\"\nwait line \"Nobody here knows the command '/test dance'\"\n"
                                "chat /other\nwait line \"Nobody here knows the command '/other'\"\n"
                                "chat hello\nwait line \"Painter: hello\"\n",
                                {QStringLiteral("--plugin"), QStringLiteral(TESTPLUGIN8)});
    QCOMPARE(run.status, 0);
    QVERIFY2(!run.output.contains(QStringLiteral("error")), qPrintable(run.output));
}

QTEST_GUILESS_MAIN(tst_played)
#include "tst_played.moc"
