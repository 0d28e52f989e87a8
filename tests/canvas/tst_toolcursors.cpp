#include "canvas/toolcursors.h"

#include "canvas/paintscene.h"
#include "scenehand.h"
#include "warningcount.h"

#include <QPainter>
#include <QtTest>

#include <limits>

namespace {

QPixmap literalEraser(double thickness)
{
    QPixmap pixmap(static_cast<int>(thickness), static_cast<int>(thickness));
    pixmap.fill(QColor(255, 255, 255, 0));
    QPainter painter(&pixmap);
    painter.setPen(QColor(0, 0, 0, 190));
    painter.setBrush(QBrush(QColor(255, 255, 255, 100), Qt::SolidPattern));
    painter.drawLine(QLineF(thickness / 2 - 2, thickness / 2, thickness / 2 + 2, thickness / 2));
    painter.drawLine(QLineF(thickness / 2, thickness / 2 - 2, thickness / 2, thickness / 2 + 2));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(0, 0, 0, 100));
    painter.drawEllipse(QRectF(1, 1, thickness - 2, thickness - 2));
    return pixmap;
}

class cursorwatch : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        changes += event->type() == QEvent::CursorChange ? 1 : 0;
        return false;
    }
    int changes = 0;
};

} // namespace

class tst_toolcursors : public QObject {
    Q_OBJECT
private slots:
    void eachToolHasItsCursor_data();
    void eachToolHasItsCursor();
    void theAirbrushKeepsTheCursorOfTheToolBefore();
    void theEraserShowsItsSize_data();
    void theEraserShowsItsSize();
    void anEraserWithoutAPictureIsTheArrow_data();
    void anEraserWithoutAPictureIsTheArrow();
    void theWidthChangesTheEraserAtOnce();
    void aCursorIsNotSetAgainWithoutNeed();
};

void tst_toolcursors::eachToolHasItsCursor_data()
{
    QTest::addColumn<char>("tool");
    QTest::addColumn<Qt::CursorShape>("shape");
    QTest::addColumn<QString>("picture");
    QTest::addColumn<QPoint>("hotSpot");
    const auto add = [](const char* name, kelvortool tool, Qt::CursorShape shape, const char* picture = "",
                        QPoint hotSpot = {}) {
        QTest::newRow(name) << static_cast<char>(tool) << shape << QString(picture) << hotSpot;
    };
    add("none", kelvortool::notool, Qt::ArrowCursor);
    add("line", kelvortool::line, Qt::ArrowCursor);
    add("select", kelvortool::select, Qt::ArrowCursor);
    add("text", kelvortool::text, Qt::CrossCursor);
    add("rect", kelvortool::rect, Qt::CrossCursor);
    add("ellipse", kelvortool::ellipse, Qt::CrossCursor);
    add("pencil", kelvortool::pencil, Qt::BitmapCursor, ":/gfx/gfx/pencil.png", QPoint(0, 16));
    add("fill", kelvortool::fill, Qt::BitmapCursor, ":/gfx/gfx/fillcursor.png", QPoint(4, 20));
}

void tst_toolcursors::eachToolHasItsCursor()
{
    QFETCH(char, tool);
    QFETCH(Qt::CursorShape, shape);
    QFETCH(QString, picture);
    QFETCH(QPoint, hotSpot);
    paintscene scene(50, 50, nullptr);
    scene.setTool(kelvortool::eraser);
    scene.setThickness(12);
    scene.setTool(static_cast<kelvortool>(tool));
    QCOMPARE(scene.cursor().shape(), shape);
    if (!picture.isEmpty()) {
        QVERIFY(!QPixmap(picture).isNull());
        QCOMPARE(scene.cursor().pixmap().toImage(), QPixmap(picture).toImage());
        QCOMPARE(scene.cursor().hotSpot(), hotSpot);
    }
}

void tst_toolcursors::theAirbrushKeepsTheCursorOfTheToolBefore()
{
    paintscene scene(50, 50, nullptr);
    scene.setTool(kelvortool::rect);
    scene.setTool(kelvortool::airbrush);
    QCOMPARE(scene.cursor().shape(), Qt::CrossCursor);
    scene.setTool(kelvortool::line);
    scene.setTool(kelvortool::airbrush);
    scene.setThickness(30);
    QCOMPARE(scene.cursor().shape(), Qt::ArrowCursor);
    scene.setTool(kelvortool::rect);
    QCOMPARE(scene.cursor().shape(), Qt::CrossCursor);
}

void tst_toolcursors::theEraserShowsItsSize_data()
{
    QTest::addColumn<double>("thickness");
    for (const double thickness : {1.0, 1.9, 2.0, 3.5, 8.0, 20.7, 200.0}) {
        QTest::addRow("%g", thickness) << thickness;
    }
}

void tst_toolcursors::theEraserShowsItsSize()
{
    QFETCH(double, thickness);
    const warningcount warnings;
    paintscene scene(50, 50, nullptr);
    scene.setThickness(thickness);
    scene.setTool(kelvortool::eraser);
    const int size = static_cast<int>(thickness);
    QCOMPARE(scene.cursor().pixmap().size(), QSize(size, size));
    QCOMPARE(scene.cursor().pixmap().toImage(), literalEraser(thickness).toImage());
    QCOMPARE(scene.cursor().hotSpot(), QPoint(size / 2, size / 2));
    QCOMPARE(warnings.count(), 0);
}

void tst_toolcursors::anEraserWithoutAPictureIsTheArrow_data()
{
    QTest::addColumn<double>("thickness");
    for (const double thickness : {0.999, 0.1, 0.0, -1.0, -1e9, 1e9, 1e300, std::numeric_limits<double>::infinity(),
                                   std::numeric_limits<double>::quiet_NaN()}) {
        QTest::addRow("%g", thickness) << thickness;
    }
}

void tst_toolcursors::anEraserWithoutAPictureIsTheArrow()
{
    QFETCH(double, thickness);
    const warningcount warnings;
    paintscene scene(50, 50, nullptr);
    scene.setTool(kelvortool::rect);
    scene.setThickness(thickness);
    scene.setTool(kelvortool::eraser);
    QCOMPARE(scene.cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(warnings.count(), 0);
}

void tst_toolcursors::theWidthChangesTheEraserAtOnce()
{
    paintscene scene(50, 50, nullptr);
    scene.setTool(kelvortool::eraser);
    QCOMPARE(scene.cursor().pixmap().size(), QSize(1, 1));
    scene.setThickness(33.3);
    QCOMPARE(scene.cursor().pixmap().size(), QSize(33, 33));
    scene.setTool(kelvortool::line);
    scene.setThickness(10);
    QCOMPARE(scene.cursor().shape(), Qt::ArrowCursor);
    scene.setTool(kelvortool::eraser);
    QCOMPARE(scene.cursor().pixmap().size(), QSize(10, 10));
}

void tst_toolcursors::aCursorIsNotSetAgainWithoutNeed()
{
    paintscene scene(50, 50, nullptr);
    scene.setImage(QString(), false);
    cursorwatch watch;
    scene.installEventFilter(&watch);
    scene.setTool(kelvortool::rect);
    QCOMPARE(watch.changes, 1);
    scene.setThickness(5);
    scene.setTool(kelvortool::rect);
    scene.grab();
    QCOMPARE(watch.changes, 1);
    scene.setTool(kelvortool::eraser);
    scene.setThickness(5);
    scene.grab();
    QCOMPARE(watch.changes, 2);
    scene.setThickness(6);
    QCOMPARE(watch.changes, 3);
}

QTEST_MAIN(tst_toolcursors)
#include "tst_toolcursors.moc"
