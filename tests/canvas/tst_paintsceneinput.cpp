#include "canvas/paintscene.h"

#include "scenehand.h"

#include <QDialog>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtTest>

Q_DECLARE_METATYPE(kelvortool)

namespace {

constexpr QRgb white = 0xffffffff;
constexpr QRgb red = 0xffff0000;

const QSize size(200, 150);

/// So many positions in a row, each two pixels from the last.
QList<QPoint> steps(int count)
{
    QList<QPoint> path;
    for (int i = 0; i < count; ++i) {
        path.append(QPoint(10 + 2 * i, 20 + i));
    }
    return path;
}

} // namespace

class tst_paintsceneinput : public QObject {
    Q_OBJECT
private slots:
    void init();

    void aStrokeOnOneSpotSendsTwoEqualPoints_data();
    void aStrokeOnOneSpotSendsTwoEqualPoints();
    void nineteenMovesSendABatchOfTwentyAndTwoPoints_data();
    void nineteenMovesSendABatchOfTwentyAndTwoPoints();
    void everyFurtherBatchAddsNineteenPoints();
    void theBatchThatWasSentKeepsItsPoints();

    void anotherButtonDoesNothing_data();
    void anotherButtonDoesNothing();
    void everyButtonFills_data();
    void everyButtonFills();
    void aSecondButtonDuringADragChangesNothing();
    void aMoveWithoutTheLeftButtonDoesNothing();
    void withoutAToolNothingHappens();
    void clickedComesBeforeTheTool();

    void aLineSendsItsEnds();
    void aShapeSendsItsCorners_data();
    void aShapeSendsItsCorners();
    void aShapeReadsTheModifiersOfTheRelease_data();
    void aShapeReadsTheModifiersOfTheRelease();
    void shiftTurnsThePreviewRegularAtOnce();
    void aShapeOnOneSpotSendsTwoEqualPoints();

    void aBandSendsNothing();
    void aMoveSendsFourPoints();
    void theBandGrowsByAPixelWithEachMove();
    void aPressInsideTheBandIsACompletedMove();
    void aNewBandEmptiesThePendingList();
    void deleteClearsTheBand();
    void deleteWithoutASelectionClearsEverything();
    void deleteDoesNothingWithOtherTools();

    void aFillIsSentThoughItChangedNothing();
    void aFillOutsideIsSentThoughItPaintsNothing();
    void aFillOnATransparentCanvasIsOpaque();

    void aTextIsSentWithItsBox_data();
    void aTextIsSentWithItsBox();
    void anEmptyTextIsSentToo();
    void aPressElsewhereFinishesTheTextAndBeginsABox();
    void afterAFinishedTextThePressIsTheOnlyPoint();
    void escapeLeavesTheBox();
    void backspaceOnAnEmptyTextChangesNothing();
    void otherToolsDoNotHearTheLossOfFocus();

    void thePendingListSurvivesAToolChange();
    void leftoversMakeAShapeThatNoPeerPaints_data();
    void leftoversMakeAShapeThatNoPeerPaints();
    void aTextBoxSurvivesAToolChange();
    void aTextWithOtherThanTwoPointsIsPaintedButNotSent();
    void aListAboveTwentyIsSentAtTheReleaseOnly();
    void aStrokeEndsWithoutAMark();

    void keysReachTheCanvasOnlyAfterAPress();
    void keysDoNotReachTheDialog();

private:
    QScopedPointer<paintscene> scene;
    QScopedPointer<scenehand> hand;
};

void tst_paintsceneinput::init()
{
    hand.reset();
    scene.reset(new paintscene(size.width(), size.height(), nullptr));
    scene->setImage(QString(), false);
    hand.reset(new scenehand(*scene));
}

void tst_paintsceneinput::aStrokeOnOneSpotSendsTwoEqualPoints_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::newRow("pencil") << kelvortool::pencil;
    QTest::newRow("eraser") << kelvortool::eraser;
    QTest::newRow("airbrush") << kelvortool::airbrush;
    QTest::newRow("line") << kelvortool::line;
}

void tst_paintsceneinput::aStrokeOnOneSpotSendsTwoEqualPoints()
{
    QFETCH(kelvortool, tool);
    hand->take(tool, Qt::red, 3);
    hand->drag({QPoint(40, 30)});
    const paintmessage message = hand->takeOnlyMessage();
    QVERIFY(!message.extended);
    QCOMPARE(message.tool, tool);
    QCOMPARE(message.points, (QList<QPoint>{QPoint(40, 30), QPoint(40, 30)}));
}

