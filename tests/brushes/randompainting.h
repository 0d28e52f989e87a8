#pragma once

#include <QColor>
#include <QImage>
#include <QList>
#include <QPoint>

#include <random>

/// Pictures, points and widths from a seed: the same in every run.
class randompainting {
public:
    explicit randompainting(unsigned seed)
        : generator(seed)
    {
    }

    int number(int lowest, int highest) { return std::uniform_int_distribution<int>(lowest, highest)(generator); }
    bool chance(int oneIn) { return number(1, oneIn) == 1; }

    /// Up to this many pixels outside of a picture of this size, too.
    QPoint point(const QSize& size, int outside);
    /// A wandering stroke, with a jump here and there.
    QList<QPoint> stroke(int count, const QSize& size, int outside);
    /// As a peer can send it: with coordinates up to the edges of 32 bits.
    QList<QPoint> hostileStroke(int count);
    int hostileCoordinate();
    /// One that the window offers, 0.1 to 200.0.
    qreal honestWidth() { return number(1, 2000) / 10.0; }
    qreal hostileWidth();
    QColor opaqueColor() { return QColor(number(0, 255), number(0, 255), number(0, 255)); }
    QColor translucentColor() { return QColor(number(0, 255), number(0, 255), number(0, 255), number(0, 254)); }
    /// Opaque, transparent and half-transparent pixels side by side.
    QImage picture(const QSize& size);

private:
    std::mt19937 generator;
};
