#include "literalbrushes.h"
#include "randompainting.h"
#include "selectiontest.h"

#include <limits>

namespace {

constexpr QSize small(120, 90);
constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

} // namespace

/// Bands and their moves by the local user.
class tst_selectionbrush : public selectiontest {
    Q_OBJECT

private slots:
    void initTestCase_data() { addCanvases(); }
    void init() { begin(); }

    void otherButtonsAreIgnored();
    void thereIsNoSelectionAtFirst();
    void pressOutsideBeginsABandAndClearsThePendingPoints();
    void dragMakesABandAndPaintsNothing();
    void clickWithoutADragDropsTheSelection();
    void bandUpAndToTheLeftIsKeptAsItIs();
    void onlyBothCoordinatesMakeACornerUnset();
    void pressInsideBeginsAMove();
    void cornersCountAsInside();
    void completedMoveWritesFourPointsAndAsksToSendThem();
    void completedMoveIsTheLiteralMove();
    void eachMoveGrowsTheBandByOnePixel();
    void moveWithoutADragPaintsTheAreaWhereItWas();
    void movedBandUpAndToTheLeftErasesAndCarriesNothing();
    void pixelsAreThoseOfThePress();
    void resetDropsTheSelection();
    void bandOverhangingTheCanvasCarriesTransparentPixels();
    void moveOutOfTheCanvasLosesPixels();
    void replayLeavesTheOwnSelectionAlone();
    void hostileLocalMoveKeepsItsCorners();

private:
    QImage replayed(const QImage& before, const QList<QPoint>& points);
    QRgb erased() const { return opaque ? 0xffffffff : 0; }
};

QImage tst_selectionbrush::replayed(const QImage& before, const QList<QPoint>& points)
{
    QImage after = before;
    {
        QPainter painter(&after);
        tool.replay(after, &painter, points, opaque);
    }
    return after;
}

void tst_selectionbrush::otherButtonsAreIgnored()
{
    record = true;
    clear = true;
    flush = true;
    QPainter painter(&canvas);
    QVERIFY(!tool.mousePress(canvas, &painter, Qt::RightButton, QPoint(9, 9), Qt::red, 5, &record, &clear));
    QVERIFY(!tool.mouseMove(&painter, Qt::RightButton, QPoint(19, 9), Qt::red, 5, &record));
    QVERIFY(
        !tool.mouseRelease(&painter, Qt::RightButton, QPoint(19, 9), Qt::red, 5, opaque, &record, &flush, &pending));
    QVERIFY(record && clear && flush);
    QCOMPARE(pending, QList<QPoint>{QPoint(7, 7)});
    QCOMPARE(tool.selection(), QRect());
    QCOMPARE(canvas, numberedCanvas());
}

void tst_selectionbrush::thereIsNoSelectionAtFirst()
{
    QCOMPARE(tool.selection(), QRect());
    QVERIFY(tool.selection().isNull());
    QCOMPARE(preview(whiteCanvas()), whiteCanvas());
}

void tst_selectionbrush::pressOutsideBeginsABandAndClearsThePendingPoints()
{
    QVERIFY(press(QPoint(10, 10)));
    QVERIFY(record);
    QVERIFY(clear);
    QCOMPARE(tool.selection(), QRect());
    makeBand(QPoint(10, 10), QPoint(30, 30));
    QVERIFY(press(QPoint(31, 30)));
    QVERIFY(clear);
    QCOMPARE(tool.selection(), QRect());
}

void tst_selectionbrush::dragMakesABandAndPaintsNothing()
{
    press(QPoint(10, 20));
    QVERIFY(move(QPoint(50, 40)));
    QVERIFY(!record);
    QCOMPARE(tool.selection(), QRect(QPoint(10, 20), QPoint(50, 40)));
    QVERIFY(release(QPoint(60, 50)));
    QVERIFY(record);
    QVERIFY(!flush);
    QCOMPARE(tool.selection(), QRect(QPoint(10, 20), QPoint(60, 50)));
    QCOMPARE(pending, QList<QPoint>{QPoint(7, 7)});
    QCOMPARE(canvas, numberedCanvas());
}

