#include "brushes/spraylayers.h"

#include "painted.h"
#include "randompainting.h"

#include <QtTest>

namespace {

QImage inLayers(const QImage& canvas, const QBrush& brush, const discshape& shape, const discchain& chain)
{
    return painted(canvas, [&](QPainter* painter) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(brush);
        spray::drawLayers(painter, shape, chain);
    });
}

QImage discAfterDisc(const QImage& canvas, const QBrush& brush, const discshape& shape, const discchain& chain)
{
    return painted(canvas, [&](QPainter* painter) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(brush);
        for (qint64 i = 0; i < chain.count(); ++i)
            painter->drawEllipse(shape.boxAround(chain.at(i)));
    });
}

} // namespace

class tst_spraylayers : public QObject {
    Q_OBJECT

private slots:
    void layersAreDiscAfterDisc_data();
    void layersAreDiscAfterDisc();
    void layersOnHalfTransparentPixelsAreNearlyDiscAfterDisc();
    void discsBesideThePictureChangeNothing();
    void longChainEndsWhenNothingChanges();
};

void tst_spraylayers::layersAreDiscAfterDisc_data()
{
    QTest::addColumn<int>("widest");
    QTest::newRow("narrow") << 4;
    QTest::newRow("usual") << 60;
    QTest::newRow("wide") << 900;
}

void tst_spraylayers::layersAreDiscAfterDisc()
{
    QFETCH(int, widest);
    randompainting random(91);
    for (int round = 0; round < 60; ++round) {
        const QBrush brush(random.chance(4) ? random.opaqueColor() : random.translucentColor(),
                           static_cast<Qt::BrushStyle>(Qt::Dense1Pattern + random.number(0, 6)));
        const discshape shape(random.number(1, widest));
        const discchain chain(random.point(QSize(120, 90), 60), random.point(QSize(120, 90), 60));
        QCOMPARE(inLayers(whiteCanvas(), brush, shape, chain), discAfterDisc(whiteCanvas(), brush, shape, chain));
    }
}

void tst_spraylayers::layersOnHalfTransparentPixelsAreNearlyDiscAfterDisc()
{
    randompainting random(92);
    const QBrush brush(QColor(10, 200, 99, 130), Qt::Dense3Pattern);
    int compared = 0;
    for (int round = 0; round < 20; ++round) {
        const QImage canvas = random.picture(QSize(120, 90));
        const discshape shape(random.number(1, 60));
        const discchain chain(random.point(canvas.size(), 20), random.point(canvas.size(), 20));
        const QImage layers = inLayers(canvas, brush, shape, chain);
        const QImage literally = discAfterDisc(canvas, brush, shape, chain);
        for (int y = 0; y < canvas.height(); ++y) {
            for (int x = 0; x < canvas.width(); ++x) {
                const QRgb a = layers.pixel(x, y);
                const QRgb b = literally.pixel(x, y);
                compared += a != canvas.pixel(x, y);
                QCOMPARE(qAlpha(a), qAlpha(b));
                // The less alpha, the more one shade below it is worth.
                if (qAlpha(a) > 32)
                    QVERIFY(qAbs(qRed(a) - qRed(b)) <= 8 && qAbs(qGreen(a) - qGreen(b)) <= 8
                            && qAbs(qBlue(a) - qBlue(b)) <= 8);
            }
        }
    }
    QVERIFY(compared > 1000);
}

void tst_spraylayers::discsBesideThePictureChangeNothing()
{
    const discshape shape(20);
    for (const discchain& chain :
         {discchain(QPoint(-30, -30), QPoint(-30, 200)), discchain(QPoint(0, 300), QPoint(90, 300)),
          discchain(QPoint(-100, 90), QPoint(90, -150))})
        QCOMPARE(inLayers(clearCanvas(), QColor(255, 0, 0, 90), shape, chain), clearCanvas());
    QCOMPARE(inLayers(clearCanvas(), QColor(255, 0, 0, 90), discshape(0), discchain(QPoint(9, 9), QPoint(9, 9))),
             clearCanvas());
}

void tst_spraylayers::longChainEndsWhenNothingChanges()
{
    const QBrush brush(QColor(255, 0, 0, 90), Qt::Dense4Pattern);
    const discchain chain(QPoint(-5000, 45), QPoint(5000, 45));
    const QImage once = inLayers(whiteCanvas(), brush, discshape(600), chain);
    QCOMPARE(inLayers(once, brush, discshape(600), chain), once);
    QCOMPARE(once, discAfterDisc(whiteCanvas(), brush, discshape(600), chain));
}

QTEST_MAIN(tst_spraylayers)
#include "tst_spraylayers.moc"
