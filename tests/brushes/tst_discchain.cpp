#include "brushes/discchain.h"

#include "randompainting.h"

#include <QtTest>

#include <limits>

namespace {

constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

} // namespace

class tst_discchain : public QObject {
    Q_OBJECT

private slots:
    void countIsHalfTheWayAndTwo_data();
    void countIsHalfTheWayAndTwo();
    void placesAreCutTowardZero();
    void placesAreTheLiteralDivision();
    void longestChainKeepsItsEnds();
    void insideIsWhatAWalkFinds();
    void insideOfAFarChainIsFoundAtOnce();
    void nothingIsInsideAside();
};

void tst_discchain::countIsHalfTheWayAndTwo_data()
{
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<qint64>("count");
    QTest::newRow("no way") << QPoint(5, 5) << qint64(2);
    QTest::newRow("one pixel") << QPoint(6, 5) << qint64(2);
    QTest::newRow("two pixels, by the corner") << QPoint(6, 4) << qint64(3);
    QTest::newRow("41 pixels") << QPoint(46, 5) << qint64(22);
    QTest::newRow("to the edge of 32 bits") << QPoint(largest, 5) << qint64(1073741823);
}

void tst_discchain::countIsHalfTheWayAndTwo()
{
    QFETCH(QPoint, to);
    QFETCH(qint64, count);
    QCOMPARE(discchain(QPoint(5, 5), to).count(), count);
}

void tst_discchain::placesAreCutTowardZero()
{
    const discchain back(QPoint(0, 0), QPoint(-5, 3));
    QCOMPARE(back.count(), qint64(6));
    QCOMPARE(back.at(0), QPoint(0, 0));
    QCOMPARE(back.at(1), QPoint(-1, 0));
    QCOMPARE(back.at(2), QPoint(-2, 1));
    QCOMPARE(back.at(5), QPoint(-5, 3));
}

void tst_discchain::placesAreTheLiteralDivision()
{
    randompainting random(81);
    for (int round = 0; round < 200; ++round) {
        const QPoint a = random.point(QSize(300, 300), 500);
        const QPoint b = random.point(QSize(300, 300), 500);
        const discchain chain(a, b);
        const int count = (b - a).manhattanLength() / 2 + 2;
        QCOMPARE(chain.count(), qint64(count));
        for (int i = 0; i < count; ++i) {
            const QPoint expected(a.x() + ((b.x() - a.x()) * i) / (count - 1),
                                  a.y() + ((b.y() - a.y()) * i) / (count - 1));
            QCOMPARE(chain.at(i), expected);
        }
    }
}

void tst_discchain::longestChainKeepsItsEnds()
{
    const discchain chain(QPoint(smallest, largest), QPoint(largest, smallest));
    QCOMPARE(chain.count(), qint64(1) + (qint64(1) << 32));
    QCOMPARE(chain.at(0), QPoint(smallest, largest));
    QCOMPARE(chain.at(chain.count() - 1), QPoint(largest, smallest));
    QCOMPARE(chain.at(qint64(1) << 31), QPoint(-1, 0));
}

void tst_discchain::insideIsWhatAWalkFinds()
{
    randompainting random(82);
    for (int round = 0; round < 300; ++round) {
        const discchain chain(random.point(QSize(100, 100), 200), random.point(QSize(100, 100), 200));
        const QRect area(random.point(QSize(100, 100), 0), QSize(random.number(1, 120), random.number(1, 120)));
        const discchain::range inside = chain.inside(area);
        for (qint64 i = 0; i < chain.count(); ++i)
            QCOMPARE(i >= inside.first && i < inside.last, area.contains(chain.at(i)));
    }
}

void tst_discchain::insideOfAFarChainIsFoundAtOnce()
{
    const QRect area(0, 0, 2000, 2000);
    const discchain chain(QPoint(smallest, smallest), QPoint(largest, largest));
    const discchain::range inside = chain.inside(area);
    QVERIFY(area.contains(chain.at(inside.first)));
    QVERIFY(!area.contains(chain.at(inside.first - 1)));
    QVERIFY(area.contains(chain.at(inside.last - 1)));
    QVERIFY(!area.contains(chain.at(inside.last)));
}

void tst_discchain::nothingIsInsideAside()
{
    const QRect area(0, 0, 100, 100);
    for (const discchain& chain :
         {discchain(QPoint(-50, 300), QPoint(300, -49)), discchain(QPoint(-9, -9), QPoint(-9, 300)),
          discchain(QPoint(-1, -1), QPoint(-1, -1))}) {
        const discchain::range inside = chain.inside(area);
        for (qint64 i = inside.first; i < inside.last; ++i)
            QVERIFY(area.contains(chain.at(i)));
    }
    const discchain::range aside = discchain(QPoint(-9, -9), QPoint(-9, 300)).inside(area);
    QVERIFY(aside.first >= aside.last);
}

QTEST_MAIN(tst_discchain)
#include "tst_discchain.moc"
