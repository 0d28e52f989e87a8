#include "canvas/paintscene.h"

#include "literalpixels.h"
#include "randompictures.h"
#include "scenehand.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr QRgb white = 0xffffffff;
constexpr QRgb red = 0xffff0000;
constexpr QRgb unpainted = 0x00ffffff;

const QSize size(120, 90);

using operation = void (paintscene::*)(bool send, const QString& data);

struct effectrow {
    const char* name;
    operation apply;
    kelvortool message;
    effects::effect kind;
};
const effectrow rows[] = {
    {"flip horizontally", &paintscene::flipHorizontally, kelvortool::fliphorizontally,
     effects::effect::flipHorizontally},
    {"flip vertically", &paintscene::flipVertically, kelvortool::flipvertically, effects::effect::flipVertically},
    {"swap", &paintscene::swapChannels, kelvortool::swap, effects::effect::swapChannels},
    {"invert", &paintscene::invertColors, kelvortool::invert, effects::effect::invertColors},
    {"grayscale", &paintscene::grayscale, kelvortool::grayscale, effects::effect::grayscale},
};

void addEffects()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<bool>("asBackground");
    for (int i = 0; i < 5; ++i) {
        QTest::addRow("%s", rows[i].name) << i << false;
        QTest::addRow("%s over a background", rows[i].name) << i << true;
    }
}

} // namespace

class tst_paintsceneareas : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void init();

    void anEffectOnTheWholeIsSentAsFull_data() { addEffects(); }
    void anEffectOnTheWholeIsSentAsFull();
    void anEffectOnTheBandIsSentWithItsCorners_data() { addEffects(); }
    void anEffectOnTheBandIsSentWithItsCorners();
    void aBandDraggedUpOrLeftMeansEverything_data() { addEffects(); }
    void aBandDraggedUpOrLeftMeansEverything();
    void anOverhangingBandIsSentAsItStands_data() { addEffects(); }
    void anOverhangingBandIsSentAsItStands();
    void aFlipOfASelectionShowsBothOverABackground();
    void theBackgroundIsNeverTouched();

    void anInvertedTransparentCanvasDoesNotConnect();
    void bothCornersOfABandBelongToIt();
    void afterAMoveAnEffectReachesFurther();
    void aClickDropsTheSelection();
    void anActionLeavesTheSelection();
    void twoFlipsGiveThePictureBack();

    void clearOfTheWholeIsSentAsAStrokeWithoutPoints();
    void clearOfABandLeavesTheBandAndTheRest();
    void clearOfAnUpturnedBandClearsEverything();
    void aClearThatIsNotSentDoesNotLookAtTheSelection();
    void theCanvasIsChangedWhereItLies();

private:
    paintscene& opened(bool asBackground);

    QTemporaryDir directory;
    QString path;
    QImage picture;
    QScopedPointer<paintscene> scene;
};

void tst_paintsceneareas::initTestCase()
{
    QRandomGenerator random(1);
    picture = randompictures::make(random, size, randompictures::kind::opaque);
    path = directory.filePath("picture.png");
    QVERIFY(picture.save(path));
}

void tst_paintsceneareas::init() { scene.reset(); }

/// A canvas with something on it, transparent and half transparent pixels among it when it lies over a background.
paintscene& tst_paintsceneareas::opened(bool asBackground)
{
    scene.reset(new paintscene(size.width(), size.height(), nullptr));
    scene->setImage(path, asBackground);
    scene->applyDraw(static_cast<char>(kelvortool::pencil), QColor("#4080f0"), 7, {QPoint(5, 5), QPoint(80, 60)});
    scene->applyExtendedDraw(static_cast<char>(kelvortool::text), "#c03010 1 10|10 90|80 text");
    return *scene;
}

