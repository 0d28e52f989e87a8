#pragma once

#include <QAbstractItemView>
#include <QModelIndex>

/// A row of a tree, list or table in a visible window.
struct foundrow {
    QAbstractItemView* view = nullptr;
    QModelIndex index;

    explicit operator bool() const { return index.isValid(); }
    QString toolTip() const { return index.data(Qt::ToolTipRole).toString(); }
};

/// The first row whose first column shows the text, in any view of the window (see windowfinder::window); "any" looks
/// through all windows but the client's own.
foundrow findRow(const QString& text, const QString& window);
foundrow findRow(const QString& text, const QWidget& window);
