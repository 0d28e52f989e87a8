#include "literalpixels.h"

#include <QList>
#include <QPainter>

using effects::effect;

void literal::floodFill(QImage& image, const QPoint& seed, QRgb fill)
{
    if (!image.valid(seed)) {
        return;
    }
    const QRgb target = image.pixel(seed);
    if (target == fill) {
        return;
    }
    QList<QPoint> queue{seed};
    while (!queue.isEmpty()) {
        const QPoint point = queue.takeFirst();
        if (!image.valid(point) || image.pixel(point) != target) {
            continue;
        }
        image.setPixel(point, fill);
        queue.append(point + QPoint(0, 1));
        queue.append(point + QPoint(-1, 0));
        queue.append(point + QPoint(0, -1));
        queue.append(point + QPoint(1, 0));
    }
}

QImage literal::transformed(const QImage& image, effect kind)
{
    QImage result(image.size(), QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb here = image.pixel(x, y);
            switch (kind) {
            case effect::flipHorizontally:
                result.setPixel(x, y, image.pixel(image.width() - 1 - x, y));
                break;
            case effect::flipVertically:
                result.setPixel(x, y, image.pixel(x, image.height() - 1 - y));
                break;
            case effect::swapChannels:
                result.setPixel(x, y, qRgba(qBlue(here), qGreen(here), qRed(here), qAlpha(here)));
                break;
            case effect::invertColors:
                result.setPixel(x, y, qRgba(255 - qRed(here), 255 - qGreen(here), 255 - qBlue(here), qAlpha(here)));
                break;
            case effect::grayscale: {
                const int grey = (11 * qRed(here) + 16 * qGreen(here) + 5 * qBlue(here)) / 32;
                result.setPixel(x, y, qRgba(grey, grey, grey, qAlpha(here)));
                break;
            }
            }
        }
    }
    return result;
}

void literal::applyWhole(QImage& image, effect kind) { image = transformed(image, kind); }

void literal::applyRegion(QImage& image, effect kind, const QRect& region)
{
    const QImage result = transformed(image.copy(region), kind);
    QPainter painter(&image);
    painter.drawImage(region.topLeft(), result);
}

void literal::clearRegion(QImage& image, const QRect& region, bool opaque)
{
    QPainter painter(&image);
    if (!opaque) {
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
    }
    painter.eraseRect(QRectF(region));
}

void literal::normalise(QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == 0x00ffffff) {
                image.setPixel(x, y, 0xffffffff);
            }
        }
    }
}

QImage literal::merged(const QImage& background, const QImage& canvas)
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

QImage literal::shown(const QSize& screen, const QImage& background, const QImage& canvas)
{
    QImage paper(screen, QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    if (background.isNull()) {
        painter.drawImage(0, 0, canvas);
        return paper;
    }
    QImage both(canvas.size(), QImage::Format_ARGB32);
    both.fill(Qt::transparent);
    QPainter layers(&both);
    layers.setCompositionMode(QPainter::CompositionMode_Source);
    layers.drawImage(0, 0, background);
    layers.setCompositionMode(QPainter::CompositionMode_SourceOver);
    layers.drawImage(0, 0, canvas);
    layers.end();
    painter.drawImage(0, 0, both);
    return paper;
}
