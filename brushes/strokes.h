#pragma once

#include <QBrush>
#include <QPen>
#include <QPoint>

class QPainter;
class QRect;

/// The unset value of a tool's point. A point with only one coordinate of -1 is an ordinary one.
constexpr QPoint unsetPoint(-1, -1);
inline bool isUnset(const QPoint& point) { return point == unsetPoint; }

/// Pens and small drawing steps that the tools share. A pen is built anew for each call that paints; the painter's
/// render hints stay alone, for canvas painting is never antialiased.
namespace strokes {

/// The stroke pen: round caps and joins in the exact width.
QPen pen(const QBrush& brush, qreal thick, Qt::PenStyle style = Qt::SolidLine);
/// The grey dotted pen of rubber bands and text boxes.
QPen bandPen();

/// Empties a rectangle, given as it stands with both corners in it: to white when opaque, else to full transparency.
/// The rectangle may be upside down and may reach to the edges of 32 bits. The painter's composition mode is kept.
void eraseArea(QPainter* painter, const QRect& area, bool opaque);

/// The nearest value that an int holds: what peers send adds up to more.
int saturated(qint64 value);

} // namespace strokes
