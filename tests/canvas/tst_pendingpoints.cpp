#include "handtest.h"

/// Positions that one tool has left in the list for the next.
class tst_pendingpoints : public handtest {
    Q_OBJECT
private slots:
    void init() { begin(); }

    void thePendingListSurvivesAToolChange();
    void aNewBandEmptiesThePendingList();
    void leftoversMakeAShapeThatNoPeerPaints_data();
    void leftoversMakeAShapeThatNoPeerPaints();
    void aTextWithOtherThanTwoPointsIsPaintedButNotSent();
    void aListAboveTwentyIsSentAtTheReleaseOnly();
};

void tst_pendingpoints::thePendingListSurvivesAToolChange()
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

void tst_pendingpoints::aNewBandEmptiesThePendingList()
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

void tst_pendingpoints::leftoversMakeAShapeThatNoPeerPaints_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::newRow("line") << kelvortool::line;
    QTest::newRow("rect") << kelvortool::rect;
    QTest::newRow("ellipse") << kelvortool::ellipse;
}

void tst_pendingpoints::leftoversMakeAShapeThatNoPeerPaints()
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

void tst_pendingpoints::aTextWithOtherThanTwoPointsIsPaintedButNotSent()
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

void tst_pendingpoints::aListAboveTwentyIsSentAtTheReleaseOnly()
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

QTEST_MAIN(tst_pendingpoints)
#include "tst_pendingpoints.moc"
