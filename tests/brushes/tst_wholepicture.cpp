#include "brushes/picturefile.h"

#include "painted.h"
#include "picturefiles.h"

#include <QImageReader>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <malloc.h>

using namespace picturefiles;

namespace {

QImage painting() { return numberedCanvas(QSize(64, 48)).convertToFormat(QImage::Format_RGB32); }

bool isRead(const char* format) { return QImageReader::supportedImageFormats().contains(format); }

/// The file with a segment of metadata that holds these bytes.
QByteArray withMetadata(const QByteArray& jpeg, const QByteArray& content)
{
    const int size = content.size() + 2;
    const char length[] = {static_cast<char>(size >> 8), static_cast<char>(size & 0xff)};
    return jpeg.left(2) + "\xff\xe1" + QByteArray(length, 2) + content + jpeg.mid(2);
}

void addJpegRows()
{
    const QByteArray jpeg = encoded(painting(), "jpg");
    QTest::newRow("JPEG") << jpeg;
    QTest::newRow("progressive JPEG") << progressiveJpeg(painting());
    QTest::newRow("grey JPEG") << encoded(painting().convertToFormat(QImage::Format_Grayscale8), "jpg");
    QTest::newRow("JPEG with a preview") << withMetadata(jpeg, jpeg);
}

void addBmpRows()
{
    QTest::newRow("BMP") << encoded(painting(), "bmp");
    QTest::newRow("BMP, 256 colours") << encoded(painting().convertToFormat(QImage::Format_Indexed8), "bmp");
    QTest::newRow("BMP, 2 colours") << encoded(painting().convertToFormat(QImage::Format_Mono), "bmp");
    QTest::newRow("BMP, 16 colours") << bmp(4, 0, QByteArray(32 * 48, '\x21'));
    QTest::newRow("BMP, 16 bits") << bmp(16, 0, QByteArray(128 * 48, '\x21'));
    QTest::newRow("BMP, 16 bits in masks") << bmp(16, 3, QByteArray(128 * 48, '\x21'));
    for (const int headerSize : {108, 124})
        QTest::addRow("BMP, a header of %d bytes", headerSize) << bmp(16, 3, QByteArray(128 * 48, '\x21'), headerSize);
    QTest::newRow("old BMP") << oldBmp(24, QByteArray(192 * 48, '\x21'));
    QTest::newRow("old BMP, 256 colours") << oldBmp(8, QByteArray(64 * 48, '\x21'));
    QTest::newRow("BMP, 32 bits") << bmp(32, 0, QByteArray(256 * 48, '\x21'));
    QTest::newRow("BMP, runs of bytes") << bmp(8, 1, runs());
    QTest::newRow("BMP, runs of nibbles") << bmp(4, 2, runs());
}

void addGifRows()
{
    QTest::newRow("GIF") << gif(painting());
    QTest::newRow("GIF, colours of the frame") << gif(painting(), colours::ofTheFrame);
}

void addRows()
{
    QTest::addColumn<QByteArray>("content");
    if (isRead("jpg"))
        addJpegRows();
    addBmpRows();
    QTest::newRow("PNG") << encoded(painting(), "png");
    if (isRead("gif"))
        addGifRows();
    QTest::newRow("raw bits") << encoded(painting().convertToFormat(QImage::Format_Mono), "pbm");
    QTest::newRow("raw greys") << encoded(painting().convertToFormat(QImage::Format_Grayscale8), "pgm");
    QTest::newRow("raw colours") << encoded(painting(), "ppm");
    QTest::newRow("bits as text") << textPicture(1, painting());
    QTest::newRow("greys as text") << textPicture(2, painting());
    QTest::newRow("colours as text") << textPicture(3, painting());
    QTest::newRow("XBM") << encoded(painting().convertToFormat(QImage::Format_Mono), "xbm");
    QTest::newRow("XPM") << encoded(painting(), "xpm");
}

} // namespace

class tst_wholepicture : public QObject {
    Q_OBJECT

private slots:
    void wholeFilesAreReadAsByTheToolkit_data() { addRows(); }
    void wholeFilesAreReadAsByTheToolkit();
    void whatFollowsAPictureDoesNotMatter_data() { addRows(); }
    void whatFollowsAPictureDoesNotMatter();
    void partsOfAFileAreRefused_data() { addRows(); }
    void partsOfAFileAreRefused();
    void aMissingEndOfAJpegIsNoticed();
    void everyByteOfABmpIsAskedFor_data();
    void everyByteOfABmpIsAskedFor();
    void pixelsOfABmpMayStartLater_data();
    void pixelsOfABmpMayStartLater();
    void runsMayEndWithTheRows();
    void pixelsThatRunsPassOverAreTheFirstColour_data();
    void pixelsThatRunsPassOverAreTheFirstColour();
    void theFirstFrameOfAGifIsEnough();
    void theLastByteOfAnXbmIsAskedFor();

private:
    QString write(const QByteArray& content);
    QImage read(const QByteArray& content) { return readPicture(write(content)); }

    QTemporaryDir directory;
};

