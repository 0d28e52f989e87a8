#include "brushes/spray.h"

#include "literalbrushes.h"
#include "painted.h"
#include "randompainting.h"

#include <QtTest>

#include <cstdlib>

namespace {

constexpr unsigned seed = 99;

QImage sprayed(const QImage& canvas, const QColor& color, qreal thick, const QList<QPoint>& points)
{
    srand(seed);
    return painted(canvas, [&](QPainter* painter) { spray::drawPath(painter, color, thick, points); });
}

QImage literally(const QImage& canvas, const QColor& color, qreal thick, const QList<QPoint>& points)
{
    srand(seed);
    return painted(canvas, [&](QPainter* painter) {
        for (int i = 1; i < points.size(); ++i)
            literal::spraySegment(painter, color, thick, points.at(i - 1), points.at(i));
    });
}

} // namespace

class tst_spray : public QObject {
    Q_OBJECT

private slots:
    void fewerThanTwoPointsPaintNothingAndTakeNoNumber();
    void twoPointsAreOneSegment();
    void patternsLieOnTheGridOfTheCanvas();
    void longStrokesAreTheLiteralSegments_data();
    void longStrokesAreTheLiteralSegments();
    void thousandsOfTheWidestDiscsBesideThePictureEnd_data();
    void thousandsOfTheWidestDiscsBesideThePictureEnd();
    void nothingIsSprayedWhereThePainterDoesNotReach_data();
    void nothingIsSprayedWhereThePainterDoesNotReach();
};

void tst_spray::fewerThanTwoPointsPaintNothingAndTakeNoNumber()
{
    srand(seed);
    const int first = rand();
    for (const QList<QPoint>& points : {QList<QPoint>(), QList<QPoint>{QPoint(40, 40)}}) {
        QCOMPARE(sprayed(whiteCanvas(), Qt::red, 20, points), whiteCanvas());
        QCOMPARE(rand(), first);
    }
}

void tst_spray::twoPointsAreOneSegment()
{
    const QList<QPoint> points{QPoint(40, 40), QPoint(70, 55)};
    QCOMPARE(sprayed(whiteCanvas(), Qt::red, 20, points), literally(whiteCanvas(), Qt::red, 20, points));
    QVERIFY(sprayed(whiteCanvas(), Qt::red, 20, points) != whiteCanvas());
}

void tst_spray::patternsLieOnTheGridOfTheCanvas()
{
    // Wherever a disc lies, the holes of its pattern stay at the same pixels.
    const QImage all = sprayed(whiteCanvas(), Qt::red, 2000, {QPoint(60, 45), QPoint(60, 45)});
    for (const QPoint& place : {QPoint(30, 30), QPoint(31, 30), QPoint(30, 33), QPoint(77, 51)}) {
        const QImage spot = sprayed(whiteCanvas(), Qt::red, 25, {place, place});
        for (int y = place.y() - 6; y < place.y() + 6; ++y) {
            for (int x = place.x() - 6; x < place.x() + 6; ++x)
                QCOMPARE(spot.pixel(x, y), all.pixel(x, y));
        }
    }
}

void tst_spray::longStrokesAreTheLiteralSegments_data()
{
    QTest::addColumn<QColor>("color");
    QTest::newRow("opaque") << QColor(255, 0, 0);
    QTest::newRow("half-transparent") << QColor(255, 0, 0, 77);
    QTest::newRow("hardly visible") << QColor(90, 200, 10, 2);
}

void tst_spray::longStrokesAreTheLiteralSegments()
{
    QFETCH(QColor, color);
    // Far more painting than is done disc by disc.
    const QList<QPoint> points{QPoint(-900, 20), QPoint(1000, 70), QPoint(-700, -600), QPoint(300, 500)};
    for (const qreal thick : {150.0, 333.3, 999.0})
        QCOMPARE(sprayed(whiteCanvas(), color, thick, points), literally(whiteCanvas(), color, thick, points));
}

void tst_spray::thousandsOfTheWidestDiscsBesideThePictureEnd_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QColor>("color");
    for (const int side : {1, 10, 2000}) {
        QTest::addRow("opaque on %d", side) << QSize(side, side) << QColor(255, 0, 0);
        QTest::addRow("half-transparent on %d", side) << QSize(side, side) << QColor(255, 0, 0, 128);
    }
}

/// Looked at one by one, these discs take from ten seconds to many minutes.
void tst_spray::thousandsOfTheWidestDiscsBesideThePictureEnd()
{
    QFETCH(QSize, size);
    QFETCH(QColor, color);
    QList<QPoint> points;
    for (int i = 0; i < 300; ++i)
        points << QPoint(-8190, -8190) << QPoint(-8190, 10180);
    const QImage picture = sprayed(whiteCanvas(size), color, 16384, points);
    // The discs end in the second column.
    QVERIFY(picture.pixel(0, size.height() / 2) != 0xffffffff);
    QCOMPARE(picture.copy(2, 0, size.width(), size.height()),
             whiteCanvas(size).copy(2, 0, size.width(), size.height()));
}

void tst_spray::nothingIsSprayedWhereThePainterDoesNotReach_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QColor>("color");
    QTest::newRow("wide") << QSize(33000, 20) << QColor(255, 0, 0);
    QTest::newRow("high") << QSize(20, 33000) << QColor(255, 0, 0);
    QTest::newRow("wide, half-transparent") << QSize(33000, 20) << QColor(255, 0, 0, 128);
    QTest::newRow("high, half-transparent") << QSize(20, 33000) << QColor(255, 0, 0, 128);
}

void tst_spray::nothingIsSprayedWhereThePainterDoesNotReach()
{
    QFETCH(QSize, size);
    QFETCH(QColor, color);
    const QPoint end(size.width() - 1, size.height() - 1);
    const QPoint near = end - QPoint(end.x() > 20 ? 1000 : 0, end.y() > 20 ? 1000 : 0);
    const QList<QPoint> points{near, end, near, end, near};
    const QImage picture = sprayed(whiteCanvas(size), color, 90, points);
    QCOMPARE(picture, literally(whiteCanvas(size), color, 90, points));
    QCOMPARE(picture.pixel(end), 0xffffffff);
    QVERIFY(picture != whiteCanvas(size));
}

QTEST_MAIN(tst_spray)
#include "tst_spray.moc"
