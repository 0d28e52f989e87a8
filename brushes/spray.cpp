#include "spray.h"

#include "countedspray.h"
#include "discchain.h"
#include "discshape.h"
#include "patterntile.h"
#include "spraycoverage.h"
#include "strokes.h"

#include <QBrush>
#include <QImage>
#include <QPainter>
#include <QVector>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

constexpr std::size_t patternCount = 7;

/// Up to this many pixels, overlaps counted, discs are painted one after the other; that takes some 50 ms.
constexpr double mostDiscPixels = 1e7;

/// The rows of this many discs are looked at one by one; that takes some 50 ms, too.
constexpr double mostDiscRows = 5e7;

struct segment {
    std::size_t pattern;
    discchain chain;
};

QBrush patternBrush(const QColor& color, std::size_t pattern)
{
    return QBrush(color, static_cast<Qt::BrushStyle>(Qt::Dense1Pattern + static_cast<int>(pattern)));
}

/// A pattern is drawn for each segment, also for one that paints nothing: those that follow hang on the sequence. The
/// generator is never seeded.
std::vector<segment> segmentsOf(const QList<QPoint>& points)
{
    std::vector<segment> segments;
    for (int i = 1; i < points.size(); ++i) {
        const std::size_t pattern = static_cast<std::size_t>(std::rand()) % patternCount;
        segments.push_back({pattern, discchain(points.at(i - 1), points.at(i))});
    }
    return segments;
}

/// What a spray costs, as far as it can be told before.
struct price {
    double discs = 0; ///< that reach into the picture
    double pixels = 0; ///< that painting each of them would take
    double rows = 0; ///< of all of them in the picture
};

price priceOf(const QRect& picture, const discshape& shape, const std::vector<segment>& segments)
{
    const double across = std::min(shape.size(), picture.width());
    const double down = std::min(shape.size(), picture.height());
    double discs = 0;
    for (const segment& each : segments) {
        const discchain::range touching = each.chain.inside(shape.reachOf(picture));
        discs += static_cast<double>(std::max<qint64>(touching.last - touching.first, 0));
    }
    // However small the picture is, the toolkit goes once around each disc.
    return {discs, discs * (across * down + shape.size()), discs * down};
}

/// How many neighbours of a chain pass for one. One is exact; more of them, where there are too many for a look at
/// each, leave the edge of a spray off by less than half a pixel: discs lie no more than two pixels apart, and a chord
/// of twice that many is, at its middle, so far from its circle.
int discsTogether(const price& of, const discshape& shape)
{
    const double most = std::sqrt(shape.size() / 2.0);
    return static_cast<int>(qBound(1.0, std::ceil(of.rows / mostDiscRows), std::max(1.0, most)));
}

bool isOpaqueOrClear(QRgb pixel) { return qAlpha(pixel) == 0xff || qAlpha(pixel) == 0; }

/// Whether painting over these pixels twice gives what painting once gives. The holes of a pattern are painted too, as
/// a colour without alpha, and each time the toolkit rounds the pixels below anew.
bool keepsStill(const QImage* picture, const QVector<QRect>& rectangles)
{
    return picture && std::all_of(rectangles.begin(), rectangles.end(), [picture](const QRect& row) {
               const auto* pixels = reinterpret_cast<const QRgb*>(picture->constScanLine(row.top())) + row.left();
               return std::all_of(pixels, pixels + row.width(), isOpaqueOrClear);
           });
}

void drawDiscs(QPainter* painter, const discshape& shape, const discchain& chain)
{
    const discchain::range discs = chain.inside(shape.reachOf(strokes::paintableRect(painter)));
    for (qint64 i = discs.first; i < discs.last; ++i)
        painter->drawEllipse(shape.boxAround(chain.at(i)));
}

