#include "strokesamples.h"

#include "brushes/kelvortool.h"
#include "pictures.h"
#include "tests/brushes/randompainting.h"

#include <algorithm>

namespace strokesamples {

QList<QPoint> points(int count)
{
    randompainting random(20);
    QList<QPoint> way{QPoint(pictures::side / 2, pictures::side / 3)};
    while (way.size() < count)
        way.append(way.last() + QPoint(random.number(-4, 12), random.number(-6, 10)));
    return way;
}

hand::hand()
{
    randompainting random(21);
    const int fastest = 10;
    const int margin = 250;
    QPoint place(pictures::side / 2, pictures::side / 3);
    QPoint speed(3, 2);
    const auto changed = [&](int along, int where) {
        const int drawn = where < margin ? 1 : where > pictures::side - margin ? -1 : random.number(-2, 2);
        return std::clamp(along + drawn, -fastest, fastest);
    };
    for (std::size_t i = 0; i < batches; ++i) {
        QList<QPoint> points{place};
        while (points.size() < batch) {
            speed = QPoint(changed(speed.x(), place.x()), changed(speed.y(), place.y()));
            place += speed;
            points.append(place);
        }
        way.push_back(points);
    }
}

drawmessage message(qreal thick)
{
    drawmessage batchOfPoints;
    batchOfPoints.sender = 2;
    batchOfPoints.tool = static_cast<char>(kelvortool::pencil);
    batchOfPoints.color = color().name();
    batchOfPoints.thick = thick;
    batchOfPoints.points = points();
    return batchOfPoints;
}

} // namespace strokesamples
