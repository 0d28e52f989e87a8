#pragma once

#include <QStyledItemDelegate>

/// Shows the nicknames of the participant list, which are a stranger's to choose: one line each, without control
/// characters, and cut with an ellipsis where the list ends instead of widening it. The list owns it.
class participantdelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale& locale) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};
