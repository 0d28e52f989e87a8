#include "brushes/strokestamps.h"

#include "brushes/eraserbrush.h"
#include "brushes/pencilbrush.h"
#include "brushes/strokes.h"
#include "literalbrushes.h"
#include "painted.h"
#include "randompainting.h"

#include <QtTest>

namespace {

constexpr QSize size(700, 600);

// A shape is seen, then measured and laid.
bool laidAtLast(strokestamps* stamps, QPainter* painter, const QLine& line)
{
    stamps->begin(painter);
    stamps->lay(line);
    return stamps->lay(line);
}

QList<QPoint> movedBy(QList<QPoint> points, const QPoint& way)
{
    for (QPoint& point : points)
        point += way;
    return points;
}

} // namespace

class tst_strokestamps : public QObject {
    Q_OBJECT

private slots:
    void aNewShapeIsLeftToTheCaller();
    void aKnownShapeIsLaidAsTheToolkitPaintsIt();
    void aWidthOfItsOwnMakesAShapeOfItsOwn();
    void whatDoesNotLieWithinIsLeftToTheCaller();
    void farAndWideShapesAreLeftToTheCaller();
    void painterThatDoesMoreIsLeftToTheCaller();
    void shapesAreForgottenBeforeTheyFillTheMemory();
    void pencilThatKnowsItsStepsPaintsTheLiteralPath();
    void eraserThatKnowsItsStepsPaintsTheLiteralPath();
    void colorsOf16BitsAreRoundedAsTheToolkitDoes();
    void nothingIsLaidWhereThePainterDoesNotReach();
};

void tst_strokestamps::aNewShapeIsLeftToTheCaller()
{
    QImage picture = whiteCanvas(size);
    const QImage before = picture.copy();
    QPainter painter(&picture);
    painter.setPen(strokes::pen(Qt::red, 5));
    strokestamps stamps;
    stamps.begin(&painter);
    QVERIFY(!stamps.lay(QLine(100, 100, 105, 103)));
    QVERIFY(!stamps.lay(QPoint(100, 100)));
    QCOMPARE(picture, before);
    // Another place, the same shape.
    QVERIFY(stamps.lay(QLine(300, 150, 305, 153)));
    QVERIFY(stamps.lay(QPoint(10, 400)));
    // Back again is another shape: the toolkit begins at its first position.
    QVERIFY(!stamps.lay(QLine(305, 153, 300, 150)));
}

void tst_strokestamps::aKnownShapeIsLaidAsTheToolkitPaintsIt()
{
    randompainting random(31);
    strokestamps stamps;
    QImage laid = whiteCanvas(size);
    QImage expected = laid.copy();
    QPainter painter(&laid);
    QPainter plain(&expected);
    for (int round = 0; round < 4000; ++round) {
        // Threes and fours give slopes whose edges lie on the borders of pixels.
        const bool square = random.chance(3);
        const QPoint step = square ? QPoint(3 * random.number(-6, 6), 4 * random.number(-6, 6))
                                   : QPoint(random.number(-64, 64), random.number(-64, 64));
        const qreal width = random.chance(2) ? random.number(11, 600) / 10.0 : random.number(3, 120) / 2.0;
        const QPen pen = strokes::pen(random.opaqueColor(), width);
        painter.setPen(pen);
        plain.setPen(pen);
        if (round % 50 == 0)
            stamps = strokestamps();
        stamps.begin(&painter);
        for (int place = 0; place < 3; ++place) {
            const QPoint from(random.number(100, 590), random.number(100, 490));
            const bool dotLaid = stamps.lay(from);
            const bool lineLaid = stamps.lay(QLine(from, from + step));
            if (dotLaid)
                plain.drawPoint(from);
            if (lineLaid)
                plain.drawLine(from, from + step);
            QVERIFY(place == 0 || (dotLaid && lineLaid));
        }
        // Before other shapes hide a pixel too many or too few.
        if (round % 10 == 0)
            QCOMPARE(laid, expected);
    }
    QCOMPARE(laid, expected);
}

