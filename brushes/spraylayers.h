#pragma once

#include "discchain.h"
#include "discshape.h"

class QPainter;

namespace spray {

/// Paints each disc of a chain on top of the others with the brush that the painter has, for pixels that look different
/// after each time: below a half-transparent colour, and below the holes of a pattern when they are half-transparent
/// themselves. All discs do the same to a pixel, so that it only counts how many there are; the picture is painted row
/// by row in layers, the n-th where at least n discs lie, until a layer changes nothing.
void drawLayers(QPainter* painter, const discshape& shape, const discchain& chain);

} // namespace spray
