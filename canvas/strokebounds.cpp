#include "strokebounds.h"

#include <QtGlobal>

#include <algorithm>
#include <limits>

QRect strokeBounds(const QList<QPoint>& path, qreal thickness, const QRect& limits)
{
    // Wider pens reach everywhere on any canvas, and so may a width that is no number.
    const qreal widest = 1e8;
    if (path.isEmpty() || limits.isEmpty()) {
        return {};
    }
    if (!(qAbs(thickness) < widest)) {
        return limits;
    }
    // Two more than half the width: thin lines are rounded to the next pixel, and discs are truncated toward zero.
    const qint64 reach = static_cast<qint64>(qAbs(thickness) / 2) + 2;
    qint64 left = std::numeric_limits<qint64>::max();
    qint64 top = left;
    qint64 right = std::numeric_limits<qint64>::min();
    qint64 bottom = right;
    for (const QPoint& point : path) {
        left = std::min<qint64>(left, point.x());
        right = std::max<qint64>(right, point.x());
        top = std::min<qint64>(top, point.y());
        bottom = std::max<qint64>(bottom, point.y());
    }
    left = std::max<qint64>(left - reach, limits.left());
    top = std::max<qint64>(top - reach, limits.top());
    right = std::min<qint64>(right + reach, limits.right());
    bottom = std::min<qint64>(bottom + reach, limits.bottom());
    if (left > right || top > bottom) {
        return {};
    }
    return {QPoint(static_cast<int>(left), static_cast<int>(top)),
            QPoint(static_cast<int>(right), static_cast<int>(bottom))};
}
