#include "randompictures.h"

#include <QVector>

QImage randompictures::make(QRandomGenerator& random, const QSize& size, kind contents)
{
    const QVector<QRgb> colors{0xffffffff, 0xff000000, 0xffff0000,
                               contents == kind::unpainted ? 0x00ffffff : 0xff12ab34};
    QImage picture(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            QRgb value = contents == kind::mixed ? random.generate() : colors.at(random.bounded(4));
            // Alpha 0 and 255 and transparent white have to come up often enough to meet each other.
            if (contents == kind::mixed && random.bounded(3) == 0) {
                value = random.bounded(2) ? value | 0xff000000 : 0x00ffffff;
            }
            // Patches of several pixels, for most neighbours in a picture are alike.
            const bool likeLeft = x > 0 && random.bounded(3) != 0;
            const bool likeAbove = y > 0 && random.bounded(2) != 0;
            if (likeLeft) {
                value = picture.pixel(x - 1, y);
            } else if (likeAbove) {
                value = picture.pixel(x, y - 1);
            }
            picture.setPixel(x, y, value);
        }
    }
    return picture;
}

QPoint randompictures::point(QRandomGenerator& random, const QSize& size)
{
    const int margin = 12;
    return {random.bounded(-margin, size.width() + margin), random.bounded(-margin, size.height() + margin)};
}

QRect randompictures::region(QRandomGenerator& random, const QSize& size)
{
    return {point(random, size), point(random, size)};
}
