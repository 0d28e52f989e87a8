#include "layers.h"

#include <QPainter>

#include <algorithm>
#include <array>

namespace {

constexpr QRgb paper = 0xffffffff;

const QRgb* pixelsOf(const QImage& layer, int x, int y)
{
    return reinterpret_cast<const QRgb*>(layer.constScanLine(y)) + x;
}

/// Rows of a band by the toolkit's own mixing.
void paintRows(QImage& band, int first, int last, const QPoint& origin, const QImage& background, const QImage& canvas)
{
    // Two layers are mixed on an image with an alpha channel, as in the file: the toolkit rounds differently without.
    const QImage::Format format = background.isNull() ? band.format() : QImage::Format_ARGB32;
    QImage rows(band.scanLine(first), band.width(), last - first + 1, band.bytesPerLine(), format);
    rows.fill(band.hasAlphaChannel() ? Qt::transparent : Qt::white);
    QPainter painter(&rows);
    painter.translate(-origin - QPoint(0, first));
    if (!background.isNull()) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        // The picture is what the canvas covers; a larger background is cut to it.
        painter.drawImage(QPoint(), background, canvas.rect());
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    painter.drawImage(QPoint(), canvas);
}

constexpr int blockSize = 32;
using pixelblock = std::array<QRgb, blockSize>;

constexpr pixelblock makePaper()
{
    pixelblock block{};
    for (int i = 0; i < blockSize; ++i) {
        block[static_cast<std::size_t>(i)] = paper;
    }
    return block;
}
constexpr pixelblock paperBlock = makePaper();

/// Lays pixels over opaque ones. False when some are neither opaque nor wholly transparent, for these would have to be
/// mixed.
inline bool layOver(QRgb* result, const QRgb* upper, const QRgb* lower, int count)
{
    QRgb mixed = 0;
    for (int i = 0; i < count; ++i) {
        const QRgb alpha = upper[i] >> 24;
        result[i] = alpha == 0 ? lower[i] : upper[i];
        // 0 and 255 become 1 and 256, which have none of these bits.
        mixed |= (alpha + 1) & 0xfeU;
    }
    return mixed == 0;
}

/// The same for a stretch of a row; without pixels below it lies on paper.
bool layRowOver(QRgb* result, const QRgb* upper, const QRgb* lower, int count)
{
    bool isPlain = true;
    for (int x = 0; x < count; x += blockSize) {
        const QRgb* below = lower ? lower + x : paperBlock.data();
        if (count - x < blockSize) {
            return layOver(result + x, upper + x, below, count - x) && isPlain;
        }
        // Most of a picture is opaque, or unpainted, over long stretches: such a block is just copied.
        QRgb all = 0xffffffffU;
        QRgb any = 0;
        for (int i = 0; i < blockSize; ++i) {
            all &= upper[x + i];
            any |= upper[x + i];
        }
        if (qAlpha(all) == 255) {
            std::copy_n(upper + x, blockSize, result + x);
        } else if (qAlpha(any) == 0) {
            std::copy_n(below, blockSize, result + x);
        } else {
            isPlain = layOver(result + x, upper + x, below, blockSize) && isPlain;
        }
    }
    return isPlain;
}

/// One row as the screen shows it from start on. False when pixels have to be mixed; the row is then to be painted.
bool composeRow(QRgb* row, int width, const QPoint& start, const QImage& background, const QImage& canvas)
{
    const QRect shown = QRect(start, QSize(width, 1)) & canvas.rect();
    if (shown.isEmpty()) {
        std::fill(row, row + width, paper);
        return true;
    }
    QRgb* result = row + (shown.left() - start.x());
    std::fill(row, result, paper);
    std::fill(result + shown.width(), row + width, paper);
    const QRgb* lower = background.isNull() ? nullptr : pixelsOf(background, shown.left(), shown.top());
    return layRowOver(result, pixelsOf(canvas, shown.left(), shown.top()), lower, shown.width());
}

} // namespace

void layers::normalise(QImage& layer)
{
    for (int y = 0; y < layer.height(); ++y) {
        QRgb* row = reinterpret_cast<QRgb*>(layer.scanLine(y));
        std::replace(row, row + layer.width(), QRgb{0x00ffffff}, QRgb{0xffffffff});
    }
}

bool layers::covers(const QImage& layer, const QRect& rectangle)
{
    if (!layer.rect().contains(rectangle)) {
        return false;
    }
    for (int y = rectangle.top(); y <= rectangle.bottom(); ++y) {
        const QRgb* row = pixelsOf(layer, rectangle.left(), y);
        if (!std::all_of(row, row + rectangle.width(), [](QRgb pixel) { return qAlpha(pixel) == 255; })) {
            return false;
        }
    }
    return true;
}

void layers::compose(QImage& band, const QPoint& origin, const QImage& background, const QImage& canvas)
{
    if (band.hasAlphaChannel()) {
        paintRows(band, 0, band.height() - 1, origin, background, canvas);
        return;
    }
    int firstMixed = band.height();
    int lastMixed = -1;
    for (int y = 0; y < band.height(); ++y) {
        QRgb* row = reinterpret_cast<QRgb*>(band.scanLine(y));
        if (!composeRow(row, band.width(), origin + QPoint(0, y), background, canvas)) {
            firstMixed = std::min(firstMixed, y);
            lastMixed = y;
        }
    }
    if (firstMixed <= lastMixed) {
        paintRows(band, firstMixed, lastMixed, origin, background, canvas);
    }
}

QImage layers::merged(const QImage& background, const QImage& canvas)
{
    QImage picture(canvas.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(0, 0, background);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.drawImage(0, 0, canvas);
    return picture;
}
