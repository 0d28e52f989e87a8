#include "literalpixels.h"
#include "repaintwatch.h"
#include "replaytest.h"

/// What peers send as a tool with a string: effects, fills, cleared selections and texts.
class tst_extendedreplay : public replaytest {
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(writeBackground()); }
    void init() { begin(); }

    void anEffectOnOnePartIsDroppedButRepainted_data();
    void anEffectOnOnePartIsDroppedButRepainted();
    void effectsTakeTheirAreaFromTheMessage_data();
    void effectsTakeTheirAreaFromTheMessage();
    void fillTakesSeedAndColourFromTheMessage();
    void aFillOfTheWrongShapeIsDropped_data();
    void aFillOfTheWrongShapeIsDropped();
    void clearSelectionEmptiesTheRectangle_data();
    void clearSelectionEmptiesTheRectangle();
    void clearSelectionOfTheWrongShapeIsDropped();
    void aTextWithABlankIsDropped();
    void anEmptyTextPaintsNothing();
    void aColourThatCannotBeReadPaintsAllTheSame();
};

void tst_extendedreplay::anEffectOnOnePartIsDroppedButRepainted_data()
{
    QTest::addColumn<QString>("data");
    QTest::newRow("nothing") << "";
    QTest::newRow("capitals") << "FULL";
    QTest::newRow("a capital") << "Full";
    QTest::newRow("one corner") << "1|2";
    QTest::newRow("three corners") << "1|2 3|4 5|6";
    QTest::newRow("full and a blank and more") << "full  x";
}

void tst_extendedreplay::anEffectOnOnePartIsDroppedButRepainted()
{
    QFETCH(QString, data);
    draw(*scene, kelvortool::pencil, {QPoint(20, 20), QPoint(40, 30)});
    const QImage before = scene->picture().copy();
    repaintwatch watch(*scene);
    QVERIFY(watch.shown);
    for (const kelvortool tool : {kelvortool::fliphorizontally, kelvortool::flipvertically, kelvortool::swap,
                                  kelvortool::invert, kelvortool::grayscale}) {
        extendedDraw(*scene, tool, data);
        QCOMPARE(watch.painted().boundingRect(), all);
    }
    QVERIFY(scene->picture() == before);
}

void tst_extendedreplay::effectsTakeTheirAreaFromTheMessage_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::addColumn<int>("kind");
    QTest::newRow("flip horizontally") << kelvortool::fliphorizontally << int(effects::effect::flipHorizontally);
    QTest::newRow("flip vertically") << kelvortool::flipvertically << int(effects::effect::flipVertically);
    QTest::newRow("swap") << kelvortool::swap << int(effects::effect::swapChannels);
    QTest::newRow("invert") << kelvortool::invert << int(effects::effect::invertColors);
    QTest::newRow("grayscale") << kelvortool::grayscale << int(effects::effect::grayscale);
}

void tst_extendedreplay::effectsTakeTheirAreaFromTheMessage()
{
    QFETCH(kelvortool, tool);
    QFETCH(int, kind);
    const auto transform = static_cast<effects::effect>(kind);
    for (paintscene* receiver : {scene.data(), overBackground.data()}) {
        // The receiver's own selection counts for nothing.
        scenehand hand(*receiver);
        hand.take(kelvortool::select);
        hand.drag({QPoint(1, 1), QPoint(3, 3)});
        draw(*receiver, kelvortool::pencil, {QPoint(20, 20), QPoint(90, 70), QPoint(80, 10)}, 7);
        extendedDraw(*receiver, kelvortool::text, "#40a0ff 1 10|10 80|60 text");
        QImage oracle = receiver->picture().copy();
        for (const QRect& region : {QRect(QPoint(15, 12), QPoint(70, 55)), QRect(QPoint(-9, 30), QPoint(40, 300))}) {
            literal::applyRegion(oracle, transform, region);
            extendedDraw(
                *receiver, tool,
                QString("%1|%2 %3|%4").arg(region.left()).arg(region.top()).arg(region.right()).arg(region.bottom()));
            QVERIFY(receiver->picture() == oracle);
        }
        literal::applyWhole(oracle, transform);
        extendedDraw(*receiver, tool, "full");
        QVERIFY(receiver->picture() == oracle);
        receiver->invertColors(true, QString());
        QCOMPARE(hand.takeOnlyMessage().data, QString("1|1 3|3"));
    }
}

void tst_extendedreplay::fillTakesSeedAndColourFromTheMessage()
{
    scene->setColor(Qt::blue);
    draw(*scene, kelvortool::rect, {QPoint(10, 10), QPoint(50, 50)}, 1);
    extendedDraw(*scene, kelvortool::fill, "#00ff00 20|20");
    QCOMPARE(scene->picture().pixel(49, 49), QRgb{0xff00ff00});
    QCOMPARE(scene->picture().pixel(60, 20), white);
    extendedDraw(*scene, kelvortool::fill, "#0000ff 200|20");
    QCOMPARE(scene->picture().pixel(60, 20), white);
    // Words in place of numbers are 0.
    extendedDraw(*scene, kelvortool::fill, "#ffff00 x|y");
    QCOMPARE(scene->picture().pixel(60, 20), QRgb{0xffffff00});
}

