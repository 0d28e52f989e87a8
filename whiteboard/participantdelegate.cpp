#include "participantdelegate.h"

#include "prompts/plainline.h"

namespace {

// Far more than the voice client lets anybody have, and little enough to lay out at once.
constexpr int longestName = 200;

} // namespace

QString participantdelegate::displayText(const QVariant& value, const QLocale&) const
{
    return plainLine(value.toString().left(longestName), longestName);
}

QSize participantdelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    // No width of its own: a row is as wide as the list, and the text is cut to that. Room for an icon from the start,
    // so that no row moves when one comes.
    return {0, qMax(QStyledItemDelegate::sizeHint(option, index).height(), option.decorationSize.height() + 2)};
}