void tst_paintsceneinput::nineteenMovesSendABatchOfTwentyAndTwoPoints_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::newRow("pencil") << kelvortool::pencil;
    QTest::newRow("eraser") << kelvortool::eraser;
    QTest::newRow("airbrush") << kelvortool::airbrush;
}

void tst_paintsceneinput::nineteenMovesSendABatchOfTwentyAndTwoPoints()
{
    QFETCH(kelvortool, tool);
    hand->take(tool, Qt::red, 3);
    const QList<QPoint> path = steps(20);
    hand->press(path.first());
    for (int i = 1; i < 19; ++i) {
        hand->move(path.at(i));
    }
    QVERIFY(hand->takeMessages().isEmpty());
    hand->move(path.at(19));
    const paintmessage batch = hand->takeOnlyMessage();
    QCOMPARE(batch.tool, tool);
    QCOMPARE(batch.points, path);
    hand->release(QPoint(100, 100));
    QCOMPARE(hand->takeOnlyMessage().points, (QList<QPoint>{path.at(19), QPoint(100, 100)}));
}

void tst_paintsceneinput::everyFurtherBatchAddsNineteenPoints()
{
    hand->take(kelvortool::pencil, Qt::red, 3);
    const QList<QPoint> path = steps(60);
    hand->drag(path);
    const QList<paintmessage> messages = hand->takeMessages();
    QCOMPARE(messages.size(), 4);
    QCOMPARE(messages.at(0).points, path.mid(0, 20));
    QCOMPARE(messages.at(1).points, path.mid(19, 20));
    QCOMPARE(messages.at(2).points, path.mid(38, 20));
    QCOMPARE(messages.at(3).points, path.mid(57) << path.last());

    paintscene peer(size.width(), size.height(), nullptr);
    peer.setImage(QString(), false);
    for (const paintmessage& message : messages) {
        deliver(overTheWire(message), peer);
    }
    QVERIFY(peer.picture() == scene->picture());
}

void tst_paintsceneinput::theBatchThatWasSentKeepsItsPoints()
{
    QList<QPoint> sent;
    connect(scene.data(), &paintscene::paintDataAvailable, this,
            [&sent](kelvortool, const QList<QPoint>& points) { sent = points; });
    hand->take(kelvortool::pencil);
    hand->drag(steps(3));
    hand->press(QPoint(99, 99));
    QCOMPARE(sent, steps(3) << steps(3).last());
}

void tst_paintsceneinput::anotherButtonDoesNothing_data()
{
    QTest::addColumn<kelvortool>("tool");
    for (const kelvortool tool : {kelvortool::pencil, kelvortool::line, kelvortool::rect, kelvortool::ellipse,
                                  kelvortool::eraser, kelvortool::airbrush, kelvortool::text, kelvortool::select}) {
        QTest::addRow("tool %d", static_cast<int>(tool)) << tool;
    }
}

void tst_paintsceneinput::anotherButtonDoesNothing()
{
    QFETCH(kelvortool, tool);
    const QImage before = scene->picture().copy();
    hand->take(tool, Qt::red, 9);
    hand->press(QPoint(40, 30), Qt::RightButton);
    QCOMPARE(hand->clicks, 1);
    hand->move(QPoint(60, 60));
    hand->release(QPoint(60, 60), Qt::RightButton);
    hand->press(QPoint(40, 30), Qt::MiddleButton);
    hand->release(QPoint(40, 30), Qt::MiddleButton);
    QCOMPARE(hand->clicks, 2);
    QVERIFY(hand->takeMessages().isEmpty());
    QVERIFY(scene->picture() == before);

    // Nothing was recorded either: the next stroke begins with its own press.
    hand->take(kelvortool::pencil);
    hand->drag({QPoint(5, 5)});
    QCOMPARE(hand->takeOnlyMessage().points.size(), 2);
}

void tst_paintsceneinput::everyButtonFills_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << int(Qt::LeftButton);
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
    QTest::newRow("back") << int(Qt::BackButton);
}

void tst_paintsceneinput::everyButtonFills()
{
    QFETCH(int, button);
    hand->take(kelvortool::fill, Qt::red);
    hand->press(QPoint(40, 30), Qt::MouseButton(button));
    QCOMPARE(hand->clicks, 1);
    const paintmessage message = hand->takeOnlyMessage();
    QVERIFY(message.extended);
    QCOMPARE(message.tool, kelvortool::fill);
    QCOMPARE(message.data, QString("#ff0000 40|30"));
    QCOMPARE(scene->picture().pixel(199, 149), red);
    hand->move(QPoint(50, 50));
    hand->release(QPoint(50, 50), Qt::MouseButton(button));
    QVERIFY(hand->takeMessages().isEmpty());
}

