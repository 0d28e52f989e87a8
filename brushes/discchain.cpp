#include "discchain.h"

namespace {

/// way times i, divided by steps and cut toward zero. A product of 2^32 less 1 and 2^32 just fits 64 bits without sign.
qint64 portion(qint64 way, qint64 i, qint64 steps)
{
    const auto length =
        static_cast<qint64>(static_cast<quint64>(qAbs(way)) * static_cast<quint64>(i) / static_cast<quint64>(steps));
    return way < 0 ? -length : length;
}

} // namespace

discchain::discchain(const QPoint& from, const QPoint& to)
    : from(from)
    , wayX(qint64(to.x()) - from.x())
    , wayY(qint64(to.y()) - from.y())
    , steps((qAbs(wayX) + qAbs(wayY)) / 2 + 1)
{
}

QPoint discchain::at(qint64 i) const
{
    return QPoint(static_cast<int>(from.x() + portion(wayX, i, steps)),
                  static_cast<int>(from.y() + portion(wayY, i, steps)));
}
