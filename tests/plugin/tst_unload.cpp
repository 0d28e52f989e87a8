#include "loadedplugin.h"
#include "mainwindow.h"
#include "tests/support/fakehost.h"
#include "threadwatch.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <functional>
#include <memory>

/// Load, use, shut down, unload, in every state that a user can leave the plugin in. The exports are called from inside
/// an event loop, as the client does it, and the library is unmapped before that loop comes round again: whatever the
/// plugin left behind then jumps into unmapped memory. No state may have a thread of the plugin's own.
class tst_unload : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void leavesNothingBehind_data();
    void leavesNothingBehind();
    void manyCyclesLeaveNothingBehind();

private:
    struct state {
        const char* name;
        std::function<void(tst_unload&)> reach;
    };
    static const QList<state>& states();
    void cycle(const state& left);

    // Roads into states. Each that opens a box shuts the plugin down from inside the box's own loop.
    void openLobby();
    void joinLobby();
    void openBoard();
    void joinBoard(const char* start);
    void shutdownInsideNextBox();
    void shutdown();
    void triggerOnBoard(const char* actionText);
    void press(Qt::MouseButton button, const char* toolTip);

    static QWidget* window(const char* className);

    std::unique_ptr<QTemporaryDir> directory;
    std::unique_ptr<fakehost> host;
    std::unique_ptr<loadedplugin> plugin;
    std::unique_ptr<threadwatch> threads;
    bool isShutDown = false;
};

namespace {

const char blankStart[] = "\x10 2 300 200 0 false 0 ";
const char pictureStart[] = "\x10 2 300 200 1 true 10 /a.png";

// Runs act from inside an event loop and waits for it.
void inEventLoop(const std::function<void()>& act)
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
        act();
        loop.quit();
    });
    loop.exec();
}

// How many wait for a modal window that has not shown yet.
int awaitedBoxes = 0;

// Calls act as soon as a modal window shows.
void whenBoxShows(const std::function<void(QWidget*)>& act)
{
    ++awaitedBoxes;
    auto* watch = new QTimer(qApp);
    QObject::connect(watch, &QTimer::timeout, watch, [watch, act] {
        QWidget* box = QApplication::activeModalWidget();
        if (!box || !box->isVisible())
            return;
        watch->stop();
        watch->deleteLater();
        --awaitedBoxes;
        act(box);
    });
    watch->start(0);
}

void clickButton(QWidget* box, const char* text)
{
    const QList<QAbstractButton*> buttons = box->findChildren<QAbstractButton*>();
    for (QAbstractButton* button : buttons) {
        if (button->text() == QLatin1String(text) || button->objectName() == QLatin1String(text))
            return button->click();
    }
    QFAIL(qPrintable(QString::fromLatin1("no button %1 in a %2 \"%3\"")
                         .arg(QLatin1String(text), QLatin1String(box->metaObject()->className()), box->windowTitle())));
}

} // namespace

QWidget* tst_unload::window(const char* className)
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets) {
        if (widget->inherits(className) && widget->isVisible())
            return widget;
    }
    qFatal("no window of class %s", className);
}

void tst_unload::initTestCase()
{
    directory = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(directory->path()).mkdir(QString::fromLatin1("plugins")));
}

void tst_unload::openLobby() { plugin->command(1, "open"); }

void tst_unload::joinLobby()
{
    whenBoxShows([](QWidget* box) { clickButton(box, "&Yes"); });
    plugin->receive(1, "\x01 2 2");
}

void tst_unload::openBoard()
{
    openLobby();
    QMetaObject::invokeMethod(window("invitationdialog"), "accept");
}

void tst_unload::joinBoard(const char* start)
{
    joinLobby();
    plugin->receive(1, start);
}

void tst_unload::shutdownInsideNextBox()
{
    whenBoxShows([this](QWidget*) { shutdown(); });
}

void tst_unload::shutdown()
{
    const QStringList started = threads->startedByOthers();
    plugin->shutdown();
    isShutDown = true;
    QCOMPARE(started, QStringList());
}

void tst_unload::triggerOnBoard(const char* actionText)
{
    const QList<QAction*> actions = window("whiteboard")->findChildren<QAction*>();
    for (QAction* action : actions) {
        if (action->text() == QLatin1String(actionText))
            return action->trigger();
    }
    QFAIL(actionText);
}

void tst_unload::press(Qt::MouseButton button, const char* toolTip)
{
    QWidget* board = window("whiteboard");
    const QList<QAbstractButton*> buttons = board->findChildren<QAbstractButton*>();
    for (QAbstractButton* tool : buttons) {
        if (tool->toolTip() == QLatin1String(toolTip))
            tool->click();
    }
    const QList<QWidget*> children = board->findChildren<QWidget*>();
    for (QWidget* canvas : children) {
        if (canvas->inherits("paintscene")) {
            QTest::mousePress(canvas, button, Qt::NoModifier, {20, 20});
            QMouseEvent move(QEvent::MouseMove, QPointF(60, 50), Qt::NoButton, button, Qt::NoModifier);
            QApplication::sendEvent(canvas, &move);
        }
    }
}

