#include "picturefile.h"

#include "pngsieve.h"
#include "wholepicture.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <iterator>

namespace {

// The formats in which channels keep pictures, and what else is known to tell its size in its header. An icon need not
// have the size that it tells, and a vector graphic names further files that the toolkit would open.
constexpr const char* trustedFormats[] = {"bmp", "gif", "jpg", "jpeg", "pbm", "pgm", "png", "ppm", "xbm", "xpm"};

bool isTrusted(const QByteArray& format)
{
    return std::any_of(std::begin(trustedFormats), std::end(trustedFormats),
                       [&](const char* trusted) { return format == trusted; });
}

// The screen that a GIF declares, behind its signature of 6 bytes. The toolkit tells the size of the first frame, but
// decodes onto the whole screen.
QSize gifScreen(const QString& path)
{
    QFile file(path);
    std::array<char, 10> header{};
    if (!file.open(QIODevice::ReadOnly) || file.read(header.data(), header.size()) != qint64(header.size()))
        return QSize();
    return {qFromLittleEndian<quint16>(&header[6]), qFromLittleEndian<quint16>(&header[8])};
}

// Invalid when the picture cannot tell its size before it is decoded.
QSize decodedSize(QImageReader* reader, const QString& path)
{
    const QSize size = reader->size();
    return size.isValid() && reader->format() == "gif" ? size.expandedTo(gifScreen(path)) : size;
}

bool isPng(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(8) == QByteArray("\x89PNG\r\n\x1a\n", 8);
}

QImage decoded(QImageReader* reader, const QSize& size)
{
    QImage picture;
    // Runs can pass over pixels, which would then show what the memory held, another thing for each participant. The
    // toolkit paints into an image that is as it needs one.
    if (reader->format() == "bmp") {
        picture = QImage(size, reader->imageFormat());
        picture.fill(0);
    }
    if (!reader->read(&picture))
        return QImage();
    // Where the name ends in @2x the toolkit would paint at twice the size.
    picture.setDevicePixelRatio(1);
    return picture;
}

QImage readBy(QImageReader* reader, const QString& path)
{
    reader->setDecideFormatFromContent(true);
    if (!isTrusted(reader->format()))
        return QImage();
    const QSize size = decodedSize(reader, path);
    if (!size.isValid() || qint64(size.width()) * size.height() > mostPixels)
        return QImage();
    return isWholePicture(path, reader->format(), size) ? decoded(reader, size) : QImage();
}

} // namespace

QImage readPicture(const QString& path)
{
    // A pipe or a device would be read until it ends, which it may never do.
    if (!QFileInfo(path).isFile())
        return QImage();
    if (!isPng(path)) {
        QImageReader reader(path);
        return readBy(&reader, path);
    }
    pngsieve file(path);
    QImageReader reader(&file);
    return readBy(&reader, path);
}
