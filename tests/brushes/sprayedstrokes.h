#pragma once

#include "brushes/airbrushbrush.h"
#include "literalbrushes.h"
#include "painted.h"

#include <cstdlib>

/// What the airbrush's generator starts from in each test.
constexpr unsigned seed = 4711;

/// A stroke as peers paint it. Leaves the generator where the stroke has left it.
inline QImage replayed(const QImage& canvas, const QColor& color, qreal thick, const QList<QPoint>& points)
{
    airbrushbrush airbrush;
    srand(seed);
    return painted(canvas, [&](QPainter* painter) { airbrush.replay(painter, color, thick, points); });
}

/// The same stroke by the literal steps.
inline QImage literally(const QImage& canvas, const QColor& color, qreal thick, const QList<QPoint>& points)
{
    srand(seed);
    return painted(canvas, [&](QPainter* painter) { literal::airbrush(painter, color, thick, points); });
}

/// How many pixels of a canvas are not white.
inline int paintedPixels(const QImage& canvas)
{
    int count = 0;
    for (int y = 0; y < canvas.height(); ++y) {
        for (int x = 0; x < canvas.width(); ++x)
            count += canvas.pixel(x, y) != 0xffffffff;
    }
    return count;
}
