#include "linebrush.h"

#include "strokes.h"

namespace {

void drawStraight(QPainter* painter, const QColor& color, qreal thick, const QPoint& from, const QPoint& to)
{
    strokes::setPen(painter, color, thick);
    painter->drawLine(from, to);
}

} // namespace

bool linebrush::mousePress(QPainter*, int button, QPoint pos, QColor, qreal, bool* recordPoint)
{
    if (button != Qt::LeftButton)
        return false;
    startPoint = pos;
    endPoint = unsetPoint;
    *recordPoint = true;
    return true;
}

bool linebrush::mouseMove(QPainter*, Qt::MouseButtons buttons, QPoint pos, QColor, qreal, bool* recordPoint)
{
    if (!(buttons & Qt::LeftButton))
        return false;
    endPoint = pos;
    *recordPoint = false;
    return true;
}

bool linebrush::mouseRelease(QPainter* painter, int button, QPoint pos, QColor color, qreal thick, bool* recordPoint)
{
    if (button != Qt::LeftButton)
        return false;
    drawStraight(painter, color, thick, startPoint, pos);
    startPoint = unsetPoint;
    endPoint = unsetPoint;
    *recordPoint = true;
    return true;
}

void linebrush::drawPreview(QPainter* painter, QColor color, qreal thick)
{
    if (!isUnset(startPoint) && !isUnset(endPoint))
        drawStraight(painter, color, thick, startPoint, endPoint);
}

void linebrush::replay(QPainter* painter, QColor color, qreal thick, QList<QPoint> points)
{
    if (points.size() == 2)
        drawStraight(painter, color, thick, points.at(0), points.at(1));
}
