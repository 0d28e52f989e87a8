#include "participantdelegate.h"

#include <algorithm>

namespace {

// Far more than the voice client lets anybody have, and little enough to lay out at once.
constexpr int longestName = 200;

bool breaksLine(QChar character)
{
    return character.category() == QChar::Other_Control || character.category() == QChar::Separator_Line
        || character.category() == QChar::Separator_Paragraph;
}

} // namespace

QString participantdelegate::displayText(const QVariant& value, const QLocale&) const
{
    QString name = value.toString().left(longestName);
    std::replace_if(name.begin(), name.end(), breaksLine, QLatin1Char(' '));
    return name;
}

QSize participantdelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    // No width of its own: a row is as wide as the list, and the text is cut to that. Room for an icon from the start,
    // so that no row moves when one comes.
    return {0, qMax(QStyledItemDelegate::sizeHint(option, index).height(), option.decorationSize.height() + 2)};
}
