#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>

/// What the canvas and its background look like together. Both are of Format_ARGB32; a null background stands for
/// none.
namespace layers {

/// Turns transparent white into opaque white: on a canvas over a background that value stands for an unpainted pixel,
/// and a picture file must not bring it in.
void normalise(QImage& layer);

/// Whether every pixel of the rectangle lies within the layer and is opaque.
bool covers(const QImage& layer, const QRect& rectangle);

/// Fills band with what the screen shows from origin on, before any overlay. On a band of Format_RGB32 that is the
/// canvas on the background, which then has to cover it, or on white paper; the paper also surrounds the picture. On a
/// band of Format_ARGB32 the background stays as transparent as it is.
void compose(QImage& band, const QPoint& origin, const QImage& background, const QImage& canvas);

/// The picture to be saved: of the canvas's size, with the background below.
QImage merged(const QImage& background, const QImage& canvas);

} // namespace layers
