#pragma once

#include <QStyledItemDelegate>

/// Shows the names in the remote file table, which strangers gave, on one line of bounded width. The items keep the
/// names as they are, since paths are made of them.
class namedelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale& locale) const override;
};
