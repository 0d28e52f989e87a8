#pragma once

#include <QByteArray>
#include <QImage>

/// Whole files of the formats that the toolkit reads, and some that it does not write.
namespace picturefiles {

QByteArray encoded(const QImage& image, const QByteArray& format);
/// Pixels in several scans.
QByteArray progressiveJpeg(const QImage& image);
/// Of 64 by 48 pixels, with a body as the depth and the packing ask for; the table has as many colours as the depth
/// tells apart. Headers of 40 bytes are the common ones.
QByteArray bmp(int depth, int packing, const QByteArray& body, int headerSize = 40);
/// The same with the first kind of header, which knows no packing.
QByteArray oldBmp(int depth, const QByteArray& body);
/// 48 rows of runs of 8 pixels, for bytes and for nibbles; the last row ends with the mark for the end of all.
QByteArray runs();

enum class colours { ofTheFile, ofTheFrame };
/// Up to 128 greys.
QByteArray gif(const QImage& image, colours place = colours::ofTheFile);
/// Numbers as text: of bits, greys or colours, by the kind.
QByteArray textPicture(int kind, const QImage& image);

} // namespace picturefiles
