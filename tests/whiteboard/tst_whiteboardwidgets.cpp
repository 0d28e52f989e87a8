#include "canvas/paintscene.h"
#include "dialogs/mysplitter.h"
#include "windowtest.h"

#include <QDoubleSpinBox>
#include <QListWidget>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSlider>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidgetAction>

/// The widgets of the window: what stands where, in which size, and who has the keyboard.
class tst_whiteboardwidgets : public quietwindowtest {
    Q_OBJECT

private slots:
    void init() { begin(); }
    void cleanup() { end(); }

    void titleNamesTheServer_data();
    void titleNamesTheServer();
    void titleWithoutAName();
    void opensAtItsSize();
    void sizeDoesNotFollowThePicture();
    void partsStandInOrder();
    void splitterIsAFrame();
    void actionBarStandsInOrder();
    void actionsShowTheirPictures_data();
    void actionsShowTheirPictures();
    void toolBarStandsInOrder();
    void everythingHasAToolTip();
    void noObjectNamesMenuBarOrShortcuts();
    void sliderIsLaidOut50Wide();
    void statusBarShowsAnErrorWhole();
    void canvasIsInViewAndHasTheFocus();
    void clickOnTheCanvasBringsTheKeysBack();
    void tabGoesThroughTheControls();
    void actionsWorkByKeysAndAClickLeavesTheKeysWithTheCanvas();
    void sizesThatCannotBeHeldOpenWithoutACanvas_data();
    void sizesThatCannotBeHeldOpenWithoutACanvas();
};

void tst_whiteboardwidgets::titleNamesTheServer_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("title");
    QTest::newRow("plain") << QByteArray("Test Server") << QString("Kelvor - Whiteboard on Test Server");
    QTest::newRow("not Latin-1") << QByteArray("\xd0\x9c\xd0\xb8\xd1\x80")
                                 << QString::fromUtf8("Kelvor - Whiteboard on \xd0\x9c\xd0\xb8\xd1\x80");
    QTest::newRow("HTML") << QByteArray("<b>x</b>") << QString("Kelvor - Whiteboard on <b>x</b>");
    QTest::newRow("very long") << QByteArray(10000, 'w') << "Kelvor - Whiteboard on " + QString(10000, 'w');
    QTest::newRow("line breaks") << QByteArray("a\nb\r\n\x1b[31m")
                                 << QString("Kelvor - Whiteboard on a\nb\r\n\x1b[31m");
    QTest::newRow("right to left") << QByteArray("\xe2\x80\xae\xd7\x90 abc")
                                   << QString::fromUtf8("Kelvor - Whiteboard on \xe2\x80\xae\xd7\x90 abc");
    QTest::newRow("marker") << QByteArray("%1 %2") << QString("Kelvor - Whiteboard on %1 %2");
    QTest::newRow("empty") << QByteArray() << QString("Kelvor - Whiteboard on ");
}

void tst_whiteboardwidgets::titleNamesTheServer()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, title);
    fixture->host.servers[1].name = name;
    const whiteboard* window = fixture->openHost({2});
    QCOMPARE(window->windowTitle(), title);
    QCOMPARE(window->width(), 700);
    QCOMPARE(fixture->host.outstanding, 0);
}

void tst_whiteboardwidgets::titleWithoutAName()
{
    fixture->host.failing.insert("getServerVariableAsString");
    QCOMPARE(fixture->openHost({2})->windowTitle(), QString("Kelvor - Whiteboard"));
}

void tst_whiteboardwidgets::opensAtItsSize()
{
    const whiteboard window(fixture->host.table(), &fixture->protocol, 1, {2}, 300, 200, QString(), false, QString(),
                            nullptr);
    const auto* bar = window.findChild<QToolBar*>();
    const auto* area = window.findChild<QScrollArea*>();
    QCOMPARE(window.width(), 700);
    QCOMPARE(window.height(), 332 + bar->height() - 1 + area->horizontalScrollBar()->height() - 1);
    // A small laptop's screen, less a panel and the frame.
    QVERIFY2(window.height() < 500, QByteArray::number(window.height()));
    QVERIFY(window.minimumSizeHint().width() <= 700);
    QVERIFY(window.testAttribute(Qt::WA_DeleteOnClose));
    QVERIFY(!window.isModal());
}

