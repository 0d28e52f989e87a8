#include "brushes/linebrush.h"

#include "literalbrushes.h"
#include "painted.h"
#include "randompainting.h"

#include <QtTest>

namespace {

QImage preview(linebrush* line, qreal thick)
{
    return painted(whiteCanvas(), [&](QPainter* painter) { line->drawPreview(painter, Qt::red, thick); });
}

QImage literalLine(const QPoint& from, const QPoint& to, qreal thick)
{
    return painted(whiteCanvas(), [&](QPainter* painter) { literal::line(painter, Qt::red, thick, from, to); });
}

} // namespace

class tst_linebrush : public QObject {
    Q_OBJECT

private slots:
    void init();
    void otherButtonsAreIgnored();
    void pressPaintsAndPreviewsNothing();
    void moveIsPreviewedAndNotRecorded();
    void releasePaintsFromPressToRelease();
    void afterALineThereIsNoPreview();
    void previewBeforeTheFirstPressIsADotAtTheTopLeft();
    void onlyBothCoordinatesMakeAPointUnset();
    void replayDemandsTwoPoints_data();
    void replayDemandsTwoPoints();
    void replayLeavesARunningLineAlone();
    void replayIsTheLiteralLine();
    void hostileReplayIsTheLiteralLine();

private:
    linebrush line;
    bool record = false;
};

void tst_linebrush::init()
{
    line = linebrush();
    record = false;
}

void tst_linebrush::otherButtonsAreIgnored()
{
    record = true;
    const QImage after = painted(whiteCanvas(), [&](QPainter* painter) {
        QVERIFY(!line.mousePress(painter, Qt::RightButton, QPoint(10, 10), Qt::red, 5, &record));
        QVERIFY(!line.mouseMove(painter, Qt::RightButton, QPoint(20, 10), Qt::red, 5, &record));
        QVERIFY(!line.mouseRelease(painter, Qt::RightButton, QPoint(30, 10), Qt::red, 5, &record));
    });
    QCOMPARE(after, whiteCanvas());
    QVERIFY(record);
    QCOMPARE(preview(&line, 5), literalLine(QPoint(0, 0), QPoint(0, 0), 5));
}

void tst_linebrush::pressPaintsAndPreviewsNothing()
{
    const QImage after = painted(whiteCanvas(), [&](QPainter* painter) {
        QVERIFY(line.mousePress(painter, Qt::LeftButton, QPoint(10, 10), Qt::red, 5, &record));
    });
    QVERIFY(record);
    QCOMPARE(after, whiteCanvas());
    QCOMPARE(preview(&line, 5), whiteCanvas());
}

void tst_linebrush::moveIsPreviewedAndNotRecorded()
{
    const QImage after = painted(whiteCanvas(), [&](QPainter* painter) {
        line.mousePress(painter, Qt::LeftButton, QPoint(10, 10), Qt::red, 5, &record);
        QVERIFY(line.mouseMove(painter, Qt::LeftButton, QPoint(70, 40), Qt::red, 5, &record));
    });
    QVERIFY(!record);
    QCOMPARE(after, whiteCanvas());
    QCOMPARE(preview(&line, 5), literalLine(QPoint(10, 10), QPoint(70, 40), 5));
}

void tst_linebrush::releasePaintsFromPressToRelease()
{
    const QImage after = painted(whiteCanvas(), [&](QPainter* painter) {
        line.mousePress(painter, Qt::LeftButton, QPoint(10, 10), Qt::red, 5, &record);
        line.mouseMove(painter, Qt::LeftButton, QPoint(70, 40), Qt::red, 5, &record);
        QVERIFY(line.mouseRelease(painter, Qt::LeftButton, QPoint(90, 80), Qt::red, 5, &record));
    });
    QVERIFY(record);
    QCOMPARE(after, literalLine(QPoint(10, 10), QPoint(90, 80), 5));
}

void tst_linebrush::afterALineThereIsNoPreview()
{
    QImage canvas = whiteCanvas();
    QPainter painter(&canvas);
    line.mousePress(&painter, Qt::LeftButton, QPoint(10, 10), Qt::red, 5, &record);
    line.mouseRelease(&painter, Qt::LeftButton, QPoint(90, 80), Qt::red, 5, &record);
    QCOMPARE(preview(&line, 5), whiteCanvas());
}

