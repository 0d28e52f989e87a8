#include "plainline.h"

#include <algorithm>

namespace {

bool breaksLine(QChar character)
{
    return character.category() == QChar::Other_Control || character.category() == QChar::Separator_Line
        || character.category() == QChar::Separator_Paragraph;
}

// Embeddings, overrides and isolates, which nobody sees. One that is not closed again reaches beyond the text, into
// what is said about it. Letters bring the direction of their script along without them.
bool turnsLine(QChar character)
{
    const ushort code = character.unicode();
    return (code >= 0x202a && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069);
}

} // namespace

QString plainLine(const QString& text, int most)
{
    QString line = text;
    line.resize(static_cast<int>(std::remove_if(line.begin(), line.end(), turnsLine) - line.begin()));
    // The middle, since a question ends in what it asks, and a file name in its type.
    if (line.size() > most)
        line = line.left((most - 1) / 2) + QChar(0x2026) + line.right(most / 2);
    std::replace_if(line.begin(), line.end(), breaksLine, QLatin1Char(' '));
    return line;
}