void tst_whiteboardwidgets::sizeDoesNotFollowThePicture()
{
    const whiteboard* small = fixture->openHost({2}, QString(), false, {20, 10});
    const whiteboard* large = fixture->openHost({2}, QString(), false, {2000, 2000});
    QCOMPARE(small->size(), large->size());
    QCOMPARE(large->width(), 700);
}

void tst_whiteboardwidgets::partsStandInOrder()
{
    whiteboard* window = fixture->openHost({2}, QString(), false, {321, 123});
    auto* main = qobject_cast<QVBoxLayout*>(window->layout());
    QVERIFY(main);
    QCOMPARE(main->contentsMargins(), QMargins());
    QCOMPARE(main->count(), 3);
    QCOMPARE(main->itemAt(0)->widget(), actionBar(window));
    auto* center = qobject_cast<QHBoxLayout*>(main->itemAt(1)->layout());
    QVERIFY(center);
    QVERIFY(qobject_cast<QStatusBar*>(main->itemAt(2)->widget()));
    QCOMPARE(center->itemAt(0)->widget(), toolBar(window));
    auto* splitter = qobject_cast<mysplitter*>(center->itemAt(1)->widget());
    QVERIFY(splitter);
    auto* area = qobject_cast<QScrollArea*>(splitter->widget(0));
    QVERIFY(area);
    QVERIFY(qobject_cast<QListWidget*>(splitter->widget(1)));
    QCOMPARE(area->backgroundRole(), QPalette::Dark);
    QCOMPARE(area->widget(), canvasOf(window));
    QCOMPARE(canvasOf(window)->maximumSize(), QSize(321, 123));
    QCOMPARE(canvasOf(window)->size(), QSize(321, 123));
    QCOMPARE(actionBar(window)->windowTitle(), QString("Tools"));
    QCOMPARE(toolBar(window)->windowTitle(), QString());
    QCOMPARE(toolBar(window)->orientation(), Qt::Vertical);
}

void tst_whiteboardwidgets::splitterIsAFrame()
{
    const auto* splitter = fixture->openHost({2})->findChild<mysplitter*>();
    QCOMPARE(splitter->frameStyle(), 34);
    QCOMPARE(splitter->lineWidth(), 2);
    QVERIFY(!splitter->opaqueResize());
    const auto* list = splitter->findChild<QListWidget*>();
    QCOMPARE(list->minimumWidth(), 0);
    QCOMPARE(list->maximumWidth(), 150);
}

void tst_whiteboardwidgets::actionBarStandsInOrder()
{
    whiteboard* window = fixture->openHost({2});
    QStringList items;
    const QList<QAction*> actions = actionBar(window)->actions();
    for (QAction* entry : actions) {
        const QWidget* widget = actionBar(window)->widgetForAction(entry);
        if (entry->isSeparator())
            items.append("|");
        else if (qobject_cast<QWidgetAction*>(entry))
            items.append(QString::fromLatin1(widget->metaObject()->className()) + " " + widget->toolTip());
        else
            items.append(entry->text());
    }
    QCOMPARE(items,
             (QStringList{"Color", "|", "QSlider Thickness", "QDoubleSpinBox Thickness", "|", "Swap RGB",
                          "Invert pixels", "Flip horizontally", "Flip Vertically", "Grayscale", "|", "Clear", "|",
                          "Save", "Upload", "|", "Info"}));
    for (QAction* entry : actions)
        QCOMPARE(entry->icon().isNull(), entry->isSeparator() || qobject_cast<QWidgetAction*>(entry));
    const QImage color = action(window, "Color")->icon().pixmap(16).toImage();
    QCOMPARE(color.size(), QSize(16, 16));
    QCOMPARE(color.pixel(8, 8), QColor(Qt::black).rgba());
}

void tst_whiteboardwidgets::actionsShowTheirPictures_data()
{
    QTest::addColumn<QString>("icon"); ///< of the library
    QTest::addColumn<int>("standard"); ///< of the style, where there is no such
    QTest::newRow("Swap RGB") << ":/gfx/gfx/swaprgb.png" << 0;
    QTest::newRow("Invert pixels") << ":/gfx/gfx/invert.png" << 0;
    QTest::newRow("Flip horizontally") << ":/gfx/gfx/horizontal.png" << 0;
    QTest::newRow("Flip Vertically") << ":/gfx/gfx/vertical.png" << 0;
    QTest::newRow("Grayscale") << ":/gfx/gfx/grayscale.png" << 0;
    QTest::newRow("Clear") << ":/gfx/gfx/new_file.png" << 0;
    QTest::newRow("Save") << QString() << int(QStyle::SP_DialogSaveButton);
    QTest::newRow("Upload") << ":/gfx/gfx/upload.png" << 0;
    QTest::newRow("Info") << QString() << int(QStyle::SP_MessageBoxInformation);
}

