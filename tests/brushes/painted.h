#pragma once

#include <QImage>
#include <QPainter>

/// The picture with something painted on it.
template <typename Paint> QImage painted(QImage picture, Paint paint)
{
    {
        QPainter painter(&picture);
        paint(&painter);
    }
    return picture;
}

/// A canvas as a session without a background begins with.
inline QImage whiteCanvas(const QSize& size = QSize(120, 90))
{
    QImage canvas(size, QImage::Format_ARGB32);
    canvas.fill(0xffffffff);
    return canvas;
}

/// A canvas as a session over a background begins with.
inline QImage clearCanvas(const QSize& size = QSize(120, 90))
{
    QImage canvas(size, QImage::Format_ARGB32);
    canvas.fill(0x00ffffff);
    return canvas;
}

/// A canvas on which no two pixels are alike.
inline QImage numberedCanvas(const QSize& size = QSize(120, 90))
{
    QImage canvas(size, QImage::Format_ARGB32);
    for (int y = 0; y < canvas.height(); ++y) {
        for (int x = 0; x < canvas.width(); ++x)
            canvas.setPixel(x, y, qRgb(x, y, x ^ y));
    }
    return canvas;
}
