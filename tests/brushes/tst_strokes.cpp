#include "brushes/strokes.h"

#include "literalbrushes.h"
#include "painted.h"
#include "randompainting.h"

#include <QtTest>

#include <limits>

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

} // namespace

class tst_strokes : public QObject {
    Q_OBJECT

private slots:
    void onlyBothCoordinatesMakeAPointUnset();
    void strokePenIsRoundAndSolid();
    void strokePenOfNoFiniteWidthIsNone();
    void bandPenIsGreyAndDotted();
    void erasingIsTheLiteralErasing();
    void erasingKeepsThePaintersMode();
    void erasingReachesTheEdgesOf32Bits();
    void pictureRectIsInThePaintersCoordinates();
    void saturatedHoldsAtTheEdges();
};

void tst_strokes::onlyBothCoordinatesMakeAPointUnset()
{
    QVERIFY(isUnset(QPoint(-1, -1)));
    QVERIFY(!isUnset(QPoint(-1, 0)));
    QVERIFY(!isUnset(QPoint(0, -1)));
    QVERIFY(!isUnset(QPoint(0, 0)));
}

void tst_strokes::strokePenIsRoundAndSolid()
{
    QCOMPARE(strokes::pen(QColor(1, 2, 3), 2.5), literal::strokePen(QColor(1, 2, 3), 2.5));
}

void tst_strokes::strokePenOfNoFiniteWidthIsNone()
{
    QImage canvas = whiteCanvas();
    QPainter painter(&canvas);
    strokes::setPen(&painter, Qt::red, std::numeric_limits<qreal>::quiet_NaN());
    QCOMPARE(painter.pen().style(), Qt::NoPen);
    strokes::setPen(&painter, Qt::red, 3);
    QCOMPARE(painter.pen(), literal::strokePen(Qt::red, 3));
    strokes::setPen(&painter, Qt::red, std::numeric_limits<qreal>::infinity());
    QCOMPARE(painter.pen().style(), Qt::NoPen);
}

void tst_strokes::bandPenIsGreyAndDotted()
{
    QCOMPARE(strokes::bandPen(), QPen(QColor("grey"), 1.0, Qt::DotLine, Qt::RoundCap, Qt::RoundJoin));
}

void tst_strokes::erasingIsTheLiteralErasing()
{
    randompainting random(95);
    for (int round = 0; round < 200; ++round) {
        const QImage canvas = random.picture(QSize(120, 90));
        const QPoint first = random.point(canvas.size(), 60);
        const QPoint second = random.chance(3) ? first + QPoint(random.number(-2, 2), random.number(-2, 2))
                                               : random.point(canvas.size(), 60);
        const bool opaque = random.chance(2);
        const auto erase = [&](QPainter* painter) { strokes::eraseArea(painter, QRect(first, second), opaque); };
        const auto literally = [&](QPainter* painter) { literal::eraseArea(painter, first, second, opaque); };
        QCOMPARE(painted(canvas, erase), painted(canvas, literally));
    }
}

void tst_strokes::erasingKeepsThePaintersMode()
{
    QImage canvas = whiteCanvas();
    QPainter painter(&canvas);
    strokes::eraseArea(&painter, QRect(1, 1, 5, 5), false);
    QCOMPARE(painter.compositionMode(), QPainter::CompositionMode_SourceOver);
    QCOMPARE(canvas.pixel(3, 3), 0u);
}

void tst_strokes::erasingReachesTheEdgesOf32Bits()
{
    QImage canvas = whiteCanvas();
    QImage empty = canvas;
    empty.fill(0);
    const QPoint lowest(smallest, smallest);
    const QPoint highest(largest, largest);
    for (const QRect& area : {QRect(lowest, highest), QRect(highest, lowest)}) {
        QCOMPARE(painted(canvas, [&](QPainter* painter) { strokes::eraseArea(painter, area, false); }), empty);
    }
    const QRect right(QPoint(50, smallest), highest);
    const QImage half = painted(canvas, [&](QPainter* painter) { strokes::eraseArea(painter, right, false); });
    QCOMPARE(half.copy(0, 0, 50, 90), canvas.copy(0, 0, 50, 90));
    QCOMPARE(half.copy(50, 0, 70, 90), empty.copy(50, 0, 70, 90));
}

void tst_strokes::pictureRectIsInThePaintersCoordinates()
{
    QImage canvas = whiteCanvas();
    QPainter painter(&canvas);
    QCOMPARE(strokes::pictureRect(&painter), QRect(0, 0, 120, 90));
    painter.translate(-30, 40);
    QCOMPARE(strokes::pictureRect(&painter), QRect(30, -40, 120, 90));
    QVERIFY(strokes::pictureOf(&painter) == &canvas);
}

void tst_strokes::saturatedHoldsAtTheEdges()
{
    QCOMPARE(strokes::saturated(5), 5);
    QCOMPARE(strokes::saturated(qint64(largest) + 1), largest);
    QCOMPARE(strokes::saturated(qint64(smallest) - 1), smallest);
    QCOMPARE(strokes::saturated(std::numeric_limits<qint64>::min()), smallest);
}

QTEST_MAIN(tst_strokes)
#include "tst_strokes.moc"
