#pragma once

#include <QPoint>
#include <QRect>
#include <QtGlobal>

/// The places of the discs that the airbrush lays between two positions: about one for every two pixels of the way, at
/// least two, along a straight line. Positions may be any 32-bit numbers, so that a chain can have more than 2^31
/// discs.
class discchain {
public:
    /// Discs first to last - 1.
    struct range {
        qint64 first;
        qint64 last;
    };

    discchain(const QPoint& from, const QPoint& to);

    /// Where disc i lies: the way divided evenly, cut toward zero.
    QPoint at(qint64 i) const;
    qint64 count() const { return steps + 1; }
    /// The discs that lie in the area, found without walking along the chain.
    range inside(const QRect& area) const;

private:
    /// The discs with a coordinate from lowest to highest.
    template <typename Coordinate> range between(int lowest, int highest, Coordinate coordinate) const;

    QPoint from;
    qint64 wayX;
    qint64 wayY;
    qint64 steps;
};
