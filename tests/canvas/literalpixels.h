#pragma once

#include "canvas/effects.h"

#include <QImage>
#include <QPoint>
#include <QRect>

/// What the canvas does to pixels, step by step and one pixel at a time: slow, plain, and the judge of the product's
/// faster code. All images are of Format_ARGB32.
namespace literal {

void floodFill(QImage& image, const QPoint& seed, QRgb fill);

QImage transformed(const QImage& image, effects::effect kind);
/// The whole image becomes the result.
void applyWhole(QImage& image, effects::effect kind);
/// The result of a copied region is drawn over the image with the toolkit's source-over.
void applyRegion(QImage& image, effects::effect kind, const QRect& region);

void clearRegion(QImage& image, const QRect& region, bool opaque);
void normalise(QImage& image);

/// The merged picture of an export.
QImage merged(const QImage& background, const QImage& canvas);
/// What a screen of this size shows of the layers; a null background stands for none.
QImage shown(const QSize& screen, const QImage& background, const QImage& canvas);

} // namespace literal
