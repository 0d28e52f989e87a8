#include "toolcursors.h"

#include <QBrush>
#include <QLineF>
#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QRectF>
#include <QString>

namespace {

/// A cursor from a picture of the icon set. Without the picture it is the arrow: the toolkit warns on a null one.
QCursor fromIcon(const char* name, const QPoint& hotSpot)
{
    const QPixmap pixmap(QString::fromLatin1(":/gfx/gfx/%1").arg(QLatin1String(name)));
    return pixmap.isNull() ? QCursor(Qt::ArrowCursor) : QCursor(pixmap, hotSpot.x(), hotSpot.y());
}

QPixmap eraserPicture(int size, qreal thickness)
{
    QPixmap pixmap(size, size);
    pixmap.fill(QColor(255, 255, 255, 0));
    QPainter painter(&pixmap);
    painter.setPen(QColor(0, 0, 0, 190));
    painter.setBrush(QColor(255, 255, 255, 100));
    const qreal middle = thickness / 2;
    painter.drawLine(QLineF(middle - 2, middle, middle + 2, middle));
    painter.drawLine(QLineF(middle, middle - 2, middle, middle + 2));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(0, 0, 0, 100));
    painter.drawEllipse(QRectF(1, 1, thickness - 2, thickness - 2));
    return pixmap;
}

} // namespace

QCursor toolcursors::arrow(qreal) { return Qt::ArrowCursor; }

QCursor toolcursors::cross(qreal) { return Qt::CrossCursor; }

QCursor toolcursors::pencil(qreal) { return fromIcon("pencil.png", {0, 16}); }

QCursor toolcursors::fill(qreal) { return fromIcon("fillcursor.png", {4, 20}); }

QCursor toolcursors::eraser(qreal thickness)
{
    const qreal largest = 2048;
    // Written so that a width that is no number fails both comparisons.
    if (!(thickness >= 1 && thickness <= largest)) {
        return Qt::ArrowCursor;
    }
    return QCursor(eraserPicture(static_cast<int>(thickness), thickness), -1, -1);
}
