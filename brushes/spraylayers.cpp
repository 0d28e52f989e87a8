#include "spraylayers.h"

#include "strokes.h"

#include <QImage>
#include <QPainter>
#include <QVector>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <vector>

namespace {

/// The discs of a chain that reach into the picture, from top to bottom.
std::vector<QPoint> cornersFromTop(const discshape& shape, const discchain& chain, const QRect& picture)
{
    const discchain::range discs = chain.inside(shape.reachOf(picture));
    std::vector<QPoint> corners;
    for (qint64 i = discs.first; i < discs.last; ++i)
        corners.push_back(shape.boxAround(chain.at(i)).topLeft());
    if (!corners.empty() && corners.front().y() > corners.back().y())
        std::reverse(corners.begin(), corners.end());
    return corners;
}

/// Paints a row of the picture in layers.
class rowpainter {
public:
    rowpainter(QPainter* painter, const QRect& picture)
        : painter(painter)
        , image(strokes::pictureOf(painter))
        , picture(picture)
        , counts(static_cast<std::size_t>(picture.width()) + 1)
        , before(static_cast<std::size_t>(picture.width()))
        , leftmost(picture.width())
    {
    }

    void count(int left, int right)
    {
        left = std::max(left, 0);
        right = std::min(right, picture.width());
        if (left >= right)
            return;
        leftmost = std::min(leftmost, left);
        rightmost = std::max(rightmost, right);
        ++counts[static_cast<std::size_t>(left)];
        --counts[static_cast<std::size_t>(right)];
    }

    void paint(int row)
    {
        if (leftmost >= rightmost)
            return;
        const auto begin = counts.begin() + leftmost;
        const auto end = counts.begin() + rightmost;
        std::partial_sum(begin, end, begin);
        const int most = *std::max_element(begin, end);
        bool changed = true;
        for (int layer = 1; layer <= most && changed; ++layer)
            changed = paintLayer(row, layer);
        std::fill(begin, end + 1, 0);
        leftmost = picture.width();
        rightmost = 0;
    }

private:
    bool paintLayer(int row, int layer)
    {
        QVector<QRect> spans;
        const auto enough = [layer](int count) { return count >= layer; };
        const auto end = counts.cbegin() + rightmost;
        for (auto begin = counts.cbegin() + leftmost; begin != end;) {
            begin = std::find_if(begin, end, enough);
            const auto next = std::find_if_not(begin, end, enough);
            if (begin != next)
                spans.append(QRect(static_cast<int>(begin - counts.cbegin()), row, static_cast<int>(next - begin), 1));
            begin = next;
        }
        const std::size_t bytes = static_cast<std::size_t>(rightmost - leftmost) * sizeof(QRgb);
        if (image)
            std::memcpy(before.data(), pixelsOf(row), bytes);
        painter->drawRects(spans);
        return !image || std::memcmp(before.data(), pixelsOf(row), bytes) != 0;
    }

    const uchar* pixelsOf(int row) const
    {
        return image->constScanLine(row) + static_cast<std::size_t>(leftmost) * sizeof(QRgb);
    }

    QPainter* painter;
    const QImage* image;
    QRect picture;
    /// How many discs lie on each pixel of a row; while counting, by how much each differs from the one before it.
    std::vector<int> counts;
    std::vector<QRgb> before;
    int leftmost;
    int rightmost = 0;
};

} // namespace

namespace spray {

void drawLayers(QPainter* painter, const discshape& shape, const discchain& chain)
{
    const QRect picture = strokes::pictureRect(painter);
    const std::vector<QPoint> corners = cornersFromTop(shape, chain, picture);
    if (corners.empty())
        return;
    rowpainter rows(painter, picture);
    auto first = corners.begin();
    auto last = first;
    const int bottom = std::min(picture.bottom(), corners.back().y() + shape.size() - 1);
    for (int row = std::max(picture.top(), corners.front().y()); row <= bottom; ++row) {
        while (last != corners.end() && last->y() <= row)
            ++last;
        while (first != last && first->y() + shape.size() <= row)
            ++first;
        for (auto corner = first; corner != last; ++corner) {
            const int inset = shape.rows()[static_cast<std::size_t>(row - corner->y())];
            rows.count(corner->x() + inset, corner->x() + shape.size() - inset);
        }
        rows.paint(row);
    }
}

} // namespace spray
