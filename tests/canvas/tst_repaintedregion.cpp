#include "literalpixels.h"
#include "randompictures.h"
#include "repaintwatch.h"
#include "scenehand.h"

#include <QtTest>

namespace {

constexpr QSize size(160, 120);
constexpr QRect all(QPoint(), size);

} // namespace

/// How much of the canvas is repainted by whom: no more than changed, and no less.
class tst_repaintedregion : public QObject {
    Q_OBJECT
private slots:
    void aStrokeRepaintsNoMoreThanItTouches_data();
    void aStrokeRepaintsNoMoreThanItTouches();
    void aStrokeThatGoesOnFromElsewhereIsRepaintedWhole();
    void aPeersStrokeRepaintsNoMoreThanItTouches();
    void aPeersStrokeUnderAPreviewRepaintsThePreview();
    void shapesAndAreasRepaintEverything();
    void whatIsOnScreenIsAlwaysThePicture();
};

void tst_repaintedregion::aStrokeRepaintsNoMoreThanItTouches_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::newRow("pencil") << kelvortool::pencil;
    QTest::newRow("eraser") << kelvortool::eraser;
    QTest::newRow("airbrush") << kelvortool::airbrush;
}

void tst_repaintedregion::aStrokeRepaintsNoMoreThanItTouches()
{
    QFETCH(kelvortool, tool);
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(QString(), false);
    scenehand hand(scene);
    hand.take(tool, Qt::red, 4);
    repaintwatch watch(scene);
    QVERIFY(watch.shown);
    hand.press(QPoint(30, 30));
    QCOMPARE(watch.painted().boundingRect(), QRect(QPoint(26, 26), QPoint(34, 34)));
    hand.move(QPoint(50, 40));
    QCOMPARE(watch.painted().boundingRect(), QRect(QPoint(26, 26), QPoint(54, 44)));
    hand.move(QPoint(60, 35));
    QCOMPARE(watch.painted().boundingRect(), QRect(QPoint(46, 31), QPoint(64, 44)));
    hand.release(QPoint(60, 35));
    QCOMPARE(watch.painted().boundingRect(), QRect(QPoint(56, 31), QPoint(64, 39)));
}

void tst_repaintedregion::aStrokeThatGoesOnFromElsewhereIsRepaintedWhole()
{
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(QString(), false);
    scenehand hand(scene);
    hand.take(kelvortool::pencil, Qt::red, 4);
    repaintwatch watch(scene);
    QVERIFY(watch.shown);
    hand.press(QPoint(30, 30));
    hand.take(kelvortool::eraser, Qt::red, 4);
    watch.painted();
    // The eraser never stood anywhere, so that its line comes from the corner.
    hand.move(QPoint(100, 100));
    QCOMPARE(watch.painted().boundingRect(), all);
    hand.move(QPoint(110, 100));
    QCOMPARE(watch.painted().boundingRect(), QRect(QPoint(96, 96), QPoint(114, 104)));

    // A release does not move the tool: what follows without a press begins at the last move.
    hand.release(QPoint(20, 20));
    hand.take(kelvortool::notool);
    hand.press(QPoint(60, 60));
    hand.take(kelvortool::eraser, Qt::red, 4);
    watch.painted();
    hand.move(QPoint(120, 90));
    QCOMPARE(watch.painted().boundingRect(), QRect(QPoint(106, 86), QPoint(124, 104)));
}

void tst_repaintedregion::aPeersStrokeRepaintsNoMoreThanItTouches()
{
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(QString(), false);
    repaintwatch watch(scene);
    QVERIFY(watch.shown);
    scene.applyDraw(static_cast<char>(kelvortool::pencil), Qt::red, 10, {QPoint(30, 30), QPoint(70, 50)});
    QCOMPARE(watch.painted().boundingRect(), QRect(QPoint(23, 23), QPoint(77, 57)));
    scene.applyDraw(static_cast<char>(kelvortool::eraser), Qt::red, 1, {QPoint(-50, 30)});
    QVERIFY(watch.painted().isEmpty());
}

void tst_repaintedregion::aPeersStrokeUnderAPreviewRepaintsThePreview()
{
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(QString(), false);
    scenehand hand(scene);
    hand.take(kelvortool::line, Qt::blue, 1);
    hand.press(QPoint(0, 7));
    hand.move(QPoint(159, 99));
    repaintwatch watch(scene);
    QVERIFY(watch.shown);
    scene.applyDraw(static_cast<char>(kelvortool::pencil), Qt::red, 10, {QPoint(30, 30), QPoint(70, 50)});
    QCOMPARE(watch.painted().boundingRect(), all);
}

void tst_repaintedregion::shapesAndAreasRepaintEverything()
{
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(QString(), false);
    scenehand hand(scene);
    repaintwatch watch(scene);
    QVERIFY(watch.shown);
    const auto repaintsAll = [&watch] { return watch.painted().boundingRect() == all; };
    hand.take(kelvortool::rect);
    QVERIFY(repaintsAll());
    hand.press(QPoint(3, 3));
    QVERIFY(repaintsAll());
    hand.keyDown(Qt::Key_Shift);
    QVERIFY(repaintsAll());
    hand.keyDown(Qt::Key_Shift);
    QVERIFY(watch.painted().isEmpty());
    hand.keyUp(Qt::Key_Shift);
    QVERIFY(repaintsAll());
    hand.keyUp(Qt::Key_A);
    QVERIFY(watch.painted().isEmpty());
    hand.take(kelvortool::fill);
    watch.painted();
    hand.press(QPoint(3, 3));
    QVERIFY(repaintsAll());
    scene.clearCanvas(true);
    QVERIFY(repaintsAll());
    scene.invertColors(true, QString());
    QVERIFY(repaintsAll());
    // A replay leaves the repaint to its caller.
    scene.invertColors(false, "full");
    QVERIFY(watch.painted().isEmpty());
    scene.setColor(Qt::green);
    scene.setThickness(7);
    QVERIFY(watch.painted().isEmpty());
}

void tst_repaintedregion::whatIsOnScreenIsAlwaysThePicture()
{
    QRandomGenerator random(4);
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(QString(), false);
    scenehand hand(scene);
    repaintwatch watch(scene);
    QVERIFY(watch.shown);
    // Parts of the screen that were not repainted keep what was painted on them before.
    QImage screen(size, QImage::Format_RGB32);
    scene.render(&screen);
    for (int round = 0; round < 40; ++round) {
        const auto tool = random.bounded(2) ? kelvortool::pencil : kelvortool::eraser;
        hand.take(tool, QColor::fromRgb(random.generate()), random.bounded(1, 60) / 4.0);
        QList<QPoint> path;
        for (int i = random.bounded(1, 6); i >= 0; --i) {
            path.append(randompictures::point(random, size));
        }
        watch.painted();
        scene.render(&screen);
        if (random.bounded(2)) {
            hand.drag(path);
        } else {
            scene.applyDraw(static_cast<char>(tool), Qt::blue, random.bounded(1, 60) / 4.0, path);
        }
        const QRegion touched = watch.painted();
        for (const QRect& part : touched) {
            scene.render(&screen, part.topLeft(), part);
        }
        QCOMPARE(screen, literal::shown(size, QImage(), scene.picture()));
    }
}

QTEST_MAIN(tst_repaintedregion)
#include "tst_repaintedregion.moc"
