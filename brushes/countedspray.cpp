#include "countedspray.h"

#include "strokes.h"

#include <QBrush>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

namespace {

/// Pixels across and down of a pattern, which begins at the picture's corner.
constexpr int side = 8;

/// A row is looked at after it was painted so many times, and then less and less often.
constexpr int firstLook = 6;

/// Which pixel of a pattern lies there.
std::size_t placeInPattern(int x, int y) { return static_cast<std::size_t>(side * (y % side) + x % side); }

QImage covered(QImage picture, const QBrush& brush)
{
    QPainter painter(&picture);
    painter.fillRect(picture.rect(), brush);
    painter.end();
    return picture;
}

/// Which pixels of a pattern take the colour.
std::vector<bool> coloredPixels(const QBrush& brush)
{
    QImage clear(side, side, QImage::Format_ARGB32);
    clear.fill(0);
    const QImage tile = covered(clear, brush);
    std::vector<bool> colored;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            colored.push_back(qAlpha(tile.pixel(x, y)) != 0);
    }
    return colored;
}

/// What the toolkit makes of every pixel that there can be, where a pattern takes the colour or in its holes.
repeatedpass passOf(const QColor& color, bool inHoles)
{
    // Every second pixel of this pattern is a hole, so each value stands twice, side by side.
    const QBrush brush(color, Qt::Dense4Pattern);
    const std::vector<bool> colored = coloredPixels(brush);
    QImage all(512, 256, QImage::Format_ARGB32);
    for (int y = 0; y < all.height(); ++y) {
        for (int x = 0; x < all.width(); ++x)
            all.setPixel(x, y, qRgba(x / 2, x / 2, x / 2, y));
    }
    const QImage once = covered(all, brush);
    std::vector<QRgb> results;
    for (int alpha = 0; alpha < 256; ++alpha) {
        for (int value = 0; value < 256; ++value) {
            const bool leftIsColored = colored[placeInPattern(2 * value, alpha)];
            results.push_back(once.pixel(2 * value + (leftIsColored == inHoles ? 1 : 0), alpha));
        }
    }
    return repeatedpass(std::move(results));
}

/// Discs in one place.
struct pile {
    QPoint corner; ///< top left of the box
    int discs;
};

/// The discs of a chain that reach into the picture, from top to bottom.
std::vector<pile> pilesFromTop(const discshape& shape, const discchain& chain, const QRect& picture, int together)
{
    const discchain::range discs = chain.inside(shape.reachOf(picture));
    std::vector<pile> piles;
    for (qint64 i = discs.first; i < discs.last; i += together) {
        const auto count = static_cast<int>(std::min<qint64>(together, discs.last - i));
        piles.push_back({shape.boxAround(chain.at(i)).topLeft(), count});
    }
    if (!piles.empty() && piles.front().corner.y() > piles.back().corner.y())
        std::reverse(piles.begin(), piles.end());
    return piles;
}

} // namespace

countedspray::countedspray(QPainter* painter, const QColor& color)
    : picture(strokes::paintableRect(painter))
    , pixels(strokes::plainPixels(painter))
    , stride(strokes::pictureOf(painter)->bytesPerLine() / static_cast<int>(sizeof(QRgb)))
    , pass(passOf(color, false))
    , holePass(passOf(color, true))
    , counts(static_cast<std::size_t>(picture.width()) + 1)
    , leftmost(picture.width())
    , everColored(static_cast<std::size_t>(side * side))
    , rows(static_cast<std::size_t>(picture.height()),
           {firstLook * qint64(picture.width()), firstLook * qint64(picture.width()), false})
{
    for (int pattern = Qt::Dense1Pattern; pattern <= Qt::Dense7Pattern; ++pattern) {
        const std::vector<bool> colored = coloredPixels(QBrush(color, static_cast<Qt::BrushStyle>(pattern)));
        std::transform(colored.begin(), colored.end(), everColored.begin(), everColored.begin(), std::logical_or<>());
    }
}

void countedspray::draw(const QBrush& pattern, const discshape& shape, const discchain& chain, int together)
{
    const std::vector<pile> piles = pilesFromTop(shape, chain, picture, together);
    if (piles.empty())
        return;
    const std::vector<bool> colored = coloredPixels(pattern);
    auto first = piles.begin();
    auto last = first;
    const int bottom = std::min(picture.bottom(), piles.back().corner.y() + shape.size() - 1);
    for (int row = std::max(picture.top(), piles.front().corner.y()); row <= bottom; ++row) {
        while (last != piles.end() && last->corner.y() <= row)
            ++last;
        while (first != last && first->corner.y() + shape.size() <= row)
            ++first;
        for (auto each = first; each != last && !rows[static_cast<std::size_t>(row)].settled; ++each) {
            const int inset = shape.rows()[static_cast<std::size_t>(row - each->corner.y())];
            count(each->corner.x() + inset, each->corner.x() + shape.size() - inset, each->discs);
        }
        paintRow(row, colored);
    }
}

void countedspray::count(int left, int right, int times)
{
    left = std::max(left, 0);
    right = std::min(right, picture.width());
    if (left >= right)
        return;
    leftmost = std::min(leftmost, left);
    rightmost = std::max(rightmost, right);
    counts[static_cast<std::size_t>(left)] += times;
    counts[static_cast<std::size_t>(right)] -= times;
}

void countedspray::paintRow(int row, const std::vector<bool>& colored)
{
    if (leftmost >= rightmost)
        return;
    const auto begin = counts.begin() + leftmost;
    const auto end = counts.begin() + rightmost;
    std::partial_sum(begin, end, begin);
    QRgb* line = pixels + row * stride;
    for (int x = leftmost; x < rightmost; ++x) {
        const int times = counts[static_cast<std::size_t>(x)];
        const bool isColored = colored[placeInPattern(x, row)];
        if (times > 0)
            line[x] = (isColored ? pass : holePass).after(times, line[x]);
    }
    std::fill(begin, end + 1, 0);
    rowstate& state = rows[static_cast<std::size_t>(row)];
    state.untilLook -= rightmost - leftmost;
    leftmost = picture.width();
    rightmost = 0;
    if (state.untilLook <= 0) {
        state.settled = isSettled(row);
        state.nextLook *= 2;
        state.untilLook = state.nextLook;
    }
}

/// Whether no more discs change the row, whatever their patterns are.
bool countedspray::isSettled(int row)
{
    const QRgb* line = pixels + row * stride;
    for (int x = 0; x < picture.width(); ++x) {
        const bool isColored = everColored[placeInPattern(x, row)];
        if ((isColored && pass.after(1, line[x]) != line[x]) || holePass.after(1, line[x]) != line[x])
            return false;
    }
    return true;
}
