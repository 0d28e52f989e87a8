#include "repaintwatch.h"
#include "replaytest.h"
#include "warningcount.h"

#include <limits>

namespace {

constexpr int most = std::numeric_limits<int>::max();
constexpr int least = std::numeric_limits<int>::min();

} // namespace

/// Strokes that peers send, and messages with any numbers and any text in them.
class tst_paintscenereplay : public replaytest {
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(writeBackground()); }
    void init() { begin(); }

    void clearBringsTheReceiversOwnClearValue();
    void drawOfAToolThatDoesNotTravelSoChangesNothing_data();
    void drawOfAToolThatDoesNotTravelSoChangesNothing();
    void extendedDrawOfAToolThatDoesNotTravelSoChangesNothing_data();
    void extendedDrawOfAToolThatDoesNotTravelSoChangesNothing();
    void listsOfTheWrongLengthPaintNothing_data();
    void listsOfTheWrongLengthPaintNothing();
    void anAirbrushNeedsThreePoints();
    void theMarkIsReadForShapesOnly();
    void positionsOutsideAreClipped();
    void aStrokeHasTheWidthAndColourOfItsMessage();
    void theEraserTakesTheReceiversMode();
    void aMoveTakesTheReceiversMode();

    void anyNumbersWillDo_data();
    void anyNumbersWillDo();
    void anyDataWillDo_data();
    void anyDataWillDo();
};

void tst_paintscenereplay::clearBringsTheReceiversOwnClearValue()
{
    for (paintscene* receiver : {scene.data(), overBackground.data()}) {
        draw(*receiver, kelvortool::pencil, {QPoint(10, 10), QPoint(50, 50)});
        draw(*receiver, kelvortool::clear, {});
    }
    QImage blank(size, QImage::Format_ARGB32);
    blank.fill(white);
    QVERIFY(scene->picture() == blank);
    blank.fill(unpainted);
    QVERIFY(overBackground->picture() == blank);
    QCOMPARE(overBackground->grab().toImage().convertToFormat(QImage::Format_ARGB32), background);
    // Points that come with it are not looked at.
    draw(*scene, kelvortool::pencil, {QPoint(10, 10)});
    draw(*scene, kelvortool::clear, {QPoint(1, 1)});
    QCOMPARE(scene->picture().pixel(10, 10), white);
}

void tst_paintscenereplay::drawOfAToolThatDoesNotTravelSoChangesNothing_data()
{
    QTest::addColumn<int>("tool");
    for (const int tool : {-128, -1, 0, 1, 3, 10, 12, 13, 14, 15, 16, 17, 18, 127}) {
        QTest::addRow("%d", tool) << tool;
    }
}

void tst_paintscenereplay::drawOfAToolThatDoesNotTravelSoChangesNothing()
{
    QFETCH(int, tool);
    const QImage before = scene->picture().copy();
    repaintwatch watch(*scene);
    QVERIFY(watch.shown);
    for (const QList<QPoint>& points :
         {QList<QPoint>(), QList<QPoint>{QPoint(5, 5)}, QList<QPoint>{QPoint(5, 5), QPoint(50, 50)},
          QList<QPoint>{QPoint(5, 5), QPoint(50, 50), QPoint(6, 6), QPoint(9, 9)}}) {
        scene->applyDraw(static_cast<char>(tool), Qt::red, 9, points);
    }
    QVERIFY(scene->picture() == before);
    QVERIFY(watch.painted().isEmpty());
}

void tst_paintscenereplay::extendedDrawOfAToolThatDoesNotTravelSoChangesNothing_data()
{
    QTest::addColumn<int>("tool");
    for (const int tool : {-128, -1, 0, 1, 2, 4, 5, 6, 7, 8, 9, 11, 18, 127}) {
        QTest::addRow("%d", tool) << tool;
    }
}

void tst_paintscenereplay::extendedDrawOfAToolThatDoesNotTravelSoChangesNothing()
{
    QFETCH(int, tool);
    const QImage before = scene->picture().copy();
    repaintwatch watch(*scene);
    QVERIFY(watch.shown);
    for (const char* data : {"", "full", "0|0 50|50", "#ff0000 5|5", "#ff0000 3 0|0 50|50 text"}) {
        scene->applyExtendedDraw(static_cast<char>(tool), data);
    }
    QVERIFY(scene->picture() == before);
    QVERIFY(watch.painted().isEmpty());
}

