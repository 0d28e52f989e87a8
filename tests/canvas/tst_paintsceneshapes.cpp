#include "handtest.h"

/// Lines, rectangles and ellipses by hand: what is sent, and what the modifiers do.
class tst_paintsceneshapes : public handtest {
    Q_OBJECT
private slots:
    void init() { begin(); }

    void aLineSendsItsEnds();
    void aShapeSendsItsCorners_data();
    void aShapeSendsItsCorners();
    void aShapeReadsTheModifiersOfTheRelease_data();
    void aShapeReadsTheModifiersOfTheRelease();
    void shiftTurnsThePreviewRegularAtOnce();
    void aShapeOnOneSpotSendsTwoEqualPoints();
};

void tst_paintsceneshapes::aLineSendsItsEnds()
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

void tst_paintsceneshapes::aShapeSendsItsCorners_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::newRow("rect") << kelvortool::rect;
    QTest::newRow("ellipse") << kelvortool::ellipse;
}

void tst_paintsceneshapes::aShapeSendsItsCorners()
{
    QFETCH(kelvortool, tool);
    hand->take(tool, Qt::red, 3);
    hand->drag({QPoint(10, 10), QPoint(90, 90), QPoint(71, 41)});
    QCOMPARE(hand->takeOnlyMessage().points, (QList<QPoint>{QPoint(10, 10), QPoint(71, 41)}));
    QCOMPARE(scene->picture().pixel(40, 10), red);
    QCOMPARE(scene->picture().pixel(40, 25), white);
}

void tst_paintsceneshapes::aShapeReadsTheModifiersOfTheRelease_data()
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

void tst_paintsceneshapes::aShapeReadsTheModifiersOfTheRelease()
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

void tst_paintsceneshapes::shiftTurnsThePreviewRegularAtOnce()
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

void tst_paintsceneshapes::aShapeOnOneSpotSendsTwoEqualPoints()
{
    for (const kelvortool tool : {kelvortool::rect, kelvortool::ellipse}) {
        hand->take(tool, Qt::red, 1);
        hand->drag({QPoint(40, 30)});
        QCOMPARE(hand->takeOnlyMessage().points, (QList<QPoint>{QPoint(40, 30), QPoint(40, 30)}));
        hand->drag({QPoint(60, 30)}, Qt::ShiftModifier);
        QCOMPARE(hand->takeOnlyMessage().points, (QList<QPoint>{QPoint(60, 30), QPoint(60, 30), QPoint(-1, -1)}));
    }
}

QTEST_MAIN(tst_paintsceneshapes)
#include "tst_paintsceneshapes.moc"