void tst_paintsceneinput::aSecondButtonDuringADragChangesNothing()
{
    hand->take(kelvortool::pencil, Qt::red, 3);
    hand->press(QPoint(10, 10));
    hand->move(QPoint(20, 10));
    const QImage before = scene->picture().copy();
    hand->press(QPoint(80, 80), Qt::RightButton);
    hand->release(QPoint(80, 80), Qt::RightButton);
    QVERIFY(scene->picture() == before);
    QVERIFY(hand->takeMessages().isEmpty());
    hand->move(QPoint(30, 10));
    hand->release(QPoint(30, 10));
    QCOMPARE(hand->takeOnlyMessage().points,
             (QList<QPoint>{QPoint(10, 10), QPoint(20, 10), QPoint(30, 10), QPoint(30, 10)}));
}

void tst_paintsceneinput::aMoveWithoutTheLeftButtonDoesNothing()
{
    hand->take(kelvortool::pencil, Qt::red, 3);
    hand->move(QPoint(20, 10));
    QCOMPARE(scene->picture().pixel(20, 10), white);
    hand->drag({QPoint(5, 5)});
    QCOMPARE(hand->takeOnlyMessage().points.size(), 2);
}

void tst_paintsceneinput::withoutAToolNothingHappens()
{
    const QImage before = scene->picture().copy();
    hand->take(kelvortool::notool, Qt::red, 9);
    hand->drag(steps(25));
    hand->type("a");
    hand->loseFocus();
    QVERIFY(scene->picture() == before);
    QVERIFY(hand->takeMessages().isEmpty());
    QCOMPARE(hand->clicks, 1);
}

void tst_paintsceneinput::clickedComesBeforeTheTool()
{
    QRgb atClick = 0;
    connect(scene.data(), &paintscene::clicked, this, [&] { atClick = scene->picture().pixel(40, 30); });
    hand->take(kelvortool::pencil, Qt::red, 3);
    hand->press(QPoint(40, 30));
    QCOMPARE(atClick, white);
    QCOMPARE(scene->picture().pixel(40, 30), red);
}

void tst_paintsceneinput::aLineSendsItsEnds()
{
    hand->take(kelvortool::line, Qt::red, 3);
    hand->press(QPoint(10, 10));
    hand->move(QPoint(90, 90));
    hand->move(QPoint(40, 60));
    QCOMPARE(scene->picture().pixel(10, 10), white);
    hand->release(QPoint(70, 10));
    const paintmessage message = hand->takeOnlyMessage();
    QCOMPARE(message.tool, kelvortool::line);
    QCOMPARE(message.points, (QList<QPoint>{QPoint(10, 10), QPoint(70, 10)}));
    QCOMPARE(scene->picture().pixel(40, 10), red);
    QCOMPARE(scene->picture().pixel(40, 40), white);
}

void tst_paintsceneinput::aShapeSendsItsCorners_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::newRow("rect") << kelvortool::rect;
    QTest::newRow("ellipse") << kelvortool::ellipse;
}

void tst_paintsceneinput::aShapeSendsItsCorners()
{
    QFETCH(kelvortool, tool);
    hand->take(tool, Qt::red, 3);
    hand->drag({QPoint(10, 10), QPoint(90, 90), QPoint(71, 41)});
    QCOMPARE(hand->takeOnlyMessage().points, (QList<QPoint>{QPoint(10, 10), QPoint(71, 41)}));
    QCOMPARE(scene->picture().pixel(40, 10), red);
    QCOMPARE(scene->picture().pixel(40, 25), white);
}

void tst_paintsceneinput::aShapeReadsTheModifiersOfTheRelease_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::addColumn<bool>("shiftAtMove");
    QTest::addColumn<bool>("shiftAtRelease");
    for (const bool atMove : {false, true}) {
        for (const bool atRelease : {false, true}) {
            QTest::addRow("rect, %d then %d", atMove, atRelease) << kelvortool::rect << atMove << atRelease;
            QTest::addRow("ellipse, %d then %d", atMove, atRelease) << kelvortool::ellipse << atMove << atRelease;
        }
    }
}

