#include "brushes/picturefile.h"

#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>
#include <QTest>

/// Picture files that claim to be small and are not, or that are programs for the toolkit rather than pictures.
class tst_hostilepictures : public QObject {
    Q_OBJECT

private slots:
    void anIconIsNotTakenAtItsWord();
    void aGraphicThatNamesFilesIsNotFollowed();

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

QTEST_MAIN(tst_hostilepictures)
#include "tst_hostilepictures.moc"
