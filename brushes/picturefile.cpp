#include "picturefile.h"

#include <QFileInfo>
#include <QImageReader>

QImage readPicture(const QString& path)
{
    // A pipe or a device would be read until it ends, which it may never do.
    if (!QFileInfo(path).isFile())
        return QImage();
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    const QSize size = reader.size();
    // A picture that cannot tell its size before it is decoded cannot be bounded either.
    if (!size.isValid() || qint64(size.width()) * size.height() > mostPixels)
        return QImage();
    return reader.read();
}
