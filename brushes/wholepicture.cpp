#include "wholepicture.h"

#include "bytewalk.h"

namespace {

// Each scan of a JPEG goes over all pixels again, but some 70 bytes are enough for one. Encoders make 10 of a picture
// in colour and 18 of one in four inks.
constexpr int mostScans = 32;

// 0 at the end of the file. Found as the decoder finds it, which passes over whatever stands between two markers, and
// pixels whose bytes would look like a marker have a 0 put in.
int nextMarker(bytewalk* bytes)
{
    for (int last = 0; !bytes->isOver();) {
        const int byte = bytes->next();
        if (last == 0xff && byte != 0 && byte != 0xff)
            return byte;
        last = byte;
    }
    return 0;
}

// A preview within the file has an end of its own; it is passed over with the segment that holds it.
bool isWholeJpeg(bytewalk* bytes)
{
    constexpr int startOfScan = 0xda;
    constexpr int endOfImage = 0xd9;
    int scans = 0;
    bytes->skip(2);
    while (!bytes->isOver()) {
        const int marker = nextMarker(bytes);
        if (marker == endOfImage)
            return scans > 0;
        if (marker == startOfScan && ++scans > mostScans)
            return false;
        // Below and among the restarts a marker stands alone.
        const bool hasSegment = marker >= 0xc0 && (marker < 0xd0 || marker > endOfImage);
        if (hasSegment)
            bytes->skip(qMax(qint64{0}, qint64{bytes->big(2)} - 2));
    }
    return false;
}

// Runs of pixels up to a mark for the end, or to the last of the rows.
bool isWholeRunLength(bytewalk* bytes, bool isNibbles, int height)
{
    for (qint64 row = 0; row < height && !bytes->isOver();) {
        const int count = bytes->next();
        const int value = bytes->next();
        if (count != 0)
            continue;
        if (value == 0) {
            ++row;
        } else if (value == 1) {
            row = height;
        } else if (value == 2) {
            bytes->skip(1);
            row += bytes->next();
        } else {
            const int pixelBytes = isNibbles ? (value + 1) / 2 : value;
            bytes->skip(pixelBytes + pixelBytes % 2);
        }
    }
    return !bytes->isOver();
}

// The ways in which a BMP packs its pixels, as its header numbers them.
constexpr quint32 byteRuns = 1;
constexpr quint32 nibbleRuns = 2;
constexpr quint32 maskedPixels = 3;

bool isWholeBmp(bytewalk* bytes, const QSize& size)
{
    bytes->skip(10);
    const qint64 told = static_cast<qint32>(bytes->little(4));
    const quint32 headerSize = bytes->little(4);
    const bool isOld = headerSize != 40 && headerSize != 64 && headerSize != 108 && headerSize != 124;
    bytes->skip(isOld ? 6 : 10);
    const quint32 depth = bytes->little(2);
    const quint32 compression = isOld ? 0 : bytes->little(4);
    bytes->skip(isOld ? 0 : 12);
    const quint32 tableSize = isOld ? 0 : bytes->little(4);
    qint64 start = qint64{14} + headerSize;
    if (depth <= 8)
        start += qint64{tableSize == 0 ? 1U << depth : tableSize} * (isOld ? 3 : 4);
    else if (compression == maskedPixels && headerSize < 108)
        start += 12;
    // A start that would lie within the header is not believed.
    bytes->skip(qMax(qint64{0}, qMax(start, told) - bytes->passed()));
    if (compression == byteRuns || compression == nibbleRuns)
        return isWholeRunLength(bytes, compression == nibbleRuns, size.height());
    bytes->skip((qint64{size.width()} * depth + 31) / 32 * 4 * size.height());
    return !bytes->isOver();
}

// The colours of a GIF, if the flags announce some.
void skipColours(bytewalk* bytes, int flags)
{
    if (flags & 0x80)
        bytes->skip(qint64{3} << ((flags & 7) + 1));
}

void skipBlocks(bytewalk* bytes)
{
    for (int length = bytes->next(); length != 0; length = bytes->next())
        bytes->skip(length);
}

// Only the first frame is shown.
bool isWholeGif(bytewalk* bytes)
{
    bytes->skip(10);
    const int flags = bytes->next();
    bytes->skip(2);
    skipColours(bytes, flags);
    int introducer = bytes->next();
    for (; introducer == '!' && !bytes->isOver(); introducer = bytes->next()) {
        bytes->skip(1);
        skipBlocks(bytes);
    }
    if (introducer == ',') {
        bytes->skip(8);
        skipColours(bytes, bytes->next());
        bytes->skip(1);
        skipBlocks(bytes);
    }
    return !bytes->isOver();
}

// A text that names eight pixels at a time as 0x and two digits.
bool isWholeXbm(bytewalk* bytes, const QSize& size)
{
    qint64 missing = (qint64{size.width()} + 7) / 8 * size.height();
    for (int last = 0; missing > 0 && !bytes->isOver();) {
        const int byte = bytes->next();
        if (last == '0' && byte == 'x') {
            bytes->skip(2);
            --missing;
        }
        last = byte;
    }
    return !bytes->isOver();
}

} // namespace

bool isWholePicture(const QString& path, const QByteArray& format, const QSize& size)
{
    bytewalk bytes(path);
    if (format == "jpeg" || format == "jpg")
        return isWholeJpeg(&bytes);
    if (format == "bmp")
        return isWholeBmp(&bytes, size);
    if (format == "gif")
        return isWholeGif(&bytes);
    if (format == "xbm")
        return isWholeXbm(&bytes, size);
    // Of the others the toolkit refuses a half itself.
    return true;
}
