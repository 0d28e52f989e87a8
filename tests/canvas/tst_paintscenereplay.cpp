#include "canvas/paintscene.h"

#include "literalpixels.h"
#include "randompictures.h"
#include "repaintwatch.h"
#include "scenehand.h"
#include "warningcount.h"

#include <QTemporaryDir>
#include <QtTest>

#include <limits>

Q_DECLARE_METATYPE(kelvortool)
Q_DECLARE_METATYPE(QList<QPoint>)

namespace {

constexpr QRgb white = 0xffffffff;
constexpr QRgb red = 0xffff0000;
constexpr QRgb unpainted = 0x00ffffff;

constexpr int most = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();

const QSize size(120, 90);
const QRect all(QPoint(), size);

void draw(paintscene& scene, kelvortool tool, const QList<QPoint>& points, qreal thick = 3)
{
    scene.applyDraw(static_cast<char>(tool), Qt::red, thick, points);
}

void extendedDraw(paintscene& scene, kelvortool tool, const QString& data)
{
    scene.applyExtendedDraw(static_cast<char>(tool), data);
}

} // namespace

class tst_paintscenereplay : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void init();

    void clearBringsTheReceiversOwnClearValue();
    void drawOfAToolThatDoesNotTravelSoChangesNothing_data();
    void drawOfAToolThatDoesNotTravelSoChangesNothing();
    void extendedDrawOfAToolThatDoesNotTravelSoChangesNothing_data();
    void extendedDrawOfAToolThatDoesNotTravelSoChangesNothing();
    void listsOfTheWrongLengthPaintNothing_data();
    void listsOfTheWrongLengthPaintNothing();
    void anAirbrushNeedsThreePoints();
    void theMarkIsReadForShapesOnly();
    void positionsOutsideAreClipped();
    void aStrokeHasTheWidthAndColourOfItsMessage();
    void theEraserTakesTheReceiversMode();
    void aMoveTakesTheReceiversMode();

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

    void aPeersMoveUnderTheBandLeavesTheBand();
    void aPeersMoveDuringALocalMoveLeavesWhatIsCarried();
    void aLocalStrokeContinuesAroundAPeers_data();
    void aLocalStrokeContinuesAroundAPeers();
    void aLocalTextAndItsPointsStay();
    void nothingIsEverSentBack();

    void anyNumbersWillDo_data();
    void anyNumbersWillDo();
    void anyDataWillDo_data();
    void anyDataWillDo();

private:
    QTemporaryDir directory;
    QString backgroundPath;
    QImage background;
    QScopedPointer<paintscene> scene;
    QScopedPointer<paintscene> overBackground;
};

void tst_paintscenereplay::initTestCase()
{
    QRandomGenerator random(1);
    background = randompictures::make(random, size, randompictures::kind::opaque);
    backgroundPath = directory.filePath("background.png");
    QVERIFY(background.save(backgroundPath));
}

void tst_paintscenereplay::init()
{
    scene.reset(new paintscene(size.width(), size.height(), nullptr));
    scene->setImage(QString(), false);
    overBackground.reset(new paintscene(size.width(), size.height(), nullptr));
    overBackground->setImage(backgroundPath, true);
}

void tst_paintscenereplay::clearBringsTheReceiversOwnClearValue()
{
    for (paintscene* receiver : {scene.data(), overBackground.data()}) {
        draw(*receiver, kelvortool::pencil, {QPoint(10, 10), QPoint(50, 50)});
        draw(*receiver, kelvortool::clear, {});
    }
    QImage blank(size, QImage::Format_ARGB32);
    blank.fill(white);
    QVERIFY(scene->picture() == blank);
    blank.fill(unpainted);
    QVERIFY(overBackground->picture() == blank);
    QCOMPARE(overBackground->grab().toImage().convertToFormat(QImage::Format_ARGB32), background);
    // Points that come with it are not looked at.
    draw(*scene, kelvortool::pencil, {QPoint(10, 10)});
    draw(*scene, kelvortool::clear, {QPoint(1, 1)});
    QCOMPARE(scene->picture().pixel(10, 10), white);
}