void tst_paintscenereplay::listsOfTheWrongLengthPaintNothing_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::addColumn<QList<QPoint>>("points");
    const QPoint a(5, 5);
    const QPoint b(50, 50);
    for (const kelvortool tool : {kelvortool::pencil, kelvortool::line, kelvortool::rect, kelvortool::ellipse,
                                  kelvortool::eraser, kelvortool::airbrush, kelvortool::select}) {
        QTest::addRow("tool %d, no points", static_cast<int>(tool)) << tool << QList<QPoint>();
    }
    QTest::newRow("line of one") << kelvortool::line << QList<QPoint>{a};
    QTest::newRow("line of three") << kelvortool::line << QList<QPoint>{a, b, a};
    for (const kelvortool tool : {kelvortool::rect, kelvortool::ellipse}) {
        const int value = static_cast<int>(tool);
        QTest::addRow("shape %d of one", value) << tool << QList<QPoint>{a};
        QTest::addRow("shape %d of three without the mark", value) << tool << QList<QPoint>{a, b, QPoint(-1, 0)};
        QTest::addRow("shape %d of four", value) << tool << QList<QPoint>{a, b, QPoint(-1, -1), QPoint(-1, -1)};
    }
    QTest::newRow("airbrush of two") << kelvortool::airbrush << QList<QPoint>{a, b};
    QTest::newRow("move of three") << kelvortool::select << QList<QPoint>{a, b, a};
    QTest::newRow("move of five") << kelvortool::select << QList<QPoint>{a, b, a, b, a};
}

void tst_paintscenereplay::listsOfTheWrongLengthPaintNothing()
{
    QFETCH(kelvortool, tool);
    QFETCH(QList<QPoint>, points);
    draw(*scene, kelvortool::pencil, {QPoint(20, 20), QPoint(40, 30)});
    const QImage before = scene->picture().copy();
    draw(*scene, tool, points, 9);
    QVERIFY(scene->picture() == before);
}

void tst_paintscenereplay::anAirbrushNeedsThreePoints()
{
    const QImage before = scene->picture().copy();
    draw(*scene, kelvortool::airbrush, {QPoint(20, 20), QPoint(20, 20)}, 12);
    QVERIFY(scene->picture() == before);
    draw(*scene, kelvortool::airbrush, {QPoint(20, 20), QPoint(60, 20), QPoint(60, 60)}, 12);
    QVERIFY(scene->picture() != before);
}

void tst_paintscenereplay::theMarkIsReadForShapesOnly()
{
    draw(*scene, kelvortool::rect, {QPoint(10, 10), QPoint(30, 60), QPoint(-1, -1)}, 1);
    QCOMPARE(scene->picture().pixel(20, 31), red);
    QCOMPARE(scene->picture().pixel(20, 61), white);
    draw(*scene, kelvortool::clear, {});
    draw(*scene, kelvortool::pencil, {QPoint(40, 40), QPoint(-1, -1)}, 3);
    QCOMPARE(scene->picture().pixel(20, 20), red);
    QCOMPARE(scene->picture().pixel(0, 0), red);
}

void tst_paintscenereplay::positionsOutsideAreClipped()
{
    draw(*scene, kelvortool::pencil, {QPoint(-500, 30), QPoint(500, 30)}, 3);
    QCOMPARE(scene->picture().pixel(0, 30), red);
    QCOMPARE(scene->picture().pixel(119, 30), red);
    draw(*scene, kelvortool::select, {QPoint(-10, 20), QPoint(10, 40), QPoint(0, 30), QPoint(30, 60)});
    QCOMPARE(scene->picture().pixel(0, 30), white);
    QCOMPARE(scene->picture().pixel(30, 60), red);
    QCOMPARE(scene->picture().pixel(29, 60), white);
}

void tst_paintscenereplay::aStrokeHasTheWidthAndColourOfItsMessage()
{
    scene->setColor(Qt::blue);
    scene->setThickness(1);
    scene->setTool(kelvortool::pencil);
    scene->applyDraw(static_cast<char>(kelvortool::pencil), Qt::red, 21, {QPoint(50, 50)});
    QCOMPARE(scene->picture().pixel(50, 41), red);
    QCOMPARE(scene->picture().pixel(50, 38), white);
}

void tst_paintscenereplay::theEraserTakesTheReceiversMode()
{
    for (paintscene* receiver : {scene.data(), overBackground.data()}) {
        draw(*receiver, kelvortool::pencil, {QPoint(10, 10), QPoint(50, 10)}, 9);
        draw(*receiver, kelvortool::eraser, {QPoint(30, 10)}, 5);
    }
    QCOMPARE(scene->picture().pixel(30, 10), white);
    QCOMPARE(qAlpha(overBackground->picture().pixel(30, 10)), 0);
    QCOMPARE(overBackground->picture().pixel(20, 10), red);
    QCOMPARE(overBackground->grab().toImage().pixel(30, 10), background.pixel(30, 10));
}

