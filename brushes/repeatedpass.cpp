#include "repeatedpass.h"

#include <algorithm>
#include <cstddef>
#include <utility>

repeatedpass::repeatedpass(std::vector<QRgb> once) { doublings.push_back(std::move(once)); }

QRgb repeatedpass::after(int times, QRgb pixel)
{
    // What one more time does not change, no number of times does.
    if (lookUp(doublings.front(), pixel) == pixel)
        return pixel;
    for (std::size_t power = 0; times != 0; ++power, times /= 2) {
        if (times % 2 != 0)
            pixel = lookUp(doubling(power), pixel);
    }
    return pixel;
}

QRgb repeatedpass::lookUp(const table& passes, QRgb pixel)
{
    const QRgb* row = passes.data() + std::ptrdiff_t{256} * qAlpha(pixel);
    const QRgb red = row[qRed(pixel)];
    return qRgba(qRed(red), qGreen(row[qGreen(pixel)]), qBlue(row[qBlue(pixel)]), qAlpha(red));
}

const repeatedpass::table& repeatedpass::doubling(std::size_t power)
{
    while (doublings.size() <= power) {
        const table& half = doublings.back();
        table whole(half.size());
        std::transform(half.begin(), half.end(), whole.begin(), [&half](QRgb pixel) { return lookUp(half, pixel); });
        doublings.push_back(std::move(whole));
    }
    return doublings[power];
}