/// The part of the picture that a spray along these points may touch.
QRect areaOf(const QRect& picture, const discshape& shape, const QList<QPoint>& points)
{
    const auto [left, right] =
        std::minmax_element(points.begin(), points.end(), [](QPoint a, QPoint b) { return a.x() < b.x(); });
    const auto [top, bottom] =
        std::minmax_element(points.begin(), points.end(), [](QPoint a, QPoint b) { return a.y() < b.y(); });
    // In the picture's reach first: a rectangle to the edges of 32 bits has no width that fits them.
    const QRect reach = shape.reachOf(picture);
    const auto inReach = [&reach](int x, int y) {
        return QPoint(qBound(reach.left(), x, reach.right()), qBound(reach.top(), y, reach.bottom()));
    };
    return shape.reachOf(QRect(inReach(left->x(), top->y()), inReach(right->x(), bottom->y()))).intersected(picture);
}

/// The first row of a picture of which it is known what a pattern makes of each pixel; null for any other.
QRgb* predictablePixels(const QPainter* painter)
{
    const bool predictable =
        painter->compositionMode() == QPainter::CompositionMode_SourceOver && painter->brushOrigin().isNull();
    return predictable ? strokes::plainPixels(painter) : nullptr;
}

/// The rectangles are one row high, and every pixel in them is opaque or has no alpha.
void drawRows(QPainter* painter, const QBrush& brush, const QVector<QRect>& rectangles)
{
    if (rectangles.isEmpty())
        return;
    QRgb* const pixels = predictablePixels(painter);
    if (!pixels) {
        painter->drawRects(rectangles);
        return;
    }
    const qptrdiff stride = strokes::pictureOf(painter)->bytesPerLine() / static_cast<int>(sizeof(QRgb));
    const patterntile tile(brush);
    for (const QRect& each : rectangles)
        tile.lay(pixels + each.top() * stride + each.left(), each);
}

/// Paints what an opaque colour covers all at once, each pattern for itself. False when that would not give the pixels
/// that disc after disc gives; then nothing was painted.
bool drawTogether(QPainter* painter, const QColor& color, const QRect& area, const discshape& shape,
                  const std::vector<segment>& segments)
{
    const int together = discsTogether(priceOf(area, shape, segments), shape);
    std::vector<spraycoverage> covered(patternCount, spraycoverage(area));
    for (const segment& each : segments)
        covered[each.pattern].add(shape, each.chain, together);
    std::vector<QVector<QRect>> rectangles;
    for (spraycoverage& each : covered) {
        rectangles.push_back(each.rectangles());
        if (!keepsStill(strokes::pictureOf(painter), rectangles.back()))
            return false;
    }
    for (std::size_t pattern = 0; pattern < patternCount; ++pattern) {
        const QBrush brush = patternBrush(color, pattern);
        painter->setBrush(brush);
        drawRows(painter, brush, rectangles[pattern]);
    }
    return true;
}

} // namespace

namespace spray {

void drawPath(QPainter* painter, const QColor& color, qreal thick, const QList<QPoint>& points)
{
    const discshape shape(thick);
    const std::vector<segment> segments = segmentsOf(points);
    if (segments.empty())
        return;
    const QRect picture = strokes::paintableRect(painter);
    painter->setPen(Qt::NoPen);
    if (QBrush(color).isOpaque() && drawTogether(painter, color, areaOf(picture, shape, points), shape, segments))
        return;
    // Counted, some half-transparent pixels come out a shade off, for the toolkit rounds a few by their place in a
    // span.
    std::unique_ptr<countedspray> counted;
    const price whole = priceOf(picture, shape, segments);
    if (predictablePixels(painter) && whole.pixels > mostDiscPixels)
        counted.reset(new countedspray(painter, color));
    for (const segment& each : segments) {
        painter->setBrush(patternBrush(color, each.pattern));
        if (counted)
            counted->draw(painter->brush(), shape, each.chain, discsTogether(whole, shape));
        else
            drawDiscs(painter, shape, each.chain);
    }
}

} // namespace spray
