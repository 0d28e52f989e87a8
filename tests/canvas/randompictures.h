#pragma once

#include <QImage>
#include <QPoint>
#include <QRandomGenerator>
#include <QRect>

/// Pictures and places from a seed, the same on every machine.
namespace randompictures {

enum class kind : char {
    opaque, ///< a few opaque colours in small patches
    unpainted, ///< opaque patches on transparent white, like a canvas over a background
    mixed ///< any 32-bit values, half transparent ones among them
};

QImage make(QRandomGenerator& random, const QSize& size, kind contents);

/// A point in or around a picture of this size.
QPoint point(QRandomGenerator& random, const QSize& size);
/// A rectangle that may overhang, be empty, or be upside down.
QRect region(QRandomGenerator& random, const QSize& size);

} // namespace randompictures
