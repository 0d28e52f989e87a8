#include "brushes/repeatedpass.h"

#include <QTest>

#include <random>

namespace {

/// Any change of a pixel that keeps its colours apart.
std::vector<QRgb> anyPass(unsigned int seed)
{
    std::mt19937 random(seed);
    std::vector<QRgb> pass;
    for (int alpha = 0; alpha < 256; ++alpha) {
        const int newAlpha = static_cast<int>(random() % 256);
        for (int value = 0; value < 256; ++value) {
            const QRgb colors = static_cast<QRgb>(random());
            pass.push_back(qRgba(qRed(colors), qGreen(colors), qBlue(colors), newAlpha));
        }
    }
    return pass;
}

QRgb onePass(const std::vector<QRgb>& pass, QRgb pixel)
{
    const auto of = [&](int value) { return pass[static_cast<std::size_t>(256 * qAlpha(pixel) + value)]; };
    return qRgba(qRed(of(qRed(pixel))), qGreen(of(qGreen(pixel))), qBlue(of(qBlue(pixel))), qAlpha(of(0)));
}

} // namespace

class tst_repeatedpass : public QObject {
    Q_OBJECT

private slots:
    void manyTimesAreOneAfterTheOther();
    void aPixelThatStaysIsLeftAlone();
};

void tst_repeatedpass::manyTimesAreOneAfterTheOther()
{
    std::mt19937 random(3);
    for (unsigned int seed = 0; seed < 5; ++seed) {
        const std::vector<QRgb> pass = anyPass(seed);
        repeatedpass repeated(pass);
        for (int round = 0; round < 200; ++round) {
            const QRgb pixel = static_cast<QRgb>(random());
            const int times = 1 + static_cast<int>(random() % (round % 2 == 0 ? 10 : 3000));
            QRgb expected = pixel;
            for (int i = 0; i < times; ++i)
                expected = onePass(pass, expected);
            QCOMPARE(repeated.after(times, pixel), expected);
        }
    }
}

void tst_repeatedpass::aPixelThatStaysIsLeftAlone()
{
    std::vector<QRgb> still;
    for (int alpha = 0; alpha < 256; ++alpha) {
        for (int value = 0; value < 256; ++value)
            still.push_back(qRgba(value, value, value, alpha));
    }
    repeatedpass repeated(still);
    for (const QRgb pixel : {0x00000000U, 0x12345678U, 0xffffffffU})
        QCOMPARE(repeated.after(2147483647, pixel), pixel);
}

QTEST_APPLESS_MAIN(tst_repeatedpass)
#include "tst_repeatedpass.moc"
