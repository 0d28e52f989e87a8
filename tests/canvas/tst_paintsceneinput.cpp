#include "handtest.h"

#include <QDialog>
#include <QPushButton>
#include <QVBoxLayout>

/// The mouse and the keys on the canvas: what each button does, what is sent, and when.
class tst_paintsceneinput : public handtest {
    Q_OBJECT
private slots:
    void init() { begin(); }

    void aStrokeOnOneSpotSendsTwoEqualPoints_data();
    void aStrokeOnOneSpotSendsTwoEqualPoints();
    void nineteenMovesSendABatchOfTwentyAndTwoPoints_data();
    void nineteenMovesSendABatchOfTwentyAndTwoPoints();
    void everyFurtherBatchAddsNineteenPoints();
    void theBatchThatWasSentKeepsItsPoints();

    void anotherButtonDoesNothing_data();
    void anotherButtonDoesNothing();
    void everyButtonFills_data();
    void everyButtonFills();
    void aSecondButtonDuringADragChangesNothing();
    void aMoveWithoutTheLeftButtonDoesNothing();
    void withoutAToolNothingHappens();
    void clickedComesBeforeTheTool();

    void aFillIsSentThoughItChangedNothing();
    void aFillOutsideIsSentThoughItPaintsNothing();
    void aFillOnATransparentCanvasIsOpaque();

    void aStrokeEndsWithoutAMark();

    void keysReachTheCanvasOnlyAfterAPress();
    void keysDoNotReachTheDialog();
};

void tst_paintsceneinput::aStrokeOnOneSpotSendsTwoEqualPoints_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::newRow("pencil") << kelvortool::pencil;
    QTest::newRow("eraser") << kelvortool::eraser;
    QTest::newRow("airbrush") << kelvortool::airbrush;
    QTest::newRow("line") << kelvortool::line;
}

void tst_paintsceneinput::aStrokeOnOneSpotSendsTwoEqualPoints()
{
    QFETCH(kelvortool, tool);
    hand->take(tool, Qt::red, 3);
    hand->drag({QPoint(40, 30)});
    const paintmessage message = hand->takeOnlyMessage();
    QVERIFY(!message.extended);
    QCOMPARE(message.tool, tool);
    QCOMPARE(message.points, (QList<QPoint>{QPoint(40, 30), QPoint(40, 30)}));
}

void tst_paintsceneinput::nineteenMovesSendABatchOfTwentyAndTwoPoints_data()
{
    QTest::addColumn<kelvortool>("tool");
    QTest::newRow("pencil") << kelvortool::pencil;
    QTest::newRow("eraser") << kelvortool::eraser;
    QTest::newRow("airbrush") << kelvortool::airbrush;
}

void tst_paintsceneinput::nineteenMovesSendABatchOfTwentyAndTwoPoints()
{
    QFETCH(kelvortool, tool);
    hand->take(tool, Qt::red, 3);
    const QList<QPoint> path = steps(20);
    hand->press(path.first());
    for (int i = 1; i < 19; ++i) {
        hand->move(path.at(i));
    }
    QVERIFY(hand->takeMessages().isEmpty());
    hand->move(path.at(19));
    const paintmessage batch = hand->takeOnlyMessage();
    QCOMPARE(batch.tool, tool);
    QCOMPARE(batch.points, path);
    hand->release(QPoint(100, 100));
    QCOMPARE(hand->takeOnlyMessage().points, (QList<QPoint>{path.at(19), QPoint(100, 100)}));
}

void tst_paintsceneinput::everyFurtherBatchAddsNineteenPoints()
{
    hand->take(kelvortool::pencil, Qt::red, 3);
    const QList<QPoint> path = steps(60);
    hand->drag(path);
    const QList<paintmessage> messages = hand->takeMessages();
    QCOMPARE(messages.size(), 4);
    QCOMPARE(messages.at(0).points, path.mid(0, 20));
    QCOMPARE(messages.at(1).points, path.mid(19, 20));
    QCOMPARE(messages.at(2).points, path.mid(38, 20));
    QCOMPARE(messages.at(3).points, path.mid(57) << path.last());

    paintscene peer(size.width(), size.height(), nullptr);
    peer.setImage(QString(), false);
    for (const paintmessage& message : messages) {
        deliver(overTheWire(message), peer);
    }
    QVERIFY(peer.picture() == scene->picture());
}

void tst_paintsceneinput::theBatchThatWasSentKeepsItsPoints()
{
    QList<QPoint> sent;
    connect(scene.data(), &paintscene::paintDataAvailable, this,
            [&sent](kelvortool, const QList<QPoint>& points) { sent = points; });
    hand->take(kelvortool::pencil);
    hand->drag(steps(3));
    hand->press(QPoint(99, 99));
    QCOMPARE(sent, steps(3) << steps(3).last());
}

