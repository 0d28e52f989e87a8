#include "brushes/pngsieve.h"

#include "brushes/picturefile.h"
#include "pngchunks.h"
#include "randompainting.h"

#include <QBuffer>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// Signature and header: what stands before all else.
constexpr int beginning = 33;

QByteArray encoded(const QImage& image)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return buffer.data();
}

/// The file with chunks behind its header.
QByteArray withChunks(const QByteArray& png, const QByteArray& chunks)
{
    return png.left(beginning) + chunks + png.mid(beginning);
}

QImage painting() { return randompainting(5).picture(QSize(120, 90)); }

/// The file with its pixels in two chunks, and others between them.
QByteArray splitPixels(const QByteArray& png, const QByteArray& chunks)
{
    const int name = png.indexOf("IDAT");
    const int length = static_cast<int>(qFromBigEndian<quint32>(png.constData() + name - 4));
    const QByteArray pixels = png.mid(name + 4, length);
    return png.left(name - 4) + pngChunk("IDAT", pixels.left(length / 2)) + chunks
        + pngChunk("IDAT", pixels.mid(length / 2)) + png.mid(name + 8 + length);
}

} // namespace

class tst_pngsieve : public QObject {
    Q_OBJECT

private slots:
    void chunksWithoutASayAreHeldBack_data();
    void chunksWithoutASayAreHeldBack();
    void chunksWithASayAreShown_data();
    void chunksWithASayAreShown();
    void oneColourProfileIsShown();
    void anyPlaceCanBeReadFirst();
    void picturesWithTextsAreReadWithoutThem();
    void aGammaIsHeededAsByTheToolkit();
    void falseLengthsEndCleanly_data();
    void falseLengthsEndCleanly();

private:
    QString write(const QByteArray& content);
    QByteArray shown(const QByteArray& content);

    QTemporaryDir directory;
};

QString tst_pngsieve::write(const QByteArray& content)
{
    QFile file(directory.filePath("picture.png"));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QByteArray tst_pngsieve::shown(const QByteArray& content) { return pngsieve(write(content)).readAll(); }

void tst_pngsieve::chunksWithoutASayAreHeldBack_data()
{
    QTest::addColumn<QByteArray>("chunk");
    QTest::newRow("packed text") << packedText(5000);
    QTest::newRow("plain text") << pngChunk("tEXt", QByteArray("Author\0me", 9));
    QTest::newRow("international text") << pngChunk(
        "iTXt", QByteArray("Title\0\1\0\0\0", 10) + qCompress(QByteArray(5000, 'x')).mid(4));
    QTest::newRow("palette to suggest") << pngChunk("sPLT", QByteArray("p\0\10abcdef", 9));
    QTest::newRow("unknown") << pngChunk("quRk", "anything");
    QTest::newRow("empty") << pngChunk("tEXt", QByteArray());
    QTest::newRow("many") << packedText(9).repeated(7000);
}

void tst_pngsieve::chunksWithoutASayAreHeldBack()
{
    QFETCH(QByteArray, chunk);
    const QByteArray png = encoded(painting());
    QVERIFY(shown(withChunks(png, chunk)) == shown(png));
    QVERIFY(!shown(withChunks(png, chunk)).contains(chunk.mid(4, 4)));
    const QByteArray split = splitPixels(png, QByteArray());
    QVERIFY(shown(splitPixels(png, chunk)) == shown(split));
    QVERIFY(shown(split.left(split.size() - 12) + chunk + split.right(12)) == shown(split));
    QVERIFY(shown(png + chunk) == shown(png));
}

void tst_pngsieve::chunksWithASayAreShown_data()
{
    QTest::addColumn<QByteArray>("chunk");
    for (const char* name : {"PLTE", "tRNS", "gAMA", "cHRM", "sRGB", "sBIT", "bKGD", "pHYs", "oFFs", "iCCP", "QUrk"})
        QTest::newRow(name) << pngChunk(name, "content");
}

void tst_pngsieve::chunksWithASayAreShown()
{
    QFETCH(QByteArray, chunk);
    const QByteArray png = withChunks(encoded(painting()), chunk);
    QVERIFY(shown(png).contains(chunk));
    QVERIFY(shown(withChunks(png, packedText(5000))) == shown(png));
}

void tst_pngsieve::oneColourProfileIsShown()
{
    const QByteArray profile = pngChunk("iCCP", "first");
    QCOMPARE(shown(withChunks(encoded(painting()), profile + pngChunk("iCCP", "second").repeated(100))),
             shown(withChunks(encoded(painting()), profile)));
}

void tst_pngsieve::anyPlaceCanBeReadFirst()
{
    const QByteArray png = encoded(randompainting(6).picture(QSize(300, 200)));
    const QString path = write(splitPixels(withChunks(png, packedText(999)), packedText(999) + packedText(99)));
    pngsieve sieve(path);
    const QByteArray all = sieve.readAll();
    QVERIFY(all.size() > 40000);
    QCOMPARE(sieve.size(), qint64{all.size()});
    QVERIFY(sieve.atEnd());
    randompainting random(7);
    for (int i = 0; i < 500; ++i) {
        const int place = random.number(0, all.size());
        const int length = random.number(0, random.chance(9) ? 40000 : 90);
        QVERIFY(sieve.seek(place));
        QVERIFY(sieve.read(length) == all.mid(place, length));
        QCOMPARE(sieve.pos(), qint64{qMin(place + length, all.size())});
    }
}

void tst_pngsieve::picturesWithTextsAreReadWithoutThem()
{
    const QByteArray png = encoded(painting());
    const QByteArray texts = packedText(1000000).repeated(40);
    for (const QByteArray& content : {withChunks(png, texts), splitPixels(png, texts)}) {
        const QImage picture = readPicture(write(content));
        QCOMPARE(picture, painting());
        QCOMPARE(picture.textKeys(), QStringList());
    }
}

void tst_pngsieve::aGammaIsHeededAsByTheToolkit()
{
    const QByteArray png = withChunks(encoded(painting()), pngChunk("gAMA", bigEndian(20000)));
    const QString path = write(withChunks(png, packedText(5000)));
    const QImage picture = readPicture(path);
    QVERIFY(!picture.isNull());
    QCOMPARE(picture, QImage(path));
}

void tst_pngsieve::falseLengthsEndCleanly_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray png = encoded(painting());
    for (const quint32 length : {1000000U, 0x7ffffff3U, 0x7fffffffU, 0x80000000U, 0xfffffff4U, 0xffffffffU}) {
        const QByteArray number = bigEndian(length);
        QTest::addRow("text of %u bytes", length) << withChunks(png, packedText(9).replace(0, 4, number));
        QTest::addRow("pixels of %u bytes", length) << QByteArray(png).replace(png.indexOf("IDAT") - 4, 4, number);
        QTest::addRow("header of %u bytes", length) << QByteArray(png).replace(8, 4, number);
    }
    for (const int rest : {0, 3, 4, 7})
        QTest::addRow("%d bytes of a chunk", rest) << png.left(beginning + rest);
}

void tst_pngsieve::falseLengthsEndCleanly()
{
    QFETCH(QByteArray, content);
    QVERIFY(shown(content).size() <= content.size());
    QVERIFY(readPicture(write(content)).isNull());
}

QTEST_MAIN(tst_pngsieve)
#include "tst_pngsieve.moc"