void tst_paintsceneareas::anEffectOnTheWholeIsSentAsFull()
{
    QFETCH(int, number);
    QFETCH(bool, asBackground);
    const effectrow& row = rows[number];
    paintscene& canvas = opened(asBackground);
    scenehand hand(canvas);
    QImage oracle = canvas.picture().copy();
    literal::applyWhole(oracle, row.kind);
    (canvas.*row.apply)(true, QString());
    QVERIFY(canvas.picture() == oracle);
    const paintmessage message = hand.takeOnlyMessage();
    QVERIFY(message.extended);
    QCOMPARE(message.tool, row.message);
    QCOMPARE(message.data, QString("full"));
}

void tst_paintsceneareas::anEffectOnTheBandIsSentWithItsCorners()
{
    QFETCH(int, number);
    QFETCH(bool, asBackground);
    const effectrow& row = rows[number];
    paintscene& canvas = opened(asBackground);
    scenehand hand(canvas);
    hand.take(kelvortool::select);
    hand.drag({QPoint(10, 20), QPoint(90, 70)});
    QImage oracle = canvas.picture().copy();
    literal::applyRegion(oracle, row.kind, QRect(QPoint(10, 20), QPoint(90, 70)));
    (canvas.*row.apply)(true, QString());
    QVERIFY(canvas.picture() == oracle);
    const paintmessage message = hand.takeOnlyMessage();
    QCOMPARE(message.tool, row.message);
    QCOMPARE(message.data, QString("10|20 90|70"));
}

void tst_paintsceneareas::aBandDraggedUpOrLeftMeansEverything()
{
    QFETCH(int, number);
    QFETCH(bool, asBackground);
    const effectrow& row = rows[number];
    for (const QPoint end : {QPoint(20, 70), QPoint(90, 10), QPoint(20, 10)}) {
        paintscene& canvas = opened(asBackground);
        scenehand hand(canvas);
        hand.take(kelvortool::select);
        hand.drag({QPoint(60, 40), end});
        QImage oracle = canvas.picture().copy();
        literal::applyWhole(oracle, row.kind);
        (canvas.*row.apply)(true, QString());
        QVERIFY(canvas.picture() == oracle);
        QCOMPARE(hand.takeOnlyMessage().data, QString("full"));
    }
}

void tst_paintsceneareas::anOverhangingBandIsSentAsItStands()
{
    QFETCH(int, number);
    QFETCH(bool, asBackground);
    const effectrow& row = rows[number];
    paintscene& canvas = opened(asBackground);
    scenehand hand(canvas);
    hand.take(kelvortool::select);
    hand.drag({QPoint(-30, 40), QPoint(70, 200)});
    QImage oracle = canvas.picture().copy();
    literal::applyRegion(oracle, row.kind, QRect(QPoint(-30, 40), QPoint(70, 200)));
    (canvas.*row.apply)(true, QString());
    QVERIFY(canvas.picture() == oracle);
    QCOMPARE(hand.takeOnlyMessage().data, QString("-30|40 70|200"));
}

void tst_paintsceneareas::aFlipOfASelectionShowsBothOverABackground()
{
    scene.reset(new paintscene(size.width(), size.height(), nullptr));
    scene->setImage(path, true);
    scene->applyDraw(static_cast<char>(kelvortool::pencil), Qt::red, 3, {QPoint(20, 30)});
    scenehand hand(*scene);
    hand.take(kelvortool::select);
    hand.drag({QPoint(10, 10), QPoint(60, 60)});
    scene->flipHorizontally(true, QString());
    QCOMPARE(scene->picture().pixel(50, 30), red);
    QCOMPARE(scene->picture().pixel(20, 30), red);
    // The whole canvas is replaced, so that nothing of the old stays.
    scene->setTool(kelvortool::select);
    scene->flipHorizontally(true, QString());
    QCOMPARE(scene->picture().pixel(69, 30), red);
    QCOMPARE(scene->picture().pixel(99, 30), red);
    QCOMPARE(qAlpha(scene->picture().pixel(20, 30)), 0);
}