void tst_paintscenereplay::drawOfAToolThatDoesNotTravelSoChangesNothing_data()
{
    QTest::addColumn<int>("tool");
    for (const int tool : {-128, -1, 0, 1, 3, 10, 12, 13, 14, 15, 16, 17, 18, 127}) {
        QTest::addRow("%d", tool) << tool;
    }
}

void tst_paintscenereplay::drawOfAToolThatDoesNotTravelSoChangesNothing()
{
    QFETCH(int, tool);
    const QImage before = scene->picture().copy();
    repaintwatch watch(*scene);
    QVERIFY(watch.shown);
    for (const QList<QPoint>& points :
         {QList<QPoint>(), QList<QPoint>{QPoint(5, 5)}, QList<QPoint>{QPoint(5, 5), QPoint(50, 50)},
          QList<QPoint>{QPoint(5, 5), QPoint(50, 50), QPoint(6, 6), QPoint(9, 9)}}) {
        scene->applyDraw(static_cast<char>(tool), Qt::red, 9, points);
    }
    QVERIFY(scene->picture() == before);
    QVERIFY(watch.painted().isEmpty());
}

void tst_paintscenereplay::extendedDrawOfAToolThatDoesNotTravelSoChangesNothing_data()
{
    QTest::addColumn<int>("tool");
    for (const int tool : {-128, -1, 0, 1, 2, 4, 5, 6, 7, 8, 9, 11, 18, 127}) {
        QTest::addRow("%d", tool) << tool;
    }
}

void tst_paintscenereplay::extendedDrawOfAToolThatDoesNotTravelSoChangesNothing()
{
    QFETCH(int, tool);
    const QImage before = scene->picture().copy();
    repaintwatch watch(*scene);
    QVERIFY(watch.shown);
    for (const char* data : {"", "full", "0|0 50|50", "#ff0000 5|5", "#ff0000 3 0|0 50|50 text"}) {
        scene->applyExtendedDraw(static_cast<char>(tool), data);
    }
    QVERIFY(scene->picture() == before);
    QVERIFY(watch.painted().isEmpty());
}

void tst_paintscenereplay::listsOfTheWrongLengthPaintNothing_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::addColumn<QList<QPoint>>("points");
    const QPoint a(5, 5);
    const QPoint b(50, 50);
    for (const kelvortool tool : {kelvortool::pencil, kelvortool::line, kelvortool::rect, kelvortool::ellipse,
                                  kelvortool::eraser, kelvortool::airbrush, kelvortool::select}) {
        QTest::addRow("tool %d, no points", static_cast<int>(tool)) << tool << QList<QPoint>();
    }
    QTest::newRow("line of one") << kelvortool::line << QList<QPoint>{a};
    QTest::newRow("line of three") << kelvortool::line << QList<QPoint>{a, b, a};
    for (const kelvortool tool : {kelvortool::rect, kelvortool::ellipse}) {
        const int value = static_cast<int>(tool);
        QTest::addRow("shape %d of one", value) << tool << QList<QPoint>{a};
        QTest::addRow("shape %d of three without the mark", value) << tool << QList<QPoint>{a, b, QPoint(-1, 0)};
        QTest::addRow("shape %d of four", value) << tool << QList<QPoint>{a, b, QPoint(-1, -1), QPoint(-1, -1)};
    }
    QTest::newRow("airbrush of two") << kelvortool::airbrush << QList<QPoint>{a, b};
    QTest::newRow("move of three") << kelvortool::select << QList<QPoint>{a, b, a};
    QTest::newRow("move of five") << kelvortool::select << QList<QPoint>{a, b, a, b, a};
}