void tst_extendedreplay::aFillOfTheWrongShapeIsDropped_data()
{
    QTest::addColumn<QString>("data");
    QTest::newRow("nothing") << "";
    QTest::newRow("no seed") << "#00ff00";
    QTest::newRow("a part too many") << "#00ff00 20|20 x";
    QTest::newRow("a double blank") << "#00ff00  20|20";
    QTest::newRow("a blank at the end") << "#00ff00 20|20 ";
}

void tst_extendedreplay::aFillOfTheWrongShapeIsDropped()
{
    QFETCH(QString, data);
    const QImage before = scene->picture().copy();
    repaintwatch watch(*scene);
    QVERIFY(watch.shown);
    extendedDraw(*scene, kelvortool::fill, data);
    QVERIFY(scene->picture() == before);
    QVERIFY(watch.painted().isEmpty());
}

void tst_extendedreplay::clearSelectionEmptiesTheRectangle_data()
{
    QTest::addColumn<QRect>("region");
    QTest::newRow("inside") << QRect(QPoint(10, 10), QPoint(20, 20));
    QTest::newRow("one pixel") << QRect(QPoint(10, 10), QPoint(10, 10));
    QTest::newRow("overhanging") << QRect(QPoint(-10, 60), QPoint(20, 500));
    QTest::newRow("outside") << QRect(QPoint(-10, 160), QPoint(20, 500));
    QTest::newRow("empty") << QRect(QPoint(10, 10), QPoint(9, 20));
    QTest::newRow("upside down") << QRect(QPoint(40, 50), QPoint(20, 30));
    QTest::newRow("back to front") << QRect(QPoint(40, 30), QPoint(20, 50));
}

void tst_extendedreplay::clearSelectionEmptiesTheRectangle()
{
    QFETCH(QRect, region);
    for (paintscene* receiver : {scene.data(), overBackground.data()}) {
        extendedDraw(*receiver, kelvortool::fill, "#ff0000 1|1");
        QImage oracle = receiver->picture().copy();
        literal::clearRegion(oracle, region, receiver == scene.data());
        extendedDraw(
            *receiver, kelvortool::clearselection,
            QString("%1|%2 %3|%4").arg(region.left()).arg(region.top()).arg(region.right()).arg(region.bottom()));
        QVERIFY(receiver->picture() == oracle);
    }
}

void tst_extendedreplay::clearSelectionOfTheWrongShapeIsDropped()
{
    extendedDraw(*scene, kelvortool::fill, "#ff0000 1|1");
    const QImage before = scene->picture().copy();
    repaintwatch watch(*scene);
    QVERIFY(watch.shown);
    for (const char* data : {"", "full", "1|1", "1|1 20|20 30|30", "1|1  20|20"}) {
        extendedDraw(*scene, kelvortool::clearselection, data);
    }
    QVERIFY(scene->picture() == before);
    QVERIFY(watch.painted().isEmpty());
}

void tst_extendedreplay::aTextWithABlankIsDropped()
{
    const QImage before = scene->picture().copy();
    scenehand hand(*scene);
    hand.take(kelvortool::text, Qt::red, 1);
    hand.drag({QPoint(5, 5), QPoint(110, 60)});
    hand.type("a b");
    hand.keyDown(Qt::Key_Return);
    QVERIFY(scene->picture() != before);
    const paintmessage message = hand.takeOnlyMessage();
    QCOMPARE(message.data, QString("#ff0000 1 5|5 110|60 a b"));
    paintscene peer(size.width(), size.height(), nullptr);
    peer.setImage(QString(), false);
    deliver(overTheWire(message), peer);
    QVERIFY(peer.picture() == before);
}

void tst_extendedreplay::anEmptyTextPaintsNothing()
{
    const QImage before = scene->picture().copy();
    extendedDraw(*scene, kelvortool::text, "#ff0000 1 5|5 110|60 ");
    QVERIFY(scene->picture() == before);
    extendedDraw(*scene, kelvortool::text, "#ff0000 1 5|5 110|60");
    QVERIFY(scene->picture() == before);
    extendedDraw(*scene, kelvortool::text, "#ff0000 1 5|5 110|60 text");
    QVERIFY(scene->picture() != before);
}

void tst_extendedreplay::aColourThatCannotBeReadPaintsAllTheSame()
{
    QColor nonsense;
    nonsense.setNamedColor("nonsense");
    scene->applyDraw(static_cast<char>(kelvortool::pencil), nonsense, 9, {QPoint(20, 20)});
    QCOMPARE(scene->picture().pixel(20, 20), QRgb{0xff000000});
    extendedDraw(*scene, kelvortool::fill, "nonsense 60|60");
    QCOMPARE(scene->picture().pixel(60, 60), QRgb{0xff000000});
    // A fill is opaque whatever alpha the colour has.
    extendedDraw(*scene, kelvortool::fill, "#80ff0000 60|60");
    QCOMPARE(scene->picture().pixel(60, 60), red);
    extendedDraw(*scene, kelvortool::fill, "transparent 60|60");
    QCOMPARE(scene->picture().pixel(60, 60), QRgb{0xff000000});
}

QTEST_MAIN(tst_extendedreplay)
#include "tst_extendedreplay.moc"
