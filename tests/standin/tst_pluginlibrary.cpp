#include "town.h"

#include "hostapi/hosttypes.h"
#include "standin/client/hostservice.h"
#include "standin/client/pluginevents.h"
#include "standin/client/pluginlibrary.h"
#include "standin/server/clientsession.h"

#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

// The client's side of the C interface, with a plugin that says what it is told, in both versions of the interface.
class tst_pluginlibrary : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void bothVersionsLoadAndUnloadAgain_data() { versions(); }
    void bothVersionsLoadAndUnloadAgain();
    void whatIsNoPluginIsRefused_data();
    void whatIsNoPluginIsRefused();
    void anotherVersionIsRefusedAndBothAreNamed_data();
    void anotherVersionIsRefusedAndBothAreNamed();
    void aPluginThatDoesNotStartIsRefused();
    void memoryIsCountedUntilItIsGivenBack_data() { versions(); }
    void memoryIsCountedUntilItIsGivenBack();
    void foreignMemoryIsNotReleased();
    void aCommandGoesOutUnderTheGivenIdAlone_data() { versions(); }
    void aCommandGoesOutUnderTheGivenIdAlone();
    void theServerNamesTheInvoker();
    void theIdIsNewAtEachLoad();
    void directoriesEndInASeparator_data() { versions(); }
    void directoriesEndInASeparator();
    void functionsThatAreNotPlayedAreThereAllTheSame_data() { versions(); }
    void functionsThatAreNotPlayedAreThereAllTheSame();
    void aFunctionFailsAsItWasTold();
    void listsAndTextsComeEmptyOrNull();
    void whatHappensOnTheServerBecomesEvents();
    void filesBecomeEvents();
    void afterShutdownNoEventReachesThePlugin();
    void configurationGetsItsParent();

private:
    void versions();
    void load(const char* file);
    bool run(const char* words) { return library->processCommand(1, QLatin1String(words)); }
    bool said(const QString& line) const { return lines.contains(line); }

    std::unique_ptr<QTemporaryDir> config;
    std::unique_ptr<town> place;
    std::unique_ptr<hostservice> host;
    std::unique_ptr<pluginlibrary> library;
    std::unique_ptr<voiceconnection> alice;
    QStringList lines;
};

void tst_pluginlibrary::versions()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("interface 8") << QStringLiteral(TESTPLUGIN8);
    QTest::newRow("interface 26") << QStringLiteral(TESTPLUGIN26);
}

void tst_pluginlibrary::init()
{
    lines.clear();
    config = std::make_unique<QTemporaryDir>();
    place = std::make_unique<town>();
    host = std::make_unique<hostservice>(config->path() + QLatin1Char('/'));
    library = std::make_unique<pluginlibrary>(host.get());
    connect(host.get(), &hostservice::printed, this, [this](quint64, const QString& line) { lines.append(line); });
    alice = std::make_unique<voiceconnection>(
        1, place->name(), voiceidentity{QStringLiteral("Alice"), QStringLiteral("Linux"), QString(), false});
    new pluginevents(alice.get(), library.get());
    host->addConnection(alice.get());
    QString problem;
    QVERIFY2(alice->open(&problem), qPrintable(problem));
    QTRY_VERIFY(alice->isEstablished());
}

void tst_pluginlibrary::cleanup()
{
    library.reset();
    alice.reset();
    host.reset();
    place.reset();
}

void tst_pluginlibrary::load(const char* file)
{
    QString problem;
    QVERIFY2(library->load(QLatin1String(file), &problem), qPrintable(problem));
}

void tst_pluginlibrary::bothVersionsLoadAndUnloadAgain()
{
    QFETCH(const QString, file);
    for (int i = 0; i < 10; ++i) {
        load(file.toLatin1().constData());
        QVERIFY(library->isRunning());
        QCOMPARE(library->keyword(), QStringLiteral("test"));
        library->shutdown();
        QVERIFY(!library->isRunning());
        QVERIFY2(library->unload(), "the library is gone from the process");
    }
}

void tst_pluginlibrary::whatIsNoPluginIsRefused_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("words");
    QTest::newRow("missing") << QStringLiteral("/nowhere/plugin.so") << QStringLiteral("There is no plugin");
    QTest::newRow("no library") << QFINDTESTDATA("tst_pluginlibrary.cpp") << QStringLiteral("cannot be loaded");
    QTest::newRow("without the exports") << QStringLiteral(NOPLUGIN)
                                         << QStringLiteral("does not export ts3plugin_name");
}

void tst_pluginlibrary::whatIsNoPluginIsRefused()
{
    QFETCH(const QString, file);
    QFETCH(const QString, words);
    QString problem;
    QVERIFY(!library->load(file, &problem));
    QVERIFY2(problem.contains(words), qPrintable(problem));
    QVERIFY(!library->isRunning());
    QVERIFY(!library->isLoaded());
}

