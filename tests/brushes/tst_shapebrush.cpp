#include "brushes/ellipsebrush.h"
#include "brushes/rectbrush.h"

#include "literalbrushes.h"
#include "painted.h"
#include "randompainting.h"

#include <QtTest>

#include <limits>
#include <memory>

namespace {

using literalshape = void (*)(QPainter*, const QColor&, qreal, const QPoint&, const QPoint&, bool);

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

} // namespace

Q_DECLARE_METATYPE(literalshape)

/// Each test runs for both tools.
class tst_shapebrush : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void otherButtonsAreIgnored();
    void pressRecordsAndPaintsNothing();
    void moveIsPreviewedAndNotRecorded();
    void previewTurnsRegularWithTheShiftKey();
    void pressAndMoveTakeShiftFromTheEvent();
    void otherKeysAreNotForTheTool();
    void shiftReleasedBeforeTheButtonGivesThePlainShape();
    void shiftPressedAfterTheLastMoveGivesTheRegularShape();
    void regularShapeToTheLeftRunsUpward();
    void regularShapeOfNoWidthIsOnePoint();
    void pressAndReleaseWithoutAMoveGiveAPointSizedShape();
    void afterAShapeThereIsNoPreview();
    void previewBeforeTheFirstPressIsADotAtTheTopLeft();
    void shapeIsAnOutline();
    void replayOfOtherListsPaintsNothing();
    void replayLeavesARunningShapeAlone();
    void replayIsTheLiteralShape();
    void hostileReplayIsTheLiteralShape();
    void regularShapeBeyond32BitsEndsAtTheLastNumber();

private:
    QImage preview() const
    {
        return painted(whiteCanvas(), [this](QPainter* painter) { tool->drawPreview(painter, Qt::red, 3); });
    }
    QImage literally(const QPoint& from, const QPoint& to, bool regular) const
    {
        return painted(whiteCanvas(),
                       [&, this](QPainter* painter) { drawLiterally(painter, Qt::red, 3, from, to, regular); });
    }
    QImage replayed(const QList<QPoint>& points) const
    {
        return painted(whiteCanvas(), [&, this](QPainter* painter) { tool->replay(painter, Qt::red, 3, points); });
    }
    bool press(const QPoint& pos, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QPainter painter(&canvas);
        return tool->mousePress(&painter, Qt::LeftButton, modifiers, pos, Qt::red, 3, &record);
    }
    bool move(const QPoint& pos, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QPainter painter(&canvas);
        return tool->mouseMove(&painter, Qt::LeftButton, modifiers, pos, Qt::red, 3, &record);
    }
    bool release(const QPoint& pos, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QPainter painter(&canvas);
        return tool->mouseRelease(&painter, Qt::LeftButton, modifiers, pos, Qt::red, 3, &record);
    }

    rectbrush rect;
    ellipsebrush ellipse;
    shapebrush* tool = nullptr;
    literalshape drawLiterally = nullptr;
    QImage canvas;
    bool record = false;
};

void tst_shapebrush::initTestCase_data()
{
    QTest::addColumn<bool>("round");
    QTest::newRow("rectangle") << false;
    QTest::newRow("ellipse") << true;
}

void tst_shapebrush::init()
{
    QFETCH_GLOBAL(bool, round);
    rect = rectbrush();
    ellipse = ellipsebrush();
    tool = round ? static_cast<shapebrush*>(&ellipse) : &rect;
    drawLiterally = round ? literal::ellipse : literal::rect;
    canvas = whiteCanvas();
    record = false;
}

void tst_shapebrush::otherButtonsAreIgnored()
{
    record = true;
    QPainter painter(&canvas);
    QVERIFY(!tool->mousePress(&painter, Qt::RightButton, Qt::ShiftModifier, QPoint(10, 10), Qt::red, 3, &record));
    QVERIFY(!tool->mouseMove(&painter, Qt::RightButton, Qt::ShiftModifier, QPoint(20, 10), Qt::red, 3, &record));
    QVERIFY(!tool->mouseRelease(&painter, Qt::RightButton, Qt::ShiftModifier, QPoint(30, 10), Qt::red, 3, &record));
    QVERIFY(record);
    QCOMPARE(canvas, whiteCanvas());
    QCOMPARE(preview(), literally(QPoint(0, 0), QPoint(0, 0), false));
    // Shift was not taken over either.
    QVERIFY(tool->keyPress(Qt::Key_Shift));
}