QString tst_wholepicture::write(const QByteArray& content)
{
    QFile file(directory.filePath("picture"));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

void tst_wholepicture::wholeFilesAreReadAsByTheToolkit()
{
    QFETCH(QByteArray, content);
    const QImage picture = read(content);
    QCOMPARE(picture.size(), painting().size());
    QCOMPARE(picture, QImage::fromData(content));
}

void tst_wholepicture::whatFollowsAPictureDoesNotMatter()
{
    QFETCH(QByteArray, content);
    for (const QByteArray& garbage : {QByteArray(1000, '\xff'), content, content.left(content.size() / 2)})
        QCOMPARE(read(content + garbage), read(content));
}

void tst_wholepicture::partsOfAFileAreRefused()
{
    QFETCH(QByteArray, content);
    const int size = content.size();
    for (const int length : {size / 4, size / 2, size * 3 / 4, size - 20})
        QVERIFY2(read(content.left(length)).isNull(), qPrintable(QString::number(length)));
}

void tst_wholepicture::aMissingEndOfAJpegIsNoticed()
{
    if (!isRead("jpg"))
        QSKIP("The toolkit reads no JPEG here.");
    for (const QByteArray& jpeg : {encoded(painting(), "jpg"), progressiveJpeg(painting())}) {
        QCOMPARE(jpeg.right(2).toHex(), QByteArray("ffd9"));
        for (const int missing : {1, 2, 3})
            QVERIFY(read(jpeg.left(jpeg.size() - missing)).isNull());
        // The end of a preview is not the end of the picture.
        const QByteArray parent = withMetadata(jpeg, jpeg);
        QVERIFY(read(parent.left(parent.size() - 2)).isNull());
        // A marker may have any number of fillers before it.
        QCOMPARE(read(jpeg.left(jpeg.size() - 2) + QByteArray(9, '\xff') + jpeg.right(1)), read(jpeg));
    }
}

void tst_wholepicture::everyByteOfABmpIsAskedFor_data()
{
    QTest::addColumn<QByteArray>("content");
    addBmpRows();
}

void tst_wholepicture::everyByteOfABmpIsAskedFor()
{
    QFETCH(QByteArray, content);
    QVERIFY(!read(content).isNull());
    QVERIFY(read(content.left(content.size() - 1)).isNull());
    // The start of the pixels is told as 0, which the toolkit does not believe.
    content.replace(10, 4, QByteArray(4, '\0'));
    QVERIFY(!read(content).isNull());
    QVERIFY(read(content.left(content.size() - 1)).isNull());
}

void tst_wholepicture::pixelsOfABmpMayStartLater_data()
{
    QTest::addColumn<QByteArray>("content");
    addBmpRows();
}

void tst_wholepicture::pixelsOfABmpMayStartLater()
{
    QFETCH(QByteArray, content);
    const auto start = qFromLittleEndian<qint32>(content.constData() + 10);
    QByteArray later = content.left(start) + QByteArray(80, '\x55') + content.mid(start);
    qToLittleEndian<qint32>(start + 80, later.data() + 10);
    QCOMPARE(read(later), read(content));
    QVERIFY(read(later.chopped(1)).isNull());
    QVERIFY(read(later.chopped(80)).isNull());
}

void tst_wholepicture::runsMayEndWithTheRows()
{
    // The end of a row in the place of the mark for the end.
    const QByteArray content = bmp(8, 1, runs().chopped(2) + QByteArray(2, '\0'));
    QCOMPARE(read(content), read(bmp(8, 1, runs())));
    QVERIFY(read(content.chopped(1)).isNull());
    // A jump over all rows but the last.
    const QByteArray jump("\0\2\0\57\7\5\0\0", 8);
    QCOMPARE(read(bmp(8, 1, jump)).size(), QSize(64, 48));
    QVERIFY(read(bmp(8, 1, jump.chopped(1))).isNull());
}

void tst_wholepicture::pixelsThatRunsPassOverAreTheFirstColour_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<int>("packing");
    QTest::newRow("bytes") << 8 << 1;
    QTest::newRow("nibbles") << 4 << 2;
}

void tst_wholepicture::pixelsThatRunsPassOverAreTheFirstColour()
{
    QFETCH(int, depth);
    QFETCH(int, packing);
    // A jump, three pixels as a run, five pixels one by one and a byte to make theirs even, the end.
    const QByteArray pixels = depth == 8 ? QByteArray("\5\5\5\5\5\0", 6) : QByteArray("\x55\x55\x50\0", 4);
    const QByteArray body = QByteArray("\0\2\5\7\3\x55\0\5", 8) + pixels + QByteArray("\0\1", 2);
    // Memory that nobody has written to is then not blank, but full of the tenth colour.
    mallopt(M_PERTURB, 0xf6);
    const QImage picture = read(bmp(depth, packing, body)).convertToFormat(QImage::Format_RGB32);
    mallopt(M_PERTURB, 0);
    int others = 0;
    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 64; ++x)
            others += picture.pixel(x, y) != 0xff000000 ? 1 : 0;
    }
    QCOMPARE(picture.size(), QSize(64, 48));
    QCOMPARE(others, 8);
}

void tst_wholepicture::theFirstFrameOfAGifIsEnough()
{
    if (!isRead("gif"))
        QSKIP("The toolkit reads no GIF here.");
    const QByteArray content = gif(painting());
    QCOMPARE(read(content.chopped(1)), read(content));
    QVERIFY(read(content.chopped(2)).isNull());
    // A second frame that breaks off.
    QCOMPARE(read(content.chopped(1) + content.mid(content.indexOf("!\xf9"), 300)), read(content));
}

void tst_wholepicture::theLastByteOfAnXbmIsAskedFor()
{
    const QByteArray content = encoded(painting().convertToFormat(QImage::Format_Mono), "xbm");
    const int last = content.lastIndexOf("0x");
    QCOMPARE(read(content.left(last + 4)), read(content));
    QVERIFY(read(content.left(last + 3)).isNull());
}

QTEST_MAIN(tst_wholepicture)
#include "tst_wholepicture.moc"
