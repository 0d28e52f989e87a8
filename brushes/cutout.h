#pragma once

#include <QImage>
#include <QPoint>

class QPainter;

/// The pixels of an area, copied out of a picture to be drawn elsewhere. Outside the picture the area is transparent;
/// that part is not held, so that the cost is bounded by the picture however far the area reaches.
class cutout {
public:
    cutout() = default;
    /// The area has both corners in it. One that is upside down gives no pixels, except that one of exactly zero width
    /// and height gives the whole picture; that is how the toolkit copies, and all participants count on it.
    cutout(const QImage& picture, const QPoint& first, const QPoint& second);

    /// Extents of the area in pixels, what lies outside the picture included; 0 when it gave no pixels.
    qint64 width() const { return areaWidth; }
    qint64 height() const { return areaHeight; }

    /// Draws the area with its first corner at this place. The transparent part is drawn as well: the toolkit changes
    /// pixels below it that are not opaque.
    void draw(QPainter* painter, qint64 left, qint64 top) const;

private:
    QImage pixels;
    /// Where pixels begin, counted from the area's first corner.
    qint64 offsetLeft = 0;
    qint64 offsetTop = 0;
    qint64 areaWidth = 0;
    qint64 areaHeight = 0;
};
