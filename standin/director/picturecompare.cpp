#include "picturecompare.h"

#include <QImage>

int differentPixels(const QString& one, const QString& other)
{
    const QImage a = QImage(one).convertToFormat(QImage::Format_ARGB32);
    const QImage b = QImage(other).convertToFormat(QImage::Format_ARGB32);
    if (a.isNull() || a.size() != b.size())
        return -1;
    int different = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            different += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    }
    return different;
}
