#include "transferfaults.h"

std::optional<transferfaults> readTransferFaults(const QString& text)
{
    transferfaults faults;
    if (text == QLatin1String("none"))
        return faults;
    const QString kind = text.section(QLatin1Char(':'), 0, 0);
    bool readable = false;
    const uint number = text.section(QLatin1Char(':'), 1).toUInt(&readable, 0);
    if (!readable)
        return std::nullopt;
    if (kind == QLatin1String("refuse") && number != 0)
        faults.refusal = number;
    else if (kind == QLatin1String("break"))
        faults.breakAfter = number;
    else if (kind == QLatin1String("longer"))
        faults.sizeOff = number;
    else if (kind == QLatin1String("shorter"))
        faults.sizeOff = -qint64(number);
    else
        return std::nullopt;
    return faults;
}