void tst_shapebrush::pressRecordsAndPaintsNothing()
{
    QVERIFY(press(QPoint(10, 10)));
    QVERIFY(record);
    QCOMPARE(canvas, whiteCanvas());
    QCOMPARE(preview(), whiteCanvas());
}

void tst_shapebrush::moveIsPreviewedAndNotRecorded()
{
    press(QPoint(10, 10));
    QVERIFY(move(QPoint(60, 40)));
    QVERIFY(!record);
    QCOMPARE(canvas, whiteCanvas());
    QCOMPARE(preview(), literally(QPoint(10, 10), QPoint(60, 40), false));
}

void tst_shapebrush::previewTurnsRegularWithTheShiftKey()
{
    press(QPoint(10, 10));
    move(QPoint(60, 40));
    QVERIFY(tool->keyPress(Qt::Key_Shift));
    QVERIFY(!tool->keyPress(Qt::Key_Shift));
    QCOMPARE(preview(), literally(QPoint(10, 10), QPoint(60, 40), true));
    QVERIFY(preview() != literally(QPoint(10, 10), QPoint(60, 40), false));
    QVERIFY(tool->keyRelease(Qt::Key_Shift));
    QVERIFY(!tool->keyRelease(Qt::Key_Shift));
    QCOMPARE(preview(), literally(QPoint(10, 10), QPoint(60, 40), false));
}

void tst_shapebrush::pressAndMoveTakeShiftFromTheEvent()
{
    press(QPoint(10, 10), Qt::ShiftModifier | Qt::ControlModifier);
    QVERIFY(!tool->keyPress(Qt::Key_Shift));
    move(QPoint(60, 40), Qt::NoModifier);
    QCOMPARE(preview(), literally(QPoint(10, 10), QPoint(60, 40), false));
    move(QPoint(60, 40), Qt::ShiftModifier);
    QCOMPARE(preview(), literally(QPoint(10, 10), QPoint(60, 40), true));
}

void tst_shapebrush::otherKeysAreNotForTheTool()
{
    for (const int key : {int(Qt::Key_Control), int(Qt::Key_A), int(Qt::Key_Escape), 0}) {
        QVERIFY(!tool->keyPress(key));
        QVERIFY(!tool->keyRelease(key));
    }
    tool->keyPress(Qt::Key_Shift);
    QVERIFY(!tool->keyRelease(Qt::Key_Control));
    QVERIFY(tool->keyRelease(Qt::Key_Shift));
}

void tst_shapebrush::shiftReleasedBeforeTheButtonGivesThePlainShape()
{
    press(QPoint(10, 10), Qt::ShiftModifier);
    move(QPoint(60, 40), Qt::ShiftModifier);
    QCOMPARE(preview(), literally(QPoint(10, 10), QPoint(60, 40), true));
    QVERIFY(release(QPoint(60, 40), Qt::NoModifier));
    QVERIFY(record);
    QCOMPARE(canvas, literally(QPoint(10, 10), QPoint(60, 40), false));
}

void tst_shapebrush::shiftPressedAfterTheLastMoveGivesTheRegularShape()
{
    press(QPoint(10, 10));
    move(QPoint(60, 40));
    release(QPoint(60, 40), Qt::ShiftModifier);
    QCOMPARE(canvas, literally(QPoint(10, 10), QPoint(60, 40), true));
}

void tst_shapebrush::regularShapeToTheLeftRunsUpward()
{
    press(QPoint(80, 70));
    release(QPoint(50, 85), Qt::ShiftModifier);
    QCOMPARE(canvas, painted(whiteCanvas(), [this](QPainter* painter) {
                 drawLiterally(painter, Qt::red, 3, QPoint(80, 70), QPoint(50, 40), false);
             }));
}

void tst_shapebrush::regularShapeOfNoWidthIsOnePoint()
{
    press(QPoint(50, 40));
    release(QPoint(50, 80), Qt::ShiftModifier);
    QCOMPARE(canvas, literally(QPoint(50, 40), QPoint(50, 40), false));
}

