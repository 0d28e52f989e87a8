#include "floodfill.h"

#include <algorithm>
#include <array>
#include <limits>
#include <memory>

namespace {

/// A stretch of one row that borders on filled pixels of the row before it, as seen in the direction of the step, and
/// whose pixels of the target value are still to be filled.
struct segment {
    int left;
    int right;
    int row; ///< the row itself when the step is down, its complement when it is up

    static segment make(int left, int right, int row, int step) { return {left, right, step > 0 ? row : ~row}; }
    int y() const { return row >= 0 ? row : ~row; }
    int step() const { return row >= 0 ? 1 : -1; }
};

/// So many pixels are compared one by one before blocks are tried: in corridors and noise a run ends sooner.
constexpr int shortRun = 8;
/// A block is compared whole: a loop of fixed length without an exit is what the compiler turns into vector
/// instructions.
constexpr int block = 32;

/// The first index from x on, or end, whose value is not the wanted one.
int endOfRun(const QRgb* row, int x, int end, QRgb value)
{
    for (const int near = std::min(end, x + shortRun); x < near; ++x) {
        if (row[x] != value) {
            return x;
        }
    }
    for (; end - x >= block; x += block) {
        QRgb difference = 0;
        for (int i = 0; i < block; ++i) {
            difference |= row[x + i] ^ value;
        }
        if (difference != 0) {
            break;
        }
    }
    while (x < end && row[x] == value) {
        ++x;
    }
    return x;
}

/// The first index from x on, or end, that has the value.
int startOfRun(const QRgb* row, int x, int end, QRgb value)
{
    for (const int near = std::min(end, x + shortRun); x < near; ++x) {
        if (row[x] == value) {
            return x;
        }
    }
    for (; end - x >= block; x += block) {
        QRgb found = 0;
        for (int i = 0; i < block; ++i) {
            found |= row[x + i] == value ? 1U : 0U;
        }
        if (found != 0) {
            break;
        }
    }
    while (x < end && row[x] != value) {
        ++x;
    }
    return x;
}

/// The first index of the run of the value that ends before x.
int beginOfRun(const QRgb* row, int x, QRgb value)
{
    while (x > 0 && row[x - 1] == value) {
        --x;
    }
    return x;
}

class filler {
public:
    filler(QImage& image, QRgb target, QRgb fill)
        : pixels(reinterpret_cast<QRgb*>(image.bits()))
        , stride(image.bytesPerLine() / static_cast<int>(sizeof(QRgb)))
        , width(image.width())
        , height(image.height())
        , target(target)
        , fill(fill)
        , waiting(new segment[capacity])
    {
    }

    void run(const QPoint& seed)
    {
        fillFrom(seed.x(), seed.y());
        while (parkedTop <= parkedBottom) {
            fillFromParked();
        }
    }

private:
    QRgb* rowAt(int y) { return pixels + y * stride; }

    void fillFrom(int x, int y)
    {
        push(x, x, y, 1);
        push(x, x, y - 1, -1);
        // First in, first out: the front of the fill then comes back to a cache line while it is still at hand.
        while (count > 0) {
            const segment part = waiting[head];
            head = (head + 1) % capacity;
            --count;
            fillRuns(part);
        }
    }

    void fillRuns(const segment& part)
    {
        QRgb* row = rowAt(part.y());
        const int limit = part.right + 1;
        int x = startOfRun(row, part.left, limit, target);
        while (x < limit) {
            const int left = x == part.left ? beginOfRun(row, x, target) : x;
            const int end = endOfRun(row, x, width, target);
            std::fill(row + left, row + end, fill);
            pushAround(part, left, end - 1);
            x = startOfRun(row, end, limit, target);
        }
    }

    void pushAround(const segment& part, int left, int right)
    {
        const int y = part.y();
        const int step = part.step();
        push(left, right, y + step, step);
        // What sticks out beyond the row that led here can reach around its ends.
        push(left, part.left - 1, y - step, -step);
        push(part.right + 1, right, y - step, -step);
    }

    void push(int left, int right, int y, int step)
    {
        if (left > right || y < 0 || y >= height) {
            return;
        }
        if (count == capacity) {
            park(left, right, y);
            return;
        }
        waiting[(head + count) % capacity] = segment::make(left, right, y, step);
        ++count;
    }

    /// Without room to remember a segment, one pixel of each of its runs takes a value that is nowhere else in the
    /// image. Until that pixel is found again it counts as a border, so that nothing is filled through it unseen.
    void park(int left, int right, int y)
    {
        if (!markerChosen) {
            chooseMarker();
        }
        QRgb* row = rowAt(y);
        int x = startOfRun(row, left, right + 1, target);
        while (x <= right) {
            row[x] = marker;
            parkedTop = std::min(parkedTop, y);
            parkedBottom = std::max(parkedBottom, y);
            x = startOfRun(row, endOfRun(row, x + 1, right + 1, target), right + 1, target);
        }
    }

    void fillFromParked()
    {
        const int top = parkedTop;
        const int bottom = parkedBottom;
        parkedTop = std::numeric_limits<int>::max();
        parkedBottom = -1;
        for (int y = top; y <= bottom; ++y) {
            QRgb* row = rowAt(y);
            for (int x = startOfRun(row, 0, width, marker); x < width; x = startOfRun(row, x + 1, width, marker)) {
                row[x] = target;
                fillFrom(x, y);
            }
        }
    }

    /// Digit by digit the rarest among the image's values: there are fewer pixels than values, so that the last digit
    /// leads to one that does not occur.
    void chooseMarker()
    {
        constexpr int digits = 4;
        constexpr int bits = 8;
        QRgb mask = 0;
        for (int digit = digits - 1; digit >= 0; --digit) {
            const int shift = digit * bits;
            std::array<qint64, 1 << bits> uses{};
            const auto countValue = [&](QRgb value) { uses[(value >> shift) & 0xffU] += (value & mask) == marker; };
            countValue(target);
            countValue(fill);
            for (int y = 0; y < height; ++y) {
                std::for_each(rowAt(y), rowAt(y) + width, countValue);
            }
            const auto rarest = std::min_element(uses.begin(), uses.end());
            marker |= static_cast<QRgb>(rarest - uses.begin()) << shift;
            mask |= 0xffU << shift;
            if (*rarest == 0) {
                break;
            }
        }
        markerChosen = true;
    }

    // 192 KiB: what honest pictures need, by far, and what a peer can make a participant allocate.
    static constexpr std::size_t capacity = 16384;

    QRgb* pixels;
    qptrdiff stride;
    int width;
    int height;
    QRgb target;
    QRgb fill;
    std::unique_ptr<segment[]> waiting; ///< a ring
    std::size_t head = 0;
    std::size_t count = 0;
    QRgb marker = 0;
    bool markerChosen = false;
    int parkedTop = std::numeric_limits<int>::max();
    int parkedBottom = -1;
};

} // namespace

void floodFill(QImage& image, const QPoint& seed, QRgb fill)
{
    if (!image.valid(seed)) {
        return;
    }
    const QRgb target = image.pixel(seed);
    if (target != fill) {
        filler(image, target, fill).run(seed);
    }
}
