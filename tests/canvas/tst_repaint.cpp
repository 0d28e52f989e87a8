#include "canvas/paintscene.h"

#include "literalpixels.h"
#include "randompictures.h"
#include "scenehand.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

constexpr QRgb white = 0xffffffff;
constexpr QRgb red = 0xffff0000;

const QSize size(160, 120);

/// What the canvas shows on a screen with so many pixels for each of its own.
QImage shown(paintscene& scene, int scale = 1)
{
    QImage screen(scene.size() * scale, QImage::Format_RGB32);
    screen.setDevicePixelRatio(scale);
    screen.fill(0xff808080);
    scene.render(&screen);
    return screen;
}

/// Between two images of one size, in any channel of any pixel.
int largestDifference(const QImage& one, const QImage& other)
{
    int largest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            largest = qMax(largest, qAbs(qRed(a) - qRed(b)));
            largest = qMax(largest, qAbs(qGreen(a) - qGreen(b)));
            largest = qMax(largest, qAbs(qBlue(a) - qBlue(b)));
        }
    }
    return largest;
}

} // namespace

/// What a repaint shows: the layers, and the previews of the tools on top of them.
class tst_repaint : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();

    void showsTheLayers_data();
    void showsTheLayers();
    void showsALargePictureInBands_data();
    void showsALargePictureInBands();
    void whiteStandsAroundAPictureSmallerThanTheWidget();
    void halfTransparentPixelsDoNotDarkenWithEachRepaint();

    void whatIsPreviewedIsWhatIsPainted_data();
    void whatIsPreviewedIsWhatIsPainted();
    void aTextLooksInItsBoxAsItWillBePainted();
    void aSelectionShowsItsBandAndItsMove_data();
    void aSelectionShowsItsBandAndItsMove();
    void aPreviewStandsAtTheTopLeftBeforeTheFirstPress_data();
    void aPreviewStandsAtTheTopLeftBeforeTheFirstPress();
    void overABackgroundNothingIsPreviewedBeyondTheCanvas();

private:
    QString backgroundPath;
    QTemporaryDir directory;
};

void tst_repaint::initTestCase()
{
    QRandomGenerator random(1);
    backgroundPath = directory.filePath("background.png");
    QVERIFY(randompictures::make(random, size, randompictures::kind::opaque).save(backgroundPath));
}

void tst_repaint::showsTheLayers_data()
{
    QTest::addColumn<bool>("asBackground");
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<bool>("opaque");
    for (const bool asBackground : {false, true}) {
        for (const bool opaque : {false, true}) {
            for (const QSize picture : {size, QSize(70, 50), QSize(300, 200)}) {
                QTest::addRow("%s of %d columns, %s", asBackground ? "background" : "picture", picture.width(),
                              opaque ? "opaque" : "see-through")
                    << asBackground << picture << opaque;
            }
        }
    }
}

void tst_repaint::showsTheLayers()
{
    QFETCH(bool, asBackground);
    QFETCH(QSize, picture);
    QFETCH(bool, opaque);
    QRandomGenerator random(2);
    QImage file =
        randompictures::make(random, picture, opaque ? randompictures::kind::opaque : randompictures::kind::mixed);
    const QString path = directory.filePath("picture.png");
    QVERIFY(file.save(path));
    literal::normalise(file);
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(path, asBackground);
    scene.applyDraw(static_cast<char>(kelvortool::pencil), Qt::red, 9, {QPoint(10, 10), QPoint(150, 40)});
    scene.applyExtendedDraw(static_cast<char>(kelvortool::text), "#0000ff 1 5|60 100|90 text");
    const QImage oracle = literal::shown(size, asBackground ? file : QImage(), scene.picture());
    QCOMPARE(shown(scene), oracle);
    QCOMPARE(scene.grab().toImage().convertToFormat(QImage::Format_RGB32), oracle);
}

void tst_repaint::showsALargePictureInBands_data()
{
    QTest::addColumn<QSize>("large");
    QTest::newRow("high") << QSize(700, 1600);
    QTest::newRow("one column") << QSize(1, 2000);
    QTest::newRow("one row") << QSize(2000, 1);
    QTest::newRow("wide") << QSize(30000, 40);
}

void tst_repaint::showsALargePictureInBands()
{
    QFETCH(QSize, large);
    paintscene scene(large.width(), large.height(), nullptr);
    scene.setImage(QString(), false);
    const QPoint corner(large.width() - 1, large.height() - 1);
    scene.applyDraw(static_cast<char>(kelvortool::line), Qt::red, 9, {QPoint(0, 0), corner});
    scene.setTool(kelvortool::select);
    QCOMPARE(shown(scene), literal::shown(large, QImage(), scene.picture()));
    scene.setTool(kelvortool::pencil);
    QCOMPARE(shown(scene), literal::shown(large, QImage(), scene.picture()));
}

