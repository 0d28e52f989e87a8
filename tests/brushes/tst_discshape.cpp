#include "brushes/discshape.h"

#include "painted.h"

#include <QtTest>

#include <algorithm>
#include <limits>

namespace {

/// Pixels of the rows as the shape tells them, for a disc in the box at this corner.
QImage fromRows(const discshape& shape, const QSize& size, const QPoint& corner)
{
    QImage canvas = whiteCanvas(size);
    for (int row = 0; row < shape.size(); ++row) {
        const int inset = shape.rows()[static_cast<std::size_t>(row)];
        const int y = corner.y() + row;
        if (y < 0 || y >= canvas.height())
            continue;
        const int end = std::min(corner.x() + shape.size() - inset, canvas.width());
        for (int x = std::max(corner.x() + inset, 0); x < end; ++x)
            canvas.setPixel(x, y, 0xff000000);
    }
    return canvas;
}

QImage fromToolkit(int across, const QSize& size, const QPoint& corner)
{
    return painted(whiteCanvas(size), [&](QPainter* painter) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(Qt::black);
        painter->drawEllipse(QRect(corner, QSize(across, across)));
    });
}

} // namespace

class tst_discshape : public QObject {
    Q_OBJECT

private slots:
    void rowsAreThoseOfTheToolkit();
    void rowsOfWideDiscsAreThoseOfTheToolkit_data();
    void rowsOfWideDiscsAreThoseOfTheToolkit();
    void boxIsCutTowardZero_data();
    void boxIsCutTowardZero();
    void neighboursInAChainTouchInEachRowTheyShare();
    void everyBoxThatTouchesIsInReach();
    void widthsBeyondTheWidestAreTakenAsTheWidest_data();
    void widthsBeyondTheWidestAreTakenAsTheWidest();
};

void tst_discshape::rowsAreThoseOfTheToolkit()
{
    for (int across = 1; across <= 260; ++across) {
        const QSize size(across + 6, across + 6);
        const discshape shape(across);
        QCOMPARE(shape.size(), across);
        QCOMPARE(fromRows(shape, size, QPoint(3, 3)), fromToolkit(across, size, QPoint(3, 3)));
    }
}

void tst_discshape::rowsOfWideDiscsAreThoseOfTheToolkit_data()
{
    QTest::addColumn<int>("across");
    for (const int across : {511, 512, 1000, 1023, 4000, 4001, 10001, 16383, 16384})
        QTest::newRow(qPrintable(QString::number(across))) << across;
}

void tst_discshape::rowsOfWideDiscsAreThoseOfTheToolkit()
{
    QFETCH(int, across);
    const discshape shape(across);
    const QSize size(300, 200);
    const int diagonal = static_cast<int>(across * 0.146);
    for (const QPoint& corner : {QPoint(-diagonal, -diagonal), QPoint(5, -across / 2), QPoint(-across / 2, 5),
                                 QPoint(150 - across, 100 - across / 2), QPoint(150 - across / 2, 195 - across)})
        QCOMPARE(fromRows(shape, size, corner), fromToolkit(across, size, corner));
}

void tst_discshape::boxIsCutTowardZero_data()
{
    QTest::addColumn<qreal>("thick");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<QRect>("box");
    QTest::newRow("whole") << 4.0 << QPoint(10, 20) << QRect(8, 18, 4, 4);
    QTest::newRow("fraction") << 2.5 << QPoint(10, 20) << QRect(8, 18, 2, 2);
    QTest::newRow("across the edge") << 3.0 << QPoint(1, 2) << QRect(0, 0, 3, 3);
    QTest::newRow("beyond the edge") << 3.0 << QPoint(-1, -2) << QRect(-2, -3, 3, 3);
    QTest::newRow("below one") << 0.9 << QPoint(10, 20) << QRect(9, 19, 0, 0);
    QTest::newRow("negative") << -5.0 << QPoint(10, 20) << QRect(QPoint(6, 16), QPoint(12, 22));
}

void tst_discshape::boxIsCutTowardZero()
{
    QFETCH(qreal, thick);
    QFETCH(QPoint, place);
    QFETCH(QRect, box);
    QCOMPARE(discshape(thick).boxAround(place), box);
    QCOMPARE(discshape(thick).size(), box.width());
}

void tst_discshape::neighboursInAChainTouchInEachRowTheyShare()
{
    for (int across = 1; across < 400; ++across) {
        const discshape shape(across);
        const auto& rows = shape.rows();
        // Neighbours lie no further apart than two pixels in each direction.
        for (std::size_t down = 0; down <= 2; ++down) {
            for (std::size_t row = down; row < rows.size(); ++row) {
                const bool bothHavePixels = rows[row] < across && rows[row - down] < across;
                if (bothHavePixels)
                    QVERIFY(2 + rows[row - down] <= across - rows[row]);
            }
        }
    }
}

void tst_discshape::everyBoxThatTouchesIsInReach()
{
    const QRect picture(0, 0, 40, 30);
    for (const qreal thick : {1.0, 2.0, 2.9, 7.5, 30.0, -9.5}) {
        const discshape shape(thick);
        for (int x = -40; x < 80; ++x) {
            const QPoint place(x, 10);
            if (shape.boxAround(place).intersects(picture))
                QVERIFY(shape.reachOf(picture).contains(place));
        }
    }
}

void tst_discshape::widthsBeyondTheWidestAreTakenAsTheWidest_data()
{
    QTest::addColumn<qreal>("thick");
    QTest::addColumn<int>("size");
    QTest::newRow("one more") << qreal(discshape::widest + 1) << discshape::widest;
    QTest::newRow("a thousand million") << 1e9 << discshape::widest;
    QTest::newRow("more than any integer") << 1e300 << discshape::widest;
    QTest::newRow("no end") << std::numeric_limits<qreal>::infinity() << discshape::widest;
    QTest::newRow("no beginning") << -std::numeric_limits<qreal>::infinity() << discshape::widest;
    QTest::newRow("no number") << std::numeric_limits<qreal>::quiet_NaN() << 0;
}

void tst_discshape::widthsBeyondTheWidestAreTakenAsTheWidest()
{
    QFETCH(qreal, thick);
    QFETCH(int, size);
    const discshape shape(thick);
    QCOMPARE(shape.size(), size);
    // Beside the edges of 32 bits the box is held back, and nothing overflows.
    const int largest = std::numeric_limits<int>::max();
    const int smallest = std::numeric_limits<int>::min();
    for (const QPoint& place : {QPoint(0, 0), QPoint(largest, smallest), QPoint(smallest, largest)})
        QVERIFY(shape.boxAround(place).width() <= std::max(size, 1));
}

QTEST_MAIN(tst_discshape)
#include "tst_discshape.moc"
