#include "rowfinder.h"

#include "windowfinder.h"

#include <QApplication>

namespace {

QModelIndex below(const QAbstractItemModel* model, const QModelIndex& parent, const QString& text)
{
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        if (index.data().toString() == text)
            return index;
        const QModelIndex deeper = below(model, index, text);
        if (deeper.isValid())
            return deeper;
    }
    return QModelIndex();
}

} // namespace

foundrow findRow(const QString& text, const QWidget& window)
{
    const QList<QAbstractItemView*> views = window.findChildren<QAbstractItemView*>();
    for (QAbstractItemView* view : views) {
        if (!view->isVisible() || !view->model() || view->window() != &window)
            continue;
        const QModelIndex index = below(view->model(), QModelIndex(), text);
        if (index.isValid())
            return {view, index};
    }
    return {};
}

foundrow findRow(const QString& text, const QString& wanted)
{
    if (wanted != QLatin1String("any")) {
        const QWidget* const window = windowfinder::window(wanted);
        return window ? findRow(text, *window) : foundrow();
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* window : windows) {
        if (!window->isVisible() || window->inherits("QMainWindow"))
            continue;
        if (const foundrow found = findRow(text, *window))
            return found;
    }
    return {};
}
