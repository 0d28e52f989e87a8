#include "brushes/countedspray.h"

#include "painted.h"
#include "randompainting.h"

#include <QtTest>

#include <utility>
#include <vector>

namespace {

QImage counted(const QImage& canvas, const QBrush& brush, const discshape& shape, const discchain& chain)
{
    return painted(canvas, [&](QPainter* painter) { countedspray(painter, brush.color()).draw(brush, shape, chain); });
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

class tst_countedspray : public QObject {
    Q_OBJECT

private slots:
    void countedDiscsAreDiscAfterDisc_data();
    void countedDiscsAreDiscAfterDisc();
    void onHalfTransparentPixelsTheyNearlyAre();
    void discsBesideThePictureChangeNothing();
    void longChainIsCounted();
    void manyChainsOnOneAnotherAreDiscAfterDisc();
};

void tst_countedspray::countedDiscsAreDiscAfterDisc_data()
{
    QTest::addColumn<int>("widest");
    QTest::newRow("narrow") << 4;
    QTest::newRow("usual") << 60;
    QTest::newRow("wide") << 900;
}

void tst_countedspray::countedDiscsAreDiscAfterDisc()
{
    QFETCH(int, widest);
    randompainting random(91);
    for (int round = 0; round < 60; ++round) {
        const QBrush brush(random.chance(4) ? random.opaqueColor() : random.translucentColor(),
                           static_cast<Qt::BrushStyle>(Qt::Dense1Pattern + random.number(0, 6)));
        const discshape shape(random.number(1, widest));
        const discchain chain(random.point(QSize(120, 90), 60), random.point(QSize(120, 90), 60));
        QCOMPARE(counted(whiteCanvas(), brush, shape, chain), discAfterDisc(whiteCanvas(), brush, shape, chain));
    }
}

void tst_countedspray::onHalfTransparentPixelsTheyNearlyAre()
{
    randompainting random(92);
    const QBrush brush(QColor(10, 200, 99, 130), Qt::Dense3Pattern);
    int compared = 0;
    for (int round = 0; round < 20; ++round) {
        const QImage canvas = random.picture(QSize(120, 90));
        const discshape shape(random.number(1, 60));
        const discchain chain(random.point(canvas.size(), 20), random.point(canvas.size(), 20));
        const QImage all = counted(canvas, brush, shape, chain);
        const QImage literally = discAfterDisc(canvas, brush, shape, chain);
        for (int y = 0; y < canvas.height(); ++y) {
            for (int x = 0; x < canvas.width(); ++x) {
                const QRgb a = all.pixel(x, y);
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

void tst_countedspray::discsBesideThePictureChangeNothing()
{
    const discshape shape(20);
    const QBrush brush(QColor(255, 0, 0, 90), Qt::Dense2Pattern);
    for (const discchain& chain :
         {discchain(QPoint(-30, -30), QPoint(-30, 200)), discchain(QPoint(0, 300), QPoint(90, 300)),
          discchain(QPoint(-100, 90), QPoint(90, -150))})
        QCOMPARE(counted(clearCanvas(), brush, shape, chain), clearCanvas());
    QCOMPARE(counted(clearCanvas(), brush, discshape(0), discchain(QPoint(9, 9), QPoint(9, 9))), clearCanvas());
}

void tst_countedspray::longChainIsCounted()
{
    const QBrush brush(QColor(255, 0, 0, 90), Qt::Dense4Pattern);
    const discchain chain(QPoint(-5000, 45), QPoint(5000, 45));
    const QImage once = counted(whiteCanvas(), brush, discshape(600), chain);
    QCOMPARE(counted(once, brush, discshape(600), chain), once);
    QCOMPARE(once, discAfterDisc(whiteCanvas(), brush, discshape(600), chain));
}

void tst_countedspray::manyChainsOnOneAnotherAreDiscAfterDisc()
{
    // Until some rows do not change any more, and others still do.
    randompainting random(93);
    const discshape shape(70);
    for (const int alpha : {3, 60, 200}) {
        const QColor color(200, 30, 90, alpha);
        std::vector<std::pair<QBrush, discchain>> chains;
        for (int i = 0; i < 60; ++i)
            chains.emplace_back(QBrush(color, static_cast<Qt::BrushStyle>(Qt::Dense1Pattern + random.number(0, 6))),
                                discchain(random.point(QSize(120, 40), 20), random.point(QSize(120, 70), 20)));
        const QImage all = painted(whiteCanvas(), [&](QPainter* painter) {
            countedspray spray(painter, color);
            for (const auto& [brush, chain] : chains)
                spray.draw(brush, shape, chain);
        });
        QImage literally = whiteCanvas();
        for (const auto& [brush, chain] : chains)
            literally = discAfterDisc(literally, brush, shape, chain);
        QCOMPARE(all, literally);
    }
}

QTEST_MAIN(tst_countedspray)
#include "tst_countedspray.moc"