void tst_paintsceneinput::aShapeReadsTheModifiersOfTheRelease()
{
    QFETCH(kelvortool, tool);
    QFETCH(bool, shiftAtMove);
    QFETCH(bool, shiftAtRelease);
    const auto keys = [](bool shift) { return shift ? Qt::ShiftModifier : Qt::NoModifier; };
    hand->take(tool, Qt::red, 1);
    hand->press(QPoint(10, 10), Qt::LeftButton, keys(shiftAtMove));
    hand->move(QPoint(50, 90), keys(shiftAtMove));
    hand->release(QPoint(50, 90), Qt::LeftButton, keys(shiftAtRelease));
    QList<QPoint> expected{QPoint(10, 10), QPoint(50, 90)};
    if (shiftAtRelease) {
        expected.append(QPoint(-1, -1));
    }
    const paintmessage message = hand->takeOnlyMessage();
    QCOMPARE(message.points, expected);
    // The bottom edge of the square, or of the plain shape: an outline lies a pixel beyond its second corner.
    QCOMPARE(scene->picture().pixel(30, 51) == red, shiftAtRelease);
    QCOMPARE(scene->picture().pixel(30, 91) == red, !shiftAtRelease);

    paintscene peer(size.width(), size.height(), nullptr);
    peer.setImage(QString(), false);
    deliver(overTheWire(message), peer);
    QVERIFY(peer.picture() == scene->picture());
}

void tst_paintsceneinput::shiftTurnsThePreviewRegularAtOnce()
{
    for (const kelvortool tool : {kelvortool::rect, kelvortool::ellipse}) {
        hand->take(tool, Qt::red, 1);
        hand->press(QPoint(10, 10));
        hand->move(QPoint(50, 90));
        const QImage plain = scene->grab().toImage();
        QCOMPARE(plain.pixel(30, 91), red);
        hand->keyDown(Qt::Key_Shift, Qt::ShiftModifier);
        QCOMPARE(scene->grab().toImage().pixel(30, 51), red);
        QCOMPARE(scene->grab().toImage().pixel(30, 91), white);
        hand->keyUp(Qt::Key_Shift);
        QCOMPARE(scene->grab().toImage(), plain);
        hand->release(QPoint(10, 10));
        scene->clearCanvas(false);
    }
}

void tst_paintsceneinput::aShapeOnOneSpotSendsTwoEqualPoints()
{
    for (const kelvortool tool : {kelvortool::rect, kelvortool::ellipse}) {
        hand->take(tool, Qt::red, 1);
        hand->drag({QPoint(40, 30)});
        QCOMPARE(hand->takeOnlyMessage().points, (QList<QPoint>{QPoint(40, 30), QPoint(40, 30)}));
        hand->drag({QPoint(60, 30)}, Qt::ShiftModifier);
        QCOMPARE(hand->takeOnlyMessage().points, (QList<QPoint>{QPoint(60, 30), QPoint(60, 30), QPoint(-1, -1)}));
    }
}

void tst_paintsceneinput::aBandSendsNothing()
{
    const QImage before = scene->picture().copy();
    hand->take(kelvortool::select);
    hand->drag({QPoint(10, 10), QPoint(30, 35), QPoint(40, 20)});
    QVERIFY(hand->takeMessages().isEmpty());
    QVERIFY(scene->picture() == before);
}

void tst_paintsceneinput::aMoveSendsFourPoints()
{
    scene->applyDraw(static_cast<char>(kelvortool::pencil), Qt::red, 5, {QPoint(15, 15)});
    hand->take(kelvortool::select);
    hand->drag({QPoint(10, 10), QPoint(20, 20)});
    hand->drag({QPoint(12, 13), QPoint(30, 40), QPoint(62, 43)});
    const paintmessage message = hand->takeOnlyMessage();
    QCOMPARE(message.tool, kelvortool::select);
    QCOMPARE(message.points, (QList<QPoint>{QPoint(10, 10), QPoint(20, 20), QPoint(12, 13), QPoint(62, 43)}));
    QCOMPARE(scene->picture().pixel(15, 15), white);
    QCOMPARE(scene->picture().pixel(65, 45), red);
    // Nothing is left over for the next stroke.
    hand->take(kelvortool::pencil);
    hand->drag({QPoint(5, 5)});
    QCOMPARE(hand->takeOnlyMessage().points.size(), 2);
}