const QList<tst_unload::state>& tst_unload::states()
{
    static const QList<state> all{
        {"nothing open", [](tst_unload&) {}},
        {"lobby open", [](tst_unload& t) { t.openLobby(); }},
        {"lobby just closed", [](tst_unload& t) { t.openLobby(), window("invitationdialog")->close(); }},
        {"waiting in a lobby", [](tst_unload& t) { t.joinLobby(); }},
        {"lobby just taken back", [](tst_unload& t) { t.joinLobby(), t.plugin->receive(1, "\x15 2"); }},
        {"question open", [](tst_unload& t) { t.shutdownInsideNextBox(), t.plugin->receive(1, "\x01 2 2"); }},
        {"settings open", [](tst_unload& t) { t.shutdownInsideNextBox(), t.plugin->configure(); }},
        {"whiteboard open", [](tst_unload& t) { t.openBoard(); }},
        {"whiteboard just closed", [](tst_unload& t) { t.openBoard(), window("whiteboard")->close(); }},
        {"whiteboard of a guest", [](tst_unload& t) { t.joinBoard(blankStart); }},
        {"in the middle of a stroke", [](tst_unload& t) { t.openBoard(), t.press(Qt::LeftButton, "Pencil"); }},
        {"in the middle of a text", [](tst_unload& t) { t.openBoard(), t.press(Qt::LeftButton, "Text"); }},
        {"colour dialog open",
         [](tst_unload& t) { t.openBoard(), t.shutdownInsideNextBox(), t.triggerOnBoard("Color"); }},
        {"save dialog open", [](tst_unload& t) { t.openBoard(), t.shutdownInsideNextBox(), t.triggerOnBoard("Save"); }},
        {"server's files open",
         [](tst_unload& t) { t.openBoard(), t.shutdownInsideNextBox(), t.triggerOnBoard("Upload"); }},
        {"about box open", [](tst_unload& t) { t.openBoard(), t.shutdownInsideNextBox(), t.triggerOnBoard("Info"); }},
        {"lobby's files open",
         [](tst_unload& t) {
             t.openLobby(), t.shutdownInsideNextBox(), clickButton(window("invitationdialog"), "loadbutton");
         }},
        {"password of a session's picture asked",
         [](tst_unload& t) {
             t.host->servers[1].channels[1].password = true;
             t.joinLobby(), t.shutdownInsideNextBox(), t.plugin->receive(1, pictureStart);
         }},
        {"session's picture coming",
         [](tst_unload& t) { t.joinLobby(), t.shutdownInsideNextBox(), t.plugin->receive(1, pictureStart); }},
    };
    return all;
}

void tst_unload::cycle(const state& left)
{
    host = std::make_unique<fakehost>();
    host->configPath = QFile::encodeName(directory->path()) + '/';
    host->pluginPath = QFile::encodeName(directory->path()) + "/plugins/";
    host->addServer(1).addClient(2, "Ann");
    threads = std::make_unique<threadwatch>();
    plugin = std::make_unique<loadedplugin>(host->table());
    isShutDown = false;
    bool gone = false;
    inEventLoop([&] {
        plugin->init();
        left.reach(*this);
        // Some buttons open their boxes only when the loop comes round.
        QTRY_COMPARE(awaitedBoxes, 0);
        if (!isShutDown)
            shutdown();
        gone = plugin->unload();
    });
    QCoreApplication::processEvents();
    QVERIFY2(gone, left.name);
    QCOMPARE(threads->startedByOthers(), QStringList());
    QCOMPARE(host->outstanding, 0);
    plugin.reset();
    host.reset();
}

void tst_unload::leavesNothingBehind_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("withMenu");
    for (int i = 0; i < states().size(); ++i) {
        QTest::newRow(states().at(i).name) << i << true;
        if (i == 0)
            QTest::newRow("menu search running") << i << false;
    }
}

void tst_unload::leavesNothingBehind()
{
    QFETCH(int, index);
    QFETCH(bool, withMenu);
    MainWindow client(withMenu ? 6 : 5);
    cycle(states().at(index));
    QVERIFY(client.toolEntries().isEmpty());
    if (!withMenu) {
        // Long enough for the timer of the search to fire into what was unmapped.
        QTest::qWait(400);
    }
}

void tst_unload::manyCyclesLeaveNothingBehind()
{
    MainWindow client(6);
    for (int i = 0; i < KELVOR_UNLOAD_CYCLES; ++i) {
        cycle(states().at(i % states().size()));
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QString::fromLatin1("in cycle %1: %2")
                                 .arg(i)
                                 .arg(QLatin1String(states().at(i % states().size()).name))));
    }
}

QTEST_MAIN(tst_unload)
#include "tst_unload.moc"
