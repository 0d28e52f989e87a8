#include "randompainting.h"
#include "sprayedstrokes.h"

#include <QtTest>

#include <cstdlib>
#include <limits>

namespace {

constexpr QSize small(120, 90);
constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

} // namespace

class tst_airbrushreplay : public QObject {
    Q_OBJECT

private slots:
    void replayDemandsThreePoints_data();
    void replayDemandsThreePoints();
    void replayIsTheLiteralSegments_data();
    void replayIsTheLiteralSegments();
    void narrowReplayIsTheLiteralSegments();
    void wideReplayIsTheLiteralSegments();
    void negativeWidthIsPaintedLikeTheLiteralSegments();
    void farReplayPaintsWhatPassesOverTheCanvas();
    void hostileWidths_data();
    void hostileWidths();
};

void tst_airbrushreplay::replayDemandsThreePoints_data()
{
    QTest::addColumn<QList<QPoint>>("points");
    QTest::newRow("none") << QList<QPoint>();
    QTest::newRow("one") << QList<QPoint>{QPoint(5, 5)};
    QTest::newRow("two") << QList<QPoint>{QPoint(5, 5), QPoint(50, 50)};
}

void tst_airbrushreplay::replayDemandsThreePoints()
{
    QFETCH(QList<QPoint>, points);
    srand(seed);
    const int first = rand();
    QCOMPARE(replayed(whiteCanvas(), Qt::red, 20, points), whiteCanvas());
    QCOMPARE(rand(), first);
}

void tst_airbrushreplay::replayIsTheLiteralSegments_data()
{
    QTest::addColumn<QString>("canvas");
    QTest::addColumn<bool>("translucent");
    QTest::newRow("white canvas") << "white" << false;
    QTest::newRow("canvas over a background") << "clear" << false;
    QTest::newRow("picture with half-transparent pixels") << "picture" << false;
    QTest::newRow("half-transparent colour, white canvas") << "white" << true;
    QTest::newRow("half-transparent colour, canvas over a background") << "clear" << true;
}

void tst_airbrushreplay::replayIsTheLiteralSegments()
{
    QFETCH(QString, canvas);
    QFETCH(bool, translucent);
    randompainting random(42);
    for (int round = 0; round < 30; ++round) {
        const QImage before = canvas == "white" ? whiteCanvas()
            : canvas == "clear"                 ? clearCanvas()
                                                : random.picture(small);
        const QList<QPoint> path = random.stroke(random.number(3, 12), small, 60);
        const QColor color = translucent ? random.translucentColor() : random.opaqueColor();
        const qreal thick = random.honestWidth();
        QCOMPARE(replayed(before, color, thick, path), literally(before, color, thick, path));
    }
}

void tst_airbrushreplay::narrowReplayIsTheLiteralSegments()
{
    randompainting random(43);
    for (int tenth = 0; tenth <= 120; ++tenth) {
        const QList<QPoint> path = random.stroke(12, small, 40);
        QCOMPARE(replayed(clearCanvas(), Qt::red, tenth / 10.0, path),
                 literally(clearCanvas(), Qt::red, tenth / 10.0, path));
    }
}

void tst_airbrushreplay::wideReplayIsTheLiteralSegments()
{
    randompainting random(44);
    for (const int width : {201, 777, 4000, 16384}) {
        const int reach = width / 2 + 40;
        const QList<QPoint> path{QPoint(60, 45), QPoint(-reach, random.number(-300, 300)),
                                 QPoint(random.number(-300, 300), reach), QPoint(random.number(-300, 300), reach - 60)};
        QCOMPARE(replayed(whiteCanvas(), Qt::red, width, path), literally(whiteCanvas(), Qt::red, width, path));
        const QList<QPoint> edge = path.mid(1);
        QCOMPARE(replayed(whiteCanvas(), Qt::red, width, edge), literally(whiteCanvas(), Qt::red, width, edge));
    }
}

void tst_airbrushreplay::negativeWidthIsPaintedLikeTheLiteralSegments()
{
    randompainting random(45);
    for (const qreal thick : {-0.5, -1.0, -1.5, -2.0, -5.7, -30.0, -31.0}) {
        const QList<QPoint> path = random.stroke(5, small, 20);
        QCOMPARE(replayed(whiteCanvas(), Qt::red, thick, path), literally(whiteCanvas(), Qt::red, thick, path));
    }
}

void tst_airbrushreplay::farReplayPaintsWhatPassesOverTheCanvas()
{
    // The chains have up to 2^32 discs, which nothing could paint one by one.
    const QList<QPoint> flat{QPoint(smallest, 45), QPoint(largest, 45), QPoint(smallest, 45)};
    const QImage across = replayed(whiteCanvas(), Qt::red, 10, flat);
    int rows = 0;
    for (int y = 0; y < small.height(); ++y) {
        int pixels = 0;
        for (int x = 0; x < small.width(); ++x)
            pixels += across.pixel(x, y) != 0xffffffff;
        rows += pixels > 0;
        if (pixels > 0)
            QVERIFY(y >= 40 && y <= 49);
    }
    QVERIFY(rows >= 5);
    const QList<QPoint> aside{QPoint(smallest, smallest), QPoint(smallest, largest), QPoint(largest, largest)};
    QCOMPARE(replayed(whiteCanvas(), Qt::red, 10, aside), whiteCanvas());
    const QList<QPoint> diagonal{QPoint(smallest, smallest), QPoint(largest, largest), QPoint(smallest, smallest)};
    QVERIFY(paintedPixels(replayed(whiteCanvas(), Qt::red, 10, diagonal)) > 100);
    QVERIFY(paintedPixels(replayed(whiteCanvas(), QColor(255, 0, 0, 99), 10, diagonal)) > 100);
}

void tst_airbrushreplay::hostileWidths_data()
{
    QTest::addColumn<qreal>("thick");
    QTest::addColumn<bool>("paints");
    QTest::newRow("no number") << std::numeric_limits<qreal>::quiet_NaN() << false;
    QTest::newRow("no end") << std::numeric_limits<qreal>::infinity() << true;
    QTest::newRow("no beginning") << -std::numeric_limits<qreal>::infinity() << true;
    QTest::newRow("more than 32 bits") << 1e300 << true;
    QTest::newRow("a thousand million") << 1e9 << true;
    QTest::newRow("wider than the widest disc") << 32767.0 << true;
}

void tst_airbrushreplay::hostileWidths()
{
    QFETCH(qreal, thick);
    QFETCH(bool, paints);
    const QList<QPoint> path{QPoint(10, 10), QPoint(50, 50), QPoint(90, 20)};
    const QImage expected = paints ? literally(whiteCanvas(), Qt::red, 1000, path) : whiteCanvas();
    QCOMPARE(replayed(whiteCanvas(), Qt::red, thick, path), expected);
    randompainting random(46);
    for (int round = 0; round < 5; ++round) {
        const QList<QPoint> far = random.hostileStroke(6);
        QCOMPARE(replayed(whiteCanvas(), Qt::red, thick, far).size(), small);
    }
}

QTEST_MAIN(tst_airbrushreplay)
#include "tst_airbrushreplay.moc"
