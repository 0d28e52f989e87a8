#include "canvas/floodfill.h"

#include "literalpixels.h"
#include "randompictures.h"

#include <QtTest>

#include <cstdlib>
#include <new>

#include <malloc.h>

Q_DECLARE_METATYPE(randompictures::kind)

namespace {

/// What is held by way of operator new, and the most since mostHeld was last set back.
std::size_t held = 0;
std::size_t mostHeld = 0;

} // namespace

void* operator new(std::size_t size)
{
    void* memory = std::malloc(size);
    if (!memory) {
        throw std::bad_alloc();
    }
    held += malloc_usable_size(memory);
    mostHeld = std::max(mostHeld, held);
    return memory;
}

void operator delete(void* memory) noexcept
{
    held -= malloc_usable_size(memory);
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete[](void* memory) noexcept { operator delete(memory); }
void operator delete[](void* memory, std::size_t) noexcept { operator delete(memory); }

namespace {

constexpr QRgb black = 0xff000000;
constexpr QRgb white = 0xffffffff;
constexpr QRgb green = 0xff00ff00;

QImage blank(int width, int height, QRgb value = white)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(value);
    return image;
}

/// Upright corridors one pixel wide that meet in one row: as many ends are open at a time as there are corridors.
QImage comb(int width, int height, int spine)
{
    QImage image = blank(width, height);
    for (int x = 1; x < width; x += 2) {
        for (int y = 0; y < height; ++y) {
            if (y != spine) {
                image.setPixel(x, y, black);
            }
        }
    }
    return image;
}

/// One corridor, one pixel wide, that winds through the whole image.
QImage corridor(int width, int height, bool upright)
{
    QImage image = blank(width, height);
    for (int wall = 1; wall < (upright ? width : height); wall += 2) {
        const int gap = wall / 2 % 2 ? 0 : (upright ? height : width) - 1;
        for (int i = 0; i < (upright ? height : width); ++i) {
            if (i != gap) {
                upright ? image.setPixel(wall, i, black) : image.setPixel(i, wall, black);
            }
        }
    }
    return image;
}

QImage noise(int width, int height, int percentOpen)
{
    QRandomGenerator random(65);
    QImage image = blank(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixel(x, y, random.bounded(100) < percentOpen ? white : black);
        }
    }
    image.setPixel(0, 0, white);
    return image;
}

/// Crossing corridors with a wall of another colour at each block, so that every value of the top eight bits is in use.
QImage manyValues(int width, int height)
{
    QImage image = comb(width, height, height / 2);
    QRgb value = 0;
    for (int x = 1; x < width; x += 2) {
        for (int y = 0; y < height; ++y) {
            if (y != height / 2) {
                // All first digits occur, and all second ones below the rarest first one.
                value += 0x00010101;
                image.setPixel(x, y, (value << 24) | (value >> 2 & 0x00ffffff));
            }
        }
    }
    return image;
}

} // namespace

class tst_floodfill : public QObject {
    Q_OBJECT
private slots:
    void fillsLikeTheLiteralSteps_data();
    void fillsLikeTheLiteralSteps();
    void fillsShapesThatLeaveManyEndsOpen_data();
    void fillsShapesThatLeaveManyEndsOpen();
    void aSeedOutsidePaintsNothing_data();
    void aSeedOutsidePaintsNothing();
    void theColourThatIsThereChangesNothing();
    void aDiagonalLineStopsIt();
    void alphaCounts();
    void aNullImageIsLeftAlone();
    void aSharedImageKeepsItsCopy();
};

void tst_floodfill::fillsLikeTheLiteralSteps_data()
{
    QTest::addColumn<randompictures::kind>("contents");
    QTest::addColumn<QSize>("size");
    const auto add = [](const char* name, randompictures::kind contents) {
        QTest::addRow("%s", name) << contents << QSize(61, 47);
        QTest::addRow("%s, one row", name) << contents << QSize(90, 1);
        QTest::addRow("%s, one column", name) << contents << QSize(1, 90);
        QTest::addRow("%s, wide", name) << contents << QSize(211, 9);
    };
    add("opaque", randompictures::kind::opaque);
    add("unpainted", randompictures::kind::unpainted);
    add("mixed", randompictures::kind::mixed);
}

void tst_floodfill::fillsLikeTheLiteralSteps()
{
    QFETCH(randompictures::kind, contents);
    QFETCH(QSize, size);
    QRandomGenerator random(20 + size.width());
    for (int round = 0; round < 60; ++round) {
        QImage product = randompictures::make(random, size, contents);
        QImage oracle = product.copy();
        for (int fill = 0; fill < 6; ++fill) {
            const QPoint seed = randompictures::point(random, size);
            // Now and then a colour that stands in the picture already.
            const QRgb color = random.bounded(3) ? random.generate() | black : product.pixel(0, 0) | black;
            floodFill(product, seed, color);
            literal::floodFill(oracle, seed, color);
            QVERIFY2(product == oracle, qPrintable(QString("round %1, fill %2").arg(round).arg(fill)));
        }
    }
}