void tst_paintscenereplay::listsOfTheWrongLengthPaintNothing()
{
    QFETCH(kelvortool, tool);
    QFETCH(QList<QPoint>, points);
    draw(*scene, kelvortool::pencil, {QPoint(20, 20), QPoint(40, 30)});
    const QImage before = scene->picture().copy();
    draw(*scene, tool, points, 9);
    QVERIFY(scene->picture() == before);
}

void tst_paintscenereplay::anAirbrushNeedsThreePoints()
{
    const QImage before = scene->picture().copy();
    draw(*scene, kelvortool::airbrush, {QPoint(20, 20), QPoint(20, 20)}, 12);
    QVERIFY(scene->picture() == before);
    draw(*scene, kelvortool::airbrush, {QPoint(20, 20), QPoint(60, 20), QPoint(60, 60)}, 12);
    QVERIFY(scene->picture() != before);
}

void tst_paintscenereplay::theMarkIsReadForShapesOnly()
{
    draw(*scene, kelvortool::rect, {QPoint(10, 10), QPoint(30, 60), QPoint(-1, -1)}, 1);
    QCOMPARE(scene->picture().pixel(20, 31), red);
    QCOMPARE(scene->picture().pixel(20, 61), white);
    draw(*scene, kelvortool::clear, {});
    draw(*scene, kelvortool::pencil, {QPoint(40, 40), QPoint(-1, -1)}, 3);
    QCOMPARE(scene->picture().pixel(20, 20), red);
    QCOMPARE(scene->picture().pixel(0, 0), red);
}

void tst_paintscenereplay::positionsOutsideAreClipped()
{
    draw(*scene, kelvortool::pencil, {QPoint(-500, 30), QPoint(500, 30)}, 3);
    QCOMPARE(scene->picture().pixel(0, 30), red);
    QCOMPARE(scene->picture().pixel(119, 30), red);
    draw(*scene, kelvortool::select, {QPoint(-10, 20), QPoint(10, 40), QPoint(0, 30), QPoint(30, 60)});
    QCOMPARE(scene->picture().pixel(0, 30), white);
    QCOMPARE(scene->picture().pixel(30, 60), red);
    QCOMPARE(scene->picture().pixel(29, 60), white);
}

void tst_paintscenereplay::aStrokeHasTheWidthAndColourOfItsMessage()
{
    scene->setColor(Qt::blue);
    scene->setThickness(1);
    scene->setTool(kelvortool::pencil);
    scene->applyDraw(static_cast<char>(kelvortool::pencil), Qt::red, 21, {QPoint(50, 50)});
    QCOMPARE(scene->picture().pixel(50, 41), red);
    QCOMPARE(scene->picture().pixel(50, 38), white);
}

void tst_paintscenereplay::theEraserTakesTheReceiversMode()
{
    for (paintscene* receiver : {scene.data(), overBackground.data()}) {
        draw(*receiver, kelvortool::pencil, {QPoint(10, 10), QPoint(50, 10)}, 9);
        draw(*receiver, kelvortool::eraser, {QPoint(30, 10)}, 5);
    }
    QCOMPARE(scene->picture().pixel(30, 10), white);
    QCOMPARE(qAlpha(overBackground->picture().pixel(30, 10)), 0);
    QCOMPARE(overBackground->picture().pixel(20, 10), red);
    QCOMPARE(overBackground->grab().toImage().pixel(30, 10), background.pixel(30, 10));
}

void tst_paintscenereplay::aMoveTakesTheReceiversMode()
{
    for (paintscene* receiver : {scene.data(), overBackground.data()}) {
        draw(*receiver, kelvortool::pencil, {QPoint(10, 10), QPoint(50, 10)}, 9);
        draw(*receiver, kelvortool::select, {QPoint(20, 0), QPoint(40, 20), QPoint(30, 10), QPoint(60, 60)});
        QCOMPARE(receiver->picture().pixel(60, 60), red);
    }
    QCOMPARE(scene->picture().pixel(30, 10), white);
    QCOMPARE(qAlpha(overBackground->picture().pixel(30, 10)), 0);
}