void tst_pluginlibrary::anotherVersionIsRefusedAndBothAreNamed_data()
{
    QTest::addColumn<int>("onlyVersion");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("taken");
    QTest::addColumn<int>("version");
    QTest::newRow("unknown to all") << 0 << QStringLiteral(TESTPLUGIN7) << QStringLiteral("8 and 26") << 7;
    QTest::newRow("of old, in a client of today") << 26 << QStringLiteral(TESTPLUGIN8) << QStringLiteral("26") << 8;
    QTest::newRow("of today, in a client of old") << 8 << QStringLiteral(TESTPLUGIN26) << QStringLiteral("8") << 26;
}

void tst_pluginlibrary::anotherVersionIsRefusedAndBothAreNamed()
{
    QFETCH(const int, onlyVersion);
    QFETCH(const QString, file);
    QFETCH(const QString, taken);
    QFETCH(const int, version);
    library->narrowTo(onlyVersion);
    QString problem;
    QVERIFY(!library->load(file, &problem));
    QCOMPARE(
        problem,
        QStringLiteral("The plugin '%1' is not loaded: its API version is not compatible. This client takes %2, the "
                       "plugin has %3.")
            .arg(QFileInfo(file).fileName(), taken)
            .arg(version));
    QVERIFY(!library->isRunning());
    QVERIFY(!library->isLoaded());
    library->narrowTo(0);
    QCOMPARE(library->load(file, &problem), version != 7);
}

void tst_pluginlibrary::aPluginThatDoesNotStartIsRefused()
{
    qputenv("TESTPLUGIN_REFUSES", "1");
    QString problem;
    const bool loaded = library->load(QStringLiteral(TESTPLUGIN8), &problem);
    qunsetenv("TESTPLUGIN_REFUSES");
    QVERIFY(!loaded);
    QVERIFY2(problem.contains(QStringLiteral("could not start")), qPrintable(problem));
}

void tst_pluginlibrary::memoryIsCountedUntilItIsGivenBack()
{
    QFETCH(const QString, file);
    load(file.toLatin1().constData());
    QVERIFY(run("ask"));
    QVERIFY(said(QStringLiteral("server Test Town")));
    QVERIFY(said(QStringLiteral("client Alice")));
    QVERIFY(said(QStringLiteral("channels 7")));
    QCOMPARE(host->memory.outstanding(), 0);
    QVERIFY(run("leak"));
    QCOMPARE(host->memory.outstanding(), 1);
}

void tst_pluginlibrary::foreignMemoryIsNotReleased()
{
    load(TESTPLUGIN8);
    QSignalSpy misused(host.get(), &hostservice::misused);
    QVERIFY(run("wrong"));
    QCOMPARE(misused.count(), 1);
    QCOMPARE(host->memory.wrongReleases(), 1);
}

void tst_pluginlibrary::aCommandGoesOutUnderTheGivenIdAlone()
{
    QFETCH(const QString, file);
    load(file.toLatin1().constData());
    QSignalSpy misused(host.get(), &hostservice::misused);
    QVERIFY(run("forge"));
    QCOMPARE(misused.count(), 1);
    QVERIFY(run("send"));
    QTRY_COMPARE(host->traffic.receivedOf(0x11), 1);
    QCOMPARE(host->traffic.sentOf(0x11), 1);
    QTRY_COMPARE(lines.filter(QStringLiteral("command 1 ") + QString::fromUtf8(host->pluginName)).size(), 1);
}

void tst_pluginlibrary::theServerNamesTheInvoker()
{
    load(TESTPLUGIN26);
    const auto bob = place->enter(QStringLiteral("Bob"));
    QVERIFY(bob);
    bob->sendCommand("other", "\x11 hi", {alice->ownID()});
    QTRY_VERIFY(said(QStringLiteral("command 1 other hi by %1 Bob known").arg(bob->ownID())));
}

void tst_pluginlibrary::theIdIsNewAtEachLoad()
{
    load(TESTPLUGIN8);
    const QByteArray first = host->pluginID;
    QVERIFY(first.startsWith("testplugin8"));
    library->shutdown();
    QVERIFY(library->unload());
    QVERIFY(host->pluginID.isEmpty());
    load(TESTPLUGIN8);
    QVERIFY(host->pluginID != first);
}

void tst_pluginlibrary::directoriesEndInASeparator()
{
    QFETCH(const QString, file);
    load(file.toLatin1().constData());
    QVERIFY(run("paths"));
    QVERIFY(said(QStringLiteral("config %1/").arg(config->path())));
    QVERIFY(said(QStringLiteral("plugins %1/plugins/").arg(config->path())));
}

