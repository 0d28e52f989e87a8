#include "picturefiles.h"

#include <QBuffer>
#include <QImageWriter>

namespace {

QByteArray little(int number, int bytes)
{
    QByteArray result;
    for (int i = 0; i < bytes; ++i)
        result += static_cast<char>(number >> (8 * i) & 0xff);
    return result;
}

// The colours of a BMP.
QByteArray table(int depth, int bytes)
{
    QByteArray result;
    for (int i = 0; depth <= 8 && i < 1 << depth; ++i)
        result += little(i * 0x010307 & 0xffffff, bytes);
    return result;
}

// Codes of 8 bits alone: the table is cleared before it grows to the ninth.
QByteArray gifCodes(const QImage& image)
{
    constexpr int pixelsBetweenClears = 100;
    QByteArray codes;
    int pixels = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x, ++pixels) {
            if (pixels % pixelsBetweenClears == 0)
                codes += '\x80';
            codes += static_cast<char>(qGray(image.pixel(x, y)) / 2);
        }
    }
    return codes + '\x81';
}

} // namespace

namespace picturefiles {

QByteArray encoded(const QImage& image, const QByteArray& format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return buffer.data();
}

QByteArray progressiveJpeg(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpg");
    writer.setProgressiveScanWrite(true);
    writer.write(image);
    return buffer.data();
}

QByteArray bmp(int depth, int packing, const QByteArray& body, int headerSize)
{
    // Longer headers hold the masks, too, in the same place.
    QByteArray masks;
    if (packing == 3)
        masks = little(0x7c00, 4) + little(0x3e0, 4) + little(0x1f, 4);
    const QByteArray rest = masks + QByteArray(qMax(0, headerSize - 40 - masks.size()), '\0') + table(depth, 4);
    const int start = 54 + rest.size();
    return "BM" + little(start + body.size(), 4) + little(0, 4) + little(start, 4) + little(headerSize, 4)
        + little(64, 4) + little(48, 4) + little(1, 2) + little(depth, 2) + little(packing, 4) + QByteArray(20, '\0')
        + rest + body;
}

QByteArray oldBmp(int depth, const QByteArray& body)
{
    const QByteArray colors = table(depth, 3);
    const int start = 26 + colors.size();
    return "BM" + little(start + body.size(), 4) + little(0, 4) + little(start, 4) + little(12, 4) + little(64, 2)
        + little(48, 2) + little(1, 2) + little(depth, 2) + colors + body;
}

QByteArray runs()
{
    QByteArray result;
    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 64; x += 8)
            result += little(8, 1) + little(x + y, 1);
        result += little(y < 47 ? 0 : 0x100, 2);
    }
    return result;
}

QByteArray gif(const QImage& image, colours place)
{
    QByteArray greys;
    for (int i = 0; i < 128; ++i)
        greys += QByteArray(3, static_cast<char>(i * 2));
    // The same flags announce both tables.
    const QByteArray flags("\0\x86", 2);
    const bool ofTheFile = place == colours::ofTheFile;
    QByteArray file = "GIF89a" + little(image.width(), 2) + little(image.height(), 2) + flags.mid(ofTheFile ? 1 : 0, 1)
        + QByteArray(2, '\0') + (ofTheFile ? greys : QByteArray());
    file += QByteArray("!\xf9\4\0\0\0\0\0", 8);
    file += ',' + little(0, 4) + little(image.width(), 2) + little(image.height(), 2);
    file += flags.mid(ofTheFile ? 0 : 1, 1) + (ofTheFile ? QByteArray() : greys) + '\7';
    const QByteArray codes = gifCodes(image);
    for (int i = 0; i < codes.size(); i += 255) {
        const QByteArray block = codes.mid(i, 255);
        file += little(block.size(), 1) + block;
    }
    return file + QByteArray("\0;", 2);
}

QByteArray textPicture(int kind, const QImage& image)
{
    QByteArray file = 'P' + QByteArray::number(kind) + '\n' + QByteArray::number(image.width()) + ' '
        + QByteArray::number(image.height()) + (kind == 1 ? "\n" : "\n255\n");
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixel(x, y);
            const int grey = qGray(color.rgb());
            if (kind == 1)
                file += grey > 100 ? "1 " : "0 ";
            else if (kind == 2)
                file += QByteArray::number(grey) + '\n';
            else
                file += QByteArray::number(color.red()) + ' ' + QByteArray::number(color.green()) + ' '
                    + QByteArray::number(color.blue()) + '\n';
        }
    }
    return file;
}

} // namespace picturefiles
