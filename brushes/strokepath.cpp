#include "strokepath.h"

#include <QPainter>

namespace strokepath {

void drawDot(QPainter* painter, const QPoint& dot) { painter->drawPoint(dot); }

void drawStep(QPainter* painter, const QPoint& dot, const QLine& line)
{
    drawDot(painter, dot);
    painter->drawLine(line);
}

void drawPath(QPainter* painter, const QList<QPoint>& points)
{
    if (points.isEmpty())
        return;
    drawDot(painter, points.first());
    for (int i = 1; i < points.size(); ++i)
        drawStep(painter, points.at(i), QLine(points.at(i - 1), points.at(i)));
}

} // namespace strokepath
