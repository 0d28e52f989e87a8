#pragma once

#include "canvas/paintscene.h"

#include <QScopedPointer>
#include <QTemporaryDir>
#include <QtTest>

/// What the tests of pictures in files begin with: a directory of their own.
class picturetest : public QObject {
protected:
    static constexpr QRgb white = 0xffffffff;
    static constexpr QRgb red = 0xffff0000;
    static constexpr QRgb unpainted = 0x00ffffff;
    static constexpr QSize size{60, 40};

    bool begin()
    {
        directory.reset(new QTemporaryDir);
        return directory->isValid();
    }

    /// Empty when the file cannot be written.
    QString fileWith(const QImage& image)
    {
        const QString path = directory->filePath(QString("picture%1.png").arg(++files));
        return image.save(path, "PNG") ? path : QString();
    }

    static QImage filled(const QSize& size, QRgb value)
    {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(value);
        return image;
    }

    QScopedPointer<QTemporaryDir> directory;

private:
    int files = 0;
};
