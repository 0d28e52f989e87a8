#include "mainwindow.h"

#include <QMenu>
#include <QMenuBar>

MainWindow::MainWindow(int menus)
{
    for (int i = 0; i < menus; ++i)
        addMenu();
}

void MainWindow::addMenu() { menuBar()->addMenu(QString::fromLatin1("Menu %1").arg(menuBar()->actions().size())); }

QStringList MainWindow::toolEntries() const
{
    QStringList texts;
    if (menuBar()->actions().size() < 5)
        return texts;
    const QList<QAction*> entries = menuBar()->actions().at(4)->menu()->actions();
    for (const QAction* entry : entries)
        texts.append(entry->text());
    return texts;
}
