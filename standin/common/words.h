#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// A line cut into words at blanks. Double quotes hold words with blanks together; behind a backslash inside them
/// stands a character as it is. Empty when a quote is left open.
std::optional<QStringList> splitWords(const QString& line);

/// One word in quotes where it needs them, so that splitWords() gives it back.
QString quoteWord(const QString& word);
