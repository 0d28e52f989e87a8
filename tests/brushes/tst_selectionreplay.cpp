#include "brushes/selectionbrush.h"

#include "literalbrushes.h"
#include "painted.h"
#include "randompainting.h"

#include <QtTest>

#include <limits>

namespace {

constexpr QSize small(120, 90);
constexpr int largest = std::numeric_limits<int>::max();
constexpr int smallest = std::numeric_limits<int>::min();

} // namespace

/// Moves of peers, each on an opaque canvas and on one over a background.
class tst_selectionreplay : public QObject {
    Q_OBJECT

private slots:
    void initTestCase_data();
    void init();
    void replayDemandsFourPoints_data();
    void replayDemandsFourPoints();
    void replayIsTheLiteralMove();
    void replayOfAnEmptyAreaCopiesTheWholePicture();
    void hostileReplayErasesAndMoves();

private:
    QImage replayed(const QImage& before, const QList<QPoint>& points);
    QRgb erased() const { return opaque ? 0xffffffff : 0; }

    bool opaque = true;
};

void tst_selectionreplay::initTestCase_data()
{
    QTest::addColumn<bool>("opaque");
    QTest::newRow("opaque canvas") << true;
    QTest::newRow("over a background") << false;
}

void tst_selectionreplay::init()
{
    QFETCH_GLOBAL(bool, opaque);
    this->opaque = opaque;
}

QImage tst_selectionreplay::replayed(const QImage& before, const QList<QPoint>& points)
{
    selectionbrush tool;
    QImage after = before;
    {
        QPainter painter(&after);
        tool.replay(after, &painter, points, opaque);
    }
    return after;
}

void tst_selectionreplay::replayDemandsFourPoints_data()
{
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, 2, 3, 5, 8})
        QTest::newRow(qPrintable(QString::number(count))) << count;
}

void tst_selectionreplay::replayDemandsFourPoints()
{
    QFETCH(int, count);
    const QList<QPoint> many{QPoint(10, 20), QPoint(60, 50), QPoint(30, 30), QPoint(55, 45),
                             QPoint(1, 1),   QPoint(2, 2),   QPoint(3, 3),   QPoint(4, 4)};
    QCOMPARE(replayed(numberedCanvas(), many.mid(0, count)), numberedCanvas());
    QVERIFY(replayed(numberedCanvas(), many.mid(0, 4)) != numberedCanvas());
}

void tst_selectionreplay::replayIsTheLiteralMove()
{
    randompainting random(62);
    for (int round = 0; round < 300; ++round) {
        const QImage before = random.picture(small);
        QList<QPoint> points;
        for (int i = 0; i < 4; ++i)
            points.append(random.point(small, 80));
        if (random.chance(3))
            points[1] = points[0] + QPoint(random.number(-2, 2), random.number(-2, 2));
        QImage expected = before;
        literal::moveArea(&expected, points[0], points[1], points[2], points[3], opaque);
        QCOMPARE(replayed(before, points), expected);
    }
}

void tst_selectionreplay::replayOfAnEmptyAreaCopiesTheWholePicture()
{
    const QList<QPoint> points{QPoint(50, 50), QPoint(49, 49), QPoint(50, 50), QPoint(10, 5)};
    QImage expected = numberedCanvas();
    literal::moveArea(&expected, points[0], points[1], points[2], points[3], opaque);
    QCOMPARE(replayed(numberedCanvas(), points), expected);
    QCOMPARE(expected.pixel(110, 80), numberedCanvas().pixel(100, 75));
}

void tst_selectionreplay::hostileReplayErasesAndMoves()
{
    QImage empty(small, QImage::Format_ARGB32);
    empty.fill(erased());
    const QPoint lowest(smallest, smallest);
    const QPoint highest(largest, largest);
    // All that there is lies in the area, and stays where it is, comes down by one, or goes far away.
    QCOMPARE(replayed(numberedCanvas(), {lowest, highest, QPoint(5, 5), QPoint(5, 5)}), numberedCanvas());
    const QImage down = replayed(numberedCanvas(), {lowest, highest, QPoint(5, 5), QPoint(5, 6)});
    QCOMPARE(down.copy(0, 1, 120, 89), numberedCanvas().copy(0, 0, 120, 89));
    QCOMPARE(down.pixel(60, 0), erased());
    QCOMPARE(replayed(numberedCanvas(), {lowest, highest, lowest, highest}), empty);
    QCOMPARE(replayed(numberedCanvas(), {lowest, highest, highest, lowest}), empty);
    // Upside down it is erased all the same, and nothing is carried.
    QCOMPARE(replayed(numberedCanvas(), {highest, lowest, lowest, highest}), empty);
    // An area beside the canvas leaves it as it is.
    QCOMPARE(replayed(numberedCanvas(), {QPoint(smallest, 0), QPoint(-1, largest), QPoint(0, 0), QPoint(largest, 0)}),
             numberedCanvas());
    QCOMPARE(replayed(numberedCanvas(), {QPoint(largest, largest), QPoint(largest, largest), lowest, QPoint(0, 0)}),
             numberedCanvas());
}

QTEST_MAIN(tst_selectionreplay)
#include "tst_selectionreplay.moc"