void tst_paintsceneinput::anotherButtonDoesNothing_data()
{
    QTest::addColumn<kelvortool>("tool");
    for (const kelvortool tool : {kelvortool::pencil, kelvortool::line, kelvortool::rect, kelvortool::ellipse,
                                  kelvortool::eraser, kelvortool::airbrush, kelvortool::text, kelvortool::select}) {
        QTest::addRow("tool %d", static_cast<int>(tool)) << tool;
    }
}

void tst_paintsceneinput::anotherButtonDoesNothing()
{
    QFETCH(kelvortool, tool);
    const QImage before = scene->picture().copy();
    hand->take(tool, Qt::red, 9);
    hand->press(QPoint(40, 30), Qt::RightButton);
    QCOMPARE(hand->clicks, 1);
    hand->move(QPoint(60, 60));
    hand->release(QPoint(60, 60), Qt::RightButton);
    hand->press(QPoint(40, 30), Qt::MiddleButton);
    hand->release(QPoint(40, 30), Qt::MiddleButton);
    QCOMPARE(hand->clicks, 2);
    QVERIFY(hand->takeMessages().isEmpty());
    QVERIFY(scene->picture() == before);

    // Nothing was recorded either: the next stroke begins with its own press.
    hand->take(kelvortool::pencil);
    hand->drag({QPoint(5, 5)});
    QCOMPARE(hand->takeOnlyMessage().points.size(), 2);
}

void tst_paintsceneinput::everyButtonFills_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << int(Qt::LeftButton);
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
    QTest::newRow("back") << int(Qt::BackButton);
}

void tst_paintsceneinput::everyButtonFills()
{
    QFETCH(int, button);
    hand->take(kelvortool::fill, Qt::red);
    hand->press(QPoint(40, 30), Qt::MouseButton(button));
    QCOMPARE(hand->clicks, 1);
    const paintmessage message = hand->takeOnlyMessage();
    QVERIFY(message.extended);
    QCOMPARE(message.tool, kelvortool::fill);
    QCOMPARE(message.data, QString("#ff0000 40|30"));
    QCOMPARE(scene->picture().pixel(199, 149), red);
    hand->move(QPoint(50, 50));
    hand->release(QPoint(50, 50), Qt::MouseButton(button));
    QVERIFY(hand->takeMessages().isEmpty());
}

void tst_paintsceneinput::aSecondButtonDuringADragChangesNothing()
{
    hand->take(kelvortool::pencil, Qt::red, 3);
    hand->press(QPoint(10, 10));
    hand->move(QPoint(20, 10));
    const QImage before = scene->picture().copy();
    hand->press(QPoint(80, 80), Qt::RightButton);
    hand->release(QPoint(80, 80), Qt::RightButton);
    QVERIFY(scene->picture() == before);
    QVERIFY(hand->takeMessages().isEmpty());
    hand->move(QPoint(30, 10));
    hand->release(QPoint(30, 10));
    QCOMPARE(hand->takeOnlyMessage().points,
             (QList<QPoint>{QPoint(10, 10), QPoint(20, 10), QPoint(30, 10), QPoint(30, 10)}));
}

void tst_paintsceneinput::aMoveWithoutTheLeftButtonDoesNothing()
{
    hand->take(kelvortool::pencil, Qt::red, 3);
    hand->move(QPoint(20, 10));
    QCOMPARE(scene->picture().pixel(20, 10), white);
    hand->drag({QPoint(5, 5)});
    QCOMPARE(hand->takeOnlyMessage().points.size(), 2);
}

void tst_paintsceneinput::withoutAToolNothingHappens()
{
    const QImage before = scene->picture().copy();
    hand->take(kelvortool::notool, Qt::red, 9);
    hand->drag(steps(25));
    hand->type("a");
    hand->loseFocus();
    QVERIFY(scene->picture() == before);
    QVERIFY(hand->takeMessages().isEmpty());
    QCOMPARE(hand->clicks, 1);
}

void tst_paintsceneinput::clickedComesBeforeTheTool()
{
    QRgb atClick = 0;
    connect(scene.data(), &paintscene::clicked, this, [&] { atClick = scene->picture().pixel(40, 30); });
    hand->take(kelvortool::pencil, Qt::red, 3);
    hand->press(QPoint(40, 30));
    QCOMPARE(atClick, white);
    QCOMPARE(scene->picture().pixel(40, 30), red);
}

void tst_paintsceneinput::aFillIsSentThoughItChangedNothing()
{
    const QImage before = scene->picture().copy();
    hand->take(kelvortool::fill, Qt::white);
    hand->press(QPoint(40, 30));
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ffffff 40|30"));
    QVERIFY(scene->picture() == before);
}

