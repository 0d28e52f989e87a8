#include "settledwatch.h"

#include "strokes.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstring>

settledwatch::settledwatch(QPainter* painter)
    : painter(painter)
    , picture(strokes::pictureOf(painter))
    , lookAt(picture ? qint64(picture->width()) * picture->height() : 0)
{
}

bool settledwatch::settledAfter(qint64 pixels)
{
    painted += pixels;
    if (!picture || painted < lookAt)
        return false;
    lookAt = 2 * painted;
    return isSettled();
}

bool settledwatch::isSettled() const
{
    const auto row = [this](int y) { return reinterpret_cast<const QRgb*>(picture->constScanLine(y)); };
    const QRgb first = row(0)[0];
    if (std::any_of(row(0), row(0) + picture->width(), [first](QRgb pixel) { return pixel != first; }))
        return false;
    const std::size_t bytes = static_cast<std::size_t>(picture->width()) * sizeof(QRgb);
    for (int y = 1; y < picture->height(); ++y) {
        if (std::memcmp(row(0), row(y), bytes) != 0)
            return false;
    }
    QImage pixel(1, 1, picture->format());
    std::memcpy(pixel.bits(), &first, sizeof first);
    QPainter trial(&pixel);
    trial.setCompositionMode(painter->compositionMode());
    trial.fillRect(pixel.rect(), painter->pen().brush());
    trial.end();
    return std::memcmp(pixel.constBits(), &first, sizeof first) == 0;
}
