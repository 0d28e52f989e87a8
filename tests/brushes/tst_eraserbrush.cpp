#include "brushes/eraserbrush.h"

#include "literalbrushes.h"
#include "painted.h"
#include "randompainting.h"

#include <QtTest>

#include <cmath>
#include <limits>

namespace {

constexpr QSize small(120, 90);

QImage replayed(const QImage& canvas, qreal thick, const QList<QPoint>& points, bool opaque)
{
    eraserbrush eraser;
    return painted(canvas, [&](QPainter* painter) { eraser.replay(painter, Qt::red, thick, points, opaque); });
}

QImage literally(const QImage& canvas, qreal thick, const QList<QPoint>& points, bool opaque)
{
    return painted(canvas, [&](QPainter* painter) { literal::eraser(painter, thick, points, opaque); });
}

QImage grayCanvas()
{
    QImage canvas(small, QImage::Format_ARGB32);
    canvas.fill(0xff808080);
    return canvas;
}

} // namespace

/// Each test runs on an opaque canvas and on one over a background.
class tst_eraserbrush : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data();
    void otherButtonsAreIgnored();
    void pressErasesADot();
    void everyPositionIsRecorded();
    void moveErasesBackwardsToTheLastPosition();
    void releaseLeavesTheStrokeWhereItStood();
    void colourIsNotLookedAt();
    void theReceiversCanvasDecides();
    void anEmptyListPaintsNothing();
    void aListOfOnePointErasesADot();
    void replayLeavesARunningStrokeAlone();
    void localStrokeIsItsReplay();
    void replayIsTheLiteralPath();
    void hostileReplayIsTheLiteralPath();
    void wideReplayIsTheLiteralPath();
};

void tst_eraserbrush::initTestCase_data()
{
    QTest::addColumn<bool>("opaque");
    QTest::newRow("opaque canvas") << true;
    QTest::newRow("over a background") << false;
}

void tst_eraserbrush::otherButtonsAreIgnored()
{
    QFETCH_GLOBAL(bool, opaque);
    eraserbrush eraser;
    bool record = true;
    const QImage after = painted(grayCanvas(), [&](QPainter* painter) {
        QVERIFY(!eraser.mousePress(painter, Qt::RightButton, QPoint(10, 10), Qt::red, 5, opaque, &record));
        QVERIFY(!eraser.mouseMove(painter, Qt::RightButton, QPoint(20, 10), Qt::red, 5, opaque, &record));
        QVERIFY(!eraser.mouseRelease(painter, Qt::RightButton, QPoint(30, 10), Qt::red, 5, opaque, &record));
    });
    QVERIFY(record);
    QCOMPARE(after, grayCanvas());
}

void tst_eraserbrush::pressErasesADot()
{
    QFETCH_GLOBAL(bool, opaque);
    eraserbrush eraser;
    bool record = false;
    const QImage after = painted(grayCanvas(), [&](QPainter* painter) {
        QVERIFY(eraser.mousePress(painter, Qt::LeftButton, QPoint(40, 30), Qt::red, 9, opaque, &record));
    });
    QCOMPARE(after, literally(grayCanvas(), 9, {QPoint(40, 30)}, opaque));
    QCOMPARE(after.pixel(40, 30), opaque ? 0xffffffffu : 0u);
    QCOMPARE(after.pixel(60, 30), 0xff808080u);
}

void tst_eraserbrush::everyPositionIsRecorded()
{
    QFETCH_GLOBAL(bool, opaque);
    eraserbrush eraser;
    QImage canvas = grayCanvas();
    QPainter painter(&canvas);
    bool press = false;
    bool move = false;
    bool release = false;
    QVERIFY(eraser.mousePress(&painter, Qt::LeftButton, QPoint(1, 1), Qt::red, 1, opaque, &press));
    QVERIFY(eraser.mouseMove(&painter, Qt::LeftButton, QPoint(2, 1), Qt::red, 1, opaque, &move));
    QVERIFY(eraser.mouseRelease(&painter, Qt::LeftButton, QPoint(3, 1), Qt::red, 1, opaque, &release));
    QVERIFY(press && move && release);
}

void tst_eraserbrush::moveErasesBackwardsToTheLastPosition()
{
    QFETCH_GLOBAL(bool, opaque);
    randompainting random(51);
    for (int round = 0; round < 100; ++round) {
        eraserbrush eraser;
        const QPoint from = random.point(small, 30);
        const QPoint to = random.point(small, 30);
        const qreal thick = random.number(0, 60) / 10.0;
        const QImage after = painted(grayCanvas(), [&](QPainter* painter) {
            bool record = false;
            eraser.mousePress(painter, Qt::LeftButton, from, Qt::red, thick, opaque, &record);
            eraser.mouseMove(painter, Qt::LeftButton, to, Qt::red, thick, opaque, &record);
        });
        const QImage expected = painted(grayCanvas(), [&](QPainter* painter) {
            literal::setEraserPen(painter, thick, opaque);
            painter->drawPoint(from);
            painter->drawPoint(to);
            painter->drawLine(to, from);
        });
        QCOMPARE(after, expected);
    }
}

void tst_eraserbrush::releaseLeavesTheStrokeWhereItStood()
{
    QFETCH_GLOBAL(bool, opaque);
    eraserbrush eraser;
    bool record = false;
    const QImage after = painted(grayCanvas(), [&](QPainter* painter) {
        eraser.mousePress(painter, Qt::LeftButton, QPoint(50, 40), Qt::red, 1, opaque, &record);
        eraser.mouseRelease(painter, Qt::LeftButton, QPoint(90, 40), Qt::red, 1, opaque, &record);
        eraser.mouseRelease(painter, Qt::LeftButton, QPoint(50, 80), Qt::red, 1, opaque, &record);
    });
    QCOMPARE(after.pixel(50, 60), opaque ? 0xffffffffu : 0u);
    QCOMPARE(after.pixel(70, 60), 0xff808080u);
}