void tst_repaint::whiteStandsAroundAPictureSmallerThanTheWidget()
{
    QImage small(40, 30, QImage::Format_ARGB32);
    small.fill(red);
    const QString path = directory.filePath("small.png");
    QVERIFY(small.save(path));
    for (const bool asBackground : {false, true}) {
        paintscene scene(size.width(), size.height(), nullptr);
        scene.setImage(path, asBackground);
        const QImage screen = shown(scene);
        QCOMPARE(screen.pixel(39, 29), red);
        QCOMPARE(screen.pixel(40, 29), white);
        QCOMPARE(screen.pixel(39, 30), white);
        QCOMPARE(screen.pixel(159, 119), white);
    }
}

void tst_repaint::halfTransparentPixelsDoNotDarkenWithEachRepaint()
{
    QImage glass(size, QImage::Format_ARGB32);
    glass.fill(0x80000000);
    const QString path = directory.filePath("glass.png");
    QVERIFY(glass.save(path));
    for (const bool asBackground : {false, true}) {
        paintscene scene(size.width(), size.height(), nullptr);
        scene.setImage(path, asBackground);
        QImage screen(size, QImage::Format_RGB32);
        scene.render(&screen);
        const QImage once = screen.copy();
        scene.render(&screen);
        QCOMPARE(screen, once);
        QCOMPARE(qRed(once.pixel(5, 5)), 127);
    }
}

void tst_repaint::whatIsPreviewedIsWhatIsPainted_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::addColumn<double>("thickness");
    QTest::addColumn<bool>("asBackground");
    QTest::addColumn<int>("modifiers");
    const auto add = [](const char* name, kelvortool tool) {
        for (const double thickness : {0.5, 1.0, 2.5, 9.0}) {
            for (const bool asBackground : {false, true}) {
                const char* mode = asBackground ? "over a background" : "on paper";
                QTest::addRow("%s %g %s", name, thickness, mode) << tool << thickness << asBackground << 0;
                QTest::addRow("%s %g with shift %s", name, thickness, mode)
                    << tool << thickness << asBackground << static_cast<int>(Qt::ShiftModifier);
            }
        }
    };
    add("line", kelvortool::line);
    add("rect", kelvortool::rect);
    add("ellipse", kelvortool::ellipse);
}

void tst_repaint::whatIsPreviewedIsWhatIsPainted()
{
    QFETCH(kelvortool, tool);
    QFETCH(double, thickness);
    QFETCH(bool, asBackground);
    QFETCH(int, modifiers);
    const Qt::KeyboardModifiers keys(modifiers);
    QRandomGenerator random(3);
    for (int round = 0; round < 8; ++round) {
        paintscene scene(size.width(), size.height(), nullptr);
        scene.setImage(asBackground ? backgroundPath : QString(), asBackground);
        scenehand hand(scene);
        hand.take(tool, QColor(200, 30, 60), thickness);
        const QPoint from = randompictures::point(random, size);
        const QPoint to = randompictures::point(random, size);
        const QImage empty = shown(scene);
        hand.press(from, Qt::LeftButton, keys);
        hand.move(to, keys);
        const QImage previewed = shown(scene);
        const QImage previewedLarge = shown(scene, 2);
        hand.release(to, Qt::LeftButton, keys);
        // A pen below one pixel paints half transparent ones, which a canvas over a background mixes in another order.
        const int rounding = asBackground && thickness < 1 ? 2 : 0;
        QVERIFY(largestDifference(shown(scene), previewed) <= rounding);
        QVERIFY(largestDifference(shown(scene, 2), previewedLarge) <= rounding);
        if (QRect(QPoint(), size).contains(from)) {
            QVERIFY(previewed != empty);
        }
    }
}

