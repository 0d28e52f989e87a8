#pragma once

#include <QPoint>
#include <QtGlobal>

/// The discs that the airbrush lays between two positions: about one for every two pixels of the way, at least two.
/// Positions may be any 32-bit numbers, so that a chain can have more than 2^31 discs.
class discchain {
public:
    discchain(const QPoint& from, const QPoint& to);

    qint64 count() const { return steps + 1; }
    /// Where disc i lies, 0 <= i < count(); the way divided evenly, cut toward zero.
    QPoint at(qint64 i) const;

private:
    QPoint from;
    qint64 wayX;
    qint64 wayY;
    qint64 steps;
};
