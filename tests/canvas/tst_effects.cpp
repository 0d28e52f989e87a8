#include "canvas/effects.h"

#include "literalpixels.h"
#include "randompictures.h"

#include <QPainter>
#include <QtTest>

#include <limits>

using effects::effect;

Q_DECLARE_METATYPE(effects::effect)
Q_DECLARE_METATYPE(randompictures::kind)

namespace {

constexpr int most = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();

struct namedeffect {
    const char* name;
    effect kind;
};
constexpr namedeffect allEffects[] = {
    {"flip horizontally", effect::flipHorizontally},
    {"flip vertically", effect::flipVertically},
    {"swap", effect::swapChannels},
    {"invert", effect::invertColors},
    {"greyscale", effect::grayscale},
};

struct namedcontents {
    const char* name;
    randompictures::kind contents;
};
constexpr namedcontents allContents[] = {
    {"opaque", randompictures::kind::opaque},
    {"unpainted", randompictures::kind::unpainted},
    {"mixed", randompictures::kind::mixed},
};

void addEffectsOnAllContents()
{
    QTest::addColumn<effect>("kind");
    QTest::addColumn<randompictures::kind>("contents");
    for (const namedeffect& row : allEffects) {
        for (const namedcontents& column : allContents) {
            QTest::addRow("%s, %s", row.name, column.name) << row.kind << column.contents;
        }
    }
}

} // namespace

class tst_effects : public QObject {
    Q_OBJECT
private slots:
    void workOnTheWholeLikeTheLiteralSteps_data() { addEffectsOnAllContents(); }
    void workOnTheWholeLikeTheLiteralSteps();
    void workOnARegionLikeTheLiteralSteps_data() { addEffectsOnAllContents(); }
    void workOnARegionLikeTheLiteralSteps();
    void aRegionWiderThanTheToolkitReadsAtOnce_data() { addEffectsOnAllContents(); }
    void aRegionWiderThanTheToolkitReadsAtOnce();
    void aRegionAsLargeAsNumbersGetIsCutToTheImage_data();
    void aRegionAsLargeAsNumbersGetIsCutToTheImage();
    void theNullRectangleDrawsTheWholeImageAtItsCorner_data() { addEffectsOnAllContents(); }
    void theNullRectangleDrawsTheWholeImageAtItsCorner();
    void anUpsideDownRegionChangesNothing();
    void flipsAndInversionsUndoThemselves_data();
    void flipsAndInversionsUndoThemselves();
    void aSharedImageKeepsItsCopy();
    void aNullImageIsLeftAlone();
};

void tst_effects::workOnTheWholeLikeTheLiteralSteps()
{
    QFETCH(effect, kind);
    QFETCH(randompictures::kind, contents);
    QRandomGenerator random(7);
    for (const QSize size : {QSize(64, 48), QSize(61, 47), QSize(1, 9), QSize(9, 1), QSize(1, 1), QSize(2, 2)}) {
        QImage product = randompictures::make(random, size, contents);
        QImage oracle = product.copy();
        effects::apply(product, kind);
        literal::applyWhole(oracle, kind);
        QVERIFY(product == oracle);
    }
}

void tst_effects::workOnARegionLikeTheLiteralSteps()
{
    QFETCH(effect, kind);
    QFETCH(randompictures::kind, contents);
    QRandomGenerator random(8);
    for (int round = 0; round < 150; ++round) {
        // The larger ones are worked on in several strips.
        const QSize size = round % 10 ? QSize(53, 41) : QSize(400, 90);
        QImage product = randompictures::make(random, size, contents);
        QImage oracle = product.copy();
        const QRect region = randompictures::region(random, size);
        effects::apply(product, kind, region);
        literal::applyRegion(oracle, kind, region);
        QVERIFY2(product == oracle,
                 qPrintable(QString("round %1: %2,%3 to %4,%5")
                                .arg(round)
                                .arg(region.left())
                                .arg(region.top())
                                .arg(region.right())
                                .arg(region.bottom())));
    }
}

void tst_effects::aRegionWiderThanTheToolkitReadsAtOnce()
{
    QFETCH(effect, kind);
    QFETCH(randompictures::kind, contents);
    QRandomGenerator random(9);
    const QSize size(5003, 4);
    for (const QRect region : {QRect(3, 0, 4990, 4), QRect(-7, -2, 5003, 9), QRect(100, 1, 9000, 2)}) {
        QImage product = randompictures::make(random, size, contents);
        QImage oracle = product.copy();
        effects::apply(product, kind, region);
        literal::applyRegion(oracle, kind, region);
        QVERIFY(product == oracle);
    }
}

