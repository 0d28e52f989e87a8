#pragma once

#include <QHash>
#include <QImage>
#include <QLine>
#include <QPoint>
#include <QRect>
#include <QtGlobal>

#include <vector>

class QPainter;

/// The dots and lines of wide round pens, as the toolkit rasterises them, kept to be laid on pictures again. A hand's
/// way is made of few different steps, and a step leaves the same pixels wherever it is made; laying them down takes a
/// small part of the time that the toolkit takes for finding them.
class strokestamps {
public:
    /// From here on shapes are for this painter with the pen that it has, which has to hide what is below it, or to
    /// clear. For one that does more than that with its pixels nothing will be laid.
    void begin(QPainter* painter);

    /// Paints the shape. False when that is left to the caller: the shape is new, large, or does not lie well within
    /// the picture.
    bool lay(const QPoint& dot) { return layShape({width, 0, 0, true}, dot); }
    bool lay(const QLine& line);

private:
    struct shape {
        qreal width;
        int dx;
        int dy;
        bool isDot;
    };
    friend bool operator==(const shape& a, const shape& b);
    friend uint qHash(const shape& key, uint seed);

    /// The pixels of one row, counted from the shape's first position.
    struct span {
        short left;
        short count;
    };
    struct stamp {
        int top = 0;
        std::vector<span> rows; ///< none as long as the shape was seen only once, or is none of one span a row
        bool measured = false;
    };

    bool layShape(const shape& key, const QPoint& place);
    QRect boundsOf(const shape& key, const QPoint& place) const;
    static void measure(const shape& key, const QPoint& place, const QRect& bounds, stamp* result);
    void paint(const stamp& kept, const QPoint& place) const;

    QHash<shape, stamp> stamps;
    int keptRows = 0;
    QRgb* pixels = nullptr; ///< of the picture, null when nothing is to be laid
    qptrdiff stride = 0; ///< from row to row, in pixels
    QRect inside; ///< where the bounds of a shape must lie
    QRgb value = 0;
    qreal width = 0;
};
