#include "pictures.h"

#include <QPainter>

#include <array>
#include <random>
#include <vector>

namespace {

constexpr QRgb white = 0xffffffff;
constexpr QRgb wall = 0xff204060;

QImage filled(const QSize& size, QRgb value)
{
    QImage picture(size, QImage::Format_ARGB32);
    picture.fill(value);
    return picture;
}

constexpr std::array<QPoint, 4> directions{QPoint(1, 0), QPoint(0, 1), QPoint(-1, 0), QPoint(0, -1)};

void paintPatches(QImage& picture)
{
    std::mt19937 random(77);
    QPainter painter(&picture);
    for (int patch = 0; patch < 400; ++patch) {
        const int x = static_cast<int>(random() % static_cast<unsigned>(picture.width()));
        const int y = static_cast<int>(random() % static_cast<unsigned>(picture.height()));
        painter.fillRect(x, y, picture.width() / 30, picture.height() / 40,
                         QColor::fromRgb(static_cast<QRgb>(random())));
    }
}

} // namespace

namespace pictures {

QImage blank(const QSize& size) { return filled(size, white); }

QImage maze(const QSize& size)
{
    QImage picture = filled(size, wall);
    std::mt19937 random(7);
    std::vector<QPoint> way{QPoint(0, 0)};
    picture.setPixel(way.back(), white);
    while (!way.empty()) {
        const QPoint here = way.back();
        std::array<QPoint, 4> order = directions;
        std::shuffle(order.begin(), order.end(), random);
        bool walked = false;
        for (const QPoint& step : order) {
            const QPoint next = here + 2 * step;
            if (!picture.valid(next) || picture.pixel(next) == white)
                continue;
            picture.setPixel(here + step, white);
            picture.setPixel(next, white);
            way.push_back(next);
            walked = true;
            break;
        }
        if (!walked)
            way.pop_back();
    }
    return picture;
}

QImage comb(const QSize& size)
{
    QImage picture = filled(size, wall);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); x += y == 0 ? 1 : 2)
            picture.setPixel(x, y, white);
    }
    return picture;
}

QImage spiral(const QSize& size)
{
    QImage picture = filled(size, wall);
    const auto isFree = [&picture](const QPoint& place) {
        return !picture.valid(place) || picture.pixel(place) == wall;
    };
    QPoint here(0, 0);
    picture.setPixel(here, white);
    std::size_t direction = 0;
    for (int turns = 0; turns < 2;) {
        const QPoint step = directions[direction];
        // A wall of one pixel stays between one winding and the next.
        if (picture.valid(here + step) && isFree(here + step) && isFree(here + 2 * step)) {
            here += step;
            picture.setPixel(here, white);
            turns = 0;
        } else {
            direction = (direction + 1) % directions.size();
            ++turns;
        }
    }
    return picture;
}

QImage noise(const QSize& size)
{
    QImage picture = filled(size, wall);
    std::mt19937 random(65);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            // The first row is free, so that its corner belongs to the large area.
            if (y == 0 || random() % 100 < 65)
                picture.setPixel(x, y, white);
        }
    }
    return picture;
}

QImage painted(const QSize& size)
{
    QImage picture = blank(size);
    paintPatches(picture);
    return picture;
}

QImage paintedOver(const QSize& size)
{
    QImage picture = filled(size, 0x00ffffff);
    paintPatches(picture);
    return picture;
}

} // namespace pictures
