#include "picturetest.h"
#include "randompictures.h"
#include "scenehand.h"
#include "warningcount.h"

#include <limits>

namespace {

constexpr int most = std::numeric_limits<int>::max();

} // namespace

/// The canvas as it is opened: its layers, its size, and what its setters take.
class tst_paintscene : public picturetest {
    Q_OBJECT
private slots:
    void init() { QVERIFY(begin()); }

    void aBlankSceneIsWhiteAndErasesToWhite();
    void anEmptyPathLeavesTheMode();
    void aBackgroundComesBackWhereTheCanvasIsErasedOrCleared();
    void transparentWhiteOfAFileBecomesOpaqueWhite();
    void aPictureKeepsItsSizeAndTheWidgetItsOwn();
    void aFileThatCannotBeReadLeavesTheLayer();
    void aFileThatCannotBeReadStillGetsItsLayerNormalised();
    void aFirstLoadThatFailsLeavesWhitePaper();
    void theModeIsTakenOverFromAFileThatCannotBeRead();
    void aPictureBeyondWhatIsHeldIsNotRead();

    void sizesThatAreNotHeldAreHarmless_data();
    void sizesThatAreNotHeldAreHarmless();

    void choosingAToolDropsTheSelection();
    void theWidgetIsSetUpToPaintAllOfItself();
    void everyWidthIsTaken_data();
    void everyWidthIsTaken();
};

void tst_paintscene::aBlankSceneIsWhiteAndErasesToWhite()
{
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(QString(), false);
    QVERIFY(scene.picture() == filled(size, white));

    scenehand hand(scene);
    hand.take(kelvortool::pencil, Qt::red, 5);
    hand.drag({QPoint(20, 20), QPoint(30, 20)});
    QCOMPARE(scene.picture().pixel(25, 20), red);
    hand.take(kelvortool::eraser, Qt::red, 15);
    hand.drag({QPoint(20, 20), QPoint(30, 20)});
    QVERIFY(scene.picture() == filled(size, white));
}

void tst_paintscene::anEmptyPathLeavesTheMode()
{
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(QString(), true);
    QVERIFY(scene.picture() == filled(size, white));
    scene.clearCanvas(false);
    QVERIFY(scene.picture() == filled(size, white));

    scene.setImage(fileWith(filled(size, red)), true);
    scene.setImage(QString(), false);
    QVERIFY(scene.picture() == filled(size, white));
    scene.clearCanvas(false);
    QVERIFY(scene.picture() == filled(size, unpainted));
}

void tst_paintscene::aBackgroundComesBackWhereTheCanvasIsErasedOrCleared()
{
    QRandomGenerator random(1);
    const QImage background = randompictures::make(random, size, randompictures::kind::opaque);
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(fileWith(background), true);
    QVERIFY(scene.picture() == filled(size, unpainted));
    const QImage blank = scene.grab().toImage();
    QCOMPARE(blank.convertToFormat(QImage::Format_RGB32), background.convertToFormat(QImage::Format_RGB32));

    scenehand hand(scene);
    hand.take(kelvortool::pencil, Qt::red, 5);
    hand.drag({QPoint(20, 20), QPoint(30, 20)});
    QCOMPARE(scene.grab().toImage().pixel(25, 20), red);
    hand.take(kelvortool::eraser, Qt::red, 15);
    hand.drag({QPoint(20, 20), QPoint(30, 20)});
    QCOMPARE(qAlpha(scene.picture().pixel(25, 20)), 0);
    QCOMPARE(scene.grab().toImage(), blank);

    hand.take(kelvortool::fill, Qt::red);
    hand.press(QPoint(3, 3));
    hand.take(kelvortool::select);
    hand.drag({QPoint(5, 5), QPoint(12, 9)});
    hand.drag({QPoint(6, 6), QPoint(26, 6)});
    QCOMPARE(scene.grab().toImage().pixel(8, 8), blank.pixel(8, 8));
    QCOMPARE(scene.grab().toImage().pixel(4, 4), red);
    scene.setTool(kelvortool::notool);
    scene.clearCanvas(true);
    QVERIFY(scene.picture() == filled(size, unpainted));
    QCOMPARE(scene.grab().toImage(), blank);

    const QString path = directory->filePath("export.png");
    scene.savePicture(path);
    QCOMPARE(QImage(path).convertToFormat(QImage::Format_ARGB32), background);
}

