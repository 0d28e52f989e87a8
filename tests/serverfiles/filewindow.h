#pragma once

#include "serverfiles/ts3filedialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QTest>

/// Whether an icon is the library's picture of that file name.
inline bool showsPicture(const QIcon& icon, const QString& file)
{
    const QImage expected = QPixmap(":/gfx/gfx/" + file).toImage();
    return !expected.isNull() && icon.pixmap(expected.size()).toImage() == expected;
}

/// A remote file dialog as its user has it: the widgets, by the names that the form gives them, and hands on the table.
class filewindow {
public:
    explicit filewindow(const ts3filedialog& dialog)
        : table(*dialog.findChild<QTableWidget*>("table"))
        , up(*dialog.findChild<QPushButton*>("upbutton"))
        , refresh(*dialog.findChild<QPushButton*>("refreshbutton"))
        , label(*dialog.findChild<QLabel*>("filenamelabel"))
        , edit(*dialog.findChild<QLineEdit*>("filenameedit"))
        , ok(*dialog.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Ok))
        , cancel(*dialog.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Cancel))
        , status(*dialog.findChild<QStatusBar*>())
    {
    }

    void select(int row) { QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, placeOf(row)); }

    /// A single cell, which the mouse cannot.
    void selectCell(int row, int column)
    {
        const QModelIndex cell = table.model()->index(row, column);
        table.selectionModel()->select(cell, QItemSelectionModel::Select);
    }

    /// Answered by the dialog in the next turn of the event loop.
    void doubleClick(int row)
    {
        select(row);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, placeOf(row));
    }

    /// Enters what stands in the first row and waits for its empty table.
    void enter()
    {
        doubleClick(0);
        QTRY_COMPARE(table.rowCount(), 0);
    }

    QStringList names() const
    {
        QStringList texts;
        for (int row = 0; row < table.rowCount(); ++row)
            texts.append(table.item(row, 0)->text());
        return texts;
    }

    /// What the user reads in the first column.
    QString shownName(int row) const
    {
        const auto* const delegate = qobject_cast<QStyledItemDelegate*>(table.itemDelegateForColumn(0));
        return delegate ? delegate->displayText(table.item(row, 0)->text(), QLocale()) : QString();
    }

    /// A row as the texts of its cells, "-" where there is none.
    QStringList rowTexts(int row) const
    {
        QStringList texts;
        for (int column = 0; column < table.columnCount(); ++column) {
            const QTableWidgetItem* const item = table.item(row, column);
            texts.append(item ? item->text() : QString("-"));
        }
        return texts;
    }

    QTableWidget& table;
    QPushButton& up;
    QPushButton& refresh;
    QLabel& label;
    QLineEdit& edit;
    QPushButton& ok;
    QPushButton& cancel;
    QStatusBar& status;

private:
    QPoint placeOf(int row) const
    {
        table.scrollToItem(table.item(row, 0));
        return table.visualItemRect(table.item(row, 0)).center();
    }
};
