#include "controllerfixture.h"
#include "invitation/invitationdialog.h"
#include "mainwindow.h"
#include "whiteboard/whiteboard.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

/// No window of the client, although it is one by inheritance.
class OtherMainWindow : public MainWindow {
    Q_OBJECT

public:
    using MainWindow::MainWindow;
};

/// The controller's shell: the menu entry, the chat command, what the client reports, the settings.
class tst_kelvor : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void dispatchesPluginCommandsOfItsOwnNameOnly_data();
    void dispatchesPluginCommandsOfItsOwnNameOnly();
    void chatCommandOpensOnTheExactWordOnly_data();
    void chatCommandOpensOnTheExactWordOnly();
    void theWordIsHandledWhateverCameOfIt();
    void aMoveOfAClientIsTakenByItsVisibility_data();
    void aMoveOfAClientIsTakenByItsVisibility();

    void theEntryStandsInTheFifthOfSixMenus();
    void onlyAWindowOfTheVeryClassGetsTheEntry();
    void fiveMenusGetNoEntryUntilASixthComes();
    void aWindowWithoutAMenuBarIsNotGivenOne();
    void theEntryOpensASessionOnTheActiveTab();
    void aLobbyBelongsToTheClientsWindowAndAWhiteboardToNone();
    void theEntryGoesWithTheController();
    void aClientThatTookTheMenuAwayIsNoTrouble();

    void pongFollowsTheSettingsFile();
    void settingsAreWrittenAtTheEnd();
};

void tst_kelvor::initTestCase()
{
    qRegisterMetaType<uint64>("uint64");
    qRegisterMetaType<anyID>("anyID");
}

void tst_kelvor::dispatchesPluginCommandsOfItsOwnNameOnly_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("dispatched");
    QTest::newRow("stem") << QString::fromLatin1("kelvor") << true;
    QTest::newRow("file name") << QString::fromLatin1("kelvor.so") << true;
    QTest::newRow("stem and a dot") << QString::fromLatin1("kelvor.") << true;
    QTest::newRow("several dots") << QString::fromLatin1("kelvor.a.b") << true;
    QTest::newRow("longer stem") << QString::fromLatin1("kelvor2.so") << false;
    QTest::newRow("shorter stem") << QString::fromLatin1("kelvo") << false;
    QTest::newRow("other case") << QString::fromLatin1("Kelvor.so") << false;
    QTest::newRow("dot in front") << QString::fromLatin1(".kelvor") << false;
    QTest::newRow("empty") << QString() << false;
}

void tst_kelvor::dispatchesPluginCommandsOfItsOwnNameOnly()
{
    QFETCH(QString, name);
    QFETCH(bool, dispatched);
    controllerfixture fixture;
    fixture.start();
    fixture.controller->handlePluginCommand(1, name, "\x16 2");
    QCOMPARE(fixture.host.takeTexts(), dispatched ? QList<QByteArray>{"\x17 1"} : QList<QByteArray>{});
}

void tst_kelvor::chatCommandOpensOnTheExactWordOnly_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<bool>("opens");
    QTest::newRow("small") << QString::fromLatin1("open") << true;
    QTest::newRow("capitals") << QString::fromLatin1("OPEN") << true;
    QTest::newRow("mixed") << QString::fromLatin1("oPeN") << true;
    QTest::newRow("blank behind") << QString::fromLatin1("open ") << false;
    QTest::newRow("longer") << QString::fromLatin1("opening") << false;
    QTest::newRow("other word") << QString::fromLatin1("help") << false;
    QTest::newRow("nothing") << QString() << false;
}

void tst_kelvor::chatCommandOpensOnTheExactWordOnly()
{
    QFETCH(QString, command);
    QFETCH(bool, opens);
    controllerfixture fixture;
    fixture.start();
    QCOMPARE(fixture.controller->handleCommand(2, command), opens);
    QCOMPARE(fixture.controller->stateOf(2), opens ? session_hosting : session_none);
    if (!opens) {
        const sentcommand test{1, "id", "Hallo", PluginCommandTarget_CLIENT, {123}};
        QCOMPARE(fixture.host.sent, QList<sentcommand>{test});
    }
}

void tst_kelvor::theWordIsHandledWhateverCameOfIt()
{
    controllerfixture fixture;
    fixture.start();
    QVERIFY(fixture.controller->handleCommand(1, QString::fromLatin1("open")));
    QVERIFY(fixture.controller->handleCommand(1, QString::fromLatin1("open")));
    fixture.host.failing.insert("getConnectionStatus");
    QVERIFY(fixture.controller->handleCommand(2, QString::fromLatin1("open")));
    QCOMPARE(fixture.controller->stateOf(2), session_none);
    QCOMPARE(fixture.host.printed.size(), 2);
}

void tst_kelvor::aMoveOfAClientIsTakenByItsVisibility_data()
{
    QTest::addColumn<int>("visibility");
    QTest::addColumn<QString>("heard");
    QTest::newRow("enters") << 0 << QString::fromLatin1("connected 7 20");
    QTest::newRow("stays in view") << 1 << QString::fromLatin1("moved 7 10 20");
    QTest::newRow("leaves") << 2 << QString::fromLatin1("left 7 10");
    QTest::newRow("a value of the future") << 3 << QString::fromLatin1("moved 7 10 20");
    QTest::newRow("negative") << -1 << QString::fromLatin1("moved 7 10 20");
}

