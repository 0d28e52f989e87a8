#include "unloadstage.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

namespace {

QWidget* window(const char* className)
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets) {
        if (widget->inherits(className) && widget->isVisible())
            return widget;
    }
    qFatal("no window of class %s", className);
}

void clickButton(const QWidget& box, const char* text)
{
    const QList<QAbstractButton*> buttons = box.findChildren<QAbstractButton*>();
    for (QAbstractButton* button : buttons) {
        if (button->text() == QLatin1String(text) || button->objectName() == QLatin1String(text))
            return button->click();
    }
    QFAIL(qPrintable(QString::fromLatin1("no button %1 in a %2 \"%3\"")
                         .arg(QLatin1String(text), QLatin1String(box.metaObject()->className()), box.windowTitle())));
}

// Closes the dialog as its user would, with what is chosen in it.
void accept(QWidget& dialog) { QMetaObject::invokeMethod(&dialog, "accept"); }

void enterRow(QWidget& files, int row)
{
    files.findChild<QTableWidget*>()->selectRow(row);
    QMetaObject::invokeMethod(&files, "onTableDoubleClicked");
}

void typeName(const QWidget& dialog, const char* edit, const QString& name)
{
    dialog.findChild<QLineEdit*>(QLatin1String(edit))->setText(name);
}

} // namespace

const QList<unloadstage::state>& unloadstage::states()
{
    using stage = unloadstage;
    static const QList<state> all{
        {"nothing open", [](stage&) {}},
        {"menu search running", [](stage&) {}, false},
        {"lobby open", [](stage& s) { s.openLobby(); }},
        {"lobby just closed", [](stage& s) { s.openLobby(), window("invitationdialog")->close(); }},
        {"lobby's files open", [](stage& s) { s.shutdownInside("ts3filedialog"), s.openLobbysFiles(); }},
        {"password of a lobby's files asked", [](stage& s) { s.askForPasswordOfFiles(); }},
        {"lobby's picture coming", [](stage& s) { s.fetchForLobby(); }},
        {"waiting in a lobby", [](stage& s) { s.joinLobby(); }},
        {"lobby just taken back", [](stage& s) { s.joinLobby(), s.plugin->receive(1, "\x15 2"); }},
        {"question open", [](stage& s) { s.shutdownInside("QMessageBox"), s.plugin->receive(1, "\x01 2 2"); }},
        {"settings open", [](stage& s) { s.shutdownInside("kelvorconfigdialog"), s.plugin->configure(); }},
        {"directory of the settings being chosen", [](stage& s) { s.chooseForSettings(); }},
        {"whiteboard open", [](stage& s) { s.openBoard(); }},
        {"whiteboard just closed", [](stage& s) { s.openBoard(), window("whiteboard")->close(); }},
        {"whiteboard of a guest", [](stage& s) { s.joinBoard(); }},
        {"in the middle of a stroke", [](stage& s) { s.openBoard(), s.press("Pencil"); }},
        {"in the middle of a text", [](stage& s) { s.openBoard(), s.press("Text"); }},
        {"colour dialog open",
         [](stage& s) { s.openBoard(), s.shutdownInside("QColorDialog"), s.triggerOnBoard("Color"); }},
        {"save dialog open",
         [](stage& s) { s.openBoard(), s.shutdownInside("QFileDialog"), s.triggerOnBoard("Save"); }},
        {"overwriting asked", [](stage& s) { s.overwriteOnSave(); }},
        {"server's files open",
         [](stage& s) { s.openBoard(), s.shutdownInside("ts3filedialog"), s.triggerOnBoard("Upload"); }},
        {"upload running", [](stage& s) { s.upload(); }},
        {"about box open",
         [](stage& s) { s.openBoard(), s.shutdownInside("kelvoraboutdialog"), s.triggerOnBoard("Info"); }},
        {"password of a session's picture asked",
         [](stage& s) {
             s.host.servers[1].channels[1].password = true;
             s.joinLobby(), s.shutdownInside("QInputDialog"), s.receivePicture();
         }},
        {"session's picture coming",
         [](stage& s) { s.joinLobby(), s.shutdownInside("ts3downloaddialog"), s.receivePicture(); }},
    };
    return all;
}

unloadstage::unloadstage(const QDir& directory)
    : directory(directory)
{
    host.configPath = QFile::encodeName(directory.path()) + '/';
    host.pluginPath = QFile::encodeName(directory.path()) + "/plugins/";
    host.addServer(1).addClient(2, "Ann");
    plugin = std::make_unique<loadedplugin>(host.table());
}

