#include "canvas/floodfill.h"
#include "pictures.h"
#include "row.h"
#include "tests/canvas/literalpixels.h"

#include <algorithm>
#include <memory>

namespace {

constexpr QRgb fillColor = 0xffff8000;
constexpr double mostHeap = 256 * 1024;

/// A picture and a copy of it to be filled again and again.
struct filling {
    explicit filling(const QImage& picture)
        : picture(picture)
        , canvas(picture.copy())
    {
    }

    /// Into the same memory: its pages are there already, as those of a canvas are.
    void restore() { std::copy_n(picture.constBits(), picture.sizeInBytes(), canvas.bits()); }

    QImage picture;
    QImage canvas;
};

std::vector<contender> fillers(const std::shared_ptr<filling>& on)
{
    const auto restore = [on] { on->restore(); };
    return {
        {"product", [on] { floodFill(on->canvas, QPoint(0, 0), fillColor); }, restore},
        {"literal", [on] { literal::floodFill(on->canvas, QPoint(0, 0), fillColor); }, restore, 1, true},
    };
}

row patternRow(const std::string& pattern, QImage (*make)(const QSize&))
{
    const std::string work = "Flood fill, " + pattern;
    const auto makeContenders = [make] { return fillers(std::make_shared<filling>(make(pictures::size))); };
    return {"fill/" + pattern,
            makeContenders,
            {{work + ": literal steps", quantity::seconds, "literal", "product", claim::side::atLeast, 4},
             {work + ": extra heap", quantity::heap, "product", "", claim::side::atMost, mostHeap}},
            5};
}

} // namespace

std::vector<row> fillRows()
{
    const auto blank = [] {
        const auto on = std::make_shared<filling>(pictures::blank(pictures::size));
        std::vector<contender> all = fillers(on);
        const auto fillAll = [on] {
            QRgb* pixels = reinterpret_cast<QRgb*>(on->canvas.bits());
            std::fill(pixels, pixels + pictures::side * pictures::side, fillColor);
        };
        all.push_back({"std::fill", fillAll, [on] { on->restore(); }});
        return all;
    };
    return {
        {"fill/blank",
         blank,
         {{"Flood fill, blank: std::fill", quantity::seconds, "product", "std::fill", claim::side::atMost, 2},
          {"Flood fill, blank: literal steps", quantity::seconds, "literal", "product", claim::side::atLeast, 100},
          {"Flood fill, blank: extra heap", quantity::heap, "product", "", claim::side::atMost, mostHeap}},
         5},
        patternRow("maze", pictures::maze),
        patternRow("comb", pictures::comb),
        patternRow("spiral", pictures::spiral),
        patternRow("noise of 65 %", pictures::noise),
    };
}
