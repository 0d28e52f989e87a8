#pragma once

#include <QImage>
#include <QRect>

/// The image effects, on images of Format_ARGB32 and in place; nothing of the size of the picture is allocated.
namespace effects {

enum class effect : char {
    flipHorizontally, ///< left and right change places
    flipVertically, ///< top and bottom change places
    swapChannels, ///< red and blue change places
    invertColors, ///< the colours invert, alpha stays
    grayscale ///< each colour becomes (11 red + 16 green + 5 blue) / 32, alpha stays
};

/// The whole image.
void apply(QImage& image, effect kind);

/// A region, which may reach beyond the image and be anything that a peer sends. The result is drawn over the pixels
/// that it came from, so that where it is transparent they stay to be seen; outside the image it is transparent.
void apply(QImage& image, effect kind, const QRect& region);

} // namespace effects