void unloadstage::play(const state& left)
{
    plugin->init();
    left.reach(*this);
    // Some buttons open their boxes only when the loop comes round.
    QTRY_COMPARE(awaitedBoxes, 0);
    if (!isShutDown)
        shutdown();
}

void unloadstage::shutdown()
{
    const QStringList started = threads.startedByOthers();
    plugin->shutdown();
    isShutDown = true;
    QCOMPARE(started, QStringList());
}

void unloadstage::whenBoxShows(const char* className, const std::function<void(QWidget&)>& act)
{
    ++awaitedBoxes;
    auto* watch = new QTimer(&watches);
    QObject::connect(watch, &QTimer::timeout, watch, [this, watch, className, act] {
        QWidget* box = QApplication::activeModalWidget();
        if (!box || !box->isVisible() || !box->inherits(className))
            return;
        watch->stop();
        watch->deleteLater();
        act(*box);
        // Not before, since it may have begun to wait for another one.
        --awaitedBoxes;
    });
    watch->start(0);
}

void unloadstage::shutdownInside(const char* className)
{
    whenBoxShows(className, [this](QWidget&) { shutdown(); });
}

void unloadstage::openLobby() { plugin->command(1, "open"); }

void unloadstage::openLobbysFiles()
{
    openLobby();
    clickButton(*window("invitationdialog"), "loadbutton");
}

void unloadstage::joinLobby()
{
    whenBoxShows("QMessageBox", [](QWidget& question) { clickButton(question, "&Yes"); });
    plugin->receive(1, "\x01 2 2");
}

void unloadstage::receivePicture() { plugin->receive(1, "\x10 2 300 200 1 true 10 /a.png"); }

void unloadstage::openBoard()
{
    openLobby();
    accept(*window("invitationdialog"));
}

void unloadstage::joinBoard()
{
    joinLobby();
    plugin->receive(1, "\x10 2 300 200 0 false 0 ");
}

void unloadstage::triggerOnBoard(const char* actionText)
{
    const QList<QAction*> actions = window("whiteboard")->findChildren<QAction*>();
    for (QAction* action : actions) {
        if (action->text() == QLatin1String(actionText))
            return action->trigger();
    }
    QFAIL(actionText);
}

void unloadstage::press(const char* toolTip)
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
            QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, {20, 20});
            QMouseEvent move(QEvent::MouseMove, QPointF(60, 50), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(canvas, &move);
        }
    }
}

void unloadstage::fetchForLobby()
{
    whenBoxShows("ts3filedialog", [this](QWidget& files) {
        enterRow(files, 0);
        plugin->fileList(1, 1, "/", "a.png", 10, 1);
        shutdownInside("ts3downloaddialog");
        enterRow(files, 0);
    });
    openLobbysFiles();
    QCOMPARE(host.requests.last().function, QByteArray("requestFile"));
}

void unloadstage::askForPasswordOfFiles()
{
    host.servers[1].channels[1].password = true;
    whenBoxShows("ts3filedialog", [this](QWidget& files) {
        shutdownInside("QInputDialog");
        enterRow(files, 0);
    });
    openLobbysFiles();
}

void unloadstage::upload()
{
    openBoard();
    whenBoxShows("ts3filedialog", [this](QWidget& files) {
        enterRow(files, 0);
        typeName(files, "filenameedit", QString::fromLatin1("new.png"));
        whenBoxShows("ts3downloaddialog", [this](QWidget&) {
            QCOMPARE(host.requests.last().function, QByteArray("sendFile"));
            shutdown();
        });
        accept(files);
    });
    triggerOnBoard("Upload");
}

void unloadstage::overwriteOnSave()
{
    openBoard();
    whenBoxShows("QFileDialog", [this](QWidget& dialog) {
        typeName(dialog, "fileNameEdit", directory.filePath(QString::fromLatin1("old.png")));
        shutdownInside("QMessageBox");
        accept(dialog);
    });
    triggerOnBoard("Save");
}

void unloadstage::chooseForSettings()
{
    whenBoxShows("kelvorconfigdialog", [this](QWidget& dialog) {
        shutdownInside("QFileDialog");
        clickButton(dialog, "downloadbutton");
    });
    plugin->configure();
}
