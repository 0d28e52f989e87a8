#include "brushes/picturefile.h"
#include "tests/brushes/picturefiles.h"
#include "tests/brushes/pngchunks.h"

#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QByteArray startOfScan("\xff\xda", 2);

QImage bluePicture()
{
    QImage picture(90, 60, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    return picture;
}

/// A file that goes over its pixels so many times.
QByteArray jpegOfScans(int scans)
{
    const QByteArray jpeg = picturefiles::progressiveJpeg(bluePicture());
    const QByteArray last = jpeg.mid(jpeg.lastIndexOf(startOfScan)).chopped(2);
    return jpeg.chopped(2) + last.repeated(scans - jpeg.count(startOfScan)) + jpeg.right(2);
}

} // namespace

/// Picture files that claim to be small and are not, or that are programs for the toolkit rather than pictures.
class tst_hostilepictures : public QObject {
    Q_OBJECT

private slots:
    void anIconIsNotTakenAtItsWord();
    void aGraphicThatNamesFilesIsNotFollowed();
    void aJpegIsDecodedInSoManyPassesOnly_data();
    void aJpegIsDecodedInSoManyPassesOnly();
    void passesOfOtherPicturesInAJpegAreNotCounted();
    void packedTextsAreLeftPacked();

private:
    QString write(const char* name, const QByteArray& content) const;

    QTemporaryDir directory;
};

QString tst_hostilepictures::write(const char* name, const QByteArray& content) const
{
    QFile file(directory.filePath(QString::fromLatin1(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

void tst_hostilepictures::anIconIsNotTakenAtItsWord()
{
    // The directory of the icon says 16 by 16; the PNG that it holds says 9000 by 9000.
    QImage large(9000, 9000, QImage::Format_Mono);
    large.fill(0);
    QBuffer png;
    QVERIFY(png.open(QIODevice::WriteOnly) && large.save(&png, "PNG"));
    QByteArray icon;
    QDataStream stream(&icon, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream << quint16(0) << quint16(1) << quint16(1) << quint8(16) << quint8(16) << quint16(0) << quint16(1)
           << quint16(32) << quint32(png.size()) << quint32(22);
    const QString path = write("small.png", icon + png.data());
    const QImageReader reader(path, "ico");
    if (QImageReader::supportedImageFormats().contains("ico"))
        QCOMPARE(reader.size(), QSize(16, 16));
    QVERIFY(readPicture(path).isNull());
}

void tst_hostilepictures::aGraphicThatNamesFilesIsNotFollowed()
{
    const QByteArray graphic("<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
                             "width='9' height='9'><image width='9' height='9' xlink:href='/dev/zero'/></svg>");
    QVERIFY(readPicture(write("graphic.svg", graphic)).isNull());
    QVERIFY(readPicture(write("graphic.png", graphic)).isNull());
}

void tst_hostilepictures::aJpegIsDecodedInSoManyPassesOnly_data()
{
    QTest::addColumn<int>("scans");
    QTest::addColumn<bool>("isRead");
    // What the toolkit writes itself.
    QTest::newRow("10") << 10 << true;
    QTest::newRow("32") << 32 << true;
    QTest::newRow("33") << 33 << false;
    QTest::newRow("9000") << 9000 << false;
}

void tst_hostilepictures::aJpegIsDecodedInSoManyPassesOnly()
{
    if (!QImageReader::supportedImageFormats().contains("jpg"))
        QSKIP("The toolkit reads no JPEG here.");
    QFETCH(int, scans);
    QFETCH(bool, isRead);
    const QByteArray jpeg = jpegOfScans(scans);
    QCOMPARE(jpeg.count(startOfScan), scans);
    QCOMPARE(readPicture(write("scans.jpg", jpeg)).isNull(), !isRead);
    // A marker may have fillers before it.
    QCOMPARE(readPicture(write("scans.jpg", QByteArray(jpeg).replace(startOfScan, "\xff" + startOfScan))).isNull(),
             !isRead);
    // What looks like the end is inside of a segment.
    const QByteArray comment("\xff\xfe\0\4\xff\xd9", 6);
    QCOMPARE(readPicture(write("scans.jpg", QByteArray(jpeg).insert(2, comment))).isNull(), !isRead);
}

void tst_hostilepictures::passesOfOtherPicturesInAJpegAreNotCounted()
{
    if (!QImageReader::supportedImageFormats().contains("jpg"))
        QSKIP("The toolkit reads no JPEG here.");
    const QByteArray jpeg = jpegOfScans(10);
    const QByteArray comment = QByteArray("\xff\xfe\x13\x8a", 4) + startOfScan.repeated(2500);
    const QImage picture = readPicture(write("preview.jpg", jpeg.left(2) + comment + jpeg.mid(2) + jpegOfScans(9000)));
    QCOMPARE(picture, QImage::fromData(jpeg));
    QCOMPARE(picture.size(), bluePicture().size());
}

void tst_hostilepictures::packedTextsAreLeftPacked()
{
    // Before the pixels, where they would be unpacked for the size alone, and behind them.
    QByteArray png = picturefiles::encoded(bluePicture(), "PNG");
    const QByteArray texts = packedText(1000000).repeated(40);
    png = png.left(33) + texts + png.mid(33).chopped(12) + texts + png.right(12);
    QVERIFY(png.size() < 200000);
    const QImage picture = readPicture(write("texts.png", png));
    QCOMPARE(picture, bluePicture());
    QCOMPARE(picture.text(), QString());
}

QTEST_MAIN(tst_hostilepictures)
#include "tst_hostilepictures.moc"
