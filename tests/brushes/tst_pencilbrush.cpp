#include "brushes/pencilbrush.h"

#include "literalbrushes.h"
#include "painted.h"
#include "randompainting.h"

#include <QtTest>

#include <cmath>
#include <limits>

namespace {

constexpr QSize small(120, 90);

QImage replayed(const QImage& canvas, const QColor& color, qreal thick, const QList<QPoint>& points)
{
    pencilbrush pencil;
    return painted(canvas, [&](QPainter* painter) { pencil.replay(painter, color, thick, points); });
}

QImage literally(const QImage& canvas, const QColor& color, qreal thick, const QList<QPoint>& points)
{
    return painted(canvas, [&](QPainter* painter) { literal::pencil(painter, color, thick, points); });
}

} // namespace

class tst_pencilbrush : public QObject {
    Q_OBJECT

private slots:
    void otherButtonsAreIgnored();
    void moveCountsTheLeftButtonAmongOthers();
    void pressPaintsADot();
    void moveJoinsThePositions();
    void releaseLeavesTheStrokeWhereItStood();
    void pressAndReleaseOnOneSpotGiveOneDot();
    void everyPositionIsRecorded();
    void fractionalWidthIsKept();
    void previewIsEmpty();
    void anEmptyListPaintsNothing();
    void aListOfOnePointGivesOneDot();
    void localStrokeIsItsReplay();
    void replayLeavesARunningStrokeAlone();
    void replayIsTheLiteralPath_data();
    void replayIsTheLiteralPath();
    void hostileReplayIsTheLiteralPath();
    void wideReplayIsTheLiteralPath();
    void longReplaySparesOnlyWhatCannotChange_data();
    void longReplaySparesOnlyWhatCannotChange();
};

void tst_pencilbrush::otherButtonsAreIgnored()
{
    pencilbrush pencil;
    const QImage canvas = whiteCanvas();
    bool record = true;
    bool stays = false;
    const QImage after = painted(canvas, [&](QPainter* painter) {
        QVERIFY(!pencil.mousePress(painter, Qt::RightButton, QPoint(10, 10), Qt::red, 5, &record));
        QVERIFY(!pencil.mousePress(painter, Qt::LeftButton | Qt::RightButton, QPoint(10, 10), Qt::red, 5, &record));
        QVERIFY(!pencil.mouseMove(painter, Qt::RightButton, QPoint(20, 10), Qt::red, 5, &stays));
        QVERIFY(!pencil.mouseMove(painter, Qt::NoButton, QPoint(20, 10), Qt::red, 5, &stays));
        QVERIFY(!pencil.mouseRelease(painter, Qt::MiddleButton, QPoint(30, 10), Qt::red, 5, &record));
    });
    QCOMPARE(after, canvas);
    QVERIFY(record);
    QVERIFY(!stays);
    // None of them moved the place that the next stroke step begins at.
    const QImage stepped = painted(canvas, [&](QPainter* painter) {
        QVERIFY(pencil.mouseMove(painter, Qt::LeftButton, QPoint(9, 7), Qt::red, 1, &record));
    });
    QCOMPARE(stepped, painted(canvas, [](QPainter* painter) {
                 painter->setPen(literal::strokePen(Qt::red, 1));
                 painter->drawPoint(9, 7);
                 painter->drawLine(0, 0, 9, 7);
             }));
}

void tst_pencilbrush::moveCountsTheLeftButtonAmongOthers()
{
    pencilbrush pencil;
    bool record = false;
    const QImage after = painted(whiteCanvas(), [&](QPainter* painter) {
        QVERIFY(pencil.mouseMove(painter, Qt::LeftButton | Qt::RightButton, QPoint(20, 10), Qt::red, 3, &record));
    });
    QVERIFY(record);
    QCOMPARE(after.pixelColor(20, 10), QColor(Qt::red));
}

void tst_pencilbrush::pressPaintsADot()
{
    pencilbrush pencil;
    bool record = false;
    const QImage after = painted(whiteCanvas(), [&](QPainter* painter) {
        QVERIFY(pencil.mousePress(painter, Qt::LeftButton, QPoint(40, 30), Qt::blue, 9, &record));
    });
    QCOMPARE(after, literally(whiteCanvas(), Qt::blue, 9, {QPoint(40, 30)}));
    QCOMPARE(after.pixelColor(40, 30), QColor(Qt::blue));
}

void tst_pencilbrush::moveJoinsThePositions()
{
    pencilbrush pencil;
    bool record = false;
    const QImage after = painted(whiteCanvas(), [&](QPainter* painter) {
        pencil.mousePress(painter, Qt::LeftButton, QPoint(10, 10), Qt::black, 1, &record);
        pencil.mouseMove(painter, Qt::LeftButton, QPoint(60, 10), Qt::black, 1, &record);
        pencil.mouseMove(painter, Qt::LeftButton, QPoint(60, 50), Qt::black, 1, &record);
    });
    QCOMPARE(after.pixelColor(35, 10), QColor(Qt::black));
    QCOMPARE(after.pixelColor(60, 30), QColor(Qt::black));
    QCOMPARE(after.pixelColor(35, 30), QColor(Qt::white));
}