void tst_selectionbrush::clickWithoutADragDropsTheSelection()
{
    makeBand(QPoint(10, 20), QPoint(60, 50));
    press(QPoint(80, 80));
    QVERIFY(release(QPoint(80, 80)));
    QVERIFY(record);
    QVERIFY(!flush);
    QCOMPARE(tool.selection(), QRect());
}

void tst_selectionbrush::bandUpAndToTheLeftIsKeptAsItIs()
{
    makeBand(QPoint(60, 50), QPoint(10, 20));
    QCOMPARE(tool.selection(), QRect(QPoint(60, 50), QPoint(10, 20)));
    QVERIFY(!tool.selection().isValid());
    QCOMPARE(tool.selection().topLeft(), QPoint(60, 50));
}

void tst_selectionbrush::onlyBothCoordinatesMakeACornerUnset()
{
    makeBand(QPoint(-1, 20), QPoint(30, -1));
    QCOMPARE(tool.selection(), QRect(QPoint(-1, 20), QPoint(30, -1)));
    makeBand(QPoint(80, 80), QPoint(-1, -1));
    QCOMPARE(tool.selection(), QRect());
}

void tst_selectionbrush::pressInsideBeginsAMove()
{
    makeBand(QPoint(10, 20), QPoint(60, 50));
    QVERIFY(press(QPoint(30, 30)));
    QVERIFY(record);
    QVERIFY(!clear);
    QCOMPARE(tool.selection(), QRect(QPoint(10, 20), QPoint(60, 50)));
    QVERIFY(move(QPoint(50, 50)));
    QVERIFY(!record);
    QCOMPARE(canvas, numberedCanvas());
}

void tst_selectionbrush::cornersCountAsInside()
{
    for (const QPoint& corner : {QPoint(10, 20), QPoint(60, 50), QPoint(60, 20), QPoint(10, 50)}) {
        tool.reset();
        makeBand(QPoint(10, 20), QPoint(60, 50));
        press(corner);
        QVERIFY(!clear);
    }
}

void tst_selectionbrush::completedMoveWritesFourPointsAndAsksToSendThem()
{
    makeBand(QPoint(10, 20), QPoint(60, 50));
    press(QPoint(30, 30));
    move(QPoint(50, 50));
    QVERIFY(release(QPoint(55, 45)));
    QVERIFY(flush);
    QVERIFY(!record);
    const QList<QPoint> expected{QPoint(10, 20), QPoint(60, 50), QPoint(30, 30), QPoint(55, 45)};
    QCOMPARE(pending, expected);
}

void tst_selectionbrush::completedMoveIsTheLiteralMove()
{
    randompainting random(61);
    for (int round = 0; round < 100; ++round) {
        tool = selectionbrush();
        const QImage before = random.picture(small);
        canvas = before;
        const QPoint from = random.point(small, 40);
        const QPoint to = from + QPoint(random.number(1, 60), random.number(1, 60));
        const QPoint grab(random.number(from.x(), to.x()), random.number(from.y(), to.y()));
        const QPoint drop = random.point(small, 60);
        makeBand(from, to);
        if (tool.selection().isNull())
            continue;
        press(grab);
        move(random.point(small, 20));
        release(drop);
        QImage expected = before;
        literal::moveArea(&expected, from, to, grab, drop, opaque);
        QCOMPARE(canvas, expected);
        QCOMPARE(replayed(before, pending), canvas);
    }
}

void tst_selectionbrush::eachMoveGrowsTheBandByOnePixel()
{
    makeBand(QPoint(10, 20), QPoint(20, 25));
    for (int moves = 0; moves < 5; ++moves) {
        const QRect band = tool.selection();
        press(band.topLeft() + QPoint(2, 3));
        release(band.topLeft() + QPoint(12, 8));
        QCOMPARE(tool.selection(), QRect(band.topLeft() + QPoint(10, 5), band.size() + QSize(1, 1)));
    }
}

void tst_selectionbrush::moveWithoutADragPaintsTheAreaWhereItWas()
{
    makeBand(QPoint(10, 20), QPoint(60, 50));
    press(QPoint(30, 30));
    QVERIFY(release(QPoint(30, 30)));
    QVERIFY(flush);
    QCOMPARE(pending.size(), 4);
    QCOMPARE(canvas, numberedCanvas());
    QCOMPARE(tool.selection(), QRect(QPoint(10, 20), QPoint(61, 51)));
}