void tst_paintscenereplay::anEffectOnOnePartIsDroppedButRepainted_data()
{
    QTest::addColumn<QString>("data");
    QTest::newRow("nothing") << "";
    QTest::newRow("capitals") << "FULL";
    QTest::newRow("a capital") << "Full";
    QTest::newRow("one corner") << "1|2";
    QTest::newRow("three corners") << "1|2 3|4 5|6";
    QTest::newRow("full and a blank and more") << "full  x";
}

void tst_paintscenereplay::anEffectOnOnePartIsDroppedButRepainted()
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

void tst_paintscenereplay::effectsTakeTheirAreaFromTheMessage_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::addColumn<int>("kind");
    QTest::newRow("flip horizontally") << kelvortool::fliphorizontally << int(effects::effect::flipHorizontally);
    QTest::newRow("flip vertically") << kelvortool::flipvertically << int(effects::effect::flipVertically);
    QTest::newRow("swap") << kelvortool::swap << int(effects::effect::swapChannels);
    QTest::newRow("invert") << kelvortool::invert << int(effects::effect::invertColors);
    QTest::newRow("grayscale") << kelvortool::grayscale << int(effects::effect::grayscale);
}

void tst_paintscenereplay::effectsTakeTheirAreaFromTheMessage()
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

void tst_paintscenereplay::fillTakesSeedAndColourFromTheMessage()
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

void tst_paintscenereplay::aFillOfTheWrongShapeIsDropped_data()
{
    QTest::addColumn<QString>("data");
    QTest::newRow("nothing") << "";
    QTest::newRow("no seed") << "#00ff00";
    QTest::newRow("a part too many") << "#00ff00 20|20 x";
    QTest::newRow("a double blank") << "#00ff00  20|20";
    QTest::newRow("a blank at the end") << "#00ff00 20|20 ";
}

void tst_paintscenereplay::aFillOfTheWrongShapeIsDropped()
{
    QFETCH(QString, data);
    const QImage before = scene->picture().copy();
    repaintwatch watch(*scene);
    QVERIFY(watch.shown);
    extendedDraw(*scene, kelvortool::fill, data);
    QVERIFY(scene->picture() == before);
    QVERIFY(watch.painted().isEmpty());
}

void tst_paintscenereplay::clearSelectionEmptiesTheRectangle_data()
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

void tst_paintscenereplay::clearSelectionEmptiesTheRectangle()
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

void tst_paintscenereplay::clearSelectionOfTheWrongShapeIsDropped()
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

void tst_paintscenereplay::aTextWithABlankIsDropped()
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

void tst_paintscenereplay::anEmptyTextPaintsNothing()
{
    const QImage before = scene->picture().copy();
    extendedDraw(*scene, kelvortool::text, "#ff0000 1 5|5 110|60 ");
    QVERIFY(scene->picture() == before);
    extendedDraw(*scene, kelvortool::text, "#ff0000 1 5|5 110|60");
    QVERIFY(scene->picture() == before);
    extendedDraw(*scene, kelvortool::text, "#ff0000 1 5|5 110|60 text");
    QVERIFY(scene->picture() != before);
}

void tst_paintscenereplay::aColourThatCannotBeReadPaintsAllTheSame()
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

void tst_paintscenereplay::aPeersMoveUnderTheBandLeavesTheBand()
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

void tst_paintscenereplay::aPeersMoveDuringALocalMoveLeavesWhatIsCarried()
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

void tst_paintscenereplay::aLocalStrokeContinuesAroundAPeers_data()
{
    QTest::addColumn<kelvortool>("tool");
    for (const kelvortool tool :
         {kelvortool::pencil, kelvortool::line, kelvortool::rect, kelvortool::ellipse, kelvortool::eraser}) {
        QTest::addRow("tool %d", static_cast<int>(tool)) << tool;
    }
}

void tst_paintscenereplay::aLocalStrokeContinuesAroundAPeers()
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

