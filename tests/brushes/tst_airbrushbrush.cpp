#include "randompainting.h"
#include "sprayedstrokes.h"

#include <QtTest>

#include <cstdlib>
#include <limits>

namespace {

constexpr QSize small(120, 90);
constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

QImage segment(qreal thick, const QPoint& from, const QPoint& to)
{
    srand(seed);
    return painted(whiteCanvas(), [&](QPainter* painter) { literal::spraySegment(painter, Qt::red, thick, from, to); });
}

/// A local stroke, which begins with a press at the first point and ends with a release at the last.
QImage sprayed(qreal thick, const QList<QPoint>& points)
{
    airbrushbrush airbrush;
    srand(seed);
    return painted(whiteCanvas(), [&](QPainter* painter) {
        bool record = false;
        airbrush.mousePress(painter, Qt::LeftButton, points.first(), Qt::red, thick, &record);
        for (int i = 1; i < points.size() - 1; ++i)
            airbrush.mouseMove(painter, Qt::LeftButton, points.at(i), Qt::red, thick, &record);
        airbrush.mouseRelease(painter, Qt::LeftButton, points.last(), Qt::red, thick, &record);
    });
}

} // namespace

class tst_airbrushbrush : public QObject {
    Q_OBJECT

private slots:
    void otherButtonsAreIgnored();
    void pressPaintsNothing();
    void everyPositionIsRecorded();
    void clickPaintsOneSpotOnRelease();
    void clickIsNotPaintedByPeers();
    void moveSpraysFromTheLastPosition();
    void releaseLeavesTheStrokeWhereItStood();
    void previewIsEmpty();
    void discIsAsManyPixelsAcrossAsTheWidthHasWholeOnes();
    void widthOfOneGivesBoxesOfOnePixel();
    void widthBelowOnePaintsNothing();
    void fractionalWidthIsHalvedExactly();
    void cornersAreCutTowardZero();
    void densityFollowsTheWayAndNotTheWidth();
    void eachSegmentTakesOneNumberByLot();
    void segmentsThatPaintNothingTakeTheirNumberToo();
    void replayLeavesARunningStrokeAlone();
    void localStrokeIsTheLiteralSegments();
};

void tst_airbrushbrush::otherButtonsAreIgnored()
{
    airbrushbrush airbrush;
    bool record = true;
    srand(seed);
    const QImage after = painted(whiteCanvas(), [&](QPainter* painter) {
        QVERIFY(!airbrush.mousePress(painter, Qt::RightButton, QPoint(10, 10), Qt::red, 9, &record));
        QVERIFY(!airbrush.mouseMove(painter, Qt::RightButton, QPoint(50, 10), Qt::red, 9, &record));
        QVERIFY(!airbrush.mouseRelease(painter, Qt::RightButton, QPoint(50, 50), Qt::red, 9, &record));
        QVERIFY(record);
        // The next step still begins at the origin.
        airbrush.mouseMove(painter, Qt::LeftButton, QPoint(30, 0), Qt::red, 9, &record);
    });
    QCOMPARE(after, segment(9, QPoint(0, 0), QPoint(30, 0)));
}

void tst_airbrushbrush::pressPaintsNothing()
{
    airbrushbrush airbrush;
    bool record = false;
    const QImage after = painted(whiteCanvas(), [&](QPainter* painter) {
        QVERIFY(airbrush.mousePress(painter, Qt::LeftButton, QPoint(50, 50), Qt::red, 9, &record));
    });
    QCOMPARE(after, whiteCanvas());
}

void tst_airbrushbrush::everyPositionIsRecorded()
{
    airbrushbrush airbrush;
    QImage canvas = whiteCanvas();
    QPainter painter(&canvas);
    bool press = false;
    bool move = false;
    bool release = false;
    QVERIFY(airbrush.mousePress(&painter, Qt::LeftButton, QPoint(1, 1), Qt::black, 1, &press));
    QVERIFY(airbrush.mouseMove(&painter, Qt::LeftButton, QPoint(2, 1), Qt::black, 1, &move));
    QVERIFY(airbrush.mouseRelease(&painter, Qt::LeftButton, QPoint(3, 1), Qt::black, 1, &release));
    QVERIFY(press && move && release);
}

void tst_airbrushbrush::clickPaintsOneSpotOnRelease()
{
    const QPoint spot(40, 30);
    QCOMPARE(sprayed(20, {spot, spot}), segment(20, spot, spot));
    QVERIFY(sprayed(20, {spot, spot}) != whiteCanvas());
}

