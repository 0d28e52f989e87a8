#include "picturefile.h"

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

} // namespace

QImage readPicture(const QString& path)
{
    // A pipe or a device would be read until it ends, which it may never do.
    if (!QFileInfo(path).isFile())
        return QImage();
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    if (!isTrusted(reader.format()))
        return QImage();
    const QSize size = decodedSize(&reader, path);
    if (!size.isValid() || qint64(size.width()) * size.height() > mostPixels)
        return QImage();
    return reader.read();
}
