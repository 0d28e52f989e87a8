#include "strokesamples.h"

#include "brushes/kelvortool.h"
#include "pictures.h"
#include "tests/brushes/randompainting.h"

namespace strokesamples {

QList<QPoint> points(int count)
{
    randompainting random(20);
    QList<QPoint> way{QPoint(pictures::side / 2, pictures::side / 3)};
    while (way.size() < count)
        way.append(way.last() + QPoint(random.number(-4, 12), random.number(-6, 10)));
    return way;
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
