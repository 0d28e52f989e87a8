#include "selectionbrush.h"

#include "strokes.h"

namespace {

/// A corner moved along with the pixels: the drop, less the way from the corner to where it was grabbed.
struct place {
    place(const QPoint& drop, const QPoint& grab, const QPoint& corner)
        : left(qint64(drop.x()) - (qint64(grab.x()) - corner.x()))
        , top(qint64(drop.y()) - (qint64(grab.y()) - corner.y()))
    {
    }
    qint64 left;
    qint64 top;
};

/// The rectangle around pixels at their new place. Its second corner lies one pixel beyond them, so that a selection
/// grows with each move; this is kept on purpose.
QRect bandAround(const place& corner, const cutout& pixels)
{
    using strokes::saturated;
    return QRect(QPoint(saturated(corner.left), saturated(corner.top)),
                 QPoint(saturated(corner.left + pixels.width()), saturated(corner.top + pixels.height())));
}

} // namespace

void selectionbrush::reset()
{
    startPoint = unsetPoint;
    endPoint = unsetPoint;
    grabPoint = unsetPoint;
    dragPoint = unsetPoint;
    moving = false;
}

QRect selectionbrush::selection() const { return exists() ? QRect(startPoint, endPoint) : QRect(); }

bool selectionbrush::mousePress(const QImage& image, QPainter*, int button, QPoint pos, QColor, qreal,
                                bool* recordPoint, bool* clearPoints)
{
    if (button != Qt::LeftButton)
        return false;
    *recordPoint = true;
    moving = exists() && QRect(startPoint, endPoint).contains(pos);
    *clearPoints = !moving;
    if (moving) {
        selectedImage = cutout(image, startPoint, endPoint);
        grabPoint = pos;
    } else {
        startPoint = pos;
        endPoint = unsetPoint;
        dragPoint = unsetPoint;
        grabPoint = unsetPoint;
    }
    return true;
}

bool selectionbrush::mouseMove(QPainter*, Qt::MouseButtons buttons, QPoint pos, QColor, qreal, bool* recordPoint)
{
    if (!(buttons & Qt::LeftButton))
        return false;
    (moving ? dragPoint : endPoint) = pos;
    *recordPoint = false;
    return true;
}

bool selectionbrush::mouseRelease(QPainter* painter, int button, QPoint pos, QColor, qreal, bool opaque,
                                  bool* recordPoint, bool* flushPoints, QList<QPoint>* points)
{
    if (button != Qt::LeftButton)
        return false;
    *flushPoints = moving;
    *recordPoint = !moving;
    if (moving) {
        *points = {startPoint, endPoint, grabPoint, pos};
        strokes::eraseArea(painter, QRect(startPoint, endPoint), opaque);
        const place target(pos, grabPoint, startPoint);
        selectedImage.draw(painter, target.left, target.top);
        const QRect band = bandAround(target, selectedImage);
        startPoint = band.topLeft();
        endPoint = band.bottomRight();
        grabPoint = unsetPoint;
        dragPoint = unsetPoint;
        moving = false;
    } else if (pos == startPoint) {
        reset();
    } else {
        endPoint = pos;
    }
    return true;
}

void selectionbrush::drawPreview(QPainter* painter, QColor, qreal, bool)
{
    QRect band = selection();
    if (moving && !isUnset(grabPoint) && !isUnset(dragPoint)) {
        // Painted over in both modes, unlike on release: an overlay has no layer below it to let through.
        strokes::eraseArea(painter, band, true);
        const place target(dragPoint, grabPoint, startPoint);
        selectedImage.draw(painter, target.left, target.top);
        band = bandAround(target, selectedImage);
    } else if (!exists()) {
        return;
    }
    painter->setPen(strokes::bandPen());
    painter->drawRect(band);
}

void selectionbrush::replay(const QImage& image, QPainter* painter, QList<QPoint> points, bool opaque)
{
    if (points.size() != 4)
        return;
    const cutout pixels(image, points.at(0), points.at(1));
    strokes::eraseArea(painter, QRect(points.at(0), points.at(1)), opaque);
    const place target(points.at(3), points.at(2), points.at(0));
    pixels.draw(painter, target.left, target.top);
}

bool selectionbrush::exists() const { return !isUnset(startPoint) && !isUnset(endPoint); }