void tst_airbrushbrush::clickIsNotPaintedByPeers()
{
    QCOMPARE(replayed(whiteCanvas(), Qt::red, 20, {QPoint(40, 30), QPoint(40, 30)}), whiteCanvas());
}

void tst_airbrushbrush::moveSpraysFromTheLastPosition()
{
    airbrushbrush airbrush;
    bool record = false;
    srand(seed);
    const QImage after = painted(whiteCanvas(), [&](QPainter* painter) {
        airbrush.mousePress(painter, Qt::LeftButton, QPoint(20, 30), Qt::red, 9, &record);
        airbrush.mouseMove(painter, Qt::LeftButton, QPoint(70, 40), Qt::red, 9, &record);
    });
    QCOMPARE(after, segment(9, QPoint(20, 30), QPoint(70, 40)));
}

void tst_airbrushbrush::releaseLeavesTheStrokeWhereItStood()
{
    airbrushbrush airbrush;
    bool record = false;
    QImage canvas = whiteCanvas();
    QPainter painter(&canvas);
    airbrush.mousePress(&painter, Qt::LeftButton, QPoint(20, 30), Qt::red, 9, &record);
    airbrush.mouseRelease(&painter, Qt::LeftButton, QPoint(70, 40), Qt::red, 9, &record);
    srand(seed);
    const QImage after = painted(whiteCanvas(), [&](QPainter* other) {
        airbrush.mouseRelease(other, Qt::LeftButton, QPoint(30, 60), Qt::red, 9, &record);
    });
    QCOMPARE(after, segment(9, QPoint(20, 30), QPoint(30, 60)));
}

void tst_airbrushbrush::previewIsEmpty()
{
    airbrushbrush airbrush;
    brush& tool = airbrush;
    QCOMPARE(painted(whiteCanvas(), [&](QPainter* painter) { tool.drawPreview(painter, Qt::red, 9); }), whiteCanvas());
}

void tst_airbrushbrush::discIsAsManyPixelsAcrossAsTheWidthHasWholeOnes()
{
    for (const qreal thick : {2.0, 2.9, 7.0, 30.0, 30.99}) {
        // All patterns together leave no hole.
        QImage canvas = whiteCanvas();
        for (int i = 0; i < 60; ++i) {
            canvas = painted(canvas, [&](QPainter* painter) {
                airbrushbrush airbrush;
                bool record = false;
                airbrush.mousePress(painter, Qt::LeftButton, QPoint(60, 45), Qt::red, thick, &record);
                airbrush.mouseRelease(painter, Qt::LeftButton, QPoint(60, 45), Qt::red, thick, &record);
            });
        }
        int left = canvas.width();
        int right = -1;
        for (int y = 0; y < canvas.height(); ++y) {
            for (int x = 0; x < canvas.width(); ++x) {
                if (canvas.pixel(x, y) != 0xffffffff) {
                    left = qMin(left, x);
                    right = qMax(right, x);
                }
            }
        }
        QCOMPARE(left, int(60 - thick * 0.5));
        QCOMPARE(right, int(60 - thick * 0.5) + int(thick) - 1);
    }
}

void tst_airbrushbrush::widthOfOneGivesBoxesOfOnePixel()
{
    // The toolkit's ellipse in such a box has no pixel.
    const QImage expected = painted(whiteCanvas(), [](QPainter* painter) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(Qt::red);
        painter->drawEllipse(QRect(QPoint(40, 30), QPoint(40, 30)));
    });
    QCOMPARE(sprayed(1, {QPoint(40, 30), QPoint(40, 30)}), expected);
    QCOMPARE(sprayed(1, {QPoint(40, 30), QPoint(48, 30)}), segment(1, QPoint(40, 30), QPoint(48, 30)));
}

void tst_airbrushbrush::widthBelowOnePaintsNothing()
{
    for (const qreal thick : {0.0, 0.3, 0.999, -0.5})
        QCOMPARE(sprayed(thick, {QPoint(40, 30), QPoint(60, 50)}), whiteCanvas());
}

void tst_airbrushbrush::fractionalWidthIsHalvedExactly()
{
    // Half is 1.25, so that the box of two pixels begins at 38, where that of a width of 2 begins at 39.
    QCOMPARE(sprayed(2.5, {QPoint(40, 30), QPoint(52, 37)}), segment(2.5, QPoint(40, 30), QPoint(52, 37)));
    srand(seed);
    const QImage expected = painted(whiteCanvas(), [](QPainter* painter) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(QBrush(Qt::red, static_cast<Qt::BrushStyle>(Qt::Dense1Pattern + rand() % 7)));
        painter->drawEllipse(QRect(QPoint(38, 28), QPoint(39, 29)));
    });
    QCOMPARE(sprayed(2.5, {QPoint(40, 30), QPoint(40, 30)}), expected);
}

