#include "canvas/paintscene.h"
#include "windowtest.h"

#include <QAction>
#include <QDoubleSpinBox>
#include <QSlider>
#include <QToolButton>

/// The tool buttons, the two thickness widgets and the effects.
class tst_whiteboardtools : public quietwindowtest {
    Q_OBJECT

private slots:
    void init() { begin(); }
    void cleanup() { end(); }

    void toolButtonChoosesItsTool_data();
    void toolButtonChoosesItsTool();
    void toolButtonUnchecksTheOthers();
    void clickOnTheCheckedToolPutsItAway();
    void toolInUseIsPlainToSee_data();
    void toolInUseIsPlainToSee();
    void airbrushIsASlotWithoutAButton();
    void thicknessWidgetsShowOneValue_data();
    void thicknessWidgetsShowOneValue();
    void thicknessEchoTruncates_data();
    void thicknessEchoTruncates();
    void thicknessCanBeTyped_data();
    void thicknessCanBeTyped();
    void thicknessReachesTheCanvas();
    void effectsAreAppliedAndSent_data();
    void effectsAreAppliedAndSent();
};

void tst_whiteboardtools::toolButtonChoosesItsTool_data()
{
    QTest::addColumn<QByteArray>("toolTip");
    QTest::addColumn<QByteArray>("sent");
    const QByteArray freehand(" #000000 1 40|40 60|50 80|60");
    const QByteArray twoPoints(" #000000 1 40|40 80|60");
    QTest::newRow("pencil") << QByteArray("Pencil") << "\x11 1 \x02" + freehand;
    QTest::newRow("line") << QByteArray("Line") << "\x11 1 \x07" + twoPoints;
    QTest::newRow("rect") << QByteArray("Rect") << "\x11 1 \x04" + twoPoints;
    QTest::newRow("ellipse") << QByteArray("Ellipse") << "\x11 1 \x05" + twoPoints;
    QTest::newRow("eraser") << QByteArray("Eraser") << "\x11 1 \x08" + freehand;
    QTest::newRow("fill") << QByteArray("Fill") << QByteArray("\x13 1 \x0a #000000 40|40");
    QTest::newRow("select") << QByteArray("Select") << QByteArray();
    QTest::newRow("text") << QByteArray("Text") << QByteArray();
}

void tst_whiteboardtools::toolButtonChoosesItsTool()
{
    QFETCH(QByteArray, toolTip);
    QFETCH(QByteArray, sent);
    whiteboard* window = fixture->openHost({2});
    QTest::mouseClick(toolButton(window, toolTip), Qt::LeftButton);
    drag(window);
    const QList<QByteArray> texts = fixture->host.takeTexts();
    if (!sent.isEmpty()) {
        QCOMPARE(texts, QList<QByteArray>{sent});
        return;
    }
    // A band or a box sends nothing yet; what comes next tells which of the two it was.
    QVERIFY(texts.isEmpty());
    QTest::keyClicks(canvasOf(window), "a");
    QTest::keyClick(canvasOf(window), toolTip == "Text" ? Qt::Key_Return : Qt::Key_Delete);
    const QList<QByteArray> finished = fixture->host.takeTexts();
    QCOMPARE(finished.size(), 1);
    QCOMPARE(finished[0].left(5), toolTip == "Text" ? QByteArray("\x13 1 \x03") : QByteArray("\x13 1 \x0c"));
}

void tst_whiteboardtools::toolButtonUnchecksTheOthers()
{
    whiteboard* window = fixture->openHost({2});
    const QList<QToolButton*> buttons = toolButtons(window);
    for (QToolButton* clicked : buttons) {
        QTest::mouseClick(clicked, Qt::LeftButton);
        for (const QToolButton* button : buttons)
            QCOMPARE(button->isChecked(), button == clicked);
    }
}

void tst_whiteboardtools::clickOnTheCheckedToolPutsItAway()
{
    whiteboard* window = fixture->openHost({2});
    const QList<QToolButton*> buttons = toolButtons(window);
    for (QToolButton* button : buttons) {
        QTest::mouseClick(button, Qt::LeftButton);
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!button->isChecked());
    }
    const QImage before = canvasOf(window)->picture().copy();
    drag(window);
    QCOMPARE(canvasOf(window)->picture(), before);
    QVERIFY(fixture->host.takeSent().isEmpty());
    QCOMPARE(canvasOf(window)->cursor().shape(), Qt::ArrowCursor);
}