void tst_selectionbrush::movedBandUpAndToTheLeftErasesAndCarriesNothing()
{
    makeBand(QPoint(60, 50), QPoint(10, 20));
    // The toolkit counts the pixels between the corners as inside of such a rectangle.
    press(QPoint(30, 30));
    QVERIFY(!clear);
    release(QPoint(50, 40));
    QImage expected = numberedCanvas();
    literal::moveArea(&expected, QPoint(60, 50), QPoint(10, 20), QPoint(30, 30), QPoint(50, 40), opaque);
    QCOMPARE(canvas, expected);
    QCOMPARE(canvas.pixel(30, 30), erased());
    QCOMPARE(tool.selection(), QRect(QPoint(80, 60), QPoint(80, 60)));
}

void tst_selectionbrush::pixelsAreThoseOfThePress()
{
    makeBand(QPoint(10, 10), QPoint(20, 20));
    press(QPoint(15, 15));
    canvas.fill(0xff00ff00);
    release(QPoint(55, 15));
    QCOMPARE(canvas.pixel(52, 12), numberedCanvas().pixel(12, 12));
    QCOMPARE(canvas.pixel(12, 12), erased());
    QCOMPARE(canvas.pixel(80, 80), 0xff00ff00u);
}

void tst_selectionbrush::resetDropsTheSelection()
{
    makeBand(QPoint(10, 20), QPoint(60, 50));
    press(QPoint(30, 30));
    tool.reset();
    QCOMPARE(tool.selection(), QRect());
    QCOMPARE(preview(whiteCanvas()), whiteCanvas());
    press(QPoint(30, 30));
    QVERIFY(clear);
}

void tst_selectionbrush::bandOverhangingTheCanvasCarriesTransparentPixels()
{
    makeBand(QPoint(-10, -10), QPoint(9, 9));
    press(QPoint(0, 0));
    release(QPoint(60, 60));
    // The lower right quarter came along; the others drew nothing.
    QCOMPARE(canvas.pixel(65, 65), numberedCanvas().pixel(5, 5));
    QCOMPARE(canvas.pixel(55, 55), numberedCanvas().pixel(55, 55));
    QCOMPARE(canvas.pixel(5, 5), erased());
    QCOMPARE(tool.selection(), QRect(QPoint(50, 50), QPoint(70, 70)));
}

void tst_selectionbrush::moveOutOfTheCanvasLosesPixels()
{
    makeBand(QPoint(10, 10), QPoint(19, 19));
    press(QPoint(10, 10));
    release(QPoint(115, 10));
    QCOMPARE(canvas.pixel(119, 10), numberedCanvas().pixel(14, 10));
    press(QPoint(115, 10));
    release(QPoint(10, 10));
    QCOMPARE(canvas.pixel(14, 10), numberedCanvas().pixel(14, 10));
    QCOMPARE(canvas.pixel(15, 10), erased());
}

void tst_selectionbrush::replayLeavesTheOwnSelectionAlone()
{
    makeBand(QPoint(10, 20), QPoint(60, 50));
    press(QPoint(30, 30));
    canvas = replayed(canvas, {QPoint(0, 0), QPoint(119, 89), QPoint(0, 0), QPoint(500, 0)});
    QCOMPARE(tool.selection(), QRect(QPoint(10, 20), QPoint(60, 50)));
    release(QPoint(40, 30));
    QCOMPARE(canvas.pixel(30, 30), numberedCanvas().pixel(20, 30));
}

void tst_selectionbrush::hostileLocalMoveKeepsItsCorners()
{
    makeBand(QPoint(smallest + 1, smallest + 1), QPoint(largest, largest));
    press(QPoint(5, 5));
    QVERIFY(!clear);
    move(QPoint(largest, largest));
    QVERIFY(preview(whiteCanvas()).size() == small);
    release(QPoint(5, 15));
    QCOMPARE(canvas.pixel(30, 30), numberedCanvas().pixel(30, 20));
    QCOMPARE(tool.selection().topLeft(), QPoint(smallest + 1, smallest + 11));
    QCOMPARE(tool.selection().bottomRight(), QPoint(largest, largest));
}

QTEST_MAIN(tst_selectionbrush)
#include "tst_selectionbrush.moc"
