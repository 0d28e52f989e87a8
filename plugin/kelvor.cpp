#include "kelvor.h"

#include "dialogs/kelvorconfigdialog.h"
#include "hostapi/hostcalls.h"
#include "hostmenu.h"
#include "protocol/kelvorprotocol.h"

#include <QApplication>
#include <QMenu>
#include <QTimer>

namespace {

constexpr int menuRetryMilliseconds = 300;

// The settings dialog is held by the function that runs it, so that it is found by its class.
void deleteSettingsDialogs()
{
    QList<QPointer<QWidget>> dialogs;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets) {
        if (qobject_cast<kelvorconfigdialog*>(widget))
            dialogs.append(widget);
    }
    for (const QPointer<QWidget>& dialog : qAsConst(dialogs))
        delete dialog.data();
}

} // namespace

kelvor::kelvor(const TS3Functions& functions)
    : ts3Functions(functions)
    , protocol(new kelvorprotocol(functions))
{
    loadConfig();
    protocol->setPong(config.pong);
    createMenu();
    connect(protocol, &kelvorprotocol::invited, this, &kelvor::onInvited);
    connect(protocol, &kelvorprotocol::start, this, &kelvor::onStart);
}

kelvor::~kelvor()
{
    saveConfig();
    emit shuttingDown();
    endSessions();
    deleteSettingsDialogs();
    delete menuAction.data();
    delete protocol;
}

void kelvor::createMenu()
{
    if (!mainWindow) {
        mainWindow = hostmenu::findMainWindow();
        if (mainWindow)
            connect(mainWindow.data(), &QObject::destroyed, this, &kelvor::onMainWindowGone);
    }
    QMenu* menu = hostmenu::findToolsMenu(mainWindow);
    if (!menu) {
        // By text: a member pointer would leave code of this library in the toolkit's timer after an unload.
        QTimer::singleShot(menuRetryMilliseconds, this, SLOT(createMenu()));
        return;
    }
    menuAction = menu->addAction(QIcon(QString::fromLatin1(":/gfx/gfx/pencil.png")), QString::fromLatin1("Kelvor"));
    connect(menuAction.data(), &QAction::triggered, this, &kelvor::startWhiteboard);
}

void kelvor::startWhiteboard() { openSession(ts3Functions.getCurrentServerConnectionHandlerID()); }

bool kelvor::handleCommand(uint64 schid, const QString& command)
{
    if (command.toLower() != QLatin1String("open")) {
        // A leftover test path that stays: any other word sends a fixed text to a fixed client.
        protocol->sendTestMessage();
        return false;
    }
    openSession(schid);
    return true;
}

void kelvor::handlePluginCommand(uint64 schid, const QString& pluginName, const char* pluginCommand)
{
    if (pluginName.section(QLatin1Char('.'), 0, 0) == QLatin1String("kelvor"))
        protocol->dispatch(schid, pluginCommand);
}

void kelvor::handleClientMove(uint64 schid, anyID client, uint64 oldChannel, uint64 newChannel, int visibility)
{
    if (visibility == ENTER_VISIBILITY)
        emit clientConnected(schid, client, newChannel);
    else if (visibility == LEAVE_VISIBILITY)
        emit clientLeft(schid, client, oldChannel);
    else
        emit clientMoved(schid, client, oldChannel, newChannel);
}

void kelvor::setPluginCommandID(const char* id) { protocol->setPluginCommandID(id); }

void kelvor::loadConfig() { config = loadSettings(ts3Functions); }

void kelvor::saveConfig() { saveSettings(ts3Functions, config); }

void kelvor::showConfigDialog(void* parent)
{
    const QPointer<kelvor> self(this);
    settings chosen;
    const bool accepted = editSettings(
        QString::fromLatin1("Kelvor Config"), config.downloaddir, config.playsound, config.soundpath, config.awayreject,
        config.onlyactivetab, config.defaultwidth, config.defaultheight, config.pong, &chosen.downloaddir,
        &chosen.playsound, &chosen.soundpath, &chosen.awayreject, &chosen.onlyactivetab, &chosen.defaultwidth,
        &chosen.defaultheight, &chosen.pong, static_cast<QWidget*>(parent));
    if (!accepted || !self)
        return;
    // An emptied field means the client's plugin directory itself, without the subdirectory of the first run.
    if (chosen.downloaddir.isEmpty())
        chosen.downloaddir = hostcalls::pluginPath(ts3Functions);
    config = chosen;
    protocol->setPong(config.pong);
}

sessionstate kelvor::stateOf(uint64 schid) const
{
    return static_cast<sessionstate>(sessions.value(schid, session_none));
}
