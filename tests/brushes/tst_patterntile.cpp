#include "brushes/patterntile.h"

#include "randompainting.h"

#include <QPainter>
#include <QtTest>

namespace {

constexpr QSize size(61, 37);

// Pixels that are opaque, or have no alpha and any colour.
QImage opaqueAndClear(randompainting& random)
{
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, random.opaqueColor().rgb() & (random.chance(3) ? 0x00ffffffU : 0xffffffffU));
    }
    return image;
}

} // namespace

class tst_patterntile : public QObject {
    Q_OBJECT

private slots:
    void stretchesAreThoseOfTheToolkit();
};

void tst_patterntile::stretchesAreThoseOfTheToolkit()
{
    randompainting random(41);
    for (int round = 0; round < 700; ++round) {
        const QBrush brush(random.opaqueColor(), static_cast<Qt::BrushStyle>(Qt::Dense1Pattern + round % 7));
        const patterntile tile(brush);
        QImage laid = opaqueAndClear(random);
        QImage expected = laid.copy();
        QPainter painter(&expected);
        painter.setPen(Qt::NoPen);
        painter.setBrush(brush);
        for (int y = 0; y < size.height(); ++y) {
            const int left = random.number(0, size.width() - 1);
            const QRect stretch(left, y, random.number(1, size.width() - left), 1);
            tile.lay(reinterpret_cast<QRgb*>(laid.scanLine(y)) + left, stretch);
            painter.drawRect(stretch);
        }
        QCOMPARE(laid, expected);
    }
}

QTEST_MAIN(tst_patterntile)
#include "tst_patterntile.moc"
