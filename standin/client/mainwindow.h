#pragma once

#include <QMainWindow>

class QLabel;
class QTabWidget;
class connectiontab;
class voiceclient;
class voiceconnection;

/// The client's main window: a tab a server connection below the menus. The class bears this name, and the bar has
/// these six menus, because plugins look for both: that is how they find where to put their entries.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(voiceclient* client);

    void addConnection(voiceconnection* connection);
    connectiontab* tabOf(quint64 schid) const;
    connectiontab* currentTab() const;
    void showTab(quint64 schid);
    void showPluginState(bool running);

signals:
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeMenus();
    void makePermissionsMenu();
    void makeToolsMenu();
    void makeHelpMenu();
    void tabChanged();
    void chooseChannel();
    void makeChannel();
    void removeChannel();
    void showHelp();
    void showAbout();

    voiceclient* const client;
    QTabWidget* const tabs;
    QLabel* const pluginState;
    QAction* awayAction = nullptr;
    QAction* settingsAction = nullptr;
    QAction* unloadAction = nullptr;
};
