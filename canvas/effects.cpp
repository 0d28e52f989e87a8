#include "effects.h"

#include <QPainter>

#include <algorithm>

using effects::effect;

namespace {

/// Pixels of an image that are changed where they lie.
struct pixelblock {
    QRgb* origin;
    qptrdiff stride; ///< from row to row, in pixels
    int width;
    int height;

    QRgb* row(int y) const { return origin + y * stride; }
};

pixelblock blockOf(QImage& image, const QRect& area)
{
    const qptrdiff stride = image.bytesPerLine() / static_cast<int>(sizeof(QRgb));
    QRgb* pixels = reinterpret_cast<QRgb*>(image.bits());
    return {pixels + area.top() * stride + area.left(), stride, area.width(), area.height()};
}

template <typename Change> void changeEach(const pixelblock& block, Change change)
{
    for (int y = 0; y < block.height; ++y) {
        QRgb* row = block.row(y);
        std::transform(row, row + block.width, row, change);
    }
}

QRgb swapped(QRgb pixel)
{
    return (pixel & 0xff00ff00U) | ((pixel >> 16) & 0x000000ffU) | ((pixel << 16) & 0x00ff0000U);
}

QRgb grey(QRgb pixel)
{
    const QRgb red = (pixel >> 16) & 0xffU;
    const QRgb green = (pixel >> 8) & 0xffU;
    const QRgb blue = pixel & 0xffU;
    const QRgb value = (11 * red + 16 * green + 5 * blue) / 32;
    return (pixel & 0xff000000U) | (value * 0x010101U);
}

void applyInPlace(const pixelblock& block, effect kind)
{
    switch (kind) {
    case effect::flipHorizontally:
        for (int y = 0; y < block.height; ++y) {
            std::reverse(block.row(y), block.row(y) + block.width);
        }
        break;
    case effect::flipVertically:
        for (int y = 0; y < block.height / 2; ++y) {
            std::swap_ranges(block.row(y), block.row(y) + block.width, block.row(block.height - 1 - y));
        }
        break;
    case effect::swapChannels:
        changeEach(block, swapped);
        break;
    case effect::invertColors:
        changeEach(block, [](QRgb pixel) { return pixel ^ 0x00ffffffU; });
        break;
    case effect::grayscale:
        changeEach(block, grey);
        break;
    }
}

/// The part of a stretch that a flip around the stretch's middle leaves within the limits on both sides.
struct stretch {
    int first;
    int last;
};
stretch mirroredWithin(qint64 sumOfEnds, const stretch& limits)
{
    const qint64 first = std::max<qint64>(limits.first, sumOfEnds - limits.last);
    const qint64 last = std::min<qint64>(limits.last, sumOfEnds - limits.first);
    // Where nothing lies on both sides the result may not even be an int.
    return first > last ? stretch{0, -1} : stretch{static_cast<int>(first), static_cast<int>(last)};
}

/// A region of an image, and what is left of it within the image.
class regioneffect {
public:
    regioneffect(QImage& image, effect kind, const QRect& region)
        : image(image)
        , kind(kind)
        , columnSum(qint64{region.left()} + region.right())
        , rowSum(qint64{region.top()} + region.bottom())
        , area(QPoint(std::max(region.left(), 0), std::max(region.top(), 0)),
               QPoint(std::min(region.right(), image.width() - 1), std::min(region.bottom(), image.height() - 1)))
        , columns{area.left(), area.right()}
    {
        if (kind == effect::flipHorizontally) {
            columns = mirroredWithin(columnSum, columns);
        }
    }

    void run()
    {
        if (area.isEmpty()) {
            return;
        }
        if (isOpaque()) {
            runInPlace();
        } else {
            runByDrawing();
        }
    }

private:
    bool isOpaque() const
    {
        for (int y = area.top(); y <= area.bottom(); ++y) {
            const QRgb* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
            QRgb all = 0xff000000U;
            for (int x = area.left(); x <= area.right(); ++x) {
                all &= row[x];
            }
            if (all != 0xff000000U) {
                return false;
            }
        }
        return true;
    }