void tst_kelvor::aMoveOfAClientIsTakenByItsVisibility()
{
    QFETCH(int, visibility);
    controllerfixture fixture;
    fixture.start();
    QStringList heard;
    connect(fixture.controller.get(), &kelvor::clientConnected, this, [&heard](uint64, anyID client, uint64 channel) {
        heard += QString::fromLatin1("connected %1 %2").arg(client).arg(channel);
    });
    connect(fixture.controller.get(), &kelvor::clientLeft, this, [&heard](uint64, anyID client, uint64 channel) {
        heard += QString::fromLatin1("left %1 %2").arg(client).arg(channel);
    });
    connect(fixture.controller.get(), &kelvor::clientMoved, this,
            [&heard](uint64, anyID client, uint64 from, uint64 to) {
                heard += QString::fromLatin1("moved %1 %2 %3").arg(client).arg(from).arg(to);
            });
    fixture.controller->handleClientMove(1, 7, 10, 20, visibility);
    QTEST(heard.join(QLatin1Char(';')), "heard");
}

void tst_kelvor::theEntryStandsInTheFifthOfSixMenus()
{
    MainWindow window(6);
    controllerfixture fixture;
    fixture.start();
    QCOMPARE(window.toolEntries(), QStringList{QString::fromLatin1("Kelvor")});
    const QAction* entry = window.menuBar()->actions().at(4)->menu()->actions().first();
    QCOMPARE(entry->icon().actualSize({18, 18}), QSize(18, 18));
}

void tst_kelvor::onlyAWindowOfTheVeryClassGetsTheEntry()
{
    QMainWindow plain;
    OtherMainWindow derived(6);
    for (int menu = 0; menu < 6; ++menu)
        plain.menuBar()->addMenu(QString::fromLatin1("Menu"));
    controllerfixture fixture;
    fixture.start();
    QVERIFY(plain.menuBar()->actions().at(4)->menu()->isEmpty());
    QVERIFY(derived.toolEntries().isEmpty());
    MainWindow window(6);
    QTRY_COMPARE(window.toolEntries(), QStringList{QString::fromLatin1("Kelvor")});
    QVERIFY(derived.toolEntries().isEmpty());
}

void tst_kelvor::fiveMenusGetNoEntryUntilASixthComes()
{
    MainWindow window(5);
    controllerfixture fixture;
    fixture.start();
    // Longer than one retry, so that a search that gave up would be noticed below.
    QTest::qWait(400);
    QVERIFY(window.toolEntries().isEmpty());
    window.addMenu();
    QTRY_COMPARE(window.toolEntries(), QStringList{QString::fromLatin1("Kelvor")});
}

void tst_kelvor::aWindowWithoutAMenuBarIsNotGivenOne()
{
    MainWindow window(0);
    window.setMenuBar(nullptr);
    controllerfixture fixture;
    fixture.start();
    QVERIFY(!window.menuWidget());
}

void tst_kelvor::theEntryOpensASessionOnTheActiveTab()
{
    MainWindow window(6);
    controllerfixture fixture;
    fixture.host.currentConnection = 2;
    fixture.start();
    window.menuBar()->actions().at(4)->menu()->actions().first()->trigger();
    QCOMPARE(fixture.controller->stateOf(1), session_none);
    QCOMPARE(fixture.controller->stateOf(2), session_hosting);
}

void tst_kelvor::aLobbyBelongsToTheClientsWindowAndAWhiteboardToNone()
{
    MainWindow window(6);
    controllerfixture fixture;
    fixture.start();
    fixture.controller->openSession(1);
    invitationdialog* lobby = controllerfixture::lobbies().value(0);
    QVERIFY(lobby);
    QCOMPARE(lobby->parentWidget(), &window);
    lobby->accept();
    QCOMPARE(controllerfixture::boards().size(), 1);
    QVERIFY(!controllerfixture::boards().first()->parentWidget());
}

void tst_kelvor::theEntryGoesWithTheController()
{
    MainWindow window(6);
    controllerfixture fixture;
    fixture.start();
    fixture.controller.reset();
    QVERIFY(window.toolEntries().isEmpty());
}

void tst_kelvor::aClientThatTookTheMenuAwayIsNoTrouble()
{
    controllerfixture fixture;
    {
        MainWindow window(6);
        fixture.start();
    }
    QCOMPARE(fixture.controller->stateOf(1), session_none);
    fixture.controller->openSession(1);
    QCOMPARE(fixture.controller->stateOf(1), session_hosting);
}

void tst_kelvor::pongFollowsTheSettingsFile()
{
    controllerfixture fixture;
    {
        QSettings file(fixture.directory.filePath(QString::fromLatin1("kelvor.conf")), QSettings::IniFormat);
        file.setValue(QString::fromLatin1("pong"), false);
    }
    fixture.start();
    fixture.receive("\x16 2");
    QVERIFY(fixture.host.sent.isEmpty());
}

void tst_kelvor::settingsAreWrittenAtTheEnd()
{
    controllerfixture fixture;
    const QString name = fixture.directory.filePath(QString::fromLatin1("kelvor.conf"));
    fixture.start();
    QVERIFY(!QFile::exists(name));
    fixture.controller.reset();
    QCOMPARE(QSettings(name, QSettings::IniFormat).allKeys().size(), 8);
}

QTEST_MAIN(tst_kelvor)
#include "tst_kelvor.moc"
