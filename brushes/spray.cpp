#include "spray.h"

#include "discchain.h"

#include <QBrush>
#include <QPainter>
#include <QRect>

#include <cstdlib>

namespace {

void drawSegment(QPainter* painter, qreal thick, const discchain& chain)
{
    const qreal half = thick * 0.5;
    const int extent = int(thick) - 1;
    for (qint64 i = 0; i < chain.count(); ++i) {
        const QPoint center = chain.at(i);
        const QPoint corner(int(center.x() - half), int(center.y() - half));
        painter->drawEllipse(QRect(corner, corner + QPoint(extent, extent)));
    }
}

} // namespace

namespace spray {

void drawPath(QPainter* painter, const QColor& color, qreal thick, const QList<QPoint>& points)
{
    painter->setPen(Qt::NoPen);
    for (int i = 1; i < points.size(); ++i) {
        painter->setBrush(QBrush(color, static_cast<Qt::BrushStyle>(Qt::Dense1Pattern + std::rand() % 7)));
        drawSegment(painter, thick, discchain(points.at(i - 1), points.at(i)));
    }
}

} // namespace spray
