#include "brushes/spraycoverage.h"

#include "painted.h"
#include "randompainting.h"

#include <QtTest>

namespace {

/// How often each pixel of the picture is covered by rectangles.
QVector<int> counts(const QVector<QRect>& rectangles, const QSize& size)
{
    QVector<int> result(size.width() * size.height());
    for (const QRect& rectangle : rectangles) {
        for (int y = rectangle.top(); y <= rectangle.bottom(); ++y) {
            for (int x = rectangle.left(); x <= rectangle.right(); ++x)
                ++result[y * size.width() + x];
        }
    }
    return result;
}

/// 1 where one of the discs lies, as the toolkit paints it.
QVector<int> discs(const QList<discchain>& chains, const discshape& shape, const QSize& size)
{
    const QImage canvas = painted(whiteCanvas(size), [&](QPainter* painter) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(Qt::black);
        for (const discchain& chain : chains) {
            for (qint64 i = 0; i < chain.count(); ++i)
                painter->drawEllipse(shape.boxAround(chain.at(i)));
        }
    });
    QVector<int> result;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            result.append(canvas.pixel(x, y) == 0xff000000);
    }
    return result;
}

} // namespace

class tst_spraycoverage : public QObject {
    Q_OBJECT

private slots:
    void nothingIsCoveredAtFirst();
    void eachPixelUnderADiscIsCoveredOnce_data();
    void eachPixelUnderADiscIsCoveredOnce();
    void onlyTheAreaIsLookedAt();
    void everythingCoveredIsOneRectangleARow();
    void emptyAreaAndEmptyDiscsCoverNothing();
    void discsTakenTogetherLeaveOnlyTheEdgeOff();
};

void tst_spraycoverage::nothingIsCoveredAtFirst()
{
    QVERIFY(spraycoverage(QRect(0, 0, 100, 100)).rectangles().isEmpty());
}

void tst_spraycoverage::eachPixelUnderADiscIsCoveredOnce_data()
{
    QTest::addColumn<int>("across");
    QTest::addColumn<int>("chains");
    QTest::newRow("one chain of small discs") << 2 << 1;
    QTest::newRow("some chains") << 9 << 12;
    QTest::newRow("wide discs") << 250 << 5;
    QTest::newRow("more spans than are kept unmerged") << 3 << 4000;
}

void tst_spraycoverage::eachPixelUnderADiscIsCoveredOnce()
{
    QFETCH(int, across);
    QFETCH(int, chains);
    const QSize size(150, 110);
    const discshape shape(across);
    randompainting random(99);
    for (int round = 0; round < 3; ++round) {
        spraycoverage coverage(QRect(QPoint(0, 0), size));
        QList<discchain> added;
        for (int i = 0; i < chains; ++i) {
            added.append(discchain(random.point(size, 70), random.point(size, 70)));
            coverage.add(shape, added.last());
        }
        QCOMPARE(counts(coverage.rectangles(), size), discs(added, shape, size));
    }
}

void tst_spraycoverage::onlyTheAreaIsLookedAt()
{
    const QRect area(30, 20, 50, 40);
    spraycoverage coverage(area);
    coverage.add(discshape(30), discchain(QPoint(0, 0), QPoint(150, 110)));
    const QVector<QRect> rectangles = coverage.rectangles();
    QVERIFY(!rectangles.isEmpty());
    for (const QRect& rectangle : rectangles)
        QVERIFY(area.contains(rectangle));
}

void tst_spraycoverage::everythingCoveredIsOneRectangleARow()
{
    const QRect area(0, 0, 120, 90);
    spraycoverage coverage(area);
    coverage.add(discshape(1000), discchain(QPoint(-500, 40), QPoint(700, 50)));
    coverage.add(discshape(1000), discchain(QPoint(60, -900), QPoint(60, 900)));
    const QVector<QRect> rectangles = coverage.rectangles();
    QCOMPARE(rectangles.size(), 90);
    for (int row = 0; row < 90; ++row)
        QCOMPARE(rectangles.at(row), QRect(0, row, 120, 1));
}

void tst_spraycoverage::emptyAreaAndEmptyDiscsCoverNothing()
{
    const discchain chain(QPoint(0, 0), QPoint(50, 50));
    spraycoverage nowhere((QRect()));
    nowhere.add(discshape(10), chain);
    QVERIFY(nowhere.rectangles().isEmpty());
    spraycoverage coverage(QRect(0, 0, 50, 50));
    coverage.add(discshape(0.5), chain);
    coverage.add(discshape(1), chain);
    QVERIFY(coverage.rectangles().isEmpty());
}

void tst_spraycoverage::discsTakenTogetherLeaveOnlyTheEdgeOff()
{
    const QSize size(300, 200);
    const QRect area(QPoint(0, 0), size);
    randompainting random(5);
    int left = 0;
    for (int round = 0; round < 20; ++round) {
        const discshape shape(2000);
        const discchain chain(random.point(size, 2000), random.point(size, 2000));
        spraycoverage each(area);
        each.add(shape, chain);
        spraycoverage fewer(area);
        // Discs that lie up to two pixels apart, so that a chord between those that are left is 2 * 31 long.
        fewer.add(shape, chain, 31);
        const QVector<int> exact = counts(each.rectangles(), size);
        const QVector<int> rough = counts(fewer.rectangles(), size);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                const int place = y * size.width() + x;
                QVERIFY(rough.at(place) <= exact.at(place));
                if (rough.at(place) == exact.at(place))
                    continue;
                ++left;
                bool besideCovered = false;
                for (const QPoint& step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
                    const QPoint beside = QPoint(x, y) + step;
                    // What lies outside may be covered.
                    besideCovered =
                        besideCovered || !area.contains(beside) || rough.at(beside.y() * size.width() + beside.x()) > 0;
                }
                QVERIFY2(besideCovered, qPrintable(QString("%1, %2 in round %3").arg(x).arg(y).arg(round)));
            }
        }
    }
    QVERIFY(left > 0);
}

QTEST_MAIN(tst_spraycoverage)
#include "tst_spraycoverage.moc"
