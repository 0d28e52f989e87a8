#include "canvas/layers.h"

#include "literalpixels.h"
#include "randompictures.h"

#include <QPainter>
#include <QtTest>

Q_DECLARE_METATYPE(randompictures::kind)

namespace {

/// What compose gives for a whole screen when it is asked for one rectangle of this size after the other.
QImage composed(const QSize& screen, const QSize& step, const QImage& background, const QImage& canvas, bool seeThrough)
{
    QImage result(screen, QImage::Format_RGB32);
    result.fill(Qt::white);
    QPainter painter(&result);
    for (int y = 0; y < screen.height(); y += step.height()) {
        for (int x = 0; x < screen.width(); x += step.width()) {
            QImage band(step, seeThrough ? QImage::Format_ARGB32 : QImage::Format_RGB32);
            band.fill(0xff7f7f7f);
            layers::compose(band, QPoint(x, y), background, canvas);
            painter.drawImage(x, y, band);
        }
    }
    return result;
}

QImage opaque(const QImage& image)
{
    QImage result = image.convertToFormat(QImage::Format_RGB32);
    return result.convertToFormat(QImage::Format_ARGB32);
}

} // namespace

class tst_layers : public QObject {
    Q_OBJECT
private slots:
    void normalisesLikeTheLiteralSteps();
    void onlyTransparentWhiteIsNormalised();
    void composesLikeTheLiteralSteps_data();
    void composesLikeTheLiteralSteps();
    void aBackgroundLargerThanTheCanvasIsCut();
    void coversOnlyWhatIsOpaqueThroughout();
    void mergesLikeTheLiteralSteps();
};

void tst_layers::normalisesLikeTheLiteralSteps()
{
    QRandomGenerator random(1);
    for (int round = 0; round < 20; ++round) {
        QImage product = randompictures::make(random, QSize(67, 20), randompictures::kind::mixed);
        QImage oracle = product.copy();
        layers::normalise(product);
        literal::normalise(oracle);
        QVERIFY(product == oracle);
    }
}

void tst_layers::onlyTransparentWhiteIsNormalised()
{
    QImage image(3, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, 0x00ffffff);
    image.setPixel(1, 0, 0x00fffffe);
    image.setPixel(2, 0, 0x00000000);
    layers::normalise(image);
    QCOMPARE(image.pixel(0, 0), QRgb{0xffffffff});
    QCOMPARE(image.pixel(1, 0), QRgb{0x00fffffe});
    QCOMPARE(image.pixel(2, 0), QRgb{0x00000000});
}

void tst_layers::composesLikeTheLiteralSteps_data()
{
    QTest::addColumn<randompictures::kind>("contents");
    QTest::addColumn<QSize>("canvas");
    QTest::addColumn<QSize>("background");
    QTest::addColumn<bool>("opaqueBackground");
    const QSize screen(130, 70);
    const QSize small(90, 41);
    for (const auto contents :
         {randompictures::kind::opaque, randompictures::kind::unpainted, randompictures::kind::mixed}) {
        const int number = static_cast<int>(contents);
        QTest::addRow("contents %d, no background", number) << contents << screen << QSize() << true;
        QTest::addRow("contents %d, no background, small", number) << contents << small << QSize() << true;
        QTest::addRow("contents %d, background", number) << contents << screen << screen << true;
        QTest::addRow("contents %d, see-through background", number) << contents << screen << screen << false;
        QTest::addRow("contents %d, small background", number) << contents << screen << small << false;
        QTest::addRow("contents %d, small canvas and background", number) << contents << small << small << true;
    }
}

void tst_layers::composesLikeTheLiteralSteps()
{
    QFETCH(randompictures::kind, contents);
    QFETCH(QSize, canvas);
    QFETCH(QSize, background);
    QFETCH(bool, opaqueBackground);
    const QSize screen(130, 70);
    QRandomGenerator random(2);
    for (int round = 0; round < 5; ++round) {
        const QImage upper = randompictures::make(random, canvas, contents);
        QImage lower;
        if (!background.isEmpty()) {
            lower = randompictures::make(random, background, randompictures::kind::mixed);
        }
        if (opaqueBackground && !lower.isNull()) {
            lower = opaque(lower);
        }
        const QImage oracle = literal::shown(screen, lower, upper);
        QCOMPARE(composed(screen, QSize(screen.width(), 11), lower, upper, !opaqueBackground), oracle);
        if (contents != randompictures::kind::mixed) {
            // Half transparent pixels are left out: the toolkit rounds some differently by where a row begins.
            QCOMPARE(composed(screen, QSize(37, 11), lower, upper, !opaqueBackground), oracle);
        }
    }
}

void tst_layers::aBackgroundLargerThanTheCanvasIsCut()
{
    QImage canvas(10, 10, QImage::Format_ARGB32);
    canvas.fill(0x00ffffff);
    QImage background(30, 30, QImage::Format_ARGB32);
    background.fill(0xffff0000);
    for (const bool seeThrough : {false, true}) {
        const QImage screen = composed(QSize(40, 40), QSize(16, 9), background, canvas, seeThrough);
        QCOMPARE(screen.pixel(9, 9), QRgb{0xffff0000});
        QCOMPARE(screen.pixel(10, 9), QRgb{0xffffffff});
        QCOMPARE(screen.pixel(9, 10), QRgb{0xffffffff});
    }
}

void tst_layers::coversOnlyWhatIsOpaqueThroughout()
{
    QImage layer(40, 20, QImage::Format_ARGB32);
    layer.fill(0xff102030);
    QVERIFY(layers::covers(layer, QRect(0, 0, 40, 20)));
    QVERIFY(!layers::covers(layer, QRect(0, 0, 41, 20)));
    QVERIFY(!layers::covers(layer, QRect(0, 0, 40, 21)));
    layer.setPixel(39, 19, 0xfe102030);
    QVERIFY(!layers::covers(layer, QRect(0, 0, 40, 20)));
    QVERIFY(layers::covers(layer, QRect(0, 0, 39, 20)));
}

void tst_layers::mergesLikeTheLiteralSteps()
{
    QRandomGenerator random(3);
    for (const QSize background : {QSize(50, 40), QSize(20, 60)}) {
        const QImage canvas = randompictures::make(random, QSize(50, 40), randompictures::kind::mixed);
        const QImage lower = randompictures::make(random, background, randompictures::kind::mixed);
        QCOMPARE(layers::merged(lower, canvas), literal::merged(lower, canvas));
    }
}

QTEST_GUILESS_MAIN(tst_layers)
#include "tst_layers.moc"
