#include "canvas/strokebounds.h"

#include "brushes/airbrushbrush.h"
#include "brushes/pencilbrush.h"

#include <QPainter>
#include <QRandomGenerator>
#include <QtTest>

#include <limits>

namespace {

constexpr int most = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();
const QRect limits(0, 0, 200, 150);

QRect paintedArea(brush& tool, const QList<QPoint>& path, qreal thickness)
{
    QImage image(limits.size(), QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    tool.replay(&painter, Qt::black, thickness, path);
    painter.end();
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != 0xffffffff) {
                area |= QRect(x, y, 1, 1);
            }
        }
    }
    return area;
}

} // namespace

class tst_strokebounds : public QObject {
    Q_OBJECT
private slots:
    void holdAllThatIsPainted_data();
    void holdAllThatIsPainted();
    void areSmallForASmallStroke();
    void areEmptyWhereNothingIsPainted();
    void anyNumbersWillDo_data();
    void anyNumbersWillDo();
};

void tst_strokebounds::holdAllThatIsPainted_data()
{
    QTest::addColumn<double>("thickness");
    for (const double thickness : {0.0, 0.1, 1.0, 1.5, 2.0, 2.5, 9.0, 33.3, 200.0, -7.0}) {
        QTest::addRow("%g", thickness) << thickness;
    }
}

void tst_strokebounds::holdAllThatIsPainted()
{
    QFETCH(double, thickness);
    QRandomGenerator random(4);
    pencilbrush pencil;
    airbrushbrush airbrush;
    for (int round = 0; round < 30; ++round) {
        QList<QPoint> path;
        const QPoint start(random.bounded(-20, 220), random.bounded(-20, 170));
        for (int i = 0; i < 4; ++i) {
            path.append(start + QPoint(random.bounded(-15, 15), random.bounded(-15, 15)));
        }
        const QRect bounds = strokeBounds(path, thickness, limits);
        const QRect painted = paintedArea(pencil, path, thickness) | paintedArea(airbrush, path, thickness);
        QVERIFY(painted.isEmpty() || bounds.contains(painted));
        QVERIFY(bounds.isEmpty() || limits.contains(bounds));
    }
}

void tst_strokebounds::areSmallForASmallStroke()
{
    QCOMPARE(strokeBounds({QPoint(50, 60), QPoint(70, 61)}, 10, limits), QRect(QPoint(43, 53), QPoint(77, 68)));
}

void tst_strokebounds::areEmptyWhereNothingIsPainted()
{
    QVERIFY(strokeBounds({}, 10, limits).isEmpty());
    QVERIFY(strokeBounds({QPoint(-50, 20)}, 10, limits).isEmpty());
    QVERIFY(strokeBounds({QPoint(50, 20)}, 10, QRect()).isEmpty());
}

void tst_strokebounds::anyNumbersWillDo_data()
{
    QTest::addColumn<QList<QPoint>>("path");
    QTest::addColumn<double>("thickness");
    const QList<QPoint> inside{QPoint(10, 10)};
    QTest::newRow("no number") << inside << std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("infinite") << inside << std::numeric_limits<double>::infinity();
    QTest::newRow("minus infinite") << inside << -std::numeric_limits<double>::infinity();
    QTest::newRow("1e300") << inside << 1e300;
    QTest::newRow("1e9") << inside << 1e9;
    QTest::newRow("from edge to edge") << QList<QPoint>{QPoint(least, least), QPoint(most, most)} << 5.0;
}

void tst_strokebounds::anyNumbersWillDo()
{
    QFETCH(QList<QPoint>, path);
    QFETCH(double, thickness);
    QCOMPARE(strokeBounds(path, thickness, limits), limits);
}

QTEST_MAIN(tst_strokebounds)
#include "tst_strokebounds.moc"
