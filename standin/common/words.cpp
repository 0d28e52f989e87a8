#include "words.h"

std::optional<QStringList> splitWords(const QString& line)
{
    QStringList words;
    QString word;
    bool inQuotes = false;
    bool begun = false; // an empty pair of quotes is a word as well
    for (int i = 0; i < line.size(); ++i) {
        const QChar letter = line.at(i);
        if (inQuotes && letter == QLatin1Char('\\') && i + 1 < line.size()) {
            word += line.at(++i);
        } else if (letter == QLatin1Char('"')) {
            inQuotes = !inQuotes;
            begun = true;
        } else if (letter.isSpace() && !inQuotes) {
            if (begun)
                words.append(word);
            word.clear();
            begun = false;
        } else {
            word += letter;
            begun = true;
        }
    }
    if (inQuotes)
        return std::nullopt;
    if (begun)
        words.append(word);
    return words;
}

QString quoteWord(const QString& word)
{
    QString escaped = word;
    escaped.replace(QLatin1Char('\\'), QStringLiteral("\\\\")).replace(QLatin1Char('"'), QStringLiteral("\\\""));
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}