void tst_paintsceneinput::theBandGrowsByAPixelWithEachMove()
{
    hand->take(kelvortool::select);
    hand->drag({QPoint(10, 10), QPoint(20, 20)});
    hand->drag({QPoint(15, 15), QPoint(45, 55)});
    QCOMPARE(hand->takeMessages().size(), 1);
    scene->invertColors(true, QString());
    QCOMPARE(hand->takeOnlyMessage().data, QString("40|50 51|61"));
    hand->drag({QPoint(45, 55), QPoint(46, 55)});
    QCOMPARE(hand->takeMessages().size(), 1);
    scene->invertColors(true, QString());
    QCOMPARE(hand->takeOnlyMessage().data, QString("41|50 53|62"));
}

void tst_paintsceneinput::aPressInsideTheBandIsACompletedMove()
{
    hand->take(kelvortool::select);
    hand->drag({QPoint(10, 10), QPoint(20, 20)});
    hand->drag({QPoint(10, 20)});
    QCOMPARE(hand->takeOnlyMessage().points,
             (QList<QPoint>{QPoint(10, 10), QPoint(20, 20), QPoint(10, 20), QPoint(10, 20)}));
    scene->clearCanvas(true);
    QCOMPARE(hand->takeOnlyMessage().data, QString("10|10 21|21"));
}

void tst_paintsceneinput::aNewBandEmptiesThePendingList()
{
    hand->take(kelvortool::text);
    hand->drag({QPoint(5, 5), QPoint(50, 50)});
    hand->take(kelvortool::select);
    hand->drag({QPoint(10, 10), QPoint(20, 20)});
    // Of all that stood in the list only the band's corners are left.
    hand->take(kelvortool::pencil);
    hand->drag({QPoint(90, 90)});
    QCOMPARE(hand->takeOnlyMessage().points,
             (QList<QPoint>{QPoint(10, 10), QPoint(20, 20), QPoint(90, 90), QPoint(90, 90)}));
}

void tst_paintsceneinput::deleteClearsTheBand()
{
    scene->applyDraw(static_cast<char>(kelvortool::line), Qt::red, 5, {QPoint(0, 15), QPoint(199, 15)});
    hand->take(kelvortool::select);
    hand->drag({QPoint(10, 10), QPoint(20, 20)});
    hand->keyDown(Qt::Key_Delete);
    const paintmessage message = hand->takeOnlyMessage();
    QVERIFY(message.extended);
    QCOMPARE(message.tool, kelvortool::clearselection);
    QCOMPARE(message.data, QString("10|10 20|20"));
    QCOMPARE(scene->picture().pixel(9, 15), red);
    QCOMPARE(scene->picture().pixel(10, 15), white);
    QCOMPARE(scene->picture().pixel(20, 15), white);
    QCOMPARE(scene->picture().pixel(21, 15), red);
}

void tst_paintsceneinput::deleteWithoutASelectionClearsEverything()
{
    scene->applyDraw(static_cast<char>(kelvortool::line), Qt::red, 5, {QPoint(0, 15), QPoint(199, 15)});
    hand->take(kelvortool::select);
    hand->keyDown(Qt::Key_Delete);
    const paintmessage message = hand->takeOnlyMessage();
    QVERIFY(!message.extended);
    QCOMPARE(message.tool, kelvortool::clear);
    QVERIFY(message.points.isEmpty());
    QCOMPARE(scene->picture().pixel(50, 15), white);
}

void tst_paintsceneinput::deleteDoesNothingWithOtherTools()
{
    scene->applyDraw(static_cast<char>(kelvortool::line), Qt::red, 5, {QPoint(0, 15), QPoint(199, 15)});
    for (int value = 1; value <= 17; ++value) {
        const auto tool = static_cast<kelvortool>(static_cast<char>(value));
        if (tool != kelvortool::select) {
            hand->take(tool);
            hand->keyDown(Qt::Key_Delete);
        }
    }
    QVERIFY(hand->takeMessages().isEmpty());
    QCOMPARE(scene->picture().pixel(50, 15), red);
}

void tst_paintsceneinput::aFillIsSentThoughItChangedNothing()
{
    const QImage before = scene->picture().copy();
    hand->take(kelvortool::fill, Qt::white);
    hand->press(QPoint(40, 30));
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ffffff 40|30"));
    QVERIFY(scene->picture() == before);
}

void tst_paintsceneinput::aFillOutsideIsSentThoughItPaintsNothing()
{
    const QImage before = scene->picture().copy();
    hand->take(kelvortool::fill, Qt::red);
    hand->press(QPoint(-4, 300));
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ff0000 -4|300"));
    QVERIFY(scene->picture() == before);
}

