#include "layers.h"

#include <QPainter>

#include <algorithm>

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
        const QRgb* row = reinterpret_cast<const QRgb*>(layer.constScanLine(y)) + rectangle.left();
        if (!std::all_of(row, row + rectangle.width(), [](QRgb pixel) { return qAlpha(pixel) == 255; })) {
            return false;
        }
    }
    return true;
}

void layers::compose(QImage& band, const QPoint& origin, const QImage& background, const QImage& canvas)
{
    band.fill(band.hasAlphaChannel() ? Qt::transparent : Qt::white);
    QPainter painter(&band);
    painter.translate(-origin);
    if (!background.isNull()) {
        // The picture is what the canvas covers; a larger background is cut to it.
        painter.drawImage(QPoint(), background, canvas.rect());
    }
    painter.drawImage(QPoint(), canvas);
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
