#pragma once

#include <QLine>
#include <QList>
#include <QPoint>

class QPainter;
class strokestamps;

/// The path of pencil and eraser, painted with the pen that the caller has set: a dot at each position and a line
/// between neighbours.
namespace strokepath {

void drawDot(QPainter* painter, const QPoint& dot);
/// One step of a stroke: the dot at its end, then the line.
void drawStep(QPainter* painter, const QPoint& dot, const QLine& line);
/// A whole stroke; an empty list paints nothing. The stamps are those of the brush, from earlier strokes.
void drawPath(QPainter* painter, const QList<QPoint>& points, strokestamps* stamps);

} // namespace strokepath