void tst_floodfill::fillsShapesThatLeaveManyEndsOpen_data()
{
    QTest::addColumn<QImage>("image");
    QTest::addColumn<QPoint>("seed");
    QTest::newRow("blank") << blank(300, 200) << QPoint(150, 100);
    QTest::newRow("comb") << comb(301, 60, 59) << QPoint(0, 0);
    QTest::newRow("comb with its spine in the middle") << comb(301, 61, 30) << QPoint(300, 60);
    QTest::newRow("winding corridor") << corridor(120, 121, false) << QPoint(0, 0);
    QTest::newRow("winding corridor, upright") << corridor(121, 120, true) << QPoint(0, 0);
    QTest::newRow("noise") << noise(400, 300, 65) << QPoint(0, 0);
    // More open ends than are remembered, so that pixels are parked in the picture.
    QTest::newRow("40,000 open ends") << comb(80001, 9, 0) << QPoint(0, 0);
    QTest::newRow("40,000 open ends both ways") << comb(80001, 9, 4) << QPoint(40000, 4);
    QTest::newRow("noise of 40,000 columns") << noise(40000, 24, 72) << QPoint(0, 0);
    QTest::newRow("open ends among all values") << manyValues(80001, 41) << QPoint(0, 0);
}

void tst_floodfill::fillsShapesThatLeaveManyEndsOpen()
{
    QFETCH(QImage, image);
    QFETCH(QPoint, seed);
    QImage oracle = image.copy();
    image.detach();
    mostHeld = held;
    const std::size_t before = held;
    floodFill(image, seed, green);
    const std::size_t atMost = mostHeld - before;
    const std::size_t after = held;
    QCOMPARE(after, before);
    QVERIFY(atMost > 0);
    QVERIFY(atMost < 256 * 1024);
    literal::floodFill(oracle, seed, green);
    QVERIFY(image == oracle);
    QCOMPARE(image.pixel(seed), green);
}

void tst_floodfill::aSeedOutsidePaintsNothing_data()
{
    QTest::addColumn<QPoint>("seed");
    QTest::newRow("left") << QPoint(-1, 3);
    QTest::newRow("above") << QPoint(3, -1);
    QTest::newRow("right") << QPoint(10, 3);
    QTest::newRow("below") << QPoint(3, 8);
    QTest::newRow("edges of 32 bits") << QPoint(std::numeric_limits<int>::max(), std::numeric_limits<int>::min());
}

void tst_floodfill::aSeedOutsidePaintsNothing()
{
    QFETCH(QPoint, seed);
    QImage image = blank(10, 8);
    floodFill(image, seed, black);
    QVERIFY(image == blank(10, 8));
}

void tst_floodfill::theColourThatIsThereChangesNothing()
{
    QImage image = comb(31, 10, 5);
    const QImage before = image.copy();
    floodFill(image, QPoint(0, 0), white);
    QVERIFY(image == before);
}

void tst_floodfill::aDiagonalLineStopsIt()
{
    QImage image = blank(20, 20);
    for (int i = 0; i < 20; ++i) {
        image.setPixel(i, i, black);
    }
    floodFill(image, QPoint(19, 0), green);
    QCOMPARE(image.pixel(1, 0), green);
    QCOMPARE(image.pixel(0, 1), white);
    QCOMPARE(image.pixel(0, 0), black);
}

void tst_floodfill::alphaCounts()
{
    QImage image = blank(3, 1, 0x00ffffff);
    image.setPixel(1, 0, white);
    floodFill(image, QPoint(0, 0), green);
    QCOMPARE(image.pixel(0, 0), green);
    QCOMPARE(image.pixel(1, 0), white);
    QCOMPARE(image.pixel(2, 0), QRgb{0x00ffffff});
}

void tst_floodfill::aNullImageIsLeftAlone()
{
    QImage image;
    floodFill(image, QPoint(0, 0), green);
    QVERIFY(image.isNull());
}

void tst_floodfill::aSharedImageKeepsItsCopy()
{
    QImage image = blank(10, 10);
    const QImage copy = image;
    floodFill(image, QPoint(0, 0), green);
    QCOMPARE(copy.pixel(5, 5), white);
    QCOMPARE(image.pixel(5, 5), green);
}

QTEST_GUILESS_MAIN(tst_floodfill)
#include "tst_floodfill.moc"
