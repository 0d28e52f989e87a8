#include "literalbrushes.h"

#include <cstdlib>

namespace {

QRect shape(const QPoint& from, const QPoint& to, bool regular)
{
    if (regular)
        return QRect(from, QPoint(to.x(), from.y() + (to.x() - from.x())));
    return QRect(from, to);
}

} // namespace

namespace literal {

QPen strokePen(const QColor& color, qreal thick)
{
    return QPen(QBrush(color, Qt::SolidPattern), thick, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void pencil(QPainter* painter, const QColor& color, qreal thick, const QList<QPoint>& points)
{
    painter->setPen(strokePen(color, thick));
    painter->drawPoints(&points.first(), 1);
    for (int i = 1; i < points.size(); ++i) {
        painter->drawPoints(&points.at(i), 1);
        const QLine step(points.at(i - 1), points.at(i));
        painter->drawLines(&step, 1);
    }
}

void line(QPainter* painter, const QColor& color, qreal thick, const QPoint& from, const QPoint& to)
{
    painter->setPen(strokePen(color, thick));
    painter->drawLine(from, to);
}

void rect(QPainter* painter, const QColor& color, qreal thick, const QPoint& from, const QPoint& to, bool regular)
{
    painter->setPen(strokePen(color, thick));
    const QRect outline = shape(from, to, regular);
    painter->drawRects(&outline, 1);
}

void ellipse(QPainter* painter, const QColor& color, qreal thick, const QPoint& from, const QPoint& to, bool regular)
{
    painter->setPen(strokePen(color, thick));
    painter->drawEllipse(shape(from, to, regular));
}

void setEraserPen(QPainter* painter, qreal thick, bool opaque)
{
    if (opaque) {
        painter->setPen(strokePen(QColor("white"), thick));
        return;
    }
    painter->setPen(QPen(QBrush(Qt::transparent, Qt::SolidPattern), thick, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setCompositionMode(QPainter::CompositionMode_Clear);
}

void eraser(QPainter* painter, qreal thick, const QList<QPoint>& points, bool opaque)
{
    setEraserPen(painter, thick, opaque);
    painter->drawPoints(&points.first(), 1);
    for (int i = 1; i < points.size(); ++i) {
        painter->drawPoints(&points.at(i), 1);
        const QLine step(points.at(i - 1), points.at(i));
        painter->drawLines(&step, 1);
    }
}

void spraySegment(QPainter* painter, const QColor& color, qreal thick, const QPoint& from, const QPoint& to)
{
    const int count = (to - from).manhattanLength() / 2 + 2;
    painter->setBrush(QBrush(color, static_cast<Qt::BrushStyle>(Qt::Dense1Pattern + rand() % 7)));
    painter->setPen(Qt::NoPen);
    const qreal half = thick * 0.5;
    const int extent = static_cast<int>(thick) - 1;
    for (int i = 0; i <= count - 1; ++i) {
        const int x = from.x() + ((to.x() - from.x()) * i) / (count - 1);
        const int y = from.y() + ((to.y() - from.y()) * i) / (count - 1);
        const int left = static_cast<int>(x - half);
        const int top = static_cast<int>(y - half);
        painter->drawEllipse(QRect(QPoint(left, top), QPoint(left + extent, top + extent)));
    }
}

void airbrush(QPainter* painter, const QColor& color, qreal thick, const QList<QPoint>& points)
{
    if (points.size() <= 2)
        return;
    for (int i = 1; i < points.size(); ++i)
        spraySegment(painter, color, thick, points.at(i - 1), points.at(i));
}

void eraseArea(QPainter* painter, const QPoint& first, const QPoint& second, bool opaque)
{
    const QRect area(first, second);
    if (opaque) {
        painter->setPen(QPen(QColor("white"), 1.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->eraseRect(area);
        return;
    }
    painter->setPen(QPen(QBrush(Qt::transparent, Qt::SolidPattern), 1.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPainter::CompositionMode mode = painter->compositionMode();
    painter->setCompositionMode(QPainter::CompositionMode_Clear);
    painter->eraseRect(area);
    painter->setCompositionMode(mode);
}

void moveArea(QImage* image, const QPoint& first, const QPoint& second, const QPoint& grab, const QPoint& drop,
              bool opaque)
{
    QPainter painter(image);
    const QImage pixels = image->copy(QRect(first, second));
    eraseArea(&painter, first, second, opaque);
    painter.drawImage(drop - (grab - first), pixels);
}

} // namespace literal