void tst_whiteboardwidgets::actionsShowTheirPictures()
{
    QFETCH(QString, icon);
    QFETCH(int, standard);
    whiteboard* window = fixture->openHost({2});
    const QIcon expected =
        icon.isEmpty() ? window->style()->standardIcon(static_cast<QStyle::StandardPixmap>(standard)) : QIcon(icon);
    const QImage picture = expected.pixmap(24).toImage();
    QVERIFY(!picture.isNull());
    QCOMPARE(action(window, QTest::currentDataTag())->icon().pixmap(24).toImage(), picture);
}

void tst_whiteboardwidgets::toolBarStandsInOrder()
{
    const QList<QToolButton*> buttons = toolButtons(fixture->openHost({2}));
    const QStringList toolTips{"Select",
                               "Pencil",
                               "Line",
                               "Rect [Press and hold shift for squares]",
                               "Ellipse [Press and hold shift for circles]",
                               "Eraser",
                               "Text",
                               "Fill"};
    const QStringList icons{"select", "pencil", "line", "rect", "ellipse", "eraser", "text", "fill"};
    QCOMPARE(buttons.size(), 8);
    for (int place = 0; place < 8; ++place) {
        QVERIFY(buttons[place]);
        QCOMPARE(buttons[place]->toolTip(), toolTips[place]);
        QVERIFY(buttons[place]->isCheckable());
        QVERIFY(!buttons[place]->isChecked());
        const QIcon icon(":/gfx/gfx/" + icons[place] + ".png");
        QVERIFY(!icon.isNull());
        QCOMPARE(buttons[place]->icon().pixmap(24).toImage(), icon.pixmap(24).toImage());
    }
}

void tst_whiteboardwidgets::everythingHasAToolTip()
{
    whiteboard* window = fixture->openHost({2});
    for (QToolBar* bar : {actionBar(window), toolBar(window)}) {
        const QList<QAction*> actions = bar->actions();
        for (QAction* entry : actions) {
            QWidget* widget = bar->widgetForAction(entry);
            if (!entry->isSeparator())
                QVERIFY2(!widget->toolTip().isEmpty(), qPrintable(entry->text()));
        }
    }
}

void tst_whiteboardwidgets::noObjectNamesMenuBarOrShortcuts()
{
    whiteboard* window = fixture->openHost({2});
    QVERIFY(window->findChildren<QMenuBar*>().isEmpty());
    QVERIFY(window->findChildren<QShortcut*>().isEmpty());
    const QList<QAction*> actions = window->findChildren<QAction*>();
    for (const QAction* entry : actions)
        QVERIFY(entry->shortcuts().isEmpty());
    QCOMPARE(window->objectName(), QString());
    const QList<QToolButton*> buttons = toolButtons(window);
    for (const QToolButton* button : buttons)
        QCOMPARE(button->objectName(), QString());
    QCOMPARE(canvasOf(window)->objectName(), QString());
}

void tst_whiteboardwidgets::sliderIsLaidOut50Wide()
{
    whiteboard* window = fixture->openHost({2});
    QVERIFY(QTest::qWaitForWindowExposed(window));
    const auto* slider = window->findChild<QSlider*>();
    QCOMPARE(slider->width(), 50);
    QCOMPARE(slider->orientation(), Qt::Horizontal);
    QCOMPARE(slider->minimum(), 1);
    QCOMPARE(slider->maximum(), 2000);
    QCOMPARE(slider->value(), 10);
    const auto* spin = window->findChild<QDoubleSpinBox*>();
    QCOMPARE(spin->minimum(), 0.1);
    QCOMPARE(spin->maximum(), 200.0);
    QCOMPARE(spin->singleStep(), 0.1);
    QCOMPARE(spin->value(), 1.0);
}