void tst_strokestamps::aWidthOfItsOwnMakesAShapeOfItsOwn()
{
    QImage picture = whiteCanvas(size);
    QPainter painter(&picture);
    strokestamps stamps;
    painter.setPen(strokes::pen(Qt::red, 5));
    QVERIFY(laidAtLast(&stamps, &painter, QLine(100, 100, 105, 103)));
    painter.setPen(strokes::pen(Qt::red, 5.1));
    stamps.begin(&painter);
    QVERIFY(!stamps.lay(QLine(100, 100, 105, 103)));
}

void tst_strokestamps::whatDoesNotLieWithinIsLeftToTheCaller()
{
    QImage picture = whiteCanvas(size);
    QPainter painter(&picture);
    painter.setPen(strokes::pen(Qt::red, 20));
    strokestamps stamps;
    QVERIFY(laidAtLast(&stamps, &painter, QLine(100, 100, 105, 103)));
    const QImage before = picture.copy();
    const QPoint outside[] = {{0, 100},   {9, 100},           {690, 100},        {700, 100}, {100, 4},
                              {100, 590}, {-2000000000, 300}, {300, 2147483647}, {100, 600}, {2147483647, 2000}};
    for (const QPoint& place : outside) {
        const QPoint step(place.x() > 1000 ? -5 : 5, place.y() > 1000 ? 0 : 3);
        QVERIFY(!stamps.lay(QLine(place, place + step)));
        QVERIFY(!stamps.lay(place));
        QVERIFY(!stamps.lay(place));
    }
    QCOMPARE(picture, before);
}

void tst_strokestamps::farAndWideShapesAreLeftToTheCaller()
{
    QImage picture = whiteCanvas(size);
    QPainter painter(&picture);
    strokestamps stamps;
    painter.setPen(strokes::pen(Qt::red, 5));
    QVERIFY(!laidAtLast(&stamps, &painter, QLine(100, 100, 165, 100)));
    for (const qreal width : {0.0, 1.0, -5.0, 200.5, 1e9}) {
        painter.setPen(strokes::pen(Qt::red, width));
        QVERIFY(!laidAtLast(&stamps, &painter, QLine(300, 300, 303, 300)));
    }
}

void tst_strokestamps::painterThatDoesMoreIsLeftToTheCaller()
{
    QImage picture = whiteCanvas(size);
    const QLine line(300, 300, 303, 300);
    strokestamps stamps;
    const auto laidWith = [&](const std::function<void(QPainter&)>& set) {
        QPainter painter(&picture);
        painter.setPen(strokes::pen(Qt::red, 5));
        set(painter);
        return laidAtLast(&stamps, &painter, line);
    };
    QVERIFY(laidWith([](QPainter&) {}));
    QVERIFY(laidWith([](QPainter& painter) { painter.setCompositionMode(QPainter::CompositionMode_Clear); }));
    QVERIFY(!laidWith([](QPainter& painter) { painter.setCompositionMode(QPainter::CompositionMode_Xor); }));
    QVERIFY(!laidWith([](QPainter& painter) { painter.setClipRect(0, 0, 301, 301); }));
    QVERIFY(!laidWith([](QPainter& painter) { painter.setOpacity(0.5); }));
    QVERIFY(!laidWith([](QPainter& painter) { painter.translate(1, 0); }));
    QVERIFY(!laidWith([](QPainter& painter) { painter.setRenderHint(QPainter::Antialiasing); }));
    picture = QImage(size, QImage::Format_RGB16);
    QVERIFY(!laidWith([](QPainter&) {}));
}

