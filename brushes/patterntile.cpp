#include "patterntile.h"

#include <QPainter>

#include <algorithm>

namespace {

/// The pattern's pixel where it has one; in a hole the pixel below, of which nothing is left when it has no alpha.
inline QRgb over(QRgb tile, QRgb below)
{
    const bool keeps = tile >> 24 == 0 && below >> 24 != 0;
    return keeps ? below : tile;
}

} // namespace

patterntile::patterntile(const QBrush& brush)
{
    QImage tile(side, side, QImage::Format_ARGB32);
    tile.fill(0x00ffffff);
    QPainter painter(&tile);
    painter.fillRect(tile.rect(), brush);
    painter.end();
    for (int y = 0; y < side; ++y)
        std::copy_n(reinterpret_cast<const QRgb*>(tile.constScanLine(y)), side,
                    rows[static_cast<std::size_t>(y)].begin());
}

void patterntile::lay(QRgb* first, const QRect& stretch) const
{
    const QRgb* tile = rows[static_cast<std::size_t>(stretch.top() % side)].data();
    int column = stretch.left() % side;
    int left = stretch.width();
    while (left > 0 && column != 0) {
        *first = over(tile[column], *first);
        ++first;
        column = (column + 1) % side;
        --left;
    }
    for (; left >= side; left -= side, first += side) {
        for (int i = 0; i < side; ++i)
            first[i] = over(tile[i], first[i]);
    }
    for (int i = 0; i < left; ++i)
        first[i] = over(tile[i], first[i]);
}
