#include "voiceclient.h"

#include "connectiontab.h"
#include "mainwindow.h"
#include "pluginevents.h"

#include "standin/common/programoptions.h"

#include <QApplication>
#include <QDir>
#include <QInputDialog>
#include <QThread>
#include <QTimer>

namespace {

constexpr int unwindPoll = 5; // milliseconds

} // namespace

voiceclient::voiceclient(const clientoptions& options)
    : options(options)
    , service(options.config)
    , library(&service)
    , mainWindow(new MainWindow(this))
{
    connect(mainWindow.get(), &MainWindow::closed, this, [this] { end(0); });
    connect(&service, &hostservice::printed, this, &voiceclient::report);
    connect(&service, &hostservice::misused, this, [this](const QString& sentence) {
        problems.append(sentence);
        reportFailure(sentence);
    });
    connect(&library, &pluginlibrary::started, this, [this] { mainWindow->showPluginState(true); });
    connect(&library, &pluginlibrary::stopped, this, [this] { mainWindow->showPluginState(false); });
}

voiceclient::~voiceclient() = default;

bool voiceclient::start(QString* error)
{
    if (!options.geometry.isNull())
        mainWindow->setGeometry(options.geometry);
    mainWindow->showPluginState(false);
    library.narrowTo(options.apiVersion);
    QStringList refusals;
    if (!loadPlugin(&refusals) && !options.plugin.isEmpty()) {
        *error = refusals.join(QLatin1Char('\n'));
        return false;
    }
    for (const QString& server : options.servers) {
        if (!connectTo(server, identityFor(server), error)) {
            library.shutdown();
            return false;
        }
    }
    for (const QString& refusal : qAsConst(refusals))
        report(service.currentConnection, refusal);
    mainWindow->show();
    return true;
}

void voiceclient::end(int status)
{
    if (ending)
        return;
    ending = true;
    library.shutdown();
    for (voiceconnection* connection : service.all())
        connection->close();
    QApplication::exit(status);
}

int voiceclient::finish(int status)
{
    unloadUnwound();
    for (const QString& problem : qAsConst(problems))
        reportFailure(problem);
    return status == 0 && !problems.isEmpty() ? statusLeftovers : status;
}

QStringList voiceclient::knownServers() const
{
    QStringList servers = options.servers;
    servers.removeDuplicates();
    return servers;
}

// A server takes each nickname once: further connections to it bear a number.
voiceidentity voiceclient::identityFor(const QString& server) const
{
    voiceidentity who{options.nickname, options.platform, options.channel, options.away};
    int same = 0;
    for (const voiceconnection* connection : service.all())
        same += connection->server() == server ? 1 : 0;
    if (same > 0)
        who.nickname += QStringLiteral(" (%1)").arg(same + 1);
    return who;
}

bool voiceclient::isConnected() const
{
    for (const voiceconnection* connection : service.all()) {
        if (!connection->isEstablished())
            return false;
    }
    return true;
}

QString voiceclient::pluginTitle()
{
    if (!library.isRunning())
        return QStringLiteral("No plugin is loaded.");
    return QStringLiteral("%1 %2").arg(library.about("ts3plugin_name"), library.about("ts3plugin_version"));
}

QStringList voiceclient::leftovers() const
{
    QStringList left;
    if (const int texts = service.memory.outstanding())
        left.append(QStringLiteral("The plugin did not give back %1 texts or lists of the client.").arg(texts));
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* widget : windows) {
        if (widget->isVisible() && widget != mainWindow.get() && widget->window() == widget
            && !mainWindow->isAncestorOf(widget))
            left.append(QStringLiteral("The plugin left a window '%1'.").arg(widget->windowTitle()));
    }
    return left;
}

bool voiceclient::runChatCommand(quint64 schid, const QString& word, const QString& rest)
{
    return !word.isEmpty() && word == library.keyword() && library.processCommand(schid, rest);
}

