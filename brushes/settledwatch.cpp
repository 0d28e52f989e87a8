#include "settledwatch.h"

#include "strokes.h"

#include <QImage>
#include <QPainter>

namespace {

/// Pixels across and down of the parts that are looked at.
constexpr int tileSize = 64;

/// So many times the painting goes on between one look and the next.
constexpr int growth = 2;

} // namespace

settledwatch::settledwatch(QPainter* painter)
    : painter(painter)
    , picture(strokes::pictureOf(painter))
    , area(strokes::paintableRect(painter))
    , lookAt(firstLook * qint64(area.width()) * area.height())
{
}

settledwatch::~settledwatch() { painter->setClipping(false); }

bool settledwatch::settledAfter(qint64 pixels)
{
    painted += pixels;
    if (!picture || painted < lookAt)
        return false;
    if (!looked && !treatsPlacesAlike()) {
        picture = nullptr;
        return false;
    }
    looked = true;
    lookAt = growth * painted;
    return clipToUnsettled();
}

bool settledwatch::clipToUnsettled()
{
    bool nothingLeft = true;
    for (int top = 0; top < area.height(); top += tileSize) {
        for (int left = 0; left < area.width(); left += tileSize) {
            const QRect tile = QRect(left, top, tileSize, tileSize).intersected(area);
            if (settled.contains(tile.center()))
                continue;
            if (isSettled(tile))
                settled += tile;
            else
                nothingLeft = false;
        }
    }
    // The outermost pixels stay in the clip: so the toolkit rasterises each shape as it does without one.
    const QRect inner = area.adjusted(1, 1, -1, -1);
    painter->setClipRegion(QRegion(area) - settled.intersected(inner));
    return nothingLeft;
}

/// Whether painting the pen's colour over these pixels leaves each as it is. Most parts that change do so in their
/// first row.
bool settledwatch::isSettled(const QRect& part) const
{
    return staysAsItIs(QRect(part.topLeft(), QSize(part.width(), 1))) && staysAsItIs(part);
}

bool settledwatch::staysAsItIs(const QRect& part) const
{
    const QImage before = picture->copy(part);
    return fillSpans(before, part.width()) == before;
}

QImage settledwatch::fillSpans(QImage picture, int length) const
{
    QPainter trial(&picture);
    trial.setCompositionMode(painter->compositionMode());
    for (int left = 0; left < picture.width(); left += length)
        trial.fillRect(QRect(left, 0, length, picture.height()), painter->pen().brush());
    trial.end();
    return picture;
}

/// Whether the toolkit does the same to a pixel wherever it lies in a span. For pixels that are not opaque it may not:
/// it treats several at once, and the last ones of a span one by one, which may round differently.
bool settledwatch::treatsPlacesAlike() const
{
    if (painter->pen().brush().isOpaque())
        return true;
    // The colours of a pixel do not depend on each other, so these are all that there can be.
    QImage all(256, 256, picture->format());
    for (int alpha = 0; alpha < 256; ++alpha) {
        for (int value = 0; value < 256; ++value)
            all.setPixel(value, alpha, qRgba(value, value, value, alpha));
    }
    return fillSpans(all, all.width()) == fillSpans(all, 1);
}