void tst_paintsceneareas::theBackgroundIsNeverTouched()
{
    scene.reset(new paintscene(size.width(), size.height(), nullptr));
    scene->setImage(path, true);
    scenehand hand(*scene);
    hand.take(kelvortool::select);
    for (const bool banded : {false, true}) {
        if (banded) {
            hand.drag({QPoint(10, 10), QPoint(60, 60)});
        }
        for (const effectrow& row : rows) {
            ((*scene).*row.apply)(true, QString());
        }
    }
    const QString exported = directory.filePath("export.png");
    scene->savePicture(exported);
    QCOMPARE(QImage(exported).convertToFormat(QImage::Format_ARGB32), picture);
}

void tst_paintsceneareas::anInvertedTransparentCanvasDoesNotConnect()
{
    scene.reset(new paintscene(size.width(), size.height(), nullptr));
    scene->setImage(path, true);
    const QImage shown = scene->grab().toImage();
    scene->invertColors(true, QString());
    QCOMPARE(scene->picture().pixel(50, 50), QRgb{0x00000000});
    QCOMPARE(scene->grab().toImage(), shown);
    scene->invertColors(true, QString());
    QCOMPARE(scene->picture().pixel(50, 50), unpainted);
    // What an erased area leaves is another value than what a clear leaves.
    scenehand hand(*scene);
    hand.take(kelvortool::select);
    hand.drag({QPoint(30, 30), QPoint(60, 60)});
    scene->clearCanvas(true);
    QCOMPARE(scene->picture().pixel(50, 50), QRgb{0x00000000});
    hand.take(kelvortool::fill, Qt::red);
    hand.press(QPoint(50, 50));
    QCOMPARE(scene->picture().pixel(60, 60), red);
    QCOMPARE(scene->picture().pixel(61, 60), unpainted);
}

void tst_paintsceneareas::bothCornersOfABandBelongToIt()
{
    scene.reset(new paintscene(size.width(), size.height(), nullptr));
    scene->setImage(QString(), false);
    scenehand hand(*scene);
    hand.take(kelvortool::select);
    hand.drag({QPoint(10, 10), QPoint(20, 20)});
    scene->invertColors(true, QString());
    QCOMPARE(hand.takeOnlyMessage().data, QString("10|10 20|20"));
    for (int x = 8; x <= 22; ++x) {
        QCOMPARE(scene->picture().pixel(x, 10), x >= 10 && x <= 20 ? QRgb{0xff000000} : white);
        QCOMPARE(scene->picture().pixel(20, x), x >= 10 && x <= 20 ? QRgb{0xff000000} : white);
    }
}

void tst_paintsceneareas::afterAMoveAnEffectReachesFurther()
{
    scene.reset(new paintscene(size.width(), size.height(), nullptr));
    scene->setImage(QString(), false);
    scenehand hand(*scene);
    hand.take(kelvortool::select);
    hand.drag({QPoint(10, 10), QPoint(20, 20)});
    hand.drag({QPoint(15, 15), QPoint(45, 45)});
    hand.takeMessages();
    scene->invertColors(true, QString());
    QCOMPARE(hand.takeOnlyMessage().data, QString("40|40 51|51"));
    QCOMPARE(scene->picture().pixel(51, 51), QRgb{0xff000000});
    QCOMPARE(scene->picture().pixel(52, 51), white);
}

void tst_paintsceneareas::aClickDropsTheSelection()
{
    scene.reset(new paintscene(size.width(), size.height(), nullptr));
    scene->setImage(QString(), false);
    scenehand hand(*scene);
    hand.take(kelvortool::select);
    hand.drag({QPoint(10, 10), QPoint(20, 20)});
    hand.drag({QPoint(60, 60)});
    scene->invertColors(true, QString());
    QCOMPARE(hand.takeOnlyMessage().data, QString("full"));
    QCOMPARE(scene->picture().pixel(0, 0), QRgb{0xff000000});
}

void tst_paintsceneareas::anActionLeavesTheSelection()
{
    scene.reset(new paintscene(size.width(), size.height(), nullptr));
    scene->setImage(QString(), false);
    scenehand hand(*scene);
    hand.take(kelvortool::select);
    hand.drag({QPoint(10, 10), QPoint(20, 20)});
    for (const effectrow& row : rows) {
        ((*scene).*row.apply)(true, QString());
        QCOMPARE(hand.takeOnlyMessage().data, QString("10|10 20|20"));
    }
}