void tst_pencilbrush::releaseLeavesTheStrokeWhereItStood()
{
    pencilbrush pencil;
    bool record = false;
    const QImage after = painted(whiteCanvas(), [&](QPainter* painter) {
        pencil.mousePress(painter, Qt::LeftButton, QPoint(50, 40), Qt::black, 1, &record);
        pencil.mouseRelease(painter, Qt::LeftButton, QPoint(90, 40), Qt::black, 1, &record);
        pencil.mouseRelease(painter, Qt::LeftButton, QPoint(50, 80), Qt::black, 1, &record);
    });
    // The second release draws from the press again, straight down.
    QCOMPARE(after.pixelColor(50, 60), QColor(Qt::black));
    QCOMPARE(after.pixelColor(70, 60), QColor(Qt::white));
}

void tst_pencilbrush::pressAndReleaseOnOneSpotGiveOneDot()
{
    pencilbrush pencil;
    bool record = false;
    const QImage after = painted(whiteCanvas(), [&](QPainter* painter) {
        pencil.mousePress(painter, Qt::LeftButton, QPoint(40, 30), Qt::black, 12, &record);
        pencil.mouseRelease(painter, Qt::LeftButton, QPoint(40, 30), Qt::black, 12, &record);
    });
    QCOMPARE(after, literally(whiteCanvas(), Qt::black, 12, {QPoint(40, 30)}));
}

void tst_pencilbrush::everyPositionIsRecorded()
{
    pencilbrush pencil;
    QImage canvas = whiteCanvas();
    QPainter painter(&canvas);
    bool press = false;
    bool move = false;
    bool release = false;
    QVERIFY(pencil.mousePress(&painter, Qt::LeftButton, QPoint(1, 1), Qt::black, 1, &press));
    QVERIFY(pencil.mouseMove(&painter, Qt::LeftButton, QPoint(2, 1), Qt::black, 1, &move));
    QVERIFY(pencil.mouseRelease(&painter, Qt::LeftButton, QPoint(3, 1), Qt::black, 1, &release));
    QVERIFY(press && move && release);
}

void tst_pencilbrush::fractionalWidthIsKept()
{
    const QList<QPoint> path{QPoint(20, 20), QPoint(80, 55)};
    const QImage exact = replayed(whiteCanvas(), Qt::black, 2.5, path);
    QCOMPARE(exact, literally(whiteCanvas(), Qt::black, 2.5, path));
    QVERIFY(exact != replayed(whiteCanvas(), Qt::black, 2, path));
    QVERIFY(exact != replayed(whiteCanvas(), Qt::black, 3, path));
}

void tst_pencilbrush::previewIsEmpty()
{
    pencilbrush pencil;
    brush& tool = pencil;
    const QImage after = painted(whiteCanvas(), [&](QPainter* painter) {
        bool record = false;
        pencil.mousePress(painter, Qt::LeftButton, QPoint(500, 500), Qt::red, 5, &record);
        tool.drawPreview(painter, Qt::red, 5);
    });
    QCOMPARE(after, whiteCanvas());
}

void tst_pencilbrush::anEmptyListPaintsNothing() { QCOMPARE(replayed(whiteCanvas(), Qt::red, 5, {}), whiteCanvas()); }

void tst_pencilbrush::aListOfOnePointGivesOneDot()
{
    const QImage after = replayed(whiteCanvas(), Qt::red, 1, {QPoint(33, 44)});
    QImage expected = whiteCanvas();
    expected.setPixelColor(33, 44, Qt::red);
    QCOMPARE(after, expected);
}

void tst_pencilbrush::localStrokeIsItsReplay()
{
    randompainting random(11);
    for (int round = 0; round < 40; ++round) {
        const QList<QPoint> path = random.stroke(random.number(2, 19), small, 40);
        const qreal thick = random.honestWidth();
        const QColor color = random.opaqueColor();
        pencilbrush pencil;
        const QImage local = painted(whiteCanvas(), [&](QPainter* painter) {
            bool record = false;
            pencil.mousePress(painter, Qt::LeftButton, path.first(), color, thick, &record);
            for (int i = 1; i < path.size() - 1; ++i)
                pencil.mouseMove(painter, Qt::LeftButton, path.at(i), color, thick, &record);
            pencil.mouseRelease(painter, Qt::LeftButton, path.last(), color, thick, &record);
        });
        QCOMPARE(replayed(whiteCanvas(), color, thick, path), local);
    }
}