void tst_repaint::aTextLooksInItsBoxAsItWillBePainted()
{
    for (const bool asBackground : {false, true}) {
        paintscene scene(size.width(), size.height(), nullptr);
        scene.setImage(asBackground ? backgroundPath : QString(), asBackground);
        scenehand hand(scene);
        hand.take(kelvortool::text, Qt::red, 2);
        const QRect box(QPoint(10, 10), QPoint(150, 60));
        hand.drag({box.topLeft(), box.bottomRight()});
        const QRect inside = box.adjusted(3, 3, -3, -3);
        const QImage empty = shown(scene);
        hand.type("Preview");
        const QImage typed = shown(scene);
        const QImage typedLarge = shown(scene, 2);
        QVERIFY(typed.copy(inside) != empty.copy(inside));
        QVERIFY(typed.pixel(box.center().x(), box.top()) == empty.pixel(box.center().x(), box.top()));
        hand.keyDown(Qt::Key_Return);
        if (asBackground) {
            // The toolkit softens the edges of glyphs by what lies below, and a canvas over a background is
            // see-through.
            QVERIFY(shown(scene).copy(inside) != empty.copy(inside));
            continue;
        }
        QCOMPARE(shown(scene).copy(inside), typed.copy(inside));
        const QRect insideLarge(inside.topLeft() * 2, inside.size() * 2);
        QCOMPARE(shown(scene, 2).copy(insideLarge), typedLarge.copy(insideLarge));
    }
}

void tst_repaint::aSelectionShowsItsBandAndItsMove_data()
{
    QTest::addColumn<bool>("asBackground");
    QTest::newRow("on paper") << false;
    QTest::newRow("over a background") << true;
}

void tst_repaint::aSelectionShowsItsBandAndItsMove()
{
    QFETCH(bool, asBackground);
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(asBackground ? backgroundPath : QString(), asBackground);
    scene.applyDraw(static_cast<char>(kelvortool::pencil), Qt::red, 9, {QPoint(30, 30)});
    scenehand hand(scene);
    hand.take(kelvortool::select);
    const QImage plain = shown(scene);
    hand.press(QPoint(20, 20));
    // No band before the first move: its second corner is not there yet.
    QCOMPARE(shown(scene), plain);
    hand.move(QPoint(40, 40));
    const QImage band = shown(scene);
    QVERIFY(band != plain);
    QCOMPARE(band.copy(21, 21, 19, 19), plain.copy(21, 21, 19, 19));
    hand.release(QPoint(40, 40));
    QCOMPARE(shown(scene), band);

    hand.press(QPoint(30, 30));
    QCOMPARE(shown(scene), band);
    hand.move(QPoint(90, 70));
    const QImage moving = shown(scene);
    // The screen shows white where the pixels were taken from, also over a background, until they are dropped.
    QCOMPARE(moving.pixel(30, 30), white);
    QCOMPARE(moving.pixel(90, 70), red);
    QCOMPARE(scene.picture().pixel(30, 30), red);
    hand.release(QPoint(90, 70));
    QCOMPARE(shown(scene).pixel(90, 70), red);
    const QRgb below = asBackground ? QImage(backgroundPath).pixel(30, 30) : white;
    QCOMPARE(shown(scene).pixel(30, 30), below);
}

void tst_repaint::aPreviewStandsAtTheTopLeftBeforeTheFirstPress_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::newRow("line") << kelvortool::line;
    QTest::newRow("rect") << kelvortool::rect;
    QTest::newRow("ellipse") << kelvortool::ellipse;
    QTest::newRow("text") << kelvortool::text;
}

void tst_repaint::aPreviewStandsAtTheTopLeftBeforeTheFirstPress()
{
    QFETCH(kelvortool, tool);
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(QString(), false);
    scenehand hand(scene);
    hand.take(tool, Qt::red, 1);
    const QImage screen = shown(scene);
    QVERIFY(screen.pixel(0, 0) != white);
    QCOMPARE(screen.copy(8, 8, 100, 100), literal::shown(QSize(100, 100), QImage(), scene.picture()));
    QCOMPARE(scene.picture().pixel(0, 0), white);
    hand.drag({QPoint(50, 50), QPoint(80, 80)});
    hand.keyDown(Qt::Key_Return);
    QCOMPARE(shown(scene), literal::shown(size, QImage(), scene.picture()));
}

void tst_repaint::overABackgroundNothingIsPreviewedBeyondTheCanvas()
{
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(backgroundPath, true);
    scene.resize(300, 300);
    scenehand hand(scene);
    hand.take(kelvortool::line, Qt::red, 5);
    hand.press(QPoint(20, 20));
    hand.move(QPoint(280, 20));
    const QImage screen = shown(scene);
    QCOMPARE(screen.pixel(159, 20), red);
    QCOMPARE(screen.pixel(160, 20), white);
    QCOMPARE(screen.pixel(20, 120), white);
    QImage beyond(100, 100, QImage::Format_RGB32);
    beyond.fill(red);
    scene.render(&beyond, QPoint(), QRegion(170, 10, 100, 100));
    QCOMPARE(beyond.pixel(50, 10), white);
}

QTEST_MAIN(tst_repaint)
#include "tst_repaint.moc"
