#include "spraycoverage.h"

#include <algorithm>
#include <limits>
#include <tuple>

namespace {

/// Spans are merged when this many have gathered, so that memory stays bounded whatever a peer sends.
constexpr std::size_t fewestToMerge = 1 << 16;

/// Looking whether everything is covered costs as much as a disc.
constexpr int discsBetweenLooks = 64;

} // namespace

spraycoverage::spraycoverage(const QRect& area)
    : area(area)
    , mergeAt(fewestToMerge)
{
}

/// In each row that two neighbours of a chain share their pixels touch. So a chain covers at most one span in a row,
/// from the leftmost to the rightmost pixel of all its discs.
void spraycoverage::add(const discshape& shape, const discchain& chain, int together)
{
    const discchain::range discs = chain.inside(shape.reachOf(area));
    if (full || area.isEmpty() || discs.first >= discs.last || shape.size() == 0)
        return;
    newest.resize(static_cast<std::size_t>(area.height()));
    lefts.assign(newest.size(), std::numeric_limits<int>::max());
    rights.assign(newest.size(), std::numeric_limits<int>::min());
    QRect previous;
    int untilLook = 0;
    for (qint64 i = discs.first; i < discs.last && !full; i += together) {
        const QRect box = shape.boxAround(chain.at(i));
        if (box != previous)
            widen(shape, box);
        previous = box;
        full = --untilLook < 0 && isFull();
        untilLook = untilLook < 0 ? discsBetweenLooks : untilLook;
    }
    widen(shape, shape.boxAround(chain.at(discs.last - 1)));
    for (int row = area.top(); row <= area.bottom(); ++row)
        append(row, lefts[index(row)], rights[index(row)]);
}

QVector<QRect> spraycoverage::rectangles()
{
    for (const span& each : newest)
        keep(each);
    newest.clear();
    merge();
    QVector<QRect> result;
    result.reserve(static_cast<int>(spans.size()));
    for (const span& each : spans)
        result.append(QRect(each.left, each.row, each.right - each.left, 1));
    return result;
}

void spraycoverage::widen(const discshape& shape, const QRect& box)
{
    const int first = std::max(box.top(), area.top());
    const int last = std::min(box.bottom(), area.bottom());
    if (first > last)
        return;
    const int left = box.left();
    const int right = left + shape.size();
    const int* inset = shape.rows().data() + (first - box.top());
    int* lowest = lefts.data() + index(first);
    int* highest = rights.data() + index(first);
    for (int i = 0; i <= last - first; ++i) {
        lowest[i] = std::min(lowest[i], left + inset[i]);
        highest[i] = std::max(highest[i], right - inset[i]);
    }
}

bool spraycoverage::isFull() const
{
    return std::all_of(lefts.begin(), lefts.end(), [this](int left) { return left <= area.left(); })
        && std::all_of(rights.begin(), rights.end(), [this](int right) { return right > area.right(); });
}

void spraycoverage::append(int row, int left, int right)
{
    left = std::max(left, area.left());
    right = std::min(right, area.right() + 1);
    if (left >= right)
        return;
    span& last = newest[index(row)];
    if (left <= last.right && last.left <= right && last.left < last.right) {
        last.left = std::min(last.left, left);
        last.right = std::max(last.right, right);
    } else {
        keep(last);
        last = {row, left, right};
    }
}

void spraycoverage::keep(const span& finished)
{
    if (finished.left >= finished.right)
        return;
    spans.push_back(finished);
    if (spans.size() >= mergeAt)
        merge();
}

void spraycoverage::merge()
{
    std::sort(spans.begin(), spans.end(),
              [](const span& a, const span& b) { return std::tie(a.row, a.left) < std::tie(b.row, b.left); });
    std::size_t kept = 0;
    for (const span& each : spans) {
        if (kept > 0 && spans[kept - 1].row == each.row && each.left <= spans[kept - 1].right)
            spans[kept - 1].right = std::max(spans[kept - 1].right, each.right);
        else
            spans[kept++] = each;
    }
    spans.resize(kept);
    mergeAt = std::max(fewestToMerge, 2 * kept);
}
