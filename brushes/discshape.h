#pragma once

#include <QPoint>
#include <QRect>
#include <QtGlobal>

#include <vector>

/// One disc of the airbrush: as many pixels across as the width has whole ones.
class discshape {
public:
    /// The toolkit computes ellipses up to this width in whole numbers, so that a disc looks the same everywhere. Wider
    /// ones, which no participant's window offers, are painted in this width.
    static constexpr int widest = 32766;

    /// Any width; one below 1 gives an empty disc, except that a negative one counts without its sign from -1 on.
    explicit discshape(qreal thick);

    /// The rectangle to which the toolkit's ellipse is fitted, for a disc around a place.
    QRect boxAround(const QPoint& place) const;
    /// Pixels across and down.
    int size() const { return static_cast<int>(insets.size()); }
    /// The pixels between the box and the disc, at each end of each row; far too many in a row without any pixel.
    const std::vector<int>& rows() const { return insets; }
    /// Whether discs in a chain leave no gap in any row that two neighbours share.
    bool joins() const { return joined; }
    /// The places from which a disc may reach into a picture, and a few more.
    QRect reachOf(const QRect& picture) const;

private:
    struct columns {
        int first;
        int count;
    };
    void measureRows(int across);
    bool measureStrip(int across, int top, int rowCount, const columns& looked);
    bool touches(int right, int down) const;

    qreal half;
    int extent;
    std::vector<int> insets;
    bool joined = false;
};
