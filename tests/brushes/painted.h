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
