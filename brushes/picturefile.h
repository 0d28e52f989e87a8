#pragma once

#include <QImage>
#include <QString>

/// More pixels than this are refused before they are decoded: a small file can declare a picture of gigabytes.
constexpr qint64 mostPixels = 64'000'000;

/// Reads a picture of one of the common pixel formats; the content decides the format, not the name. A null image when
/// the file is absent, unreadable, cut off, or larger than mostPixels.
QImage readPicture(const QString& path);
