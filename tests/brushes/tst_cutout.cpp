#include "brushes/cutout.h"

#include "painted.h"
#include "randompainting.h"

#include <QtTest>

#include <limits>

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

QImage drawn(const QImage& canvas, const cutout& pixels, qint64 left, qint64 top)
{
    return painted(canvas, [&](QPainter* painter) { pixels.draw(painter, left, top); });
}

} // namespace

class tst_cutout : public QObject {
    Q_OBJECT

private slots:
    void emptyCutoutDrawsNothing();
    void drawingIsTheToolkitsCopyDrawn();
    void transparentPartIsDrawnToo();
    void extentsOfAFarAreaAreWhole();
    void farPlacesDrawNothing();
    void canvasWithoutPixelsHasNone();
};

void tst_cutout::emptyCutoutDrawsNothing()
{
    QCOMPARE(drawn(whiteCanvas(), cutout(), 0, 0), whiteCanvas());
    const cutout upsideDown(whiteCanvas(), QPoint(50, 50), QPoint(20, 20));
    QCOMPARE(upsideDown.width(), qint64(0));
    QCOMPARE(upsideDown.height(), qint64(0));
}

void tst_cutout::drawingIsTheToolkitsCopyDrawn()
{
    randompainting random(97);
    for (int round = 0; round < 200; ++round) {
        const QImage source = random.picture(QSize(120, 90));
        const QImage target = random.picture(QSize(120, 90));
        const QPoint first = random.point(source.size(), 60);
        const QPoint second = random.point(source.size(), 60);
        const QPoint place = random.point(source.size(), 80);
        const cutout pixels(source, first, second);
        const QImage copy = source.copy(QRect(first, second));
        QCOMPARE(pixels.width(), qint64(copy.width()));
        QCOMPARE(pixels.height(), qint64(copy.height()));
        QCOMPARE(drawn(target, pixels, place.x(), place.y()),
                 painted(target, [&](QPainter* painter) { painter->drawImage(place, copy); }));
    }
}

void tst_cutout::transparentPartIsDrawnToo()
{
    // The toolkit gives what has no alpha no colour either, and a fill tells the two apart.
    const cutout beside(whiteCanvas(), QPoint(500, 500), QPoint(509, 509));
    const QImage after = drawn(clearCanvas(), beside, 20, 20);
    QCOMPARE(after.pixel(25, 25), 0u);
    QCOMPARE(after.pixel(35, 35), 0x00ffffffu);
}

void tst_cutout::extentsOfAFarAreaAreWhole()
{
    const cutout all(whiteCanvas(), QPoint(smallest, smallest), QPoint(largest, largest));
    QCOMPARE(all.width(), qint64(1) << 32);
    QCOMPARE(all.height(), qint64(1) << 32);
    // Put back, the pixels lie where they lay.
    QImage gray = whiteCanvas();
    gray.fill(0xff808080);
    QCOMPARE(drawn(gray, all, smallest, smallest), whiteCanvas());
}

void tst_cutout::farPlacesDrawNothing()
{
    const cutout pixels(whiteCanvas(), QPoint(0, 0), QPoint(119, 89));
    QImage gray = whiteCanvas();
    gray.fill(0xff808080);
    for (const qint64 far :
         {qint64(120), qint64(-120), qint64(largest), qint64(smallest), qint64(largest) * 4, qint64(smallest) * 4}) {
        QCOMPARE(drawn(gray, pixels, far, 0), gray);
        QCOMPARE(drawn(gray, pixels, 0, far), gray);
    }
}

void tst_cutout::canvasWithoutPixelsHasNone()
{
    const cutout pixels(QImage(), QPoint(0, 0), QPoint(119, 89));
    QCOMPARE(pixels.width(), qint64(120));
    QCOMPARE(drawn(whiteCanvas(), pixels, 10, 10), whiteCanvas());
}

QTEST_MAIN(tst_cutout)
#include "tst_cutout.moc"
