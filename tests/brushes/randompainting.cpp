#include "randompainting.h"

#include <limits>

QPoint randompainting::point(const QSize& size, int outside)
{
    return QPoint(number(-outside, size.width() - 1 + outside), number(-outside, size.height() - 1 + outside));
}

QList<QPoint> randompainting::stroke(int count, const QSize& size, int outside)
{
    QList<QPoint> points{point(size, outside)};
    while (points.size() < count) {
        if (chance(8))
            points.append(point(size, outside));
        else
            points.append(points.last() + QPoint(number(-9, 9), number(-9, 9)));
    }
    return points;
}

int randompainting::hostileCoordinate()
{
    switch (number(0, 4)) {
    case 0:
        return number(-100, 200);
    case 1:
        return number(-40000, 40000);
    case 2:
        return number(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    case 3:
        return std::numeric_limits<int>::min() + number(0, 2);
    default:
        return std::numeric_limits<int>::max() - number(0, 2);
    }
}

QList<QPoint> randompainting::hostileStroke(int count)
{
    QList<QPoint> points;
    while (points.size() < count)
        points.append(QPoint(hostileCoordinate(), hostileCoordinate()));
    return points;
}

qreal randompainting::hostileWidth()
{
    const qreal odd[] = {0.0,
                         -0.0,
                         -1.0,
                         -12.5,
                         -1e9,
                         1e-9,
                         0.5,
                         3000.0,
                         40000.0,
                         1e6,
                         1e9,
                         1e12,
                         1e30,
                         1e300,
                         std::numeric_limits<qreal>::infinity(),
                         -std::numeric_limits<qreal>::infinity(),
                         std::numeric_limits<qreal>::quiet_NaN()};
    const int count = static_cast<int>(sizeof odd / sizeof *odd);
    return chance(2) ? odd[number(0, count - 1)] : number(1, 60000) / 7.0;
}

QImage randompainting::picture(const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, chance(3) ? 0x00ffffffu : static_cast<QRgb>(generator()));
    }
    return image;
}
