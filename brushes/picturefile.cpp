#include "picturefile.h"

#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
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
    const QSize size = reader.size();
    // A picture that cannot tell its size before it is decoded cannot be bounded either.
    if (!size.isValid() || qint64(size.width()) * size.height() > mostPixels)
        return QImage();
    return reader.read();
}