    /// Opaque pixels replace what they are drawn on, so that nothing needs to be drawn. What a flip brings in from
    /// outside the image is transparent and leaves the pixels there alone.
    void runInPlace()
    {
        stretch rows{area.top(), area.bottom()};
        if (kind == effect::flipVertically) {
            rows = mirroredWithin(rowSum, rows);
        }
        if (columns.first <= columns.last && rows.first <= rows.last) {
            applyInPlace(blockOf(image, {QPoint(columns.first, rows.first), QPoint(columns.last, rows.last)}), kind);
        }
    }

    /// The toolkit's own mixing, down to its rounding. Strip by strip, so that little is copied at a time.
    void runByDrawing()
    {
        QPainter painter(&image);
        stretch rows{area.top(), area.bottom()};
        if (kind == effect::flipVertically) {
            rows = mirroredWithin(rowSum, rows);
        }
        if (rows.first > rows.last) {
            drawNothing(painter, area.top(), area.bottom());
            return;
        }
        drawNothing(painter, area.top(), rows.first - 1);
        drawNothing(painter, rows.last + 1, area.bottom());
        if (kind == effect::flipVertically) {
            swapRows(painter, rows);
            return;
        }
        for (int y = rows.first; y <= rows.last; y += stripRows()) {
            painter.drawImage(area.left(), y, result(y, std::min(y + stripRows() - 1, rows.last)));
        }
    }

    /// From the outside in, with both strips taken before one is drawn.
    void swapRows(QPainter& painter, stretch rows)
    {
        while (rows.first <= rows.last) {
            const int count = std::clamp((rows.last - rows.first + 1) / 2, 1, stripRows());
            const int below = rows.last - count + 1;
            const QImage upper = result(below, rows.last);
            const QImage lower = result(rows.first, rows.first + count - 1);
            painter.drawImage(area.left(), rows.first, upper);
            if (below > rows.first) {
                painter.drawImage(area.left(), below, lower);
            }
            rows.first += count;
            rows.last -= count;
        }
    }

    /// What comes from outside the image is transparent, but drawing it leaves its mark on half-transparent pixels.
    void drawNothing(QPainter& painter, int first, int last)
    {
        for (int y = first; y <= last; y += stripRows()) {
            painter.drawImage(area.left(), y, emptyStrip(std::min(stripRows(), last - y + 1)));
        }
    }

    int stripRows() const
    {
        const int stripPixels = 8192;
        return std::max(1, stripPixels / area.width());
    }

    QImage emptyStrip(int rows) const
    {
        QImage strip(area.width(), rows, QImage::Format_ARGB32);
        strip.fill(0U);
        return strip;
    }

    /// Rows of the image after the effect; transparent where a flip brings in columns from outside the image.
    QImage result(int first, int last) const
    {
        QImage strip = emptyStrip(last - first + 1);
        if (columns.first > columns.last) {
            return strip;
        }
        const QRect filled(columns.first - area.left(), 0, columns.last - columns.first + 1, strip.height());
        const pixelblock pixels = blockOf(strip, filled);
        for (int y = 0; y < pixels.height; ++y) {
            const QRgb* source = reinterpret_cast<const QRgb*>(image.constScanLine(first + y)) + columns.first;
            std::copy_n(source, pixels.width, pixels.row(y));
        }
        applyInPlace(pixels, kind);
        return strip;
    }

    QImage& image;
    effect kind;
    qint64 columnSum;
    qint64 rowSum;
    QRect area;
    stretch columns; ///< what the row's pixels come from
};

} // namespace

void effects::apply(QImage& image, effect kind)
{
    if (!image.isNull()) {
        applyInPlace(blockOf(image, image.rect()), kind);
    }
}

void effects::apply(QImage& image, effect kind, const QRect& region)
{
    const qint64 width = qint64{region.right()} - region.left() + 1;
    const qint64 height = qint64{region.bottom()} - region.top() + 1;
    if (image.isNull()) {
        return;
    }
    if (width == 0 && height == 0) {
        // Taking a copy of the null rectangle means the whole image, and so it does for every participant.
        QImage whole = image.copy();
        apply(whole, kind);
        QPainter(&image).drawImage(region.topLeft(), whole);
        return;
    }
    if (width > 0 && height > 0) {
        regioneffect(image, kind, region).run();
    }
}