void tst_linebrush::previewBeforeTheFirstPressIsADotAtTheTopLeft()
{
    QCOMPARE(preview(&line, 1), literalLine(QPoint(0, 0), QPoint(0, 0), 1));
    QCOMPARE(preview(&line, 1).pixelColor(0, 0), QColor(Qt::red));
}

void tst_linebrush::onlyBothCoordinatesMakeAPointUnset()
{
    QImage canvas = whiteCanvas();
    QPainter painter(&canvas);
    line.mousePress(&painter, Qt::LeftButton, QPoint(-1, 20), Qt::red, 5, &record);
    line.mouseMove(&painter, Qt::LeftButton, QPoint(60, -1), Qt::red, 5, &record);
    QCOMPARE(preview(&line, 5), literalLine(QPoint(-1, 20), QPoint(60, -1), 5));
    line.mouseMove(&painter, Qt::LeftButton, QPoint(-1, -1), Qt::red, 5, &record);
    QCOMPARE(preview(&line, 5), whiteCanvas());
}

void tst_linebrush::replayDemandsTwoPoints_data()
{
    QTest::addColumn<QList<QPoint>>("points");
    QTest::newRow("none") << QList<QPoint>();
    QTest::newRow("one") << QList<QPoint>{QPoint(5, 5)};
    QTest::newRow("three") << QList<QPoint>{QPoint(5, 5), QPoint(50, 50), QPoint(-1, -1)};
    QTest::newRow("four") << QList<QPoint>{QPoint(5, 5), QPoint(50, 50), QPoint(5, 5), QPoint(50, 50)};
}

void tst_linebrush::replayDemandsTwoPoints()
{
    QFETCH(QList<QPoint>, points);
    QCOMPARE(painted(whiteCanvas(), [&](QPainter* painter) { line.replay(painter, Qt::red, 5, points); }),
             whiteCanvas());
}

void tst_linebrush::replayLeavesARunningLineAlone()
{
    QImage canvas = whiteCanvas();
    QPainter painter(&canvas);
    line.mousePress(&painter, Qt::LeftButton, QPoint(10, 10), Qt::red, 5, &record);
    line.mouseMove(&painter, Qt::LeftButton, QPoint(70, 40), Qt::red, 5, &record);
    line.replay(&painter, Qt::blue, 3, {QPoint(1, 1), QPoint(2, 2)});
    QCOMPARE(preview(&line, 5), literalLine(QPoint(10, 10), QPoint(70, 40), 5));
}

void tst_linebrush::replayIsTheLiteralLine()
{
    randompainting random(21);
    for (int round = 0; round < 100; ++round) {
        const QImage canvas = random.picture(QSize(120, 90));
        const QList<QPoint> ends = random.stroke(2, canvas.size(), 100);
        const QColor color = random.chance(2) ? random.opaqueColor() : random.translucentColor();
        const qreal thick = random.honestWidth();
        const auto replay = [&](QPainter* painter) { line.replay(painter, color, thick, ends); };
        const auto literally = [&](QPainter* painter) { literal::line(painter, color, thick, ends.at(0), ends.at(1)); };
        QCOMPARE(painted(canvas, replay), painted(canvas, literally));
    }
}

void tst_linebrush::hostileReplayIsTheLiteralLine()
{
    randompainting random(22);
    for (int round = 0; round < 300; ++round) {
        const QImage canvas = random.picture(QSize(120, 90));
        const QList<QPoint> ends = random.hostileStroke(2);
        const qreal thick = random.hostileWidth();
        const auto replay = [&](QPainter* painter) { line.replay(painter, Qt::red, thick, ends); };
        const auto literally = [&](QPainter* painter) {
            literal::line(painter, Qt::red, thick, ends.at(0), ends.at(1));
        };
        QCOMPARE(painted(canvas, replay), painted(canvas, literally));
    }
}

QTEST_MAIN(tst_linebrush)
#include "tst_linebrush.moc"
