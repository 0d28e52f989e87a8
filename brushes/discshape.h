#pragma once

#include <QPoint>
#include <QRect>
#include <QtGlobal>

#include <vector>

/// One disc of the airbrush: as many pixels across as the width has whole ones.
class discshape {
public:
    /// Wider discs, which no participant's window offers, are painted in this width. The toolkit computes ellipses of
    /// up to about twice as much in whole numbers, so that they look the same everywhere; beyond that it loses some.
    static constexpr int widest = 16384;

    /// Any width. One below 1 gives an empty disc; one of -1 or less gives two pixels more than it has without the
    /// sign, for the box is turned around.
    explicit discshape(qreal thick);

    /// The rectangle to which the toolkit's ellipse is fitted, for a disc around a place.
    QRect boxAround(const QPoint& place) const;
    /// Pixels across and down.
    int size() const { return static_cast<int>(insets.size()); }
    /// The pixels between the box and the disc, at each end of each row; far too many in a row without any pixel.
    const std::vector<int>& rows() const { return insets; }
    /// The places from which a disc may reach into a picture, and a few more.
    QRect reachOf(const QRect& picture) const;

private:
    struct columns {
        int first;
        int count;
    };
    void measureRows(int across);
    bool measureStrip(int across, int top, int rowCount, const columns& looked);

    qreal half;
    int extent;
    std::vector<int> insets;
};
