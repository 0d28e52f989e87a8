#pragma once

#include <QString>
#include <QWidget>

class QAbstractItemView;
class QAction;

/// Finds what a person would see in the client's windows, the plugin's among them, by what they look like: nothing of
/// the plugin is linked, so its widgets are known by the names of their classes alone.
namespace windowfinder {

/// A visible window by "CLASS", "CLASS/TEXT IN THE TITLE" or "/TEXT IN THE TITLE"; a base class will do. The active one
/// comes first when several fit. "any" is the modal window, else the active one.
QWidget* window(const QString& wanted);
/// All windows of that kind.
QWidgetList windows(const QString& wanted);

/// A visible widget below the window whose class bears the name.
QWidget* descendant(QWidget* window, const char* className);

/// A visible and enabled button below the window by object name, text or the beginning of its tool tip.
QWidget* button(QWidget* window, const QString& wanted);
/// An enabled action of the window's bars and menus by its text or tool tip.
QAction* action(QWidget* window, const QString& wanted);

/// What stands on the labels and status bars of a window.
QStringList texts(const QWidget* window);

/// A text without the marks of keyboard shortcuts.
QString plain(const QString& text);

} // namespace windowfinder
