#include "handtest.h"

/// The selection by hand: its band, its moves, and the key that clears it.
class tst_paintsceneselection : public handtest {
    Q_OBJECT
private slots:
    void init() { begin(); }

    void aBandSendsNothing();
    void aMoveSendsFourPoints();
    void theBandGrowsByAPixelWithEachMove();
    void aPressInsideTheBandIsACompletedMove();
    void deleteClearsTheBand();
    void deleteWithoutASelectionClearsEverything();
    void deleteDoesNothingWithOtherTools();
};

void tst_paintsceneselection::aBandSendsNothing()
{
    const QImage before = scene->picture().copy();
    hand->take(kelvortool::select);
    hand->drag({QPoint(10, 10), QPoint(30, 35), QPoint(40, 20)});
    QVERIFY(hand->takeMessages().isEmpty());
    QVERIFY(scene->picture() == before);
}

void tst_paintsceneselection::aMoveSendsFourPoints()
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

void tst_paintsceneselection::theBandGrowsByAPixelWithEachMove()
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

void tst_paintsceneselection::aPressInsideTheBandIsACompletedMove()
{
    hand->take(kelvortool::select);
    hand->drag({QPoint(10, 10), QPoint(20, 20)});
    hand->drag({QPoint(10, 20)});
    QCOMPARE(hand->takeOnlyMessage().points,
             (QList<QPoint>{QPoint(10, 10), QPoint(20, 20), QPoint(10, 20), QPoint(10, 20)}));
    scene->clearCanvas(true);
    QCOMPARE(hand->takeOnlyMessage().data, QString("10|10 21|21"));
}

void tst_paintsceneselection::deleteClearsTheBand()
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

void tst_paintsceneselection::deleteWithoutASelectionClearsEverything()
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

void tst_paintsceneselection::deleteDoesNothingWithOtherTools()
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

QTEST_MAIN(tst_paintsceneselection)
#include "tst_paintsceneselection.moc"
