#pragma once

#include <QMainWindow>

/// A window that the controller takes for the client's: the class name is what it looks for.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// Makes a menu bar with that many menus.
    explicit MainWindow(int menus);
    void addMenu();
    /// The texts of the entries in the fifth menu.
    QStringList toolEntries() const;
};
