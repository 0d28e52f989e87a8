#pragma once

#include <QImage>
#include <QPoint>

/// Colours the area that is connected to seed in four directions and has exactly its 32-bit value, alpha included; the
/// image is of Format_ARGB32. A seed outside the image, or on a pixel of the value fill, changes nothing. Apart from
/// the image it takes less than 256 KiB, whatever the shape of the area.
void floodFill(QImage& image, const QPoint& seed, QRgb fill);