void tst_paintscene::transparentWhiteOfAFileBecomesOpaqueWhite()
{
    QImage picture = filled(size, unpainted);
    picture.setPixel(1, 1, 0x00123456);
    picture.setPixel(2, 2, red);
    const QString path = fileWith(picture);

    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(path, false);
    QCOMPARE(scene.picture().pixel(0, 0), white);
    QCOMPARE(scene.picture().pixel(1, 1), QRgb{0x00123456});
    QCOMPARE(scene.picture().pixel(2, 2), red);

    paintscene overBackground(size.width(), size.height(), nullptr);
    overBackground.setImage(path, true);
    const QString exported = directory->filePath("export.png");
    overBackground.savePicture(exported);
    QCOMPARE(QImage(exported).pixel(0, 0), white);
    QCOMPARE(qAlpha(QImage(exported).pixel(1, 1)), 0);
}

void tst_paintscene::aPictureKeepsItsSizeAndTheWidgetItsOwn()
{
    for (const QSize other : {QSize(30, 20), QSize(90, 70)}) {
        paintscene scene(size.width(), size.height(), nullptr);
        scene.setImage(fileWith(filled(other, red)), false);
        QCOMPARE(scene.picture().size(), other);
        QCOMPARE(scene.size(), size);
        const QImage shown = scene.grab().toImage();
        QCOMPARE(shown.pixel(0, 0), red);
        QCOMPARE(shown.pixel(29, 19), red);
        QCOMPARE(shown.pixel(59, 39), other.width() < size.width() ? white : red);
    }
}

void tst_paintscene::aFileThatCannotBeReadLeavesTheLayer()
{
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(fileWith(filled(QSize(10, 10), red)), false);
    scene.setImage(directory->filePath("absent.png"), false);
    QVERIFY(scene.picture() == filled(QSize(10, 10), red));

    scene.setImage(fileWith(filled(size, red)), true);
    scene.setImage(directory->path(), true);
    QVERIFY(scene.picture() == filled(QSize(10, 10), unpainted));
    QCOMPARE(scene.grab().toImage().pixel(5, 5), red);
}

void tst_paintscene::aFileThatCannotBeReadStillGetsItsLayerNormalised()
{
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(fileWith(filled(size, red)), true);
    QVERIFY(scene.picture() == filled(size, unpainted));
    scene.setImage(directory->filePath("absent.png"), false);
    QVERIFY(scene.picture() == filled(size, white));
}

void tst_paintscene::aFirstLoadThatFailsLeavesWhitePaper()
{
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(directory->filePath("absent.png"), false);
    QVERIFY(scene.picture() == filled(size, white));

    paintscene overBackground(size.width(), size.height(), nullptr);
    overBackground.setImage(directory->filePath("absent.png"), true);
    const QString path = directory->filePath("export.png");
    overBackground.savePicture(path);
    QCOMPARE(QImage(path).convertToFormat(QImage::Format_ARGB32), filled(size, white));
}

void tst_paintscene::theModeIsTakenOverFromAFileThatCannotBeRead()
{
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(directory->filePath("absent.png"), true);
    QVERIFY(scene.picture() == filled(size, unpainted));
    scene.applyDraw(static_cast<char>(kelvortool::pencil), Qt::red, 9, {QPoint(10, 10)});
    scene.clearCanvas(true);
    QVERIFY(scene.picture() == filled(size, unpainted));
}

