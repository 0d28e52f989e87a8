#include "settledwatch.h"

#include "strokes.h"

#include <QImage>
#include <QPainter>

#include <algorithm>

namespace {

/// Pixels across and down of the parts that are looked at.
constexpr int tileSize = 64;

/// So many times the painting goes on between one look and the next.
constexpr int growth = 2;

} // namespace

settledwatch::settledwatch(QPainter* painter)
    : painter(painter)
    , picture(strokes::pictureOf(painter))
    , lookAt(picture ? firstLook * qint64(picture->width()) * picture->height() : 0)
{
}

settledwatch::~settledwatch() { painter->setClipping(false); }

bool settledwatch::settledAfter(qint64 pixels)
{
    painted += pixels;
    if (!picture || painted < lookAt)
        return false;
    lookAt = growth * painted;
    return clipToUnsettled();
}

bool settledwatch::clipToUnsettled()
{
    bool nothingLeft = true;
    for (int top = 0; top < picture->height(); top += tileSize) {
        for (int left = 0; left < picture->width(); left += tileSize) {
            const QRect tile = QRect(left, top, tileSize, tileSize).intersected(picture->rect());
            if (settled.contains(tile.center()))
                continue;
            if (isSettled(tile))
                settled += tile;
            else
                nothingLeft = false;
        }
    }
    // The outermost pixels stay in the clip: so the toolkit rasterises each shape as it does without one.
    const QRect inner = picture->rect().adjusted(1, 1, -1, -1);
    painter->setClipRegion(QRegion(picture->rect()) - settled.intersected(inner));
    return nothingLeft;
}

/// Whether painting the pen's colour over these pixels leaves each as it is. Most parts that change do so in their
/// first row.
bool settledwatch::isSettled(const QRect& part) const
{
    return staysAsItIs(QRect(part.topLeft(), QSize(part.width(), 1))) && staysAsItIs(part);
}

/// For a half-transparent colour only opaque pixels are sure: others the toolkit rounds differently from place to
/// place.
bool settledwatch::staysAsItIs(const QRect& part) const
{
    const QImage before = picture->copy(part);
    const bool sure = painter->pen().brush().isOpaque();
    for (int y = 0; y < before.height() && !sure; ++y) {
        const auto* pixels = reinterpret_cast<const QRgb*>(before.constScanLine(y));
        if (std::any_of(pixels, pixels + before.width(), [](QRgb pixel) { return qAlpha(pixel) != 0xff; }))
            return false;
    }
    QImage after = before;
    QPainter trial(&after);
    trial.setCompositionMode(painter->compositionMode());
    trial.fillRect(after.rect(), painter->pen().brush());
    trial.end();
    return after == before;
}
