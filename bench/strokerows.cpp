#include "brushes/airbrushbrush.h"
#include "brushes/pencilbrush.h"
#include "pictures.h"
#include "row.h"
#include "strokesamples.h"
#include "tests/brushes/literalbrushes.h"

#include <QPainter>

#include <cstdlib>
#include <memory>

namespace {

using strokesamples::color;

/// The product's brush and the plain calls, each with a painter that is opened for the batch as on a canvas.
row pencilRow(const std::string& width, qreal thick)
{
    const auto make = [thick]() -> std::vector<contender> {
        const auto canvas = std::make_shared<QImage>(pictures::blank(pictures::size));
        const auto pencil = std::make_shared<pencilbrush>();
        // A long way of a hand, batch after batch, each with steps of its own.
        const auto hand = std::make_shared<strokesamples::hand>();
        const auto product = [=] {
            QPainter painter(canvas.get());
            pencil->replay(&painter, color(), thick, hand->nextBatch());
        };
        const auto plain = [=] {
            QPainter painter(canvas.get());
            literal::pencil(&painter, color(), thick, hand->nextBatch());
        };
        return {{"product", product, nullptr, strokesamples::hand::batches},
                {"literal", plain, nullptr, strokesamples::hand::batches}};
    };
    const std::string work = "Painting a batch of 20 points, width " + width + ": drawPoint and drawLine";
    return {"pencil/" + width,
            make,
            {{work + ", instructions", quantity::instructions, "product", "literal", claim::side::atMost, 1.1},
             {work + ", time", quantity::seconds, "literal", "product", claim::side::atLeast, 3, true}}};
}

void sprayWithPainterADisc(QImage* canvas, qreal thick, const QList<QPoint>& points)
{
    for (int i = 1; i < points.size(); ++i) {
        const QPoint from = points.at(i - 1);
        const QPoint way = points.at(i) - from;
        const int discs = way.manhattanLength() / 2 + 2;
        const auto pattern = static_cast<Qt::BrushStyle>(Qt::Dense1Pattern + std::rand() % 7);
        const int extent = static_cast<int>(thick) - 1;
        for (int disc = 0; disc < discs; ++disc) {
            const QPoint place(from.x() + way.x() * disc / (discs - 1), from.y() + way.y() * disc / (discs - 1));
            const QPoint corner(static_cast<int>(place.x() - thick / 2), static_cast<int>(place.y() - thick / 2));
            QPainter painter(canvas);
            painter.setPen(Qt::NoPen);
            painter.setBrush(QBrush(color(), pattern));
            painter.drawEllipse(QRect(corner, corner + QPoint(extent, extent)));
        }
    }
}

row airbrushRow(const std::string& width, qreal thick)
{
    const auto make = [thick]() -> std::vector<contender> {
        const auto canvas = std::make_shared<QImage>(pictures::blank(pictures::size));
        const QList<QPoint> points = strokesamples::points();
        // The same patterns for all.
        const auto prepare = [] { std::srand(1); };
        const auto product = [=] {
            QPainter painter(canvas.get());
            airbrushbrush().replay(&painter, color(), thick, points);
        };
        const auto onePainter = [=] {
            QPainter painter(canvas.get());
            literal::airbrush(&painter, color(), thick, points);
        };
        const auto painterADisc = [=] { sprayWithPainterADisc(canvas.get(), thick, points); };
        return {{"product", product, prepare, 5},
                {"painter a disc", painterADisc, prepare},
                {"one painter", onePainter, prepare}};
    };
    const std::string work = "Airbrush, width " + width + ": a painter a disc";
    return {"airbrush/" + width,
            make,
            {{work, quantity::seconds, "painter a disc", "product", claim::side::atLeast, 1.2},
             {work, quantity::seconds, "painter a disc", "product", claim::side::atLeast, 8, true}}};
}

} // namespace

std::vector<row> strokeRows()
{
    return {
        pencilRow("1", 1),     pencilRow("5.5", 5.5), pencilRow("40", 40),
        airbrushRow("10", 10), airbrushRow("50", 50), airbrushRow("200", 200),
    };
}
