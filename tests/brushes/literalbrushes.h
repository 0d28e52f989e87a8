#pragma once

#include <QColor>
#include <QImage>
#include <QList>
#include <QPainter>
#include <QPoint>
#include <QRect>

/// What each tool paints, written down step by step in the plainest calls. The tools may be as clever as they like;
/// their pixels are compared with these.
namespace literal {

QPen strokePen(const QColor& color, qreal thick);

void pencil(QPainter* painter, const QColor& color, qreal thick, const QList<QPoint>& points);
void line(QPainter* painter, const QColor& color, qreal thick, const QPoint& from, const QPoint& to);
void rect(QPainter* painter, const QColor& color, qreal thick, const QPoint& from, const QPoint& to, bool regular);
void ellipse(QPainter* painter, const QColor& color, qreal thick, const QPoint& from, const QPoint& to, bool regular);
void setEraserPen(QPainter* painter, qreal thick, bool opaque);
void eraser(QPainter* painter, qreal thick, const QList<QPoint>& points, bool opaque);

/// One segment of spray, with the pattern that the next rand() chooses. The width must fit an int.
void spraySegment(QPainter* painter, const QColor& color, qreal thick, const QPoint& from, const QPoint& to);
void airbrush(QPainter* painter, const QColor& color, qreal thick, const QList<QPoint>& points);

/// Both corners belong to the area, whose extents must fit an int.
void eraseArea(QPainter* painter, const QPoint& first, const QPoint& second, bool opaque);
void moveArea(QImage* image, const QPoint& first, const QPoint& second, const QPoint& grab, const QPoint& drop,
              bool opaque);

} // namespace literal