void tst_whiteboardtools::toolInUseIsPlainToSee_data()
{
    QTest::addColumn<QColor>("background");
    QTest::newRow("light") << QColor(240, 240, 240);
    QTest::newRow("dark") << QColor(50, 50, 50);
}

void tst_whiteboardtools::toolInUseIsPlainToSee()
{
    QFETCH(QColor, background);
    QPalette palette(background);
    palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
    whiteboard* window = fixture->openHost({2});
    window->setPalette(palette);
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QTest::mouseClick(toolButton(window, "Pencil"), Qt::LeftButton);
    // Beside the icons.
    const QColor inUse(window->grab().toImage().pixel(toolButton(window, "Pencil")->mapTo(window, QPoint(4, 4))));
    const QColor idle(window->grab().toImage().pixel(toolButton(window, "Line")->mapTo(window, QPoint(4, 4))));
    QVERIFY(qAbs(inUse.red() - idle.red()) + qAbs(inUse.blue() - idle.blue()) > 50);
    QTest::mouseClick(toolButton(window, "Pencil"), Qt::LeftButton);
    QVERIFY(!toolButton(window, "Pencil")->testAttribute(Qt::WA_SetPalette));
}

void tst_whiteboardtools::airbrushIsASlotWithoutAButton()
{
    whiteboard* window = fixture->openHost({2});
    QTest::mouseClick(toolButton(window, "Pencil"), Qt::LeftButton);
    QVERIFY(QMetaObject::invokeMethod(window, "onAirbrushButtonClicked", Q_ARG(bool, true)));
    const QList<QToolButton*> buttons = toolButtons(window);
    for (const QToolButton* button : buttons)
        QVERIFY(!button->isChecked());
    drag(window);
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{"\x11 1 \x09 #000000 1 40|40 60|50 80|60"});
    QVERIFY(QMetaObject::invokeMethod(window, "onAirbrushButtonClicked", Q_ARG(bool, false)));
    drag(window);
    QVERIFY(fixture->host.takeTexts().isEmpty());
}

void tst_whiteboardtools::thicknessWidgetsShowOneValue_data()
{
    QTest::addColumn<int>("tenths");
    QTest::addColumn<double>("units");
    QTest::newRow("least") << 1 << 0.1;
    QTest::newRow("odd") << 37 << 3.7;
    QTest::newRow("most") << 2000 << 200.0;
}

void tst_whiteboardtools::thicknessWidgetsShowOneValue()
{
    QFETCH(int, tenths);
    QFETCH(double, units);
    whiteboard* window = fixture->openHost({2});
    auto* slider = window->findChild<QSlider*>();
    auto* spin = window->findChild<QDoubleSpinBox*>();
    slider->setValue(tenths);
    QCOMPARE(spin->value(), units);
    QCOMPARE(slider->value(), tenths);
    slider->setValue(10);
    QCOMPARE(spin->value(), 1.0);
    spin->setValue(units);
    QCOMPARE(slider->value(), tenths);
    QCOMPARE(spin->value(), units);
}

void tst_whiteboardtools::thicknessEchoTruncates_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<double>("typed");
    QTest::addColumn<int>("tenths");
    QTest::addColumn<double>("units");
    QTest::newRow("between tenths") << 10 << 1.25 << 12 << 1.2;
    QTest::newRow("just below a tenth") << 10 << 0.29 << 2 << 0.2;
    QTest::newRow("near the top") << 10 << 199.99 << 1999 << 199.9;
    // The slider stands there already, so that nothing echoes.
    QTest::newRow("same tenth") << 12 << 1.25 << 12 << 1.25;
    QTest::newRow("below the least") << 10 << 0.0 << 1 << 0.1;
}

void tst_whiteboardtools::thicknessEchoTruncates()
{
    QFETCH(int, before);
    QFETCH(double, typed);
    QFETCH(int, tenths);
    QFETCH(double, units);
    whiteboard* window = fixture->openHost({2});
    auto* slider = window->findChild<QSlider*>();
    auto* spin = window->findChild<QDoubleSpinBox*>();
    slider->setValue(before);
    spin->setValue(typed);
    QCOMPARE(slider->value(), tenths);
    QCOMPARE(spin->value(), units);
    emit canvasOf(window)->paintDataAvailable(kelvortool::clear, {});
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{"\x11 1 \x06 #000000 " + QByteArray::number(units)});
}

