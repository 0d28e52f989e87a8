#include "discshape.h"

#include "strokes.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

/// A disc is measured in strips of at least so many rows, but not in many strips.
constexpr int fewestRows = 64;
constexpr int mostStrips = 16;
/// How far, at most, the toolkit's disc keeps from a circle, in pixels; further off it is found as well, but slower.
constexpr int margin = 3;

/// The inset of a row without pixels, so large that the row widens and covers nothing.
constexpr int emptyRow = 1 << 28;

/// As a cast to int cuts, toward zero, for values that fit no int as well.
int cut(qreal value) { return strokes::saturated(static_cast<qint64>(value)); }

} // namespace

discshape::discshape(qreal thick)
{
    const qreal width = std::isnan(thick) ? 0.0 : std::clamp<qreal>(thick, 2 - widest, widest);
    half = width * 0.5;
    extent = static_cast<int>(width) - 1;
    measureRows(boxAround(QPoint()).width());
}

QRect discshape::boxAround(const QPoint& place) const
{
    const QPoint corner(cut(place.x() - half), cut(place.y() - half));
    const QPoint opposite(strokes::saturated(qint64(corner.x()) + extent),
                          strokes::saturated(qint64(corner.y()) + extent));
    return QRect(corner, opposite).normalized();
}

QRect discshape::reachOf(const QRect& picture) const
{
    const int reach = size() / 2 + 3;
    return picture.adjusted(-reach, -reach, reach, reach);
}

/// Has the toolkit paint the left half, which the right one mirrors, some rows at a time, and looks where each begins.
/// The lower half is no mirror of the upper one. Where to look follows from a circle, for the whole half of one of the
/// widest discs is a hundred megabytes.
void discshape::measureRows(int across)
{
    const qreal radius = across / 2.0;
    const auto circleInset = [radius](int row) {
        const qreal height = row + 0.5 - radius;
        return static_cast<int>(radius - std::sqrt(std::max(radius * radius - height * height, 0.0)));
    };
    const int middle = (across + 1) / 2;
    const int rowsAtOnce = std::max(fewestRows, across / mostStrips + 1);
    insets.resize(static_cast<std::size_t>(std::max(across, 0)));
    for (int top = 0; top < across; top += rowsAtOnce) {
        const int rowCount = std::min(rowsAtOnce, across - top);
        const int bottom = top + rowCount - 1;
        const auto [lower, higher] = std::minmax({circleInset(top - margin), circleInset(bottom + margin)});
        const int first = top <= middle && middle <= bottom ? 0 : std::max(lower - margin, 0);
        const columns looked{first, std::min(higher + margin, middle) - first};
        if (looked.count <= 0 || !measureStrip(across, top, rowCount, looked))
            measureStrip(across, top, rowCount, {0, middle});
    }
}

/// False when a row does not begin in these columns.
bool discshape::measureStrip(int across, int top, int rowCount, const columns& looked)
{
    QImage strip(looked.count, rowCount, QImage::Format_Alpha8);
    strip.fill(0);
    QPainter painter(&strip);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawEllipse(QRect(-looked.first, -top, across, across));
    painter.end();
    bool found = true;
    for (int row = 0; row < rowCount; ++row) {
        const uchar* pixels = strip.constScanLine(row);
        const auto skipped = static_cast<int>(std::lower_bound(pixels, pixels + looked.count, 0xff) - pixels);
        found = found && skipped < looked.count && (skipped > 0 || looked.first == 0);
        insets[static_cast<std::size_t>(top + row)] = skipped < looked.count ? looked.first + skipped : emptyRow;
    }
    return found;
}