void tst_paintsceneinput::aFillOnATransparentCanvasIsOpaque()
{
    QImage glass(40, 30, QImage::Format_ARGB32);
    glass.fill(0x00ffffff);
    paintscene canvas(40, 30, nullptr);
    canvas.setImage("no such picture", true);
    QVERIFY(canvas.picture() == glass);
    canvas.applyDraw(static_cast<char>(kelvortool::line), Qt::white, 1, {QPoint(20, 0), QPoint(20, 29)});
    scenehand user(canvas);
    user.take(kelvortool::fill, QColor(255, 0, 0, 40));
    user.press(QPoint(5, 5));
    QCOMPARE(canvas.picture().pixel(5, 5), red);
    QCOMPARE(canvas.picture().pixel(19, 29), red);
    // White and transparent white look alike here, and are two colours all the same.
    QCOMPARE(canvas.picture().pixel(20, 5), white);
    QCOMPARE(canvas.picture().pixel(21, 5), QRgb{0x00ffffff});
    QCOMPARE(user.takeOnlyMessage().data, QString("#ff0000 5|5"));
}

void tst_paintsceneinput::aTextIsSentWithItsBox_data()
{
    QTest::addColumn<int>("by");
    QTest::newRow("return") << int(Qt::Key_Return);
    QTest::newRow("enter") << int(Qt::Key_Enter);
    QTest::newRow("press") << 0;
    QTest::newRow("focus") << 1;
}

void tst_paintsceneinput::aTextIsSentWithItsBox()
{
    QFETCH(int, by);
    const QImage before = scene->picture().copy();
    hand->take(kelvortool::text, Qt::red, 2.5);
    hand->drag({QPoint(20, 20), QPoint(90, 40), QPoint(150, 80)});
    hand->type("Hello1");
    hand->keyDown(Qt::Key_Exclam, Qt::ShiftModifier);
    QVERIFY(hand->takeMessages().isEmpty());
    QVERIFY(scene->picture() == before);
    if (by == 0) {
        hand->press(QPoint(5, 100));
    } else if (by == 1) {
        hand->loseFocus();
    } else {
        hand->keyDown(by);
    }
    const paintmessage message = hand->takeOnlyMessage();
    QVERIFY(message.extended);
    QCOMPARE(message.tool, kelvortool::text);
    QCOMPARE(message.data, QString("#ff0000 2.5 20|20 150|80 Hello1!"));
    QVERIFY(scene->picture() != before);

    paintscene peer(size.width(), size.height(), nullptr);
    peer.setImage(QString(), false);
    deliver(overTheWire(message), peer);
    QVERIFY(peer.picture() == scene->picture());

    // It was finished once and for all.
    if (by != 0) {
        hand->loseFocus();
        hand->keyDown(Qt::Key_Return);
        QVERIFY(hand->takeMessages().isEmpty());
    }
}

void tst_paintsceneinput::anEmptyTextIsSentToo()
{
    const QImage before = scene->picture().copy();
    hand->take(kelvortool::text, Qt::red, 2);
    hand->drag({QPoint(20, 20), QPoint(150, 80)});
    hand->keyDown(Qt::Key_Return);
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ff0000 2 20|20 150|80 "));
    QVERIFY(scene->picture() == before);
}

void tst_paintsceneinput::aPressElsewhereFinishesTheTextAndBeginsABox()
{
    hand->take(kelvortool::text, Qt::red, 2);
    hand->drag({QPoint(20, 20), QPoint(150, 60)});
    hand->type("one");
    hand->drag({QPoint(30, 80), QPoint(160, 120)});
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ff0000 2 20|20 150|60 one"));
    hand->type("two");
    hand->keyDown(Qt::Key_Return);
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ff0000 2 30|80 160|120 two"));
}

void tst_paintsceneinput::afterAFinishedTextThePressIsTheOnlyPoint()
{
    hand->take(kelvortool::text, Qt::red, 2);
    hand->drag({QPoint(20, 20), QPoint(150, 60)});
    hand->press(QPoint(30, 80));
    QCOMPARE(hand->takeMessages().size(), 1);
    hand->take(kelvortool::pencil);
    hand->drag({QPoint(90, 90)});
    QCOMPARE(hand->takeOnlyMessage().points, (QList<QPoint>{QPoint(30, 80), QPoint(90, 90), QPoint(90, 90)}));
}

void tst_paintsceneinput::escapeLeavesTheBox()
{
    hand->take(kelvortool::text, Qt::red, 2);
    hand->drag({QPoint(20, 20), QPoint(150, 60)});
    hand->type("ab");
    hand->keyDown(Qt::Key_Escape);
    hand->type("c");
    hand->keyDown(Qt::Key_Return);
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ff0000 2 20|20 150|60 abc"));
}