void tst_effects::aRegionAsLargeAsNumbersGetIsCutToTheImage_data()
{
    QTest::addColumn<effect>("kind");
    QTest::addColumn<QRect>("huge");
    QTest::addColumn<QRect>("same");
    const QRect evenly(QPoint(least, least), QPoint(most, most));
    // The middle of all numbers lies between -1 and 0, so that a flip brings in nothing from within the image.
    for (const namedeffect& row : allEffects) {
        const bool flips = row.kind == effect::flipHorizontally || row.kind == effect::flipVertically;
        QTest::addRow("%s, all numbers", row.name)
            << row.kind << evenly << (flips ? QRect(30, 30, 5, 5) : QRect(0, 0, 20, 16));
        QTest::addRow("%s, down to the right", row.name) << row.kind << QRect(QPoint(0, 0), QPoint(most, most))
                                                         << (flips ? QRect(30, 30, 5, 5) : QRect(0, 0, 20, 16));
        QTest::addRow("%s, around the image's middle", row.name)
            << row.kind << QRect(QPoint(19 - 1000000000, 15 - 1000000000), QPoint(1000000000, 1000000000))
            << QRect(0, 0, 20, 16);
        QTest::addRow("%s, beyond the image", row.name)
            << row.kind << QRect(QPoint(most - 1, most - 1), QPoint(most, most)) << QRect(30, 30, 5, 5);
        QTest::addRow("%s, before the image", row.name)
            << row.kind << QRect(QPoint(least, least), QPoint(least + 1, least + 1)) << QRect(30, 30, 5, 5);
    }
}

void tst_effects::aRegionAsLargeAsNumbersGetIsCutToTheImage()
{
    QFETCH(effect, kind);
    QFETCH(QRect, huge);
    QFETCH(QRect, same);
    QRandomGenerator random(10);
    QImage product = randompictures::make(random, QSize(20, 16), randompictures::kind::opaque);
    QImage oracle = product.copy();
    effects::apply(product, kind, huge);
    literal::applyRegion(oracle, kind, same);
    QVERIFY(product == oracle);

    // Half transparent pixels take another way through the product.
    QImage mixed = randompictures::make(random, QSize(20, 16), randompictures::kind::mixed);
    effects::apply(mixed, kind, huge);
    QCOMPARE(mixed.size(), QSize(20, 16));
}

void tst_effects::theNullRectangleDrawsTheWholeImageAtItsCorner()
{
    QFETCH(effect, kind);
    QFETCH(randompictures::kind, contents);
    QRandomGenerator random(11);
    for (const QPoint corner : {QPoint(0, 0), QPoint(5, 3), QPoint(-4, 7)}) {
        QImage product = randompictures::make(random, QSize(20, 16), contents);
        QImage oracle = product.copy();
        const QRect region(corner, corner - QPoint(1, 1));
        QVERIFY(region.isNull());
        effects::apply(product, kind, region);
        literal::applyRegion(oracle, kind, region);
        QVERIFY(product == oracle);
    }
}

void tst_effects::anUpsideDownRegionChangesNothing()
{
    QRandomGenerator random(12);
    QImage image = randompictures::make(random, QSize(20, 16), randompictures::kind::mixed);
    const QImage before = image.copy();
    for (const namedeffect& row : allEffects) {
        effects::apply(image, row.kind, QRect(QPoint(10, 10), QPoint(5, 12)));
        effects::apply(image, row.kind, QRect(QPoint(10, 10), QPoint(12, 5)));
        effects::apply(image, row.kind, QRect(QPoint(most, most), QPoint(least, least)));
        effects::apply(image, row.kind, QRect(QPoint(3, 3), QPoint(2, 9)));
    }
    QVERIFY(image == before);
}

void tst_effects::flipsAndInversionsUndoThemselves_data()
{
    QTest::addColumn<effect>("kind");
    for (const namedeffect& row : allEffects) {
        if (row.kind != effect::grayscale) {
            QTest::addRow("%s", row.name) << row.kind;
        }
    }
}

void tst_effects::flipsAndInversionsUndoThemselves()
{
    QFETCH(effect, kind);
    QRandomGenerator random(13);
    QImage image = randompictures::make(random, QSize(33, 22), randompictures::kind::mixed);
    const QImage before = image.copy();
    effects::apply(image, kind);
    QVERIFY(image != before);
    effects::apply(image, kind);
    QVERIFY(image == before);
}

void tst_effects::aSharedImageKeepsItsCopy()
{
    QImage image(8, 8, QImage::Format_ARGB32);
    image.fill(0xff112233);
    const QImage copy = image;
    effects::apply(image, effect::swapChannels);
    effects::apply(image, effect::invertColors, QRect(0, 0, 2, 2));
    QCOMPARE(copy.pixel(0, 0), QRgb{0xff112233});
    QCOMPARE(image.pixel(0, 0), QRgb{0xffccddee});
    QCOMPARE(image.pixel(7, 7), QRgb{0xff332211});
}

void tst_effects::aNullImageIsLeftAlone()
{
    for (const namedeffect& row : allEffects) {
        QImage image;
        effects::apply(image, row.kind);
        effects::apply(image, row.kind, QRect(0, 0, 5, 5));
        QVERIFY(image.isNull());
    }
}

QTEST_GUILESS_MAIN(tst_effects)
#include "tst_effects.moc"
