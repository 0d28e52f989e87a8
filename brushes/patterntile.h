#pragma once

#include <QBrush>
#include <QImage>
#include <QRect>

#include <array>

/// What a brush with one of the toolkit's dither patterns, in an opaque colour, makes of pixels that are opaque or have
/// no alpha: the pattern's pixels take its colour, the holes leave opaque pixels as they are.
class patterntile {
public:
    explicit patterntile(const QBrush& brush);

    /// Changes a stretch of one row of a picture of Format_ARGB32. first points to its pixel in the column left.
    void lay(QRgb* first, const QRect& stretch) const;

private:
    /// Pixels across and down of a pattern, which begins at the picture's corner.
    static constexpr int side = 8;
    using tilerow = std::array<QRgb, side>;

    std::array<tilerow, side> rows; ///< what comes of pixels without alpha
};