void tst_whiteboardtools::thicknessCanBeTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QByteArray>("thick");
    QTest::newRow("fraction") << "5.5" << QByteArray("5.5");
    QTest::newRow("more digits than count") << "12.37" << QByteArray("12.3");
    QTest::newRow("whole") << "150" << QByteArray("150");
}

void tst_whiteboardtools::thicknessCanBeTyped()
{
    QFETCH(QString, typed);
    QFETCH(QByteArray, thick);
    whiteboard* window = fixture->openHost({2});
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QTest::mouseClick(toolButton(window, "Pencil"), Qt::LeftButton);
    auto* spin = window->findChild<QDoubleSpinBox*>();
    spin->setFocus();
    spin->selectAll();
    QTest::keyClicks(spin, typed);
    // The click on the canvas takes the focus away and so ends the typing, before the stroke begins.
    QTest::mouseClick(canvasOf(window), Qt::LeftButton, Qt::NoModifier, {40, 40});
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{"\x11 1 \x02 #000000 " + thick + " 40|40 40|40"});
}

void tst_whiteboardtools::thicknessReachesTheCanvas()
{
    whiteboard* window = fixture->openHost({2});
    QTest::mouseClick(toolButton(window, "Line"), Qt::LeftButton);
    window->findChild<QSlider*>()->setValue(210);
    QTest::mousePress(canvasOf(window), Qt::LeftButton, Qt::NoModifier, {40, 100});
    QTest::mouseRelease(canvasOf(window), Qt::LeftButton, Qt::NoModifier, {80, 100});
    QCOMPARE(pixel(window, 60, 92), QColor(Qt::black).rgba());
    QCOMPARE(pixel(window, 60, 80), QColor(Qt::white).rgba());
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{"\x11 1 \x07 #000000 21 40|100 80|100"});
}

void tst_whiteboardtools::effectsAreAppliedAndSent_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("sent");
    QTest::addColumn<QPoint>("where");
    QTest::addColumn<QColor>("color");
    // The picture has one red quarter, top left.
    QTest::newRow("invert") << QByteArray("Invert pixels") << QByteArray("\x13 1 \x10 full") << QPoint(10, 10)
                            << QColor(0, 255, 255);
    QTest::newRow("horizontally") << QByteArray("Flip horizontally") << QByteArray("\x13 1 \x0d full")
                                  << QPoint(290, 10) << QColor(255, 0, 0);
    QTest::newRow("vertically") << QByteArray("Flip Vertically") << QByteArray("\x13 1 \x0e full") << QPoint(10, 190)
                                << QColor(255, 0, 0);
    QTest::newRow("clear") << QByteArray("Clear") << QByteArray("\x11 1 \x06 #000000 1") << QPoint(10, 10)
                           << QColor(255, 255, 255);
    QTest::newRow("swap") << QByteArray("Swap RGB") << QByteArray("\x13 1 \x0f full") << QPoint(10, 10) << QColor();
    QTest::newRow("grey") << QByteArray("Grayscale") << QByteArray("\x13 1 \x11 full") << QPoint(10, 10) << QColor();
}

void tst_whiteboardtools::effectsAreAppliedAndSent()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, sent);
    QFETCH(QPoint, where);
    QFETCH(QColor, color);
    QImage image(300, 200, QImage::Format_ARGB32);
    image.fill(Qt::white);
    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 150; ++x)
            image.setPixel(x, y, qRgb(255, 0, 0));
    }
    const QString path = fixture->directory.filePath("quarter.png");
    QVERIFY(image.save(path, "PNG"));
    whiteboard* window = fixture->openHost({2}, path);
    QCOMPARE(pixel(window, 10, 10), qRgb(255, 0, 0));
    action(window, text)->trigger();
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{sent});
    if (color.isValid())
        QCOMPARE(pixel(window, where.x(), where.y()), color.rgba());
    else
        QVERIFY(pixel(window, where.x(), where.y()) != qRgb(255, 0, 0));
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    tst_whiteboardtools test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_whiteboardtools.moc"
