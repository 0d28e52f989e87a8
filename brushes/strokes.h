#pragma once

#include <QBrush>
#include <QColor>
#include <QPen>
#include <QPoint>
#include <QRect>

class QImage;
class QPainter;

/// The unset value of a tool's point. A point with only one coordinate of -1 is an ordinary one.
constexpr QPoint unsetPoint(-1, -1);
inline bool isUnset(const QPoint& point) { return point == unsetPoint; }

/// Pens and small drawing steps that the tools share. A pen is built anew for each call that paints; the painter's
/// render hints stay alone, for canvas painting is never antialiased.
namespace strokes {

/// The stroke pen: round caps and joins in the exact width.
QPen pen(const QBrush& brush, qreal thick, Qt::PenStyle style = Qt::SolidLine);
/// Sets the stroke pen for drawing lines and outlines. In a width of no number or without end the toolkit paints none,
/// but complains on each call; then no pen is set.
void setPen(QPainter* painter, const QBrush& brush, qreal thick);
/// The grey dotted pen of rubber bands and text boxes.
QPen bandPen();

/// Empties a rectangle, given as it stands with both corners in it: to white when opaque, else to full transparency.
/// The rectangle may be upside down and may reach to the edges of 32 bits. The painter's composition mode is kept.
void eraseArea(QPainter* painter, const QRect& area, bool opaque);

/// The rectangle of the picture that the painter is open on.
QRect pictureRect(const QPainter* painter);
/// The part of it that the toolkit's painter reaches: some coordinates fewer than 16 bits with a sign can hold.
QRect paintableRect(const QPainter* painter);
/// That picture, for looking at its pixels while it is painted on; null when it is none of 32 bits a pixel.
const QImage* pictureOf(const QPainter* painter);

/// The pixels of the first row of that picture, when the painter paints on it and nothing more: with no transformation,
/// clip, opacity or smoothing, on Format_ARGB32. Null otherwise. To be written as the painter does it, whoever shares
/// the picture.
QRgb* plainPixels(const QPainter* painter);

/// The nearest value that an int holds: what peers send adds up to more.
int saturated(qint64 value);

} // namespace strokes