void tst_paintsceneinput::backspaceOnAnEmptyTextChangesNothing()
{
    hand->take(kelvortool::text, Qt::red, 2);
    hand->drag({QPoint(20, 20), QPoint(150, 60)});
    hand->keyDown(Qt::Key_Backspace);
    hand->type("ab");
    hand->keyDown(Qt::Key_Backspace);
    hand->keyDown(Qt::Key_Return);
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ff0000 2 20|20 150|60 a"));
}

void tst_paintsceneinput::otherToolsDoNotHearTheLossOfFocus()
{
    hand->take(kelvortool::text, Qt::red, 2);
    hand->drag({QPoint(20, 20), QPoint(150, 60)});
    hand->type("ab");
    hand->take(kelvortool::pencil);
    hand->loseFocus();
    QVERIFY(hand->takeMessages().isEmpty());
}

void tst_paintsceneinput::thePendingListSurvivesAToolChange()
{
    hand->take(kelvortool::select);
    hand->drag({QPoint(10, 10), QPoint(40, 30)});
    hand->take(kelvortool::pencil, Qt::red, 3);
    hand->drag({QPoint(100, 100), QPoint(110, 100)});
    const paintmessage message = hand->takeOnlyMessage();
    QCOMPARE(message.points,
             (QList<QPoint>{QPoint(10, 10), QPoint(40, 30), QPoint(100, 100), QPoint(110, 100), QPoint(110, 100)}));
    QCOMPARE(scene->picture().pixel(10, 10), white);

    // The peers see a line from the band's corners, the author does not.
    paintscene peer(size.width(), size.height(), nullptr);
    peer.setImage(QString(), false);
    deliver(overTheWire(message), peer);
    QCOMPARE(peer.picture().pixel(10, 10), red);
    QCOMPARE(peer.picture().pixel(40, 30), red);
    QCOMPARE(peer.picture().pixel(105, 100), red);
}

void tst_paintsceneinput::leftoversMakeAShapeThatNoPeerPaints_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::newRow("line") << kelvortool::line;
    QTest::newRow("rect") << kelvortool::rect;
    QTest::newRow("ellipse") << kelvortool::ellipse;
}

void tst_paintsceneinput::leftoversMakeAShapeThatNoPeerPaints()
{
    QFETCH(kelvortool, tool);
    const QImage before = scene->picture().copy();
    hand->take(kelvortool::select);
    hand->drag({QPoint(10, 10), QPoint(40, 30)});
    hand->take(tool, Qt::red, 3);
    hand->drag({QPoint(100, 100), QPoint(120, 110)});
    const paintmessage message = hand->takeOnlyMessage();
    QCOMPARE(message.points.size(), 4);
    QVERIFY(scene->picture() != before);
    paintscene peer(size.width(), size.height(), nullptr);
    peer.setImage(QString(), false);
    deliver(overTheWire(message), peer);
    QVERIFY(peer.picture() == before);
    // The list is empty again, and the next one reaches them.
    hand->drag({QPoint(100, 100), QPoint(120, 110)});
    QCOMPARE(hand->takeOnlyMessage().points.size(), 2);
}

void tst_paintsceneinput::aTextBoxSurvivesAToolChange()
{
    const QImage before = scene->picture().copy();
    hand->take(kelvortool::text, Qt::red, 2);
    hand->drag({QPoint(20, 20), QPoint(150, 60)});
    hand->type("still");
    const QImage typed = scene->grab().toImage();
    hand->take(kelvortool::pencil, Qt::red, 2);
    QVERIFY(scene->picture() == before);
    QVERIFY(scene->grab().toImage() != typed);
    hand->type("x");
    hand->take(kelvortool::text, Qt::red, 2);
    QCOMPARE(scene->grab().toImage(), typed);
    hand->type("here");
    hand->keyDown(Qt::Key_Return);
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ff0000 2 20|20 150|60 stillhere"));
}

void tst_paintsceneinput::aTextWithOtherThanTwoPointsIsPaintedButNotSent()
{
    hand->take(kelvortool::select);
    hand->drag({QPoint(10, 10), QPoint(40, 30)});
    hand->take(kelvortool::text, Qt::red, 2);
    hand->drag({QPoint(20, 20), QPoint(150, 60)});
    hand->type("mine");
    const QImage before = scene->picture().copy();
    hand->keyDown(Qt::Key_Return);
    QVERIFY(scene->picture() != before);
    QVERIFY(hand->takeMessages().isEmpty());
    // The four points stay, for whatever comes next.
    hand->take(kelvortool::pencil);
    hand->drag({QPoint(90, 90)});
    QCOMPARE(hand->takeOnlyMessage().points.size(), 6);
}