void tst_airbrushbrush::cornersAreCutTowardZero()
{
    srand(seed);
    const QImage expected = painted(whiteCanvas(), [](QPainter* painter) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(QBrush(Qt::red, static_cast<Qt::BrushStyle>(Qt::Dense1Pattern + rand() % 7)));
        painter->drawEllipse(QRect(QPoint(0, 0), QPoint(2, 2)));
    });
    // 1 less 1.5 is -0.5 and gives 0, not -1.
    QCOMPARE(sprayed(3, {QPoint(1, 1), QPoint(1, 1)}), expected);
    for (int x = -4; x < 4; ++x)
        QCOMPARE(sprayed(7, {QPoint(x, 3), QPoint(9, x)}), segment(7, QPoint(x, 3), QPoint(9, x)));
}

void tst_airbrushbrush::densityFollowsTheWayAndNotTheWidth()
{
    // 41 pixels of way make 22 discs; one of this width has two pixels in one row.
    int most = 0;
    for (unsigned start = 0; start < 200; ++start) {
        airbrushbrush airbrush;
        srand(start);
        const QImage after = painted(whiteCanvas(), [&](QPainter* painter) {
            bool record = false;
            airbrush.mousePress(painter, Qt::LeftButton, QPoint(20, 30), Qt::red, 2, &record);
            airbrush.mouseRelease(painter, Qt::LeftButton, QPoint(61, 30), Qt::red, 2, &record);
        });
        most = qMax(most, paintedPixels(after));
    }
    QVERIFY(most > 30);
    QVERIFY(most <= 43);
}

void tst_airbrushbrush::eachSegmentTakesOneNumberByLot()
{
    const QList<QPoint> points{QPoint(10, 10), QPoint(50, 20), QPoint(60, 60), QPoint(60, 60)};
    srand(seed);
    rand();
    rand();
    rand();
    const int fourth = rand();
    replayed(whiteCanvas(), Qt::red, 9, points);
    QCOMPARE(rand(), fourth);
    replayed(whiteCanvas(), QColor(255, 0, 0, 128), 9, points);
    QCOMPARE(rand(), fourth);
    sprayed(9, points);
    QCOMPARE(rand(), fourth);
}

void tst_airbrushbrush::segmentsThatPaintNothingTakeTheirNumberToo()
{
    srand(seed);
    rand();
    rand();
    const int third = rand();
    const QList<QPoint> faraway{QPoint(-9000, -9000), QPoint(-8000, -9000), QPoint(-9000, -8000)};
    replayed(whiteCanvas(), Qt::red, 9, faraway);
    QCOMPARE(rand(), third);
    replayed(whiteCanvas(), Qt::red, 0, {QPoint(1, 1), QPoint(20, 20), QPoint(1, 1)});
    QCOMPARE(rand(), third);
    replayed(whiteCanvas(), Qt::red, 1000, {QPoint(1, 1), QPoint(20, 20), QPoint(1, 1)});
    QCOMPARE(rand(), third);
}

void tst_airbrushbrush::replayLeavesARunningStrokeAlone()
{
    airbrushbrush airbrush;
    bool record = false;
    QImage canvas = whiteCanvas();
    QPainter painter(&canvas);
    airbrush.mousePress(&painter, Qt::LeftButton, QPoint(20, 30), Qt::red, 9, &record);
    airbrush.replay(&painter, Qt::blue, 3, {QPoint(1, 1), QPoint(2, 2), QPoint(3, 3)});
    srand(seed);
    const QImage after = painted(whiteCanvas(), [&](QPainter* other) {
        airbrush.mouseMove(other, Qt::LeftButton, QPoint(60, 60), Qt::red, 9, &record);
    });
    QCOMPARE(after, segment(9, QPoint(20, 30), QPoint(60, 60)));
}

void tst_airbrushbrush::localStrokeIsTheLiteralSegments()
{
    randompainting random(41);
    for (int round = 0; round < 60; ++round) {
        const QList<QPoint> path = random.stroke(random.number(3, 9), small, 30);
        const qreal thick = random.honestWidth();
        QCOMPARE(sprayed(thick, path), literally(whiteCanvas(), Qt::red, thick, path));
    }
}

QTEST_MAIN(tst_airbrushbrush)
#include "tst_airbrushbrush.moc"
