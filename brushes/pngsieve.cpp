#include "pngsieve.h"

#include "bytewalk.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr qint64 signatureSize = 8;
// Length and name stand before the content of a chunk, a checksum behind it.
constexpr qint64 frameSize = 12;

constexpr quint32 nameOf(const char (&text)[5])
{
    quint32 name = 0;
    for (int i = 0; i < 4; ++i)
        name = name << 8 | static_cast<quint32>(static_cast<uchar>(text[i]));
    return name;
}

// Small chunks from which the toolkit takes a colour, the resolution or the place of the picture.
constexpr quint32 heeded[] = {nameOf("tRNS"), nameOf("gAMA"), nameOf("cHRM"), nameOf("sRGB"),
                              nameOf("sBIT"), nameOf("bKGD"), nameOf("pHYs"), nameOf("oFFs")};

// What a decoder must understand has a capital first, known or not: whether the file is refused for it is not decided
// here.
bool isCritical(quint32 name) { return (name >> 24 & 0x20) == 0; }

bool isHeeded(quint32 name) { return std::find(std::begin(heeded), std::end(heeded), name) != std::end(heeded); }

} // namespace

pngsieve::pngsieve(const QString& path)
    : file(path)
{
    findSpans(path);
    if (file.open(QIODevice::ReadOnly))
        open(QIODevice::ReadOnly);
}

void pngsieve::findSpans(const QString& path)
{
    bytewalk bytes(path);
    bytes.skip(signatureSize);
    show(0, bytes.passed());
    bool hasProfile = false;
    for (bool isLast = false; !isLast && !bytes.isOver();) {
        const qint64 start = bytes.passed();
        const qint64 length = frameSize + bytes.big(4);
        const quint32 name = bytes.big(4);
        // A length that leads out of the file ends at its end.
        bytes.skip(start + length - bytes.passed());
        // The colour profile is compressed, too, and goes into the files that are made of the picture; there is one.
        const bool isProfile = name == nameOf("iCCP");
        if (isCritical(name) || isHeeded(name) || (isProfile && !hasProfile))
            show(start, bytes.passed() - start);
        hasProfile |= isProfile;
        isLast = name == nameOf("IEND");
    }
}

void pngsieve::show(qint64 start, qint64 length)
{
    if (!spans.empty() && spans.back().start + spans.back().length == start)
        spans.back().length += length;
    else
        spans.push_back({size(), start, length});
}

qint64 pngsieve::size() const { return spans.empty() ? 0 : spans.back().shownAt + spans.back().length; }

bool pngsieve::seek(qint64 pos)
{
    place = pos;
    return QIODevice::seek(pos);
}

qint64 pngsieve::readData(char* data, qint64 most)
{
    qint64 count = 0;
    while (count < most && place < size()) {
        const auto behind = std::upper_bound(spans.begin(), spans.end(), place,
                                             [](qint64 pos, const span& shown) { return pos < shown.shownAt; });
        const span& shown = *std::prev(behind);
        const qint64 inside = place - shown.shownAt;
        if (!file.seek(shown.start + inside))
            break;
        const qint64 got = file.read(data + count, qMin(most - count, shown.length - inside));
        if (got <= 0)
            break;
        count += got;
        place += got;
    }
    return count;
}

qint64 pngsieve::writeData(const char* /*data*/, qint64 /*most*/) { return -1; }
