#include "brushes/pencilbrush.h"
#include "canvas/effects.h"
#include "canvas/floodfill.h"
#include "canvas/paintscene.h"
#include "clienthouse.h"
#include "pictures.h"
#include "row.h"
#include "strokesamples.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>

namespace {

const std::vector<double> megapixels{0.2, 1, 4, 16};
constexpr double longestStep = 0.050;
/// The smallest picture lies in a cache that the next one is too large for: a plain copy is among the rows to compare.
constexpr double cacheGrowth = 3;

QSize sizeOf(double amount)
{
    const int side = static_cast<int>(std::lround(1000 * std::sqrt(amount)));
    return QSize(side, side);
}

std::string nameOf(double amount) { return QString::number(amount).toStdString(); }

/// Something done to a canvas of each size; what was on it is there again before each time.
row growing(const std::string& name, QImage (*make)(const QSize&), void (*work)(QImage& canvas, QImage& picture))
{
    const auto makeAll = [make, work] {
        std::vector<contender> all;
        for (const double amount : megapixels) {
            const auto picture = std::make_shared<QImage>(make(sizeOf(amount)));
            const auto canvas = std::make_shared<QImage>(picture->copy());
            const auto restore = [=] { std::copy_n(picture->constBits(), picture->sizeInBytes(), canvas->bits()); };
            all.push_back({nameOf(amount), [=] { work(*canvas, *picture); }, restore, 1, false, amount});
        }
        return all;
    };
    row grown{"growth: " + name, makeAll, {}, 3};
    grown.growsBy = "megapixels";
    grown.mostFirstGrowth = cacheGrowth;
    grown.longestStep = longestStep;
    return grown;
}

template <effects::effect kind> void applyEffect(QImage& canvas, QImage&) { effects::apply(canvas, kind); }

void fill(QImage& canvas, QImage&) { floodFill(canvas, QPoint(0, 0), 0xffff8000); }

void copy(QImage& canvas, QImage& picture)
{
    std::memcpy(canvas.bits(), picture.constBits(), static_cast<std::size_t>(picture.sizeInBytes()));
}

row repaintRow()
{
    const auto makeAll = [] {
        std::vector<contender> all;
        for (const double amount : megapixels) {
            const QSize size = sizeOf(amount);
            const auto scene = std::make_shared<paintscene>(size.width(), size.height(), nullptr);
            scene->setImage(QString(), false);
            scene->show();
            clienthouse::settle();
            all.push_back({nameOf(amount), [scene] { scene->repaint(); }, nullptr, 1, false, amount});
        }
        return all;
    };
    row grown{"growth: repaint", makeAll, {}, 3};
    grown.growsBy = "megapixels";
    grown.longestStep = longestStep;
    return grown;
}

/// The same strokes on canvases of each size: as much work on all of them.
row replayRow()
{
    const auto makeAll = [] {
        std::vector<contender> all;
        for (const double amount : megapixels) {
            const auto canvas = std::make_shared<QImage>(pictures::blank(sizeOf(amount)));
            QList<QPoint> points = strokesamples::points();
            // Into the smallest canvas.
            for (QPoint& point : points)
                point -= QPoint(pictures::side / 2 - 20, pictures::side / 3 - 200);
            const auto pencil = std::make_shared<pencilbrush>();
            const auto replay = [canvas, pencil, points] {
                QPainter painter(canvas.get());
                pencil->replay(&painter, strokesamples::color(), 5.5, points);
            };
            all.push_back({nameOf(amount), replay, nullptr, 20, false, 1});
        }
        return all;
    };
    row grown{"growth: replay of a batch", makeAll, {}, 3};
    grown.growsBy = "batch, on so many megapixels";
    grown.longestStep = longestStep;
    return grown;
}

} // namespace

std::vector<row> pictureGrowthRows()
{
    using effects::effect;
    return {
        growing("memcpy", pictures::painted, copy),
        growing("fill, blank", pictures::blank, fill),
        growing("fill, noise of 65 %", pictures::noise, fill),
        growing("fill, maze", pictures::maze, fill),
        growing("invert", pictures::painted, applyEffect<effect::invertColors>),
        growing("flip horizontal", pictures::painted, applyEffect<effect::flipHorizontally>),
        growing("flip vertical", pictures::painted, applyEffect<effect::flipVertically>),
        growing("greyscale", pictures::painted, applyEffect<effect::grayscale>),
        repaintRow(),
        replayRow(),
    };
}