void tst_paintsceneareas::twoFlipsGiveThePictureBack()
{
    for (const bool asBackground : {false, true}) {
        paintscene& canvas = opened(asBackground);
        const QImage before = canvas.picture().copy();
        for (const effectrow& row : rows) {
            if (row.message != kelvortool::grayscale) {
                (canvas.*row.apply)(true, QString());
                (canvas.*row.apply)(true, QString());
                QVERIFY(canvas.picture() == before);
            }
        }
    }
}

void tst_paintsceneareas::clearOfTheWholeIsSentAsAStrokeWithoutPoints()
{
    for (const bool asBackground : {false, true}) {
        paintscene& canvas = opened(asBackground);
        scenehand hand(canvas);
        canvas.clearCanvas(true);
        const paintmessage message = hand.takeOnlyMessage();
        QVERIFY(!message.extended);
        QCOMPARE(message.tool, kelvortool::clear);
        QVERIFY(message.points.isEmpty());
        QImage blank(size, QImage::Format_ARGB32);
        blank.fill(asBackground ? unpainted : white);
        QVERIFY(canvas.picture() == blank);
    }
}

void tst_paintsceneareas::clearOfABandLeavesTheBandAndTheRest()
{
    for (const bool asBackground : {false, true}) {
        paintscene& canvas = opened(asBackground);
        scenehand hand(canvas);
        hand.take(kelvortool::select);
        hand.drag({QPoint(10, 10), QPoint(50, 40)});
        QImage oracle = canvas.picture().copy();
        literal::clearRegion(oracle, QRect(QPoint(10, 10), QPoint(50, 40)), !asBackground);
        for (int twice = 0; twice < 2; ++twice) {
            canvas.clearCanvas(true);
            const paintmessage message = hand.takeOnlyMessage();
            QCOMPARE(message.tool, kelvortool::clearselection);
            QCOMPARE(message.data, QString("10|10 50|40"));
            QVERIFY(canvas.picture() == oracle);
        }
    }
}

void tst_paintsceneareas::clearOfAnUpturnedBandClearsEverything()
{
    paintscene& canvas = opened(false);
    scenehand hand(canvas);
    hand.take(kelvortool::select);
    hand.drag({QPoint(50, 40), QPoint(10, 10)});
    canvas.clearCanvas(true);
    QCOMPARE(hand.takeOnlyMessage().tool, kelvortool::clear);
    QCOMPARE(canvas.picture().pixel(100, 80), white);
}

void tst_paintsceneareas::aClearThatIsNotSentDoesNotLookAtTheSelection()
{
    paintscene& canvas = opened(false);
    scenehand hand(canvas);
    hand.take(kelvortool::select);
    hand.drag({QPoint(10, 10), QPoint(20, 20)});
    canvas.clearCanvas(false);
    QVERIFY(hand.takeMessages().isEmpty());
    QCOMPARE(canvas.picture().pixel(100, 80), white);
}

void tst_paintsceneareas::theCanvasIsChangedWhereItLies()
{
    paintscene& canvas = opened(false);
    scenehand hand(canvas);
    const uchar* pixels = canvas.picture().constBits();
    for (const effectrow& row : rows) {
        (canvas.*row.apply)(true, QString());
        (canvas.*row.apply)(false, "10|10 50|50");
    }
    hand.take(kelvortool::fill, Qt::red);
    hand.press(QPoint(3, 3));
    canvas.grab();
    hand.take(kelvortool::pencil, Qt::red, 3);
    hand.drag({QPoint(3, 3), QPoint(30, 30)});
    canvas.clearCanvas(true);
    QCOMPARE(canvas.picture().constBits(), pixels);
}

QTEST_MAIN(tst_paintsceneareas)
#include "tst_paintsceneareas.moc"
