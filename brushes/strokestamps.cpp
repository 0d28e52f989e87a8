#include "strokestamps.h"

#include "strokes.h"

#include <QPainter>

#include <algorithm>

namespace {

/// Larger shapes are bound by their pixels, and would fill the memory.
constexpr int longestStep = 64;
constexpr qreal widest = 200;

/// Some 400 KiB at most.
constexpr int mostShapes = 2048;
constexpr int mostRows = 1 << 16;

/// Whether the mode writes the pen's colour, or nothing, and looks at no pixel below an opaque one.
bool isPlain(QPainter::CompositionMode mode)
{
    return mode == QPainter::CompositionMode_SourceOver || mode == QPainter::CompositionMode_Clear;
}

} // namespace

bool operator==(const strokestamps::shape& a, const strokestamps::shape& b)
{
    return a.width == b.width && a.dx == b.dx && a.dy == b.dy && a.isDot == b.isDot;
}

uint qHash(const strokestamps::shape& key, uint seed)
{
    return qHash(key.width, seed) ^ (static_cast<uint>(key.dx) * 0x9e3779b1U)
        ^ (static_cast<uint>(key.dy) * 0x85ebca77U) ^ static_cast<uint>(key.isDot);
}

void strokestamps::begin(QPainter* painter)
{
    width = painter->pen().widthF();
    pixels =
        isPlain(painter->compositionMode()) && width > 1 && width <= widest ? strokes::plainPixels(painter) : nullptr;
    if (!pixels)
        return;
    const QImage* picture = strokes::pictureOf(painter);
    stride = picture->bytesPerLine() / static_cast<int>(sizeof(QRgb));
    // Left of the first and above the second pixel the toolkit rounds to the other side.
    inside = strokes::paintableRect(painter).adjusted(1, 1, 0, 0);
    const bool clears = painter->compositionMode() == QPainter::CompositionMode_Clear;
    value = clears ? 0U : painter->pen().color().rgba64().toArgb32();
}

bool strokestamps::lay(const QLine& line)
{
    if (!pixels || !inside.contains(line.p1()) || !inside.contains(line.p2()))
        return false;
    if (std::max(qAbs(line.dx()), qAbs(line.dy())) > longestStep)
        return false;
    return layShape({width, line.dx(), line.dy(), false}, line.p1());
}

bool strokestamps::layShape(const shape& key, const QPoint& place)
{
    if (!pixels || !inside.contains(place))
        return false;
    const QRect bounds = boundsOf(key, place);
    if (!inside.contains(bounds))
        return false;
    const auto found = stamps.find(key);
    if (found == stamps.end()) {
        if (stamps.size() >= mostShapes || keptRows >= mostRows) {
            stamps.clear();
            keptRows = 0;
        }
        // Most of what comes once does not come again: it is measured when it does.
        stamps.insert(key, stamp());
        return false;
    }
    if (!found->measured) {
        measure(key, place, bounds, &*found);
        keptRows += static_cast<int>(found->rows.size());
    }
    paint(*found, place);
    return !found->rows.empty();
}

/// Two more than half the width: the toolkit fits its curves a little outside.
QRect strokestamps::boundsOf(const shape& key, const QPoint& place) const
{
    const int reach = static_cast<int>(key.width / 2) + 2;
    return QRect(place, place + QPoint(key.dx, key.dy)).normalized().adjusted(-reach, -reach, reach, reach);
}

/// Has the toolkit paint the shape at its own place, shown through a window of its size, and looks what is covered.
void strokestamps::measure(const shape& key, const QPoint& place, const QRect& bounds, stamp* result)
{
    QImage window(bounds.size(), QImage::Format_Alpha8);
    window.fill(0);
    QPainter painter(&window);
    painter.translate(-bounds.topLeft());
    painter.setPen(strokes::pen(Qt::black, key.width));
    if (key.isDot)
        painter.drawPoint(place);
    else
        painter.drawLine(place, place + QPoint(key.dx, key.dy));
    painter.end();
    result->measured = true;
    result->rows.reserve(static_cast<std::size_t>(window.height()));
    result->top = bounds.top() - place.y();
    for (int y = 0; y < window.height(); ++y) {
        const uchar* row = window.constScanLine(y);
        const uchar* const end = row + window.width();
        const uchar* const first = std::find(row, end, 0xff);
        const uchar* const last = std::find(first, end, 0);
        if (std::find(last, end, 0xff) != end) {
            result->rows.clear();
            return;
        }
        result->rows.push_back(
            {static_cast<short>(first - row + bounds.left() - place.x()), static_cast<short>(last - first)});
    }
}

void strokestamps::paint(const stamp& kept, const QPoint& place) const
{
    QRgb* row = pixels + (place.y() + kept.top) * stride + place.x();
    for (const span& each : kept.rows) {
        std::fill_n(row + each.left, each.count, value);
        row += stride;
    }
}