void tst_paintscenereplay::aLocalTextAndItsPointsStay()
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

void tst_paintscenereplay::nothingIsEverSentBack()
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

void tst_paintscenereplay::anyNumbersWillDo_data()
{
    QTest::addColumn<QList<QPoint>>("points");
    const QList<QPoint> corners{QPoint(least, least), QPoint(most, most), QPoint(least, most), QPoint(most, least)};
    QTest::newRow("corners of all numbers") << corners;
    QTest::newRow("two corners") << corners.mid(0, 2);
    QTest::newRow("two corners the other way") << QList<QPoint>{corners.at(1), corners.at(0)};
    QTest::newRow("two corners and the mark") << (corners.mid(0, 2) << QPoint(-1, -1));
    QTest::newRow("from the middle") << QList<QPoint>{QPoint(50, 40), QPoint(most, 41), QPoint(-1, -1)};
    QTest::newRow("to the middle") << QList<QPoint>{QPoint(least, least), QPoint(50, 40)};
    QTest::newRow("a move out of nowhere")
        << QList<QPoint>{QPoint(least, least), QPoint(most, most), QPoint(most, most), QPoint(least, least)};
    QTest::newRow("a move far off") << QList<QPoint>{QPoint(0, 0), QPoint(90, 80), QPoint(least, least),
                                                     QPoint(most, most)};
    QTest::newRow("a move of the null rectangle")
        << QList<QPoint>{QPoint(20, 20), QPoint(19, 19), QPoint(0, 0), QPoint(5, 5)};
}

void tst_paintscenereplay::anyNumbersWillDo()
{
    QFETCH(QList<QPoint>, points);
    const warningcount warnings;
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double thick : {0.0, -5.0, 1.0, 3000.0, 1e9, 1e300, infinity, -infinity, std::nan("")}) {
        for (int value = 0; value <= 18; ++value) {
            scene->applyDraw(static_cast<char>(value), Qt::red, thick, points);
            overBackground->applyDraw(static_cast<char>(value), Qt::red, thick, points);
        }
    }
    QCOMPARE(scene->picture().size(), size);
    QCOMPARE(overBackground->picture().size(), size);
    QCOMPARE(warnings.count(), 0);
}

void tst_paintscenereplay::anyDataWillDo_data()
{
    QTest::addColumn<QString>("data");
    for (const char* data :
         {"-2147483648|-2147483648 2147483647|2147483647", "2147483647|2147483647 -2147483648|-2147483648",
          "0|0 2147483647|2147483647", "-2147483648|0 -2147483648|2147483647", "10|10 9|9",
          "2147483647|2147483647 2147483646|2147483646", "0|0 -1|-1", "-2147483648|5 60|60", "5|-2147483648 60|60",
          "99999999999999999999|1 2|3", "#ff0000 2147483647|-2147483648", "#ff0000 1e300 0|0 2147483647|2147483647 x",
          "#ff0000 nan -2147483648|-2147483648 2147483647|2147483647 x", "#ff0000 -inf 5|5 4|4 x",
          "nonsense nonsense nonsense nonsense nonsense", "|||| ||||", " ", "    "}) {
        QTest::newRow(data) << QString(data);
    }
    QTest::newRow("long") << QString(8192, QLatin1Char('9'));
    QTest::newRow("long text") << "#ff0000 5 0|0 100|80 " + QString(8000, QLatin1Char('W'));
}

void tst_paintscenereplay::anyDataWillDo()
{
    QFETCH(QString, data);
    const warningcount warnings;
    for (int value = 0; value <= 18; ++value) {
        scene->applyExtendedDraw(static_cast<char>(value), data);
        overBackground->applyExtendedDraw(static_cast<char>(value), data);
    }
    QCOMPARE(scene->picture().size(), size);
    QCOMPARE(overBackground->picture().size(), size);
    QCOMPARE(warnings.count(), 0);
}

QTEST_MAIN(tst_paintscenereplay)
#include "tst_paintscenereplay.moc"