void tst_strokestamps::shapesAreForgottenBeforeTheyFillTheMemory()
{
    QImage picture = whiteCanvas(size);
    QPainter painter(&picture);
    painter.setPen(strokes::pen(Qt::red, 5));
    strokestamps stamps;
    const QLine line(300, 300, 303, 300);
    QVERIFY(laidAtLast(&stamps, &painter, line));
    for (int dx = -64; dx <= 64; ++dx) {
        for (int dy = -64; dy <= 64; ++dy) {
            if (QPoint(dx, dy) != QPoint(3, 0))
                stamps.lay(QLine(300, 300, 300 + dx, 300 + dy));
        }
    }
    QVERIFY(!stamps.lay(line));
    QVERIFY(stamps.lay(line));
}

void tst_strokestamps::pencilThatKnowsItsStepsPaintsTheLiteralPath()
{
    randompainting random(32);
    pencilbrush pencil;
    const QImage canvas = random.picture(size);
    for (int round = 0; round < 60; ++round) {
        const QList<QPoint> stroke = random.stroke(20, size, 30);
        const QColor color = random.chance(4) ? random.translucentColor() : random.opaqueColor();
        const qreal width = random.honestWidth();
        for (int time = 0; time < 3; ++time) {
            const QList<QPoint> points = movedBy(stroke, QPoint(7 * time, 5 * time));
            const QImage replayed =
                painted(canvas, [&](QPainter* painter) { pencil.replay(painter, color, width, points); });
            QCOMPARE(replayed,
                     painted(canvas, [&](QPainter* painter) { literal::pencil(painter, color, width, points); }));
        }
    }
}

void tst_strokestamps::eraserThatKnowsItsStepsPaintsTheLiteralPath()
{
    randompainting random(33);
    eraserbrush eraser;
    const QImage canvas = random.picture(size);
    for (int round = 0; round < 60; ++round) {
        const QList<QPoint> stroke = random.stroke(20, size, 30);
        const bool opaque = random.chance(2);
        const qreal width = random.honestWidth();
        for (int time = 0; time < 3; ++time) {
            const QList<QPoint> points = movedBy(stroke, QPoint(7 * time, 5 * time));
            const QImage replayed =
                painted(canvas, [&](QPainter* painter) { eraser.replay(painter, Qt::red, width, points, opaque); });
            QCOMPARE(replayed,
                     painted(canvas, [&](QPainter* painter) { literal::eraser(painter, width, points, opaque); }));
        }
    }
}

void tst_strokestamps::colorsOf16BitsAreRoundedAsTheToolkitDoes()
{
    randompainting random(34);
    for (int round = 0; round < 200; ++round) {
        QColor color;
        color.setRgba64(qRgba64(static_cast<quint16>(random.number(0, 65535)),
                                static_cast<quint16>(random.number(0, 65535)),
                                static_cast<quint16>(random.number(0, 65535)), 65535));
        QImage laid = whiteCanvas(size);
        QImage expected = laid.copy();
        QPainter painter(&laid);
        painter.setPen(strokes::pen(color, 5));
        strokestamps stamps;
        QVERIFY(laidAtLast(&stamps, &painter, QLine(300, 300, 303, 300)));
        QPainter plain(&expected);
        plain.setPen(strokes::pen(color, 5));
        plain.drawLine(300, 300, 303, 300);
        QCOMPARE(laid.pixel(301, 300), expected.pixel(301, 300));
    }
}

void tst_strokestamps::nothingIsLaidWhereThePainterDoesNotReach()
{
    const QImage canvas = whiteCanvas(QSize(33000, 40));
    pencilbrush pencil;
    QList<QPoint> points;
    for (int i = 0; i < 20; ++i)
        points.append(QPoint(32700 + 9 * i, 20));
    const QImage replayed = painted(canvas, [&](QPainter* painter) { pencil.replay(painter, Qt::red, 9, points); });
    QCOMPARE(replayed, painted(canvas, [&](QPainter* painter) { literal::pencil(painter, Qt::red, 9, points); }));
    QCOMPARE(replayed.pixel(32766, 20), QColor(Qt::red).rgb());
    QCOMPARE(replayed.pixel(32767, 20), QColor(Qt::white).rgb());
}

QTEST_GUILESS_MAIN(tst_strokestamps)
#include "tst_strokestamps.moc"
