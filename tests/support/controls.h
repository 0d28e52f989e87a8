#pragma once

#include <QAccessible>
#include <QApplication>
#include <QLayout>
#include <QTest>
#include <QWidget>

/// What a window is made of, to its form and to those who use it without a mouse or without their eyes.
namespace controls {

/// The part of a window by its object name; null when there is none.
template <typename Widget> Widget* part(const QWidget& window, const char* name)
{
    return window.findChild<Widget*>(QLatin1String(name));
}

/// The controls of a shown window in the order in which the Tab key visits them, from the named one on, by their
/// names; those without one, such as the buttons of a button box, are left out.
inline QStringList tabOrder(QWidget& window, const char* first)
{
    QApplication::setActiveWindow(&window);
    auto* const start = part<QWidget>(window, first);
    start->setFocus();
    QStringList names;
    do {
        if (!QApplication::focusWidget()->objectName().isEmpty())
            names.append(QApplication::focusWidget()->objectName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    } while (QApplication::focusWidget() != start && names.size() < 100);
    return names;
}

/// What a screen reader says for a widget.
inline QString spokenName(QWidget* widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

/// The controls for which a screen reader has nothing to say, by their object names.
inline QStringList withoutName(const QWidget& window)
{
    QStringList nameless;
    const QList<QWidget*> widgets = window.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        const QString name = spokenName(widget);
        if (widget->focusPolicy() & Qt::TabFocus && (name.isEmpty() || name == QLatin1String("...")))
            nameless.append(widget->objectName());
    }
    return nameless;
}

/// The names of what stands in the layout of that name, in its order; "-" stands for a spacer.
inline QStringList partsOf(const QWidget& window, const char* layoutName)
{
    auto* const layout = window.findChild<QLayout*>(QLatin1String(layoutName));
    QStringList parts;
    for (int i = 0; layout && i < layout->count(); ++i) {
        QLayoutItem* const item = layout->itemAt(i);
        const QObject* const part = item->widget() ? static_cast<QObject*>(item->widget()) : item->layout();
        parts.append(part ? part->objectName() : QString("-"));
    }
    return parts;
}

} // namespace controls