void tst_eraserbrush::colourIsNotLookedAt()
{
    QFETCH_GLOBAL(bool, opaque);
    eraserbrush eraser;
    const QList<QPoint> path{QPoint(10, 10), QPoint(50, 60)};
    for (const QColor& color : {QColor(), QColor(Qt::transparent), QColor(1, 2, 3, 4)}) {
        const auto erase = [&](QPainter* painter) { eraser.replay(painter, color, 7, path, opaque); };
        QCOMPARE(painted(grayCanvas(), erase), literally(grayCanvas(), 7, path, opaque));
    }
}

void tst_eraserbrush::theReceiversCanvasDecides()
{
    QFETCH_GLOBAL(bool, opaque);
    const QImage after = replayed(grayCanvas(), 20, {QPoint(40, 40), QPoint(60, 40)}, opaque);
    QCOMPARE(after.pixel(50, 40), opaque ? 0xffffffffu : 0u);
}

void tst_eraserbrush::anEmptyListPaintsNothing()
{
    QFETCH_GLOBAL(bool, opaque);
    QCOMPARE(replayed(grayCanvas(), 5, {}, opaque), grayCanvas());
}

void tst_eraserbrush::aListOfOnePointErasesADot()
{
    QFETCH_GLOBAL(bool, opaque);
    QImage expected = grayCanvas();
    expected.setPixel(33, 44, opaque ? 0xffffffff : 0);
    QCOMPARE(replayed(grayCanvas(), 1, {QPoint(33, 44)}, opaque), expected);
}

void tst_eraserbrush::replayLeavesARunningStrokeAlone()
{
    QFETCH_GLOBAL(bool, opaque);
    eraserbrush eraser;
    bool record = false;
    const QImage after = painted(grayCanvas(), [&](QPainter* painter) {
        eraser.mousePress(painter, Qt::LeftButton, QPoint(10, 10), Qt::red, 3, opaque, &record);
        eraser.replay(painter, Qt::red, 3, {QPoint(100, 80)}, opaque);
        eraser.mouseMove(painter, Qt::LeftButton, QPoint(50, 10), Qt::red, 3, opaque, &record);
    });
    const QImage expected = literally(grayCanvas(), 3, {QPoint(10, 10), QPoint(50, 10)}, opaque);
    QCOMPARE(after, literally(expected, 3, {QPoint(100, 80)}, opaque));
}

void tst_eraserbrush::localStrokeIsItsReplay()
{
    QFETCH_GLOBAL(bool, opaque);
    randompainting random(52);
    for (int round = 0; round < 40; ++round) {
        const QList<QPoint> path = random.stroke(random.number(2, 19), small, 0);
        const qreal thick = random.number(10, 2000) / 10.0;
        eraserbrush eraser;
        const QImage local = painted(grayCanvas(), [&](QPainter* painter) {
            bool record = false;
            eraser.mousePress(painter, Qt::LeftButton, path.first(), Qt::red, thick, opaque, &record);
            for (int i = 1; i < path.size() - 1; ++i)
                eraser.mouseMove(painter, Qt::LeftButton, path.at(i), Qt::red, thick, opaque, &record);
            eraser.mouseRelease(painter, Qt::LeftButton, path.last(), Qt::red, thick, opaque, &record);
        });
        QCOMPARE(replayed(grayCanvas(), thick, path, opaque), local);
    }
}

void tst_eraserbrush::replayIsTheLiteralPath()
{
    QFETCH_GLOBAL(bool, opaque);
    randompainting random(53);
    for (int round = 0; round < 120; ++round) {
        const QImage canvas = random.picture(small);
        const QList<QPoint> path = random.stroke(random.number(1, 60), small, 60);
        const qreal thick = random.chance(3) ? random.number(0, 30) / 10.0 : random.honestWidth();
        QCOMPARE(replayed(canvas, thick, path, opaque), literally(canvas, thick, path, opaque));
    }
}

void tst_eraserbrush::hostileReplayIsTheLiteralPath()
{
    QFETCH_GLOBAL(bool, opaque);
    randompainting random(54);
    for (int round = 0; round < 150; ++round) {
        const QImage canvas = random.picture(small);
        const QList<QPoint> path = random.hostileStroke(random.number(1, 12));
        const qreal thick = random.hostileWidth();
        const QImage after = replayed(canvas, thick, path, opaque);
        // In such widths the toolkit paints nothing and prints a line for each call.
        if (std::isnan(thick) || thick == std::numeric_limits<qreal>::infinity())
            QCOMPARE(after, canvas);
        else
            QCOMPARE(after, literally(canvas, thick, path, opaque));
    }
}

void tst_eraserbrush::wideReplayIsTheLiteralPath()
{
    QFETCH_GLOBAL(bool, opaque);
    randompainting random(55);
    const QSize large(400, 300);
    for (int round = 0; round < 15; ++round) {
        const QImage canvas = random.picture(large);
        const QList<QPoint> path = random.stroke(random.number(2, 150), large, 500);
        const qreal thick = random.number(4000, 12000) / 10.0;
        QCOMPARE(replayed(canvas, thick, path, opaque), literally(canvas, thick, path, opaque));
    }
}

QTEST_MAIN(tst_eraserbrush)
#include "tst_eraserbrush.moc"
