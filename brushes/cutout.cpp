#include "cutout.h"

#include "strokes.h"

#include <QPainter>

#include <algorithm>

namespace {

struct extent {
    qint64 first;
    qint64 count;
};

/// The part of an extent that lies from lowest to highest.
extent clipped(qint64 first, qint64 count, qint64 lowest, qint64 highest)
{
    const qint64 start = std::max(first, lowest);
    return {start, std::min(first + count, highest + 1) - start};
}

/// No picture is that large, and the toolkit can still add an extent to it in 32 bits.
int near(qint64 coordinate) { return static_cast<int>(std::clamp<qint64>(coordinate, -(1 << 29), 1 << 29)); }

} // namespace

cutout::cutout(const QImage& picture, const QPoint& first, const QPoint& second)
    : areaWidth(qint64(second.x()) - first.x() + 1)
    , areaHeight(qint64(second.y()) - first.y() + 1)
{
    if (areaWidth == 0 && areaHeight == 0) {
        pixels = picture.copy();
        areaWidth = picture.width();
        areaHeight = picture.height();
    } else if (areaWidth <= 0 || areaHeight <= 0) {
        areaWidth = 0;
        areaHeight = 0;
    } else {
        // Compared corner by corner: a rectangle to the edges of 32 bits has no width that fits them.
        const QRect held(QPoint(std::max(first.x(), 0), std::max(first.y(), 0)),
                         QPoint(std::min(second.x(), picture.width() - 1), std::min(second.y(), picture.height() - 1)));
        // An area beside the picture holds one transparent pixel of it, for the format.
        pixels = picture.copy(held.isEmpty() ? QRect(-1, -1, 1, 1) : held);
        offsetLeft = held.isEmpty() ? 0 : qint64(held.left()) - first.x();
        offsetTop = held.isEmpty() ? 0 : qint64(held.top()) - first.y();
    }
}

void cutout::draw(QPainter* painter, qint64 left, qint64 top) const
{
    const QRect canvas = strokes::pictureRect(painter);
    const extent columns = clipped(left, areaWidth, canvas.left(), canvas.right());
    const extent rows = clipped(top, areaHeight, canvas.top(), canvas.bottom());
    if (columns.count <= 0 || rows.count <= 0)
        return;
    // The toolkit's copy fills up with transparent pixels what does not lie in the pixels held.
    const QRect shown(near(columns.first - left - offsetLeft), near(rows.first - top - offsetTop),
                      static_cast<int>(columns.count), static_cast<int>(rows.count));
    const QPoint place(static_cast<int>(columns.first), static_cast<int>(rows.first));
    painter->drawImage(place, shown == pixels.rect() ? pixels : pixels.copy(shown));
}
