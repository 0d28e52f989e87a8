#include "pointtext.h"

QPoint readPoint(const QString& text)
{
    const QLatin1Char bar('|');
    return QPoint(text.section(bar, 0, 0).toInt(), text.section(bar, 1, 1).toInt());
}
