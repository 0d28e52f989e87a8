#pragma once

#include <QColor>
#include <QList>
#include <QPoint>

class QPainter;

/// What the airbrush lays on the canvas.
namespace spray {

/// Sprays from each point to the next, each segment with a dither pattern of its own, drawn by lot with one call of
/// rand(). Fewer than two points paint nothing. The painter keeps a pattern brush and no pen.
void drawPath(QPainter* painter, const QColor& color, qreal thick, const QList<QPoint>& points);

} // namespace spray
