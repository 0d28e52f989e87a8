#include "airbrushbrush.h"

#include "spray.h"

bool airbrushbrush::mousePress(QPainter*, int button, QPoint pos, QColor, qreal, bool* recordPoint)
{
    if (button != Qt::LeftButton)
        return false;
    lastPoint = pos;
    *recordPoint = true;
    return true;
}

bool airbrushbrush::mouseMove(QPainter* painter, Qt::MouseButtons buttons, QPoint pos, QColor color, qreal thick,
                              bool* recordPoint)
{
    if (!(buttons & Qt::LeftButton))
        return false;
    const bool painted = mouseRelease(painter, Qt::LeftButton, pos, color, thick, recordPoint);
    lastPoint = pos;
    return painted;
}

bool airbrushbrush::mouseRelease(QPainter* painter, int button, QPoint pos, QColor color, qreal thick,
                                 bool* recordPoint)
{
    if (button != Qt::LeftButton)
        return false;
    spray::drawPath(painter, color, thick, {lastPoint, pos});
    *recordPoint = true;
    return true;
}

void airbrushbrush::replay(QPainter* painter, QColor color, qreal thick, QList<QPoint> points)
{
    // A click without a drag leaves two points, and peers do not paint it.
    if (points.size() > 2)
        spray::drawPath(painter, color, thick, points);
}

void airbrushbrush::drawPreview(QPainter*, QColor, qreal) { }
