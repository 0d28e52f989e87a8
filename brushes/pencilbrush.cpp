#include "pencilbrush.h"

#include "strokepath.h"
#include "strokes.h"

bool pencilbrush::mousePress(QPainter* painter, int button, QPoint pos, QColor color, qreal thick, bool* recordPoint)
{
    if (button != Qt::LeftButton)
        return false;
    strokes::setPen(painter, color, thick);
    strokepath::drawDot(painter, pos);
    lastPoint = pos;
    *recordPoint = true;
    return true;
}

bool pencilbrush::mouseMove(QPainter* painter, Qt::MouseButtons buttons, QPoint pos, QColor color, qreal thick,
                            bool* recordPoint)
{
    if (!(buttons & Qt::LeftButton))
        return false;
    const bool painted = mouseRelease(painter, Qt::LeftButton, pos, color, thick, recordPoint);
    lastPoint = pos;
    return painted;
}

bool pencilbrush::mouseRelease(QPainter* painter, int button, QPoint pos, QColor color, qreal thick, bool* recordPoint)
{
    if (button != Qt::LeftButton)
        return false;
    strokes::setPen(painter, color, thick);
    strokepath::drawStep(painter, pos, QLine(lastPoint, pos));
    *recordPoint = true;
    return true;
}

void pencilbrush::replay(QPainter* painter, QColor color, qreal thick, QList<QPoint> points)
{
    strokes::setPen(painter, color, thick);
    strokepath::drawPath(painter, points, &stamps);
}

void pencilbrush::drawPreview(QPainter*, QColor, qreal) { }
