#include "canvas/paintscene.h"
#include "clienthouse.h"
#include "pictures.h"
#include "row.h"
#include "tests/canvas/literalpixels.h"

#include <QImage>
#include <QTemporaryDir>

#include <cstring>
#include <memory>

namespace {

constexpr QRect region(900, 700, 100, 100);
constexpr QRect everything(QPoint(), pictures::size);

/// A shown canvas over a background, and the same two layers as plain pictures.
struct shownscene {
    shownscene()
        : background(pictures::painted(pictures::size).mirrored())
        , canvas(pictures::paintedOver(pictures::size))
        , screen(pictures::size, QImage::Format_RGB32)
    {
        const QString path = directory.filePath(QString::fromLatin1("background.png"));
        background.save(path, "PNG", 100);
        scene.setImage(path, true);
        scene.show();
        clienthouse::settle();
    }

    void copy(const QRect& rows)
    {
        for (int y = rows.top(); y <= rows.bottom(); ++y) {
            const std::size_t offset = static_cast<std::size_t>(rows.left()) * sizeof(QRgb);
            std::memcpy(screen.scanLine(y) + offset, canvas.constScanLine(y) + offset,
                        static_cast<std::size_t>(rows.width()) * sizeof(QRgb));
        }
    }

    QTemporaryDir directory;
    paintscene scene{pictures::side, pictures::side, nullptr};
    QImage background;
    QImage canvas;
    QImage screen;
};

} // namespace

std::vector<row> repaintRows()
{
    const auto regional = []() -> std::vector<contender> {
        const auto on = std::make_shared<shownscene>();
        return {{"product", [on] { on->scene.repaint(region); }, nullptr, 20},
                {"copy", [on] { on->copy(region); }, nullptr, 20},
                {"literal", [on] { literal::shown(pictures::size, on->background, on->canvas); }, nullptr, 1, true}};
    };
    const auto whole = []() -> std::vector<contender> {
        const auto on = std::make_shared<shownscene>();
        return {{"product", [on] { on->scene.repaint(everything); }},
                {"memcpy", [on] { on->copy(everything); }},
                {"literal", [on] { literal::shown(pictures::size, on->background, on->canvas); }, nullptr, 1, true}};
    };
    return {
        {"repaint/region",
         regional,
         {{"Repaint of 100 by 100 over a background: a copy of them", quantity::seconds, "product", "copy",
           claim::side::atMost, 4},
          {"Repaint of 100 by 100 over a background: composing the whole", quantity::seconds, "literal", "product",
           claim::side::atLeast, 400}}},
        {"repaint/whole",
         whole,
         {{"Repaint of the whole over a background: memcpy", quantity::seconds, "product", "memcpy",
           claim::side::atMost, 4}}},
    };
}
