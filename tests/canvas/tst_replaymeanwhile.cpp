#include "replaytest.h"

/// What peers send while the local user is at work on the same canvas.
class tst_replaymeanwhile : public replaytest {
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(writeBackground()); }
    void init() { begin(); }

    void aPeersMoveUnderTheBandLeavesTheBand();
    void aPeersMoveDuringALocalMoveLeavesWhatIsCarried();
    void aLocalStrokeContinuesAroundAPeers_data();
    void aLocalStrokeContinuesAroundAPeers();
    void aLocalTextAndItsPointsStay();
    void nothingIsEverSentBack();
};

void tst_replaymeanwhile::aPeersMoveUnderTheBandLeavesTheBand()
{
    scenehand hand(*scene);
    draw(*scene, kelvortool::pencil, {QPoint(15, 15)}, 5);
    hand.take(kelvortool::select);
    hand.drag({QPoint(10, 10), QPoint(20, 20)});
    draw(*scene, kelvortool::select, {QPoint(5, 5), QPoint(25, 25), QPoint(10, 10), QPoint(60, 50)});
    QCOMPARE(scene->picture().pixel(15, 15), white);
    QCOMPARE(scene->picture().pixel(65, 55), red);
    scene->invertColors(true, QString());
    QCOMPARE(hand.takeOnlyMessage().data, QString("10|10 20|20"));
}

void tst_replaymeanwhile::aPeersMoveDuringALocalMoveLeavesWhatIsCarried()
{
    scenehand hand(*scene);
    draw(*scene, kelvortool::pencil, {QPoint(15, 15)}, 5);
    hand.take(kelvortool::select);
    hand.drag({QPoint(10, 10), QPoint(20, 20)});
    hand.press(QPoint(15, 15));
    hand.move(QPoint(40, 40));
    draw(*scene, kelvortool::clear, {});
    draw(*scene, kelvortool::select, {QPoint(10, 10), QPoint(20, 20), QPoint(10, 10), QPoint(80, 20)});
    hand.release(QPoint(55, 55));
    // What was taken up at the press is dropped, although it is gone from the canvas by now.
    QCOMPARE(scene->picture().pixel(55, 55), red);
    QCOMPARE(hand.takeOnlyMessage().points,
             (QList<QPoint>{QPoint(10, 10), QPoint(20, 20), QPoint(15, 15), QPoint(55, 55)}));
}

void tst_replaymeanwhile::aLocalStrokeContinuesAroundAPeers_data()
{
    QTest::addColumn<kelvortool>("tool");
    for (const kelvortool tool :
         {kelvortool::pencil, kelvortool::line, kelvortool::rect, kelvortool::ellipse, kelvortool::eraser}) {
        QTest::addRow("tool %d", static_cast<int>(tool)) << tool;
    }
}

void tst_replaymeanwhile::aLocalStrokeContinuesAroundAPeers()
{
    QFETCH(kelvortool, tool);
    // The peer's stroke lies apart, so that the order of the two does not matter to the pixels.
    const QList<QPoint> peers{QPoint(100, 10), QPoint(110, 20)};
    const QList<QPoint> path{QPoint(10, 40), QPoint(30, 45), QPoint(50, 70)};
    paintscene undisturbed(size.width(), size.height(), nullptr);
    undisturbed.setImage(QString(), false);
    draw(undisturbed, tool, peers);
    scenehand other(undisturbed);
    other.take(tool, Qt::red, 3);
    other.drag(path);

    scenehand hand(*scene);
    hand.take(tool, Qt::red, 3);
    hand.press(path.at(0));
    hand.move(path.at(1));
    draw(*scene, tool, peers);
    hand.move(path.at(2));
    hand.release(path.at(2));
    QVERIFY(scene->picture() == undisturbed.picture());
    QCOMPARE(hand.takeOnlyMessage().points, other.takeOnlyMessage().points);
}

void tst_replaymeanwhile::aLocalTextAndItsPointsStay()
{
    scenehand hand(*scene);
    hand.take(kelvortool::text, Qt::red, 1);
    hand.drag({QPoint(5, 5), QPoint(110, 60)});
    hand.type("ab");
    extendedDraw(*scene, kelvortool::text, "#0000ff 1 5|60 110|85 peer");
    draw(*scene, kelvortool::pencil, {QPoint(9, 9), QPoint(10, 10)});
    hand.type("c");
    hand.keyDown(Qt::Key_Return);
    QCOMPARE(hand.takeOnlyMessage().data, QString("#ff0000 1 5|5 110|60 abc"));
}

void tst_replaymeanwhile::nothingIsEverSentBack()
{
    scenehand hand(*scene);
    hand.take(kelvortool::select);
    hand.drag({QPoint(10, 10), QPoint(20, 20)});
    for (int value = -1; value <= 18; ++value) {
        for (const QList<QPoint>& points : {QList<QPoint>(), QList<QPoint>{QPoint(5, 5), QPoint(50, 50)},
                                            QList<QPoint>{QPoint(5, 5), QPoint(50, 50), QPoint(-1, -1)},
                                            QList<QPoint>{QPoint(5, 5), QPoint(50, 50), QPoint(6, 6), QPoint(9, 9)}}) {
            scene->applyDraw(static_cast<char>(value), Qt::red, 9, points);
        }
        for (const char* data : {"full", "0|0 50|50", "#ff0000 5|5", "#ff0000 3 0|0 50|50 text"}) {
            scene->applyExtendedDraw(static_cast<char>(value), data);
        }
    }
    QVERIFY(hand.takeMessages().isEmpty());
    QCOMPARE(hand.clicks, 1);
}

QTEST_MAIN(tst_replaymeanwhile)
#include "tst_replaymeanwhile.moc"
