#include "plainline.h"

#include <algorithm>

namespace {

bool breaksLine(QChar character)
{
    return character.category() == QChar::Other_Control || character.category() == QChar::Separator_Line
        || character.category() == QChar::Separator_Paragraph;
}

} // namespace

QString plainLine(const QString& text, int most)
{
    QString line = text;
    // The middle, since a question ends in what it asks, and a file name in its type.
    if (line.size() > most)
        line = line.left((most - 1) / 2) + QChar(0x2026) + line.right(most / 2);
    std::replace_if(line.begin(), line.end(), breaksLine, QLatin1Char(' '));
    return line;
}