void tst_paintscene::aPictureBeyondWhatIsHeldIsNotRead()
{
    QFile file(directory->filePath("large.pgm"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("P5 30000 30000 255\n");
    file.close();
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(file.fileName(), false);
    QVERIFY(scene.picture() == filled(size, white));
}

void tst_paintscene::sizesThatAreNotHeldAreHarmless_data()
{
    QTest::addColumn<QSize>("asked");
    QTest::newRow("no width") << QSize(0, 40);
    QTest::newRow("no height") << QSize(40, 0);
    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("negative width") << QSize(-40, 40);
    QTest::newRow("both negative") << QSize(-40, -40);
    QTest::newRow("above 64 megapixels") << QSize(8001, 8000);
    QTest::newRow("a hundred thousand") << QSize(100000, 100000);
    QTest::newRow("all bits") << QSize(most, most);
    QTest::newRow("a product that is small in 32 bits") << QSize(65536, 65536);
    QTest::newRow("smallest") << QSize(std::numeric_limits<int>::min(), std::numeric_limits<int>::min());
}

void tst_paintscene::sizesThatAreNotHeldAreHarmless()
{
    QFETCH(QSize, asked);
    const warningcount warnings;
    paintscene scene(asked.width(), asked.height(), nullptr);
    scenehand hand(scene);
    scene.setImage(QString(), false);
    scene.setImage(fileWith(filled(size, red)), true);
    scene.setImage(fileWith(filled(size, red)), false);
    QVERIFY(scene.picture().isNull());

    for (int value = 0; value <= 18; ++value) {
        const char tool = static_cast<char>(value);
        hand.take(static_cast<kelvortool>(tool), Qt::red, 9);
        hand.drag({QPoint(1, 1), QPoint(20, 20), QPoint(5, 9)});
        hand.press(QPoint(3, 3), Qt::RightButton);
        hand.type("text");
        hand.keyDown(Qt::Key_Delete);
        hand.keyDown(Qt::Key_Shift);
        hand.loseFocus();
        scene.grab();
        scene.applyDraw(tool, Qt::red, 5, {QPoint(0, 0), QPoint(9, 9), QPoint(1, 2), QPoint(7, 7)});
        scene.applyDraw(tool, Qt::red, 5, {});
        for (const char* data : {"full", "0|0 9|9", "#ff0000 1|1", "#ff0000 1 0|0 9|9 text", ""}) {
            scene.applyExtendedDraw(tool, data);
        }
    }
    scene.clearCanvas(true);
    scene.invertColors(true, QString());
    scene.flipHorizontally(true, QString());
    scene.floodFill(QPoint(0, 0), Qt::red);
    QVERIFY(scene.picture().isNull());
    QVERIFY(hand.takeMessages().isEmpty());
    QCOMPARE(hand.clicks, 2 * 19);

    const QString path = directory->filePath("export.png");
    scene.savePicture(path);
    QVERIFY(!QFile::exists(path));
    QCOMPARE(warnings.count(), 0);
}

void tst_paintscene::choosingAToolDropsTheSelection()
{
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(QString(), false);
    scenehand hand(scene);
    for (const kelvortool next : {kelvortool::pencil, kelvortool::notool, kelvortool::select}) {
        hand.take(kelvortool::select);
        hand.drag({QPoint(10, 10), QPoint(20, 20)});
        scene.invertColors(true, QString());
        QCOMPARE(hand.takeOnlyMessage().data, QString("10|10 20|20"));
        scene.setTool(next);
        scene.invertColors(true, QString());
        QCOMPARE(hand.takeOnlyMessage().data, QString("full"));
    }
}

void tst_paintscene::theWidgetIsSetUpToPaintAllOfItself()
{
    QWidget window;
    paintscene scene(size.width(), size.height(), &window);
    QCOMPARE(scene.parentWidget(), &window);
    QCOMPARE(scene.size(), size);
    QCOMPARE(scene.styleSheet(), QString("background-color: white"));
    QVERIFY(scene.testAttribute(Qt::WA_StaticContents));
    QVERIFY(scene.testAttribute(Qt::WA_OpaquePaintEvent));
    QCOMPARE(scene.focusPolicy(), Qt::NoFocus);
    QVERIFY(!scene.hasMouseTracking());
}

void tst_paintscene::everyWidthIsTaken_data()
{
    QTest::addColumn<double>("thickness");
    for (const double thickness :
         {0.0, 0.1, 0.999, 1.0, -3.0, 2048.5, 1e9, 1e300, std::numeric_limits<double>::infinity(),
          -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        QTest::addRow("%g", thickness) << thickness;
    }
}

void tst_paintscene::everyWidthIsTaken()
{
    QFETCH(double, thickness);
    const warningcount warnings;
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(QString(), false);
    scenehand hand(scene);
    for (const kelvortool tool : {kelvortool::pencil, kelvortool::line, kelvortool::rect, kelvortool::ellipse,
                                  kelvortool::eraser, kelvortool::airbrush, kelvortool::text, kelvortool::select}) {
        hand.take(tool, Qt::red, thickness);
        hand.drag({QPoint(10, 10), QPoint(30, 12), QPoint(-30, 70)});
        hand.type("x");
        hand.press(QPoint(2, 2));
        scene.grab();
        scene.applyDraw(static_cast<char>(tool), Qt::red, thickness, {QPoint(3, 3), QPoint(20, 9), QPoint(-1, -1)});
    }
    QCOMPARE(scene.picture().size(), size);
    QCOMPARE(warnings.count(), 0);
}

QTEST_MAIN(tst_paintscene)
#include "tst_paintscene.moc"