void tst_pencilbrush::replayLeavesARunningStrokeAlone()
{
    pencilbrush pencil;
    bool record = false;
    const QImage after = painted(whiteCanvas(), [&](QPainter* painter) {
        pencil.mousePress(painter, Qt::LeftButton, QPoint(10, 10), Qt::black, 1, &record);
        pencil.replay(painter, Qt::white, 1, {QPoint(100, 80), QPoint(110, 85)});
        pencil.mouseMove(painter, Qt::LeftButton, QPoint(50, 10), Qt::black, 1, &record);
    });
    QCOMPARE(after, literally(whiteCanvas(), Qt::black, 1, {QPoint(10, 10), QPoint(50, 10)}));
}

void tst_pencilbrush::replayIsTheLiteralPath_data()
{
    QTest::addColumn<bool>("thin");
    QTest::addColumn<bool>("translucent");
    QTest::newRow("opaque colours") << false << false;
    QTest::newRow("opaque colours, up to three pixels wide") << true << false;
    QTest::newRow("half-transparent colours") << false << true;
    QTest::newRow("half-transparent colours, up to three pixels wide") << true << true;
}

void tst_pencilbrush::replayIsTheLiteralPath()
{
    QFETCH(bool, thin);
    QFETCH(bool, translucent);
    randompainting random(12);
    for (int round = 0; round < 120; ++round) {
        const QImage canvas = random.picture(small);
        const QList<QPoint> path = random.stroke(random.number(1, 60), small, 60);
        const QColor color = translucent ? random.translucentColor() : random.opaqueColor();
        const qreal thick = thin ? random.number(0, 30) / 10.0 : random.honestWidth();
        QCOMPARE(replayed(canvas, color, thick, path), literally(canvas, color, thick, path));
    }
}

void tst_pencilbrush::hostileReplayIsTheLiteralPath()
{
    randompainting random(13);
    for (int round = 0; round < 250; ++round) {
        const QImage canvas = random.picture(small);
        const QList<QPoint> path = random.chance(2) ? random.hostileStroke(random.number(1, 12))
                                                    : random.stroke(random.number(1, 30), small, 3000);
        const QColor color = random.chance(2) ? random.translucentColor() : random.opaqueColor();
        const qreal thick = random.hostileWidth();
        const QImage after = replayed(canvas, color, thick, path);
        // In such widths the toolkit paints nothing and prints a line for each call.
        if (std::isnan(thick) || thick == std::numeric_limits<qreal>::infinity())
            QCOMPARE(after, canvas);
        else
            QCOMPARE(after, literally(canvas, color, thick, path));
    }
}

void tst_pencilbrush::wideReplayIsTheLiteralPath()
{
    randompainting random(14);
    const QSize large(400, 300);
    for (int round = 0; round < 25; ++round) {
        const QImage canvas = random.picture(large);
        QList<QPoint> path = random.stroke(random.number(2, 50), large, 500);
        path += path.mid(0, 5);
        const qreal thick = random.number(4000, 12000) / 10.0;
        const QColor color = random.opaqueColor();
        QCOMPARE(replayed(canvas, color, thick, path), literally(canvas, color, thick, path));
    }
}

void tst_pencilbrush::longReplaySparesOnlyWhatCannotChange_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<bool>("spread");
    QTest::newRow("opaque, all over the canvas") << QColor(10, 20, 30) << true;
    QTest::newRow("opaque, around one place") << QColor(10, 20, 30) << false;
    QTest::newRow("half-transparent, all over the canvas") << QColor(10, 20, 30, 70) << true;
    QTest::newRow("nearly transparent, all over the canvas") << QColor(10, 20, 30, 1) << true;
    QTest::newRow("nearly transparent, around one place") << QColor(240, 20, 30, 2) << false;
    QTest::newRow("half-transparent, around one place") << QColor(10, 20, 30, 200) << false;
}

void tst_pencilbrush::longReplaySparesOnlyWhatCannotChange()
{
    QFETCH(QColor, color);
    QFETCH(bool, spread);
    randompainting random(15);
    const QSize large(400, 300);
    QImage opaquePicture = random.picture(large).convertToFormat(QImage::Format_RGB32);
    opaquePicture = opaquePicture.convertToFormat(QImage::Format_ARGB32);
    for (const qreal thick : {3.0, 90.0, 333.3, 900.0}) {
        QList<QPoint> path = random.stroke(40, large, 10);
        for (int i = 0; i < 200; ++i)
            path.append(spread ? random.point(large, 400) : QPoint(random.number(-40, 40), random.number(0, 120)));
        // Strokes that end behind an opaque place, amid pixels that the toolkit rounds by their place in a span.
        const QImage opaquePlace = painted(random.picture(large), [&](QPainter* painter) {
            painter->drawImage(64, 0, opaquePicture, 0, 0, 150, 300);
        });
        for (const QImage& canvas : {opaquePicture, random.picture(large), clearCanvas(large), opaquePlace})
            QCOMPARE(replayed(canvas, color, thick, path), literally(canvas, color, thick, path));
    }
}

QTEST_MAIN(tst_pencilbrush)
#include "tst_pencilbrush.moc"