void tst_shapebrush::pressAndReleaseWithoutAMoveGiveAPointSizedShape()
{
    press(QPoint(50, 40));
    release(QPoint(50, 40));
    QCOMPARE(canvas, literally(QPoint(50, 40), QPoint(50, 40), false));
    QVERIFY(canvas != whiteCanvas());
}

void tst_shapebrush::afterAShapeThereIsNoPreview()
{
    press(QPoint(10, 10));
    move(QPoint(60, 40));
    release(QPoint(60, 40));
    QCOMPARE(preview(), whiteCanvas());
}

void tst_shapebrush::previewBeforeTheFirstPressIsADotAtTheTopLeft()
{
    QCOMPARE(preview(), literally(QPoint(0, 0), QPoint(0, 0), false));
    QVERIFY(preview() != whiteCanvas());
}

void tst_shapebrush::shapeIsAnOutline()
{
    press(QPoint(10, 10));
    release(QPoint(90, 70));
    QCOMPARE(canvas.pixelColor(50, 40), QColor(Qt::white));
    QCOMPARE(canvas.pixelColor(50, 10), QColor(Qt::red));
}

void tst_shapebrush::replayOfOtherListsPaintsNothing()
{
    const QPoint a(10, 10);
    const QPoint b(60, 40);
    for (const QList<QPoint>& points :
         {QList<QPoint>(), QList<QPoint>{a}, QList<QPoint>{a, b, a}, QList<QPoint>{a, b, QPoint(-1, 0)},
          QList<QPoint>{a, b, QPoint(0, -1)}, QList<QPoint>{a, b, QPoint(-1, -1), QPoint(-1, -1)}})
        QCOMPARE(replayed(points), whiteCanvas());
    QCOMPARE(replayed({a, b}), literally(a, b, false));
    QCOMPARE(replayed({a, b, QPoint(-1, -1)}), literally(a, b, true));
}

void tst_shapebrush::replayLeavesARunningShapeAlone()
{
    press(QPoint(10, 10), Qt::ShiftModifier);
    move(QPoint(60, 40), Qt::ShiftModifier);
    replayed({QPoint(1, 2), QPoint(3, 4)});
    QCOMPARE(preview(), literally(QPoint(10, 10), QPoint(60, 40), true));
}

void tst_shapebrush::replayIsTheLiteralShape()
{
    randompainting random(31);
    for (int round = 0; round < 120; ++round) {
        const QImage before = random.picture(QSize(120, 90));
        QList<QPoint> points = random.stroke(2, before.size(), 100);
        const bool regular = random.chance(2);
        if (regular)
            points.append(QPoint(-1, -1));
        const QColor color = random.chance(2) ? random.opaqueColor() : random.translucentColor();
        const qreal thick = random.honestWidth();
        const auto replay = [&](QPainter* painter) { tool->replay(painter, color, thick, points); };
        const auto literally = [&](QPainter* painter) {
            drawLiterally(painter, color, thick, points.at(0), points.at(1), regular);
        };
        QCOMPARE(painted(before, replay), painted(before, literally));
    }
}

void tst_shapebrush::hostileReplayIsTheLiteralShape()
{
    randompainting random(32);
    for (int round = 0; round < 250; ++round) {
        const QImage before = random.picture(QSize(120, 90));
        const QList<QPoint> points = random.hostileStroke(2);
        const qreal thick = random.hostileWidth();
        const auto replay = [&](QPainter* painter) { tool->replay(painter, Qt::red, thick, points); };
        const auto literally = [&](QPainter* painter) {
            drawLiterally(painter, Qt::red, thick, points.at(0), points.at(1), false);
        };
        QCOMPARE(painted(before, replay), painted(before, literally));
    }
}

void tst_shapebrush::regularShapeBeyond32BitsEndsAtTheLastNumber()
{
    for (const QPoint& from : {QPoint(20, 30), QPoint(smallest, smallest), QPoint(smallest, largest)}) {
        for (const QPoint& to : {QPoint(largest, 0), QPoint(smallest, 5), QPoint(40, 5)}) {
            const qint64 lower = from.y() + (qint64(to.x()) - from.x());
            const QPoint corner(to.x(), int(qBound<qint64>(smallest, lower, largest)));
            QCOMPARE(replayed({from, to, QPoint(-1, -1)}), literally(from, corner, false));
        }
    }
}

QTEST_MAIN(tst_shapebrush)
#include "tst_shapebrush.moc"