void tst_pluginlibrary::functionsThatAreNotPlayedAreThereAllTheSame()
{
    QFETCH(const QString, file);
    load(file.toLatin1().constData());
    QVERIFY(run("rare"));
    QVERIFY(said(QStringLiteral("rare %1").arg(int(ERROR_not_implemented))));
}

void tst_pluginlibrary::aFunctionFailsAsItWasTold()
{
    load(TESTPLUGIN8);
    host->failures.set("getClientVariableAsString", {failurekind::error, 0x0200});
    QVERIFY(run("ask"));
    QVERIFY(said(QStringLiteral("client failed with 512")));
    QCOMPARE(host->failures.calls("getClientVariableAsString"), 1);
    host->failures.clear();
    host->failures.setChance(100, 1);
    QVERIFY(run("ask"));
    QVERIFY(said(QStringLiteral("clients failed with 1")));
    QCOMPARE(host->memory.outstanding(), 0);
}

void tst_pluginlibrary::listsAndTextsComeEmptyOrNull()
{
    load(TESTPLUGIN8);
    host->failures.set("getClientVariableAsString", {failurekind::nothing, 0});
    QVERIFY(run("ask"));
    QVERIFY(said(QStringLiteral("client (null)")));
    host->failures.set("getClientVariableAsString", {failurekind::empty, 0});
    QVERIFY(run("ask"));
    QVERIFY(said(QStringLiteral("client ")));
    lines.clear();
    host->failures.set("getClientList", {failurekind::empty, 0});
    QVERIFY(run("ask"));
    QVERIFY(lines.filter(QStringLiteral("client")).isEmpty());
    QCOMPARE(host->memory.outstanding(), 0);
}

void tst_pluginlibrary::whatHappensOnTheServerBecomesEvents()
{
    load(TESTPLUGIN8);
    auto bob = place->enter(QStringLiteral("Bob"));
    QVERIFY(bob);
    const int id = bob->ownID();
    const quint64 square = place->channel("Town Square");
    const quint64 posters = place->channel("Posters");
    QTRY_VERIFY(said(QStringLiteral("move 1 %1 0 %2 0").arg(id).arg(square)));
    bob->moveClient(bob->ownID(), posters, QString());
    QTRY_VERIFY(said(QStringLiteral("move 1 %1 %2 %3 1").arg(id).arg(square).arg(posters)));
    alice->moveClient(bob->ownID(), square, QString());
    QTRY_VERIFY(said(QStringLiteral("moved 1 %1 %3 %2 1").arg(id).arg(square).arg(posters)));
    QVERIFY(said(QStringLiteral("mover %1 Alice").arg(alice->ownID())));
    bob->createChannel(posters, QStringLiteral("Inks"), QString());
    QTRY_VERIFY(said(QStringLiteral("new channel 8 below %1 by %2 Bob").arg(posters).arg(id)));
    bob->moveChannel(8, 0);
    QTRY_VERIFY(said(QStringLiteral("moved channel 8 below 0 by %1 Bob").arg(id)));
    bob->removeChannel(8);
    QTRY_VERIFY(said(QStringLiteral("gone channel 8 by %1 Bob").arg(id)));
    bob.reset();
    QTRY_VERIFY(said(QStringLiteral("move 1 %1 %2 0 2").arg(id).arg(square)));
    bob = place->enter(QStringLiteral("Bob"));
    QVERIFY(bob);
    const int second = bob->ownID();
    place->server->sessionOf(bob->ownID())->cut();
    QTRY_VERIFY(said(QStringLiteral("timeout 1 %1 %2 0 2").arg(second).arg(square)));
}

void tst_pluginlibrary::filesBecomeEvents()
{
    load(TESTPLUGIN26);
    emit alice->fileListed(3, "/a", {"b.png", 77, 1, false});
    emit alice->fileListed(3, "/a", {"dir", 0, 1, true});
    emit alice->transferStatus(5, ERROR_file_transfer_complete, 12);
    QVERIFY(said(QStringLiteral("file 3 /a b.png 77 1")));
    QVERIFY(said(QStringLiteral("file 3 /a dir 0 0")));
    QVERIFY(said(QStringLiteral("transfer 5 2065 12 on 1")));
}

void tst_pluginlibrary::afterShutdownNoEventReachesThePlugin()
{
    load(TESTPLUGIN8);
    library->shutdown();
    lines.clear();
    emit alice->clientLeft(9, 1, false, QStringLiteral("Bob"));
    QVERIFY(!run("ask"));
    QVERIFY(lines.isEmpty());
}

void tst_pluginlibrary::configurationGetsItsParent()
{
    load(TESTPLUGIN8);
    library->configure(nullptr);
    QVERIFY(said(QStringLiteral("configure without parent")));
}

QTEST_GUILESS_MAIN(tst_pluginlibrary)
#include "tst_pluginlibrary.moc"