void tst_paintsceneinput::aListAboveTwentyIsSentAtTheReleaseOnly()
{
    hand->take(kelvortool::select);
    hand->drag({QPoint(10, 10), QPoint(40, 30)});
    hand->take(kelvortool::text, Qt::red, 2);
    for (int i = 0; i < 10; ++i) {
        hand->drag({QPoint(20, 20), QPoint(150, 60)});
        hand->keyDown(Qt::Key_Return);
    }
    QVERIFY(hand->takeMessages().isEmpty());
    hand->take(kelvortool::pencil, Qt::red, 2);
    hand->press(QPoint(50, 50));
    for (const QPoint& pos : steps(45)) {
        hand->move(pos);
    }
    QVERIFY(hand->takeMessages().isEmpty());
    hand->release(QPoint(50, 50));
    QCOMPARE(hand->takeOnlyMessage().points.size(), 22 + 1 + 45 + 1);
    hand->drag(steps(21));
    QCOMPARE(hand->takeMessages().size(), 2);
}

void tst_paintsceneinput::aStrokeEndsWithoutAMark()
{
    hand->take(kelvortool::pencil, Qt::red, 2);
    hand->drag(steps(5), Qt::ShiftModifier);
    const paintmessage first = hand->takeOnlyMessage();
    QCOMPARE(first.points, steps(5) << steps(5).last());
    // Outside the widget the unset point is a position like any other.
    hand->drag({QPoint(3, 3), QPoint(-1, -1), QPoint(5, 3)});
    QCOMPARE(hand->takeOnlyMessage().points, (QList<QPoint>{QPoint(3, 3), QPoint(-1, -1), QPoint(5, 3), QPoint(5, 3)}));
}

void tst_paintsceneinput::keysReachTheCanvasOnlyAfterAPress()
{
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* button = new QPushButton("other");
    layout->addWidget(button);
    auto* canvas = new paintscene(size.width(), size.height(), nullptr);
    canvas->setImage(QString(), false);
    canvas->setFixedSize(size);
    layout->addWidget(canvas);
    connect(canvas, &paintscene::clicked, canvas, [canvas] { canvas->setFocus(Qt::OtherFocusReason); });
    scenehand user(*canvas);
    user.take(kelvortool::select);
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    button->setFocus();
    QTRY_VERIFY(button->hasFocus());

    QTest::keyClick(window.focusWidget(), Qt::Key_Delete);
    QVERIFY(user.takeMessages().isEmpty());
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    QVERIFY(!canvas->hasFocus());
    QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QVERIFY(canvas->hasFocus());
    QTest::keyClick(window.focusWidget(), Qt::Key_Delete);
    QCOMPARE(user.takeOnlyMessage().tool, kelvortool::clear);

    // A text is finished by whatever takes the focus away.
    user.take(kelvortool::pencil);
    user.drag({QPoint(5, 5)});
    QCOMPARE(user.takeMessages().size(), 1);
    user.take(kelvortool::text);
    user.drag({QPoint(5, 5), QPoint(100, 50)});
    button->setFocus();
    QCOMPARE(user.takeOnlyMessage().data, QString("#000000 1 5|5 100|50 "));
}

void tst_paintsceneinput::keysDoNotReachTheDialog()
{
    QDialog dialog;
    auto* layout = new QVBoxLayout(&dialog);
    auto* button = new QPushButton("default");
    button->setDefault(true);
    layout->addWidget(button);
    auto* canvas = new paintscene(size.width(), size.height(), nullptr);
    canvas->setImage(QString(), false);
    layout->addWidget(canvas);
    int pressed = 0;
    connect(button, &QPushButton::clicked, canvas, [&pressed] { ++pressed; });
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    for (int value = 1; value <= 17; ++value) {
        canvas->setTool(static_cast<kelvortool>(static_cast<char>(value)));
        for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Shift, Qt::Key_F5, Qt::Key_A}) {
            QTest::keyClick(canvas, Qt::Key(key));
        }
    }
    QCOMPARE(pressed, 0);
    QVERIFY(dialog.isVisible());
}

QTEST_MAIN(tst_paintsceneinput)
#include "tst_paintsceneinput.moc"