void voiceclient::askForServer()
{
    bool given = false;
    const QString server =
        QInputDialog::getText(mainWindow.get(), QStringLiteral("Connect"), QStringLiteral("Name of the server:"),
                              QLineEdit::Normal, options.servers.value(0), &given);
    if (given && !server.isEmpty())
        connectAgain(server);
}

void voiceclient::connectAgain(const QString& server)
{
    QString error;
    if (connectTo(server, identityFor(server), &error))
        mainWindow->showTab(lastConnection);
    else
        report(service.currentConnection, error);
}

void voiceclient::reloadPlugin()
{
    library.shutdown();
    whenUnwound([this] {
        unloadUnwound();
        QStringList refusals;
        if (!loadPlugin(&refusals) && refusals.isEmpty())
            refusals.append(QStringLiteral("There is no plugin to load."));
        for (const QString& refusal : qAsConst(refusals))
            report(service.currentConnection, refusal);
        emit pluginReloaded();
    });
}

void voiceclient::unloadPlugin()
{
    library.shutdown();
    whenUnwound([this] { unloadUnwound(); });
}

void voiceclient::tabChosen(quint64 schid) { service.currentConnection = schid; }

QStringList voiceclient::installedPlugins() const
{
    const QDir folder(options.config + QStringLiteral("plugins"));
    QStringList files;
    const QStringList names = folder.entryList({QStringLiteral("*.so")}, QDir::Files, QDir::Name);
    for (const QString& name : names)
        files.append(folder.filePath(name));
    return files;
}

bool voiceclient::loadPlugin(QStringList* refusals)
{
    const QStringList files = options.plugin.isEmpty() ? installedPlugins() : QStringList{options.plugin};
    for (const QString& file : files) {
        QString refusal;
        if (library.load(file, &refusal))
            return true;
        refusals->append(refusal);
    }
    return false;
}

bool voiceclient::connectTo(const QString& server, const voiceidentity& who, QString* error)
{
    auto* const connection = new voiceconnection(lastConnection + 1, server, who, this);
    if (!connection->open(error)) {
        delete connection;
        return false;
    }
    ++lastConnection;
    new pluginevents(connection, &library);
    service.addConnection(connection);
    mainWindow->addConnection(connection);
    connect(connection, &voiceconnection::ready, this, [this] {
        if (isConnected())
            emit connected();
    });
    connect(connection, &voiceconnection::lost, this, [=] {
        connectionLost(connection, QStringLiteral("The connection to the server '%1' was lost.").arg(server));
    });
    connect(connection, &voiceconnection::refused, this,
            [=](const QString& reason) { connectionLost(connection, reason); });
    return true;
}

void voiceclient::connectionLost(voiceconnection* connection, const QString& reason)
{
    report(connection->id(), reason);
    reportFailure(reason);
    for (const voiceconnection* other : service.all()) {
        if (other->isEstablished())
            return;
    }
    end(statusServerLost);
}

void voiceclient::report(quint64 schid, const QString& line)
{
    if (connectiontab* const tab = mainWindow->tabOf(schid))
        tab->addLine(line);
}

void voiceclient::whenUnwound(const std::function<void()>& work)
{
    if (QThread::currentThread()->loopLevel() <= 1)
        QMetaObject::invokeMethod(
            this,
            [this, work] {
                if (QThread::currentThread()->loopLevel() <= 1)
                    work();
                else
                    whenUnwound(work);
            },
            Qt::QueuedConnection);
    else
        QTimer::singleShot(unwindPoll, this, [this, work] { whenUnwound(work); });
}

void voiceclient::unloadUnwound()
{
    if (!library.isLoaded())
        return;
    // Looked at while the library is still mapped: a window of its classes can still be asked.
    problems.append(leftovers());
    if (!library.unload())
        problems.append(QStringLiteral("The library of the plugin stays mapped after it was unloaded."));
}
