#include "mytableitem.h"

mytableitem::mytableitem(const QString& text, int kind, uint64 id)
    : QTableWidgetItem(text)
    , channelID(id)
    , rowKind(kind)
{
}

// By code points and not, as the toolkit would, by the rules of the user's language: rows stand in the same order on
// every participant's machine.
bool mytableitem::operator<(const QTableWidgetItem& other) const { return text() < other.text(); }
