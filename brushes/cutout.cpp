#include "cutout.h"

#include "strokes.h"

#include <QPainter>

cutout::cutout(const QImage& picture, const QPoint& first, const QPoint& second)
{
    const qint64 width = qint64(second.x()) - first.x() + 1;
    const qint64 height = qint64(second.y()) - first.y() + 1;
    if (width == 0 && height == 0) {
        pixels = picture.copy();
        areaWidth = picture.width();
        areaHeight = picture.height();
        return;
    }
    if (width <= 0 || height <= 0)
        return;
    areaWidth = width;
    areaHeight = height;
    const QRect held = picture.rect().intersected(QRect(first, second));
    if (held.isEmpty())
        return;
    pixels = picture.copy(held);
    offsetLeft = qint64(held.left()) - first.x();
    offsetTop = qint64(held.top()) - first.y();
}

void cutout::draw(QPainter* painter, qint64 left, qint64 top) const
{
    // Where a sum leaves 32 bits nothing of the pixels can lie on a canvas.
    if (!pixels.isNull())
        painter->drawImage(QPoint(strokes::saturated(left + offsetLeft), strokes::saturated(top + offsetTop)), pixels);
}
