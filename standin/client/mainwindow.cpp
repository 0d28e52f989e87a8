#include "mainwindow.h"

#include "connectiontab.h"
#include "voiceclient.h"
#include "voiceconnection.h"

#include <QCloseEvent>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QTabWidget>

MainWindow::MainWindow(voiceclient* client)
    : client(client)
    , tabs(new QTabWidget)
    , pluginState(new QLabel)
{
    setWindowTitle(QStringLiteral("%1 - Voice client").arg(client->nickname().simplified().left(60)));
    tabs->setDocumentMode(true);
    setCentralWidget(tabs);
    // No message of the bar: those go when a menu opens.
    statusBar()->addWidget(pluginState);
    makeMenus();
    // Wide enough that no menu hides behind the arrow at the end of the bar.
    setMinimumWidth(menuBar()->sizeHint().width());
    resize(420, 520);
    connect(tabs, &QTabWidget::currentChanged, this, &MainWindow::tabChanged);
}

void MainWindow::addConnection(voiceconnection* connection)
{
    auto* const tab = new connectiontab(client, connection);
    const int index = tabs->addTab(tab, connection->server());
    connect(connection, &voiceconnection::ready, this, [=] { tabs->setTabText(index, connection->title()); });
    connect(connection, &voiceconnection::clientAway, this, &MainWindow::tabChanged);
}

connectiontab* MainWindow::tabOf(quint64 schid) const
{
    for (int i = 0; i < tabs->count(); ++i) {
        auto* const tab = qobject_cast<connectiontab*>(tabs->widget(i));
        if (tab->server()->id() == schid)
            return tab;
    }
    return nullptr;
}

connectiontab* MainWindow::currentTab() const { return qobject_cast<connectiontab*>(tabs->currentWidget()); }

void MainWindow::showTab(quint64 schid)
{
    if (connectiontab* const tab = tabOf(schid))
        tabs->setCurrentWidget(tab);
}

void MainWindow::showPluginState(bool running)
{
    settingsAction->setEnabled(running);
    unloadAction->setEnabled(running);
    pluginState->setText(client->pluginTitle());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    emit closed();
}

void MainWindow::makeMenus()
{
    QMenu* const connections = menuBar()->addMenu(QStringLiteral("&Connections"));
    connections->addAction(QStringLiteral("Connect..."), client, &voiceclient::askForServer);
    connections->addSeparator();
    connections->addAction(QStringLiteral("Quit"), this, &QWidget::close);

    QMenu* const bookmarks = menuBar()->addMenu(QStringLiteral("&Bookmarks"));
    const QStringList servers = client->knownServers();
    for (const QString& server : servers)
        bookmarks->addAction(server, client, [=] { client->connectAgain(server); });

    QMenu* const self = menuBar()->addMenu(QStringLiteral("&Self"));
    awayAction = self->addAction(QStringLiteral("Away"));
    awayAction->setCheckable(true);
    connect(awayAction, &QAction::triggered, this, [this](bool away) {
        if (connectiontab* const tab = currentTab())
            tab->server()->setAway(away);
    });
    self->addAction(QStringLiteral("Switch channel..."), this, &MainWindow::chooseChannel);

    makePermissionsMenu();
    makeToolsMenu();
    makeHelpMenu();
}

void MainWindow::makePermissionsMenu()
{
    QMenu* const permissions = menuBar()->addMenu(QStringLiteral("&Permissions"));
    permissions->addAction(QStringLiteral("Make a channel..."), this, &MainWindow::makeChannel);
    permissions->addAction(QStringLiteral("Remove this channel"), this, &MainWindow::removeChannel);
}

void MainWindow::makeToolsMenu()
{
    QMenu* const tools = menuBar()->addMenu(QStringLiteral("&Tools"));
    settingsAction =
        tools->addAction(QStringLiteral("Plugin settings..."), this, [this] { client->configurePlugin(this); });
    tools->addAction(QStringLiteral("Load plugin again"), client, &voiceclient::reloadPlugin);
    unloadAction = tools->addAction(QStringLiteral("Unload plugin"), client, &voiceclient::unloadPlugin);
    tools->addSeparator();
}

void MainWindow::makeHelpMenu()
{
    QMenu* const help = menuBar()->addMenu(QStringLiteral("&Help"));
    help->addAction(QStringLiteral("How to paint together"), this, &MainWindow::showHelp);
    help->addAction(QStringLiteral("About the stand-in"), this, &MainWindow::showAbout);
}

void MainWindow::tabChanged()
{
    const connectiontab* const tab = currentTab();
    client->tabChosen(tab ? tab->server()->id() : 0);
    awayAction->setChecked(tab && tab->server()->isAway());
}

void MainWindow::chooseChannel()
{
    connectiontab* const tab = currentTab();
    if (!tab)
        return;
    const voicemodel& voices = tab->server()->voices();
    QStringList names;
    for (const quint64 channel : voices.branch(0))
        names.append(voices.channel(channel).name);
    bool chosen = false;
    const QString name = QInputDialog::getItem(this, QStringLiteral("Switch channel"), QStringLiteral("Channel:"),
                                               names, 0, false, &chosen);
    if (chosen)
        tab->enterChannel(voices.channelNamed(name));
}

void MainWindow::makeChannel()
{
    connectiontab* const tab = currentTab();
    bool given = false;
    const QString name = QInputDialog::getText(this, QStringLiteral("Make a channel"), QStringLiteral("Name:"),
                                               QLineEdit::Normal, QString(), &given);
    if (tab && given && !name.trimmed().isEmpty())
        tab->server()->createChannel(tab->server()->ownChannel(), name.trimmed(), QString());
}

void MainWindow::removeChannel()
{
    if (connectiontab* const tab = currentTab())
        tab->server()->removeChannel(tab->server()->ownChannel());
}

void MainWindow::showHelp()
{
    QMessageBox::information(this, QStringLiteral("How to paint together"),
                             QStringLiteral("1. Choose Kelvor in the menu Tools, or type /kelvor open below.\n"
                                            "2. Double-click somebody in the tree to invite them, and wait for the "
                                            "answer.\n"
                                            "3. Press OK: a drawing window opens for everybody who accepted."));
}

void MainWindow::showAbout()
{
    QMessageBox::about(this, QStringLiteral("About the stand-in"),
                       QStringLiteral("This window plays a voice client, so that the whiteboard can be tried without "
                                      "one. It speaks to a voiceserver on this machine and carries no voice.\n\n%1")
                           .arg(client->pluginTitle()));
}
