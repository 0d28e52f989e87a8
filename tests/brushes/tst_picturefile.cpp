#include "brushes/picturefile.h"

#include "painted.h"
#include "pngchunks.h"
#include "randompainting.h"

#include <QBuffer>
#include <QImageReader>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

namespace {

/// A sound PNG of one bit a pixel, all of them 0; even a large one takes no more than some kilobytes.
QByteArray blankPng(int width, int height)
{
    const QByteArray header = bigEndian(static_cast<quint32>(width)) + bigEndian(static_cast<quint32>(height))
        + QByteArray("\x01\x00\x00\x00\x00", 5);
    const QByteArray rows((width + 7) / 8 * height + height, '\0');
    // The toolkit puts the length in front of what it compresses.
    const QByteArray compressed = qCompress(rows, 9).mid(4);
    return QByteArray("\x89PNG\r\n\x1a\n", 8) + pngChunk("IHDR", header) + pngChunk("IDAT", compressed)
        + pngChunk("IEND", QByteArray());
}

QByteArray encoded(const QImage& image, const char* format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return buffer.data();
}

} // namespace

class tst_picturefile : public QObject {
    Q_OBJECT

private slots:
    void absentFileIsNull();
    void directoryIsNull();
    void pipeIsNotWaitedFor();
    void brokenFilesAreNull_data();
    void brokenFilesAreNull();
    void formatsTheToolkitWritesAreRead_data();
    void formatsTheToolkitWritesAreRead();
    void gifIsRead();
    void contentDecidesAndNotTheName_data();
    void contentDecidesAndNotTheName();
    void aNameDoesNotChangeTheScale();
    void pixelsAreKept();
    void largestPictureIsRead();
    void largerPicturesAreRefused_data();
    void largerPicturesAreRefused();

private:
    QString write(const QString& name, const QByteArray& content);

    QTemporaryDir directory;
};

QString tst_picturefile::write(const QString& name, const QByteArray& content)
{
    QFile file(directory.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

void tst_picturefile::absentFileIsNull()
{
    QVERIFY(readPicture(directory.filePath("absent.png")).isNull());
    QVERIFY(readPicture(QString()).isNull());
}

void tst_picturefile::directoryIsNull() { QVERIFY(readPicture(directory.path()).isNull()); }

void tst_picturefile::pipeIsNotWaitedFor()
{
    const QString path = directory.filePath("pipe.png");
    QCOMPARE(mkfifo(qPrintable(path), 0600), 0);
    QVERIFY(readPicture(path).isNull());
}

void tst_picturefile::brokenFilesAreNull_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("no picture at all");
    QTest::newRow("PNG signature only") << blankPng(3, 3).left(8);
    QTest::newRow("PNG header only") << blankPng(3, 3).left(33);
    QTest::newRow("PNG of no width") << blankPng(0, 3);
    QByteArray damaged = blankPng(3, 3);
    damaged[20] = 'x';
    QTest::newRow("PNG with a damaged header") << damaged;
}

void tst_picturefile::brokenFilesAreNull()
{
    QFETCH(QByteArray, content);
    QVERIFY(readPicture(write("broken.png", content)).isNull());
}

void tst_picturefile::formatsTheToolkitWritesAreRead_data()
{
    QTest::addColumn<QByteArray>("format");
    for (const char* format : {"png", "bmp", "jpg", "ppm", "xpm", "xbm"}) {
        if (QImageWriter::supportedImageFormats().contains(format))
            QTest::newRow(format) << QByteArray(format);
    }
}

void tst_picturefile::formatsTheToolkitWritesAreRead()
{
    QFETCH(QByteArray, format);
    const QByteArray content = encoded(whiteCanvas(QSize(31, 17)), format);
    const QImage picture = readPicture(write("picture." + format, content));
    QCOMPARE(picture.size(), QSize(31, 17));
    QCOMPARE(picture.convertToFormat(QImage::Format_ARGB32), whiteCanvas(QSize(31, 17)));
}

void tst_picturefile::gifIsRead()
{
    // The smallest picture of this kind: one white pixel. The toolkit reads it by an extension of its own.
    const QByteArray content =
        QByteArray::fromHex("47494638396101000100800000ffffff0000002c00000000010001000002024401003b");
    const QImage picture = readPicture(write("pixel.gif", content));
    QCOMPARE(!picture.isNull(), QImageReader::supportedImageFormats().contains("gif"));
    if (!picture.isNull())
        QCOMPARE(picture.pixel(0, 0), 0xffffffffu);
}

void tst_picturefile::contentDecidesAndNotTheName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("format");
    QTest::newRow("PNG called jpg") << "picture.jpg" << QByteArray("png");
    QTest::newRow("PNG called txt") << "picture.txt" << QByteArray("png");
    QTest::newRow("PNG without a suffix") << "picture" << QByteArray("png");
    QTest::newRow("BMP called png") << "picture.png" << QByteArray("bmp");
    QTest::newRow("BMP called xbm") << "picture.xbm" << QByteArray("bmp");
}

void tst_picturefile::contentDecidesAndNotTheName()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, format);
    const QImage picture = readPicture(write(name, encoded(whiteCanvas(), format)));
    QCOMPARE(picture.convertToFormat(QImage::Format_ARGB32), whiteCanvas());
}

void tst_picturefile::aNameDoesNotChangeTheScale()
{
    for (const char* format : {"png", "bmp"}) {
        const QImage picture = readPicture(write("picture@2x.png", encoded(whiteCanvas(), format)));
        QCOMPARE(picture.size(), whiteCanvas().size());
        QCOMPARE(picture.devicePixelRatio(), 1.0);
    }
}

void tst_picturefile::pixelsAreKept()
{
    const QImage picture = randompainting(71).picture(QSize(40, 30));
    QCOMPARE(readPicture(write("pixels.png", encoded(picture, "png"))), picture);
}

void tst_picturefile::largestPictureIsRead()
{
    const QImage picture = readPicture(write("largest.png", blankPng(8000, 8000)));
    QCOMPARE(picture.size(), QSize(8000, 8000));
    QCOMPARE(qint64(picture.width()) * picture.height(), mostPixels);
}

void tst_picturefile::largerPicturesAreRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("one row more") << blankPng(8000, 8001);
    QTest::newRow("30000 by 30000") << blankPng(30000, 30000);
    // A few pixels of a screen of 15362 by 9075.
    QTest::newRow("GIF with a small frame on a large screen")
        << QByteArray::fromHex("474946383961023c73230002002c00000010020002000002020c0a3c2f7376673e003b");
    // Declared only: there is nothing behind the header.
    QTest::newRow("as wide and high as can be told") << blankPng(1, 1).replace(
        8, 25, pngChunk("IHDR", bigEndian(0x7fffffff) + bigEndian(0x7fffffff) + QByteArray("\x01\x00\x00\x00\x00", 5)));
}

void tst_picturefile::largerPicturesAreRefused()
{
    QFETCH(QByteArray, content);
    const QString path = write("large.png", content);
    QVERIFY(QFileInfo(path).size() < 200000);
    QVERIFY(readPicture(path).isNull());
}

QTEST_MAIN(tst_picturefile)
#include "tst_picturefile.moc"
