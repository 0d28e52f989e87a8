#include "windowfinder.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QStatusBar>

namespace {

bool matches(const QWidget* widget, const QString& wanted)
{
    const QString className = wanted.section(QLatin1Char('/'), 0, 0);
    const QString title = wanted.section(QLatin1Char('/'), 1);
    return widget->isVisible() && widget->isWindow()
        && (className.isEmpty() || widget->inherits(className.toLatin1().constData()))
        && (title.isEmpty() || widget->windowTitle().contains(title));
}

bool bearsText(const QString& text, const QString& toolTip, const QString& wanted)
{
    return windowfinder::plain(text) == wanted || (!wanted.isEmpty() && toolTip.startsWith(wanted));
}

} // namespace

namespace windowfinder {

QWidget* window(const QString& wanted)
{
    if (wanted == QLatin1String("any")) {
        if (QWidget* const modal = QApplication::activeModalWidget())
            return modal;
        return QApplication::activeWindow();
    }
    const QWidgetList found = windows(wanted);
    return found.contains(QApplication::activeWindow()) ? QApplication::activeWindow() : found.value(0);
}

QWidgetList windows(const QString& wanted)
{
    QWidgetList found;
    const QWidgetList all = QApplication::topLevelWidgets();
    for (QWidget* widget : all) {
        if (matches(widget, wanted))
            found.append(widget);
    }
    return found;
}

QWidget* descendant(QWidget* window, const char* className)
{
    if (!window)
        return nullptr;
    const QList<QWidget*> below = window->findChildren<QWidget*>();
    for (QWidget* widget : below) {
        if (widget->inherits(className) && widget->window() == window)
            return widget;
    }
    return nullptr;
}

QWidget* button(QWidget* window, const QString& wanted)
{
    const QList<QAbstractButton*> buttons = window->findChildren<QAbstractButton*>();
    for (QAbstractButton* one : buttons) {
        const bool fits = one->objectName() == wanted || bearsText(one->text(), one->toolTip(), wanted);
        if (fits && one->isVisible() && one->isEnabled())
            return one;
    }
    return nullptr;
}

QAction* action(QWidget* window, const QString& wanted)
{
    const QList<QAction*> actions = window->findChildren<QAction*>();
    for (QAction* one : actions) {
        if (bearsText(one->text(), one->toolTip(), wanted) && one->isEnabled())
            return one;
    }
    return nullptr;
}

QStringList texts(const QWidget* window)
{
    QStringList found;
    const QList<QLabel*> labels = window->findChildren<QLabel*>();
    for (const QLabel* label : labels)
        found.append(label->text());
    const QList<QStatusBar*> bars = window->findChildren<QStatusBar*>();
    for (const QStatusBar* bar : bars)
        found.append(bar->currentMessage());
    return found;
}

QString plain(const QString& text)
{
    QString shown = text;
    return shown.remove(QLatin1Char('&'));
}

} // namespace windowfinder