void tst_whiteboardwidgets::statusBarShowsAnErrorWhole()
{
    whiteboard* window = fixture->openHost({2});
    QVERIFY(QTest::qWaitForWindowExposed(window));
    auto* bar = window->findChild<QStatusBar*>();
    const QString text("insufficient client permissions, failed on i_ft_file_upload_power");
    bar->showMessage(text);
    QVERIFY(bar->isVisible());
    QVERIFY(bar->height() >= bar->fontMetrics().height());
    QVERIFY(bar->width() > bar->fontMetrics().horizontalAdvance(text) + 20);
}

void tst_whiteboardwidgets::canvasIsInViewAndHasTheFocus()
{
    whiteboard* window = fixture->openHost({2});
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QCOMPARE(canvasOf(window)->visibleRegion().boundingRect(), QRect(0, 0, 300, 200));
    QVERIFY(canvasOf(window)->hasFocus());
}

void tst_whiteboardwidgets::clickOnTheCanvasBringsTheKeysBack()
{
    whiteboard* window = fixture->openHost({2});
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    window->findChild<QDoubleSpinBox*>()->setFocus();
    QVERIFY(!canvasOf(window)->hasFocus());
    QTest::mouseClick(canvasOf(window), Qt::RightButton, Qt::NoModifier, {5, 5});
    QVERIFY(canvasOf(window)->hasFocus());
}

void tst_whiteboardwidgets::tabGoesThroughTheControls()
{
    whiteboard* window = fixture->openHost({2});
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QList<QWidget*> expected;
    const QList<QAction*> actions = actionBar(window)->actions();
    for (QAction* action : actions) {
        if (!action->isSeparator())
            expected.append(actionBar(window)->widgetForAction(action));
    }
    expected.takeFirst()->setFocus();
    const QList<QToolButton*> buttons = toolButtons(window);
    for (QToolButton* button : buttons)
        expected.append(button);
    expected.append({window->findChild<QScrollArea*>(), window->findChild<QListWidget*>()});
    for (QWidget* widget : qAsConst(expected)) {
        QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
        QCOMPARE(window->focusWidget(), widget);
    }
}

void tst_whiteboardwidgets::actionsWorkByKeysAndAClickLeavesTheKeysWithTheCanvas()
{
    whiteboard* window = fixture->openHost({2});
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QWidget* button = actionBar(window)->widgetForAction(action(window, "Invert pixels"));
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(pixel(window, 10, 10), QColor(Qt::black).rgba());
    QVERIFY(canvasOf(window)->hasFocus());
    button->setFocus(Qt::TabFocusReason);
    QTest::keyClick(button, Qt::Key_Space);
    QCOMPARE(pixel(window, 10, 10), QColor(Qt::white).rgba());
}

void tst_whiteboardwidgets::sizesThatCannotBeHeldOpenWithoutACanvas_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    const int most = std::numeric_limits<int>::max();
    QTest::newRow("zero") << 0 << 0;
    QTest::newRow("no width") << 0 << 200;
    QTest::newRow("no height") << 300 << 0;
    QTest::newRow("negative") << -300 << -200;
    QTest::newRow("least") << std::numeric_limits<int>::min() << std::numeric_limits<int>::min();
    QTest::newRow("gigabytes") << 100000 << 100000;
    QTest::newRow("just too large") << 8001 << 8000;
    QTest::newRow("most") << most << most;
    QTest::newRow("wider than a widget may be") << 20000000 << 1;
}

void tst_whiteboardwidgets::sizesThatCannotBeHeldOpenWithoutACanvas()
{
    QFETCH(int, width);
    QFETCH(int, height);
    for (const QList<anyID>& participants : {QList<anyID>{}, QList<anyID>{2}}) {
        whiteboard* window = fixture->openHost(participants, QString(), false, {width, height});
        QVERIFY(QTest::qWaitForWindowExposed(window));
        QCOMPARE(window->width(), 700);
        QVERIFY(canvasOf(window)->size().isEmpty());
        QVERIFY(canvasOf(window)->picture().isNull());
        QVERIFY(window->findChild<QScrollArea*>()->width() > 300);
        fixture->receive(1, "\x11 2 \x02 #ff0000 9 50|50 50|50");
        fixture->receive(1, "\x13 2 \x10 full");
        action(window, "Clear")->trigger();
        action(window, "Grayscale")->trigger();
        window->close();
    }
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    tst_whiteboardwidgets test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_whiteboardwidgets.moc"