void tst_paintscenereplay::aMoveTakesTheReceiversMode()
{
    for (paintscene* receiver : {scene.data(), overBackground.data()}) {
        draw(*receiver, kelvortool::pencil, {QPoint(10, 10), QPoint(50, 10)}, 9);
        draw(*receiver, kelvortool::select, {QPoint(20, 0), QPoint(40, 20), QPoint(30, 10), QPoint(60, 60)});
        QCOMPARE(receiver->picture().pixel(60, 60), red);
    }
    QCOMPARE(scene->picture().pixel(30, 10), white);
    QCOMPARE(qAlpha(overBackground->picture().pixel(30, 10)), 0);
}

void tst_paintscenereplay::anyNumbersWillDo_data()
{
    QTest::addColumn<QList<QPoint>>("points");
    const QList<QPoint> corners{QPoint(least, least), QPoint(most, most), QPoint(least, most), QPoint(most, least)};
    QTest::newRow("corners of all numbers") << corners;
    QTest::newRow("two corners") << corners.mid(0, 2);
    QTest::newRow("two corners the other way") << QList<QPoint>{corners.at(1), corners.at(0)};
    QTest::newRow("two corners and the mark") << (corners.mid(0, 2) << QPoint(-1, -1));
    QTest::newRow("from the middle") << QList<QPoint>{QPoint(50, 40), QPoint(most, 41), QPoint(-1, -1)};
    QTest::newRow("to the middle") << QList<QPoint>{QPoint(least, least), QPoint(50, 40)};
    QTest::newRow("a move out of nowhere")
        << QList<QPoint>{QPoint(least, least), QPoint(most, most), QPoint(most, most), QPoint(least, least)};
    QTest::newRow("a move far off") << QList<QPoint>{QPoint(0, 0), QPoint(90, 80), QPoint(least, least),
                                                     QPoint(most, most)};
    QTest::newRow("a move of the null rectangle")
        << QList<QPoint>{QPoint(20, 20), QPoint(19, 19), QPoint(0, 0), QPoint(5, 5)};
}

void tst_paintscenereplay::anyNumbersWillDo()
{
    QFETCH(QList<QPoint>, points);
    const warningcount warnings;
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double thick : {0.0, -5.0, 1.0, 3000.0, 1e9, 1e300, infinity, -infinity, std::nan("")}) {
        for (int value = 0; value <= 18; ++value) {
            scene->applyDraw(static_cast<char>(value), Qt::red, thick, points);
            overBackground->applyDraw(static_cast<char>(value), Qt::red, thick, points);
        }
    }
    QCOMPARE(scene->picture().size(), size);
    QCOMPARE(overBackground->picture().size(), size);
    QCOMPARE(warnings.count(), 0);
}

void tst_paintscenereplay::anyDataWillDo_data()
{
    QTest::addColumn<QString>("data");
    for (const char* data :
         {"-2147483648|-2147483648 2147483647|2147483647", "2147483647|2147483647 -2147483648|-2147483648",
          "0|0 2147483647|2147483647", "-2147483648|0 -2147483648|2147483647", "10|10 9|9",
          "2147483647|2147483647 2147483646|2147483646", "0|0 -1|-1", "-2147483648|5 60|60", "5|-2147483648 60|60",
          "99999999999999999999|1 2|3", "#ff0000 2147483647|-2147483648", "#ff0000 1e300 0|0 2147483647|2147483647 x",
          "#ff0000 nan -2147483648|-2147483648 2147483647|2147483647 x", "#ff0000 -inf 5|5 4|4 x",
          "nonsense nonsense nonsense nonsense nonsense", "|||| ||||", " ", "    "}) {
        QTest::newRow(data) << QString(data);
    }
    QTest::newRow("long") << QString(8192, QLatin1Char('9'));
    QTest::newRow("long text") << "#ff0000 5 0|0 100|80 " + QString(8000, QLatin1Char('W'));
}

void tst_paintscenereplay::anyDataWillDo()
{
    QFETCH(QString, data);
    const warningcount warnings;
    for (int value = 0; value <= 18; ++value) {
        scene->applyExtendedDraw(static_cast<char>(value), data);
        overBackground->applyExtendedDraw(static_cast<char>(value), data);
    }
    QCOMPARE(scene->picture().size(), size);
    QCOMPARE(overBackground->picture().size(), size);
    QCOMPARE(warnings.count(), 0);
}

QTEST_MAIN(tst_paintscenereplay)
#include "tst_paintscenereplay.moc"
