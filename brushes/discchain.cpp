#include "discchain.h"

#include <algorithm>

namespace {

/// way times i, divided by steps and cut toward zero. The largest product, 2^32 times one less, just fits 64 bits
/// without a sign.
qint64 portion(qint64 way, qint64 i, qint64 steps)
{
    const quint64 product = static_cast<quint64>(qAbs(way)) * static_cast<quint64>(i);
    const auto length = static_cast<qint64>(product / static_cast<quint64>(steps));
    return way < 0 ? -length : length;
}

/// The first i below count for which the condition, which never ends again, holds; count when there is none.
template <typename Condition> qint64 firstWhere(qint64 count, Condition holds)
{
    qint64 first = 0;
    while (first < count) {
        const qint64 middle = first + (count - first) / 2;
        if (holds(middle))
            count = middle;
        else
            first = middle + 1;
    }
    return first;
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

discchain::range discchain::inside(const QRect& area) const
{
    const range columns = between(area.left(), area.right(), [this](qint64 i) { return at(i).x(); });
    const range rows = between(area.top(), area.bottom(), [this](qint64 i) { return at(i).y(); });
    return {std::max(columns.first, rows.first), std::min(columns.last, rows.last)};
}

template <typename Coordinate> discchain::range discchain::between(int lowest, int highest, Coordinate coordinate) const
{
    if (coordinate(0) <= coordinate(steps)) {
        return {firstWhere(count(), [&](qint64 i) { return coordinate(i) >= lowest; }),
                firstWhere(count(), [&](qint64 i) { return coordinate(i) > highest; })};
    }
    return {firstWhere(count(), [&](qint64 i) { return coordinate(i) <= highest; }),
            firstWhere(count(), [&](qint64 i) { return coordinate(i) < lowest; })};
}
