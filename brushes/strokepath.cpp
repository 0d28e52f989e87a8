#include "strokepath.h"

#include "settledwatch.h"
#include "strokes.h"
#include "strokestamps.h"

#include <QPainter>
#include <QVector>

#include <algorithm>
#include <tuple>

namespace {

/// The toolkit makes one path of this many shapes when it is given more. That pays for wide strokes, where most of the
/// time is filling; a narrow path with many edges in a row takes longer than the shapes one by one.
constexpr int groupSize = 16;
constexpr double groupWidth = 400;

/// Up to this distance from the origin the toolkit rasterises a path as it stands. One that reaches further is clipped
/// by arithmetic first, and several shapes clipped together can give other pixels than each by itself.
constexpr double clipDistance = 32000;

void drawShapes(QPainter* painter, const QPoint* dots, int count) { painter->drawPoints(dots, count); }
void drawShapes(QPainter* painter, const QLine* lines, int count) { painter->drawLines(lines, count); }

std::tuple<int, int, int, int> ends(const QPoint& dot) { return {dot.x(), dot.y(), dot.x(), dot.y()}; }
std::tuple<int, int, int, int> ends(const QLine& line) { return {line.x1(), line.y1(), line.x2(), line.y2()}; }

QVector<QPoint>& listOf(const QPoint&, QVector<QPoint>& dots, QVector<QLine>&) { return dots; }
QVector<QLine>& listOf(const QLine&, QVector<QPoint>&, QVector<QLine>& lines) { return lines; }

template <typename Shape> void removeRepeats(QVector<Shape>* shapes)
{
    std::sort(shapes->begin(), shapes->end(), [](const Shape& a, const Shape& b) { return ends(a) < ends(b); });
    shapes->erase(std::unique(shapes->begin(), shapes->end()), shapes->end());
}

/// Paints shapes with the painter's pen, less what nobody can see: shapes that do not touch the picture, and in a long
/// stroke those parts of the picture that more painting does not change.
class pathpainter {
public:
    /// Without stamps the toolkit paints all.
    explicit pathpainter(QPainter* painter, strokestamps* stamps = nullptr)
        : painter(painter)
        , stamps(stamps)
        , watch(painter)
        , picture(strokes::paintableRect(painter))
        , reach(painter->pen().widthF() / 2 + 2)
        , atOnce(painter->pen().widthF() < groupWidth ? 1 : groupSize)
    {
        if (stamps)
            stamps->begin(painter);
    }

    template <typename Shape> bool isVisible(const Shape& shape) const { return boundsOf(shape).intersects(picture); }

    template <typename Shape> void draw(const Shape& shape)
    {
        if (!settled && isVisible(shape))
            drawGroup(&shape, 1);
    }

    /// For shapes whose order does not matter.
    template <typename Shape> void drawAll(QVector<Shape>* shapes)
    {
        removeRepeats(shapes);
        const QRectF plain(-clipDistance, -clipDistance, 2 * clipDistance, 2 * clipDistance);
        Shape* const far = std::partition(shapes->begin(), shapes->end(),
                                          [&](const Shape& shape) { return plain.contains(boundsOf(shape)); });
        const Shape* next = shapes->begin();
        while (!settled && next != shapes->end()) {
            const int count = next < far ? static_cast<int>(std::min<std::ptrdiff_t>(far - next, atOnce)) : 1;
            drawGroup(next, count);
            next += count;
        }
    }

private:
    template <typename Shape> QRectF boundsOf(const Shape& shape) const
    {
        const auto [x1, y1, x2, y2] = ends(shape);
        const QPointF corner(std::min(x1, x2) - reach, std::min(y1, y2) - reach);
        return QRectF(corner, QPointF(std::max(x1, x2) + reach, std::max(y1, y2) + reach));
    }

    template <typename Shape> void drawGroup(const Shape* shapes, int count)
    {
        if (count > 1 || !stamps || !stamps->lay(*shapes))
            drawShapes(painter, shapes, count);
        for (const Shape* shape = shapes; shape != shapes + count; ++shape) {
            const QRectF touched = boundsOf(*shape).intersected(picture);
            pixels += touched.width() * touched.height();
        }
        settled = watch.settledAfter(static_cast<qint64>(pixels));
        pixels = 0;
    }

    QPainter* painter;
    strokestamps* stamps;
    settledwatch watch;
    QRectF picture;
    double reach;
    int atOnce;
    double pixels = 0; ///< what was painted and not told to the watch
    bool settled = false;
};

template <typename Visit> void forEachShape(const QList<QPoint>& points, Visit visit)
{
    for (int i = 0; i < points.size(); ++i) {
        visit(points.at(i));
        if (i > 0)
            visit(QLine(points.at(i - 1), points.at(i)));
    }
}

/// Where strokes of a half-transparent colour cross, the colours add up in the order of painting.
void drawInOrder(QPainter* painter, const QList<QPoint>& points)
{
    pathpainter path(painter);
    forEachShape(points, [&path](const auto& shape) { path.draw(shape); });
}

/// What hides all that is below it can be painted in any order, and the toolkit is much faster with many shapes at
/// once.
void drawTogether(QPainter* painter, const QList<QPoint>& points, strokestamps* stamps)
{
    pathpainter path(painter, stamps);
    QVector<QPoint> dots;
    QVector<QLine> lines;
    const auto keep = [&](const auto& shape) {
        if (path.isVisible(shape))
            listOf(shape, dots, lines).append(shape);
    };
    forEachShape(points, keep);
    path.drawAll(&dots);
    path.drawAll(&lines);
}

} // namespace

namespace strokepath {

void drawDot(QPainter* painter, const QPoint& dot) { painter->drawPoint(dot); }

void drawStep(QPainter* painter, const QPoint& dot, const QLine& line)
{
    drawDot(painter, dot);
    painter->drawLine(line);
}

void drawPath(QPainter* painter, const QList<QPoint>& points, strokestamps* stamps)
{
    QPen pen = painter->pen();
    const qreal width = pen.widthF();
    const bool clears = painter->compositionMode() == QPainter::CompositionMode_Clear;
    if (width <= 1.0) {
        // The toolkit makes thin lines fainter than their colour, so that they add up; it paints them fast.
        forEachShape(points, [painter](const auto& shape) { drawShapes(painter, &shape, 1); });
    } else if (clears) {
        // Clearing looks at no colour, and shapes of an opaque one are painted several at once.
        pen.setBrush(Qt::black);
        painter->setPen(pen);
        drawTogether(painter, points, stamps);
    } else if (pen.brush().isOpaque()) {
        drawTogether(painter, points, stamps);
    } else {
        drawInOrder(painter, points);
    }
}

} // namespace strokepath