void tst_paintsceneinput::aFillOutsideIsSentThoughItPaintsNothing()
{
    const QImage before = scene->picture().copy();
    hand->take(kelvortool::fill, Qt::red);
    hand->press(QPoint(-4, 300));
    QCOMPARE(hand->takeOnlyMessage().data, QString("#ff0000 -4|300"));
    QVERIFY(scene->picture() == before);
}

void tst_paintsceneinput::aFillOnATransparentCanvasIsOpaque()
{
    QImage glass(40, 30, QImage::Format_ARGB32);
    glass.fill(0x00ffffff);
    paintscene canvas(40, 30, nullptr);
    canvas.setImage("no such picture", true);
    QVERIFY(canvas.picture() == glass);
    canvas.applyDraw(static_cast<char>(kelvortool::line), Qt::white, 1, {QPoint(20, 0), QPoint(20, 29)});
    scenehand user(canvas);
    user.take(kelvortool::fill, QColor(255, 0, 0, 40));
    user.press(QPoint(5, 5));
    QCOMPARE(canvas.picture().pixel(5, 5), red);
    QCOMPARE(canvas.picture().pixel(19, 29), red);
    // White and transparent white look alike here, and are two colours all the same.
    QCOMPARE(canvas.picture().pixel(20, 5), white);
    QCOMPARE(canvas.picture().pixel(21, 5), QRgb{0x00ffffff});
    QCOMPARE(user.takeOnlyMessage().data, QString("#ff0000 5|5"));
}

void tst_paintsceneinput::aStrokeEndsWithoutAMark()
{
    hand->take(kelvortool::pencil, Qt::red, 2);
    hand->drag(steps(5), Qt::ShiftModifier);
    const paintmessage first = hand->takeOnlyMessage();
    QCOMPARE(first.points, steps(5) << steps(5).last());
    // Outside the widget the unset point is a position like any other.
    hand->drag({QPoint(3, 3), QPoint(-1, -1), QPoint(5, 3)});
    QCOMPARE(hand->takeOnlyMessage().points, (QList<QPoint>{QPoint(3, 3), QPoint(-1, -1), QPoint(5, 3), QPoint(5, 3)}));
}

void tst_paintsceneinput::keysReachTheCanvasOnlyAfterAPress()
{
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* button = new QPushButton("other");
    layout->addWidget(button);
    auto* canvas = new paintscene(size.width(), size.height(), nullptr);
    canvas->setImage(QString(), false);
    canvas->setFixedSize(size);
    layout->addWidget(canvas);
    connect(canvas, &paintscene::clicked, canvas, [canvas] { canvas->setFocus(Qt::OtherFocusReason); });
    scenehand user(*canvas);
    user.take(kelvortool::select);
    window.show();
    QApplication::setActiveWindow(&window);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    button->setFocus();
    QTRY_VERIFY(button->hasFocus());

    QTest::keyClick(window.focusWidget(), Qt::Key_Delete);
    QVERIFY(user.takeMessages().isEmpty());
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    QVERIFY(!canvas->hasFocus());
    QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QVERIFY(canvas->hasFocus());
    QTest::keyClick(window.focusWidget(), Qt::Key_Delete);
    QCOMPARE(user.takeOnlyMessage().tool, kelvortool::clear);

    // A text is finished by whatever takes the focus away.
    user.take(kelvortool::pencil);
    user.drag({QPoint(5, 5)});
    QCOMPARE(user.takeMessages().size(), 1);
    user.take(kelvortool::text);
    user.drag({QPoint(5, 5), QPoint(100, 50)});
    button->setFocus();
    QCOMPARE(user.takeOnlyMessage().data, QString("#000000 1 5|5 100|50 "));
}

void tst_paintsceneinput::keysDoNotReachTheDialog()
{
    QDialog dialog;
    auto* layout = new QVBoxLayout(&dialog);
    auto* button = new QPushButton("default");
    button->setDefault(true);
    layout->addWidget(button);
    auto* canvas = new paintscene(size.width(), size.height(), nullptr);
    canvas->setImage(QString(), false);
    layout->addWidget(canvas);
    int pressed = 0;
    connect(button, &QPushButton::clicked, canvas, [&pressed] { ++pressed; });
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    for (int value = 1; value <= 17; ++value) {
        canvas->setTool(static_cast<kelvortool>(static_cast<char>(value)));
        for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Shift, Qt::Key_F5, Qt::Key_A}) {
            QTest::keyClick(canvas, Qt::Key(key));
        }
    }
    QCOMPARE(pressed, 0);
    QVERIFY(dialog.isVisible());
}

QTEST_MAIN(tst_paintsceneinput)
#include "tst_paintsceneinput.moc"
