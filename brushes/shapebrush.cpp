#include "shapebrush.h"

#include "strokes.h"

namespace {

/// A square from the corner, as wide as the drag. Its height has the sign of its width, so that a drag to the left runs
/// upward; how far down the pointer is plays no part. Both shapes are left as they are, not normalised.
QRect regularShape(const QPoint& from, const QPoint& to)
{
    const qint64 side = qint64(to.x()) - from.x();
    return QRect(from, QPoint(to.x(), strokes::saturated(from.y() + side)));
}

} // namespace

shapebrush::shapebrush(drawing draw)
    : draw(draw)
{
}

bool shapebrush::keyPress(int key)
{
    if (shiftHeld || key != Qt::Key_Shift)
        return false;
    shiftHeld = true;
    return true;
}

bool shapebrush::keyRelease(int key)
{
    if (!shiftHeld || key != Qt::Key_Shift)
        return false;
    shiftHeld = false;
    return true;
}

bool shapebrush::mousePress(QPainter*, int button, Qt::KeyboardModifiers modifiers, QPoint pos, QColor, qreal,
                            bool* recordPoint)
{
    if (button != Qt::LeftButton)
        return false;
    startPoint = pos;
    endPoint = unsetPoint;
    shiftHeld = modifiers & Qt::ShiftModifier;
    *recordPoint = true;
    return true;
}

bool shapebrush::mouseMove(QPainter*, Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers, QPoint pos, QColor,
                           qreal, bool* recordPoint)
{
    if (!(buttons & Qt::LeftButton))
        return false;
    endPoint = pos;
    shiftHeld = modifiers & Qt::ShiftModifier;
    *recordPoint = false;
    return true;
}

bool shapebrush::mouseRelease(QPainter* painter, int button, Qt::KeyboardModifiers modifiers, QPoint pos, QColor color,
                              qreal thick, bool* recordPoint)
{
    if (button != Qt::LeftButton)
        return false;
    // The keys of this very event decide, not what the preview showed: the canvas writes its message by them too.
    drawShape(painter, color, thick, startPoint, pos, modifiers & Qt::ShiftModifier);
    startPoint = unsetPoint;
    endPoint = unsetPoint;
    *recordPoint = true;
    return true;
}

void shapebrush::drawPreview(QPainter* painter, QColor color, qreal thick)
{
    if (!isUnset(startPoint) && !isUnset(endPoint))
        drawShape(painter, color, thick, startPoint, endPoint, shiftHeld);
}

void shapebrush::replay(QPainter* painter, QColor color, qreal thick, QList<QPoint> points)
{
    const bool regular = points.size() == 3 && isUnset(points.at(2));
    if (points.size() == 2 || regular)
        drawShape(painter, color, thick, points.at(0), points.at(1), regular);
}

void shapebrush::drawShape(QPainter* painter, const QColor& color, qreal thick, QPoint from, QPoint to, bool regular)
{
    strokes::setPen(painter, color, thick);
    draw(painter, regular ? regularShape(from, to) : QRect(from, to));
}
