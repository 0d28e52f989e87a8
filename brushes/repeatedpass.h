#pragma once

#include <QColor>

#include <vector>

/// What becomes of a pixel when the same is painted over it many times, worked out from what painting it once makes of
/// every pixel that there can be. Colours of a pixel do not depend on each other, only on its alpha.
class repeatedpass {
public:
    /// What once makes of the pixel that has this alpha and this value as red, green and blue, at 256 * alpha + value.
    explicit repeatedpass(std::vector<QRgb> once);

    /// The pixel after so many times, at least one.
    QRgb after(int times, QRgb pixel);

private:
    using table = std::vector<QRgb>;

    static QRgb lookUp(const table& passes, QRgb pixel);
    const table& doubling(std::size_t power);

    /// What 1, 2, 4, 8 ... times make; as many as were asked for.
    std::vector<table> doublings;
};
