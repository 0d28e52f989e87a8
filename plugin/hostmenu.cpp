#include "hostmenu.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

namespace {

// The place of "Tools" in the client's menu bar.
constexpr int menuIndex = 4;

} // namespace

namespace hostmenu {

QMainWindow* findMainWindow()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets) {
        if (qstrcmp(widget->metaObject()->className(), "MainWindow") == 0)
            return qobject_cast<QMainWindow*>(widget);
    }
    return nullptr;
}

QMenu* findToolsMenu(const QMainWindow* window)
{
    // menuBar() would put an empty bar into a window that has none yet.
    const auto* bar = window ? qobject_cast<QMenuBar*>(window->menuWidget()) : nullptr;
    if (!bar || bar->actions().size() <= menuIndex + 1)
        return nullptr;
    return bar->actions().at(menuIndex)->menu();
}

} // namespace hostmenu
