#include "canvas/effects.h"
#include "pictures.h"
#include "row.h"
#include "tests/canvas/literalpixels.h"

#include <cstring>
#include <memory>

using effects::effect;

namespace {

/// A picture that an effect is applied to, and another one of its size for plain copies.
struct twopictures {
    explicit twopictures(const QImage& picture)
        : canvas(picture)
        , copy(picture.copy())
    {
        canvas.detach();
    }

    void copyAll() { std::memcpy(copy.bits(), canvas.constBits(), static_cast<std::size_t>(canvas.sizeInBytes())); }

    QImage canvas;
    QImage copy;
};

// Far below a picture's size, 16 MB, and enough for a few strips.
constexpr double mostHeap = 512 * 1024;

row wholeRow(const std::string& name, effect kind, double bound)
{
    const std::string work = "Effect, " + name;
    const auto make = [kind]() -> std::vector<contender> {
        const auto on = std::make_shared<twopictures>(pictures::painted(pictures::size));
        return {{"product", [on, kind] { effects::apply(on->canvas, kind); }},
                {"memcpy", [on] { on->copyAll(); }},
                {"literal", [on, kind] { literal::applyWhole(on->canvas, kind); }, nullptr, 1, true}};
    };
    return {"effect/" + name,
            make,
            {{work + ": memcpy", quantity::seconds, "product", "memcpy", claim::side::atMost, bound},
             {work + ": extra heap", quantity::heap, "product", "", claim::side::atMost, mostHeap}}};
}

/// What a selection of a quarter and of a hundredth of the picture takes, beside the whole.
row selectionRow(const std::string& name, effect kind, bool opaque)
{
    const auto make = [kind, opaque]() -> std::vector<contender> {
        const auto on = std::make_shared<twopictures>(opaque ? pictures::painted(pictures::size)
                                                             : pictures::paintedOver(pictures::size));
        const auto selected = [on, kind](int side) {
            return [on, kind, side] { effects::apply(on->canvas, kind, QRect(QPoint(200, 300), QSize(side, side))); };
        };
        const QRect whole(QPoint(), pictures::size);
        // The whole as a selection, so that all three do the same for a pixel.
        return {{"whole", [on, kind, whole] { effects::apply(on->canvas, kind, whole); }},
                {"quarter", selected(pictures::side / 2)},
                {"hundredth", selected(pictures::side / 10), nullptr, 20}};
    };
    const std::string work = "Effect, " + name + ": selection of a ";
    const double tolerance = 1.5;
    return {"selection/" + name,
            make,
            {{work + "quarter", quantity::seconds, "quarter", "whole", claim::side::atMost, tolerance / 4},
             {work + "hundredth", quantity::seconds, "hundredth", "whole", claim::side::atMost, tolerance / 100},
             {work + "quarter, extra heap", quantity::heap, "quarter", "", claim::side::atMost, mostHeap}}};
}

} // namespace

std::vector<row> effectRows()
{
    return {
        wholeRow("invert", effect::invertColors, 1.2),
        wholeRow("swap", effect::swapChannels, 1.5),
        wholeRow("flip vertical", effect::flipVertically, 1.7),
        wholeRow("flip horizontal", effect::flipHorizontally, 2.5),
        wholeRow("greyscale", effect::grayscale, 3),
        selectionRow("invert", effect::invertColors, true),
        selectionRow("flip horizontal", effect::flipHorizontally, true),
        selectionRow("flip vertical, transparent pixels", effect::flipVertically, false),
    };
}
