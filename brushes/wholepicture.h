#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

/// Whether the file holds all of the picture that it begins. The toolkit takes half a file for a whole one in some of
/// the formats, and fills the rest with grey or with what the memory held, so that participants would see different
/// pictures. Bytes behind the picture do not matter. False also for a JPEG that takes very long to decode.
bool isWholePicture(const QString& path, const QByteArray& format, const QSize& size);
