#include "dialogs/mysplitter.h"
#include "dialogs/mysplitterhandle.h"

#include <QMouseEvent>
#include <QRubberBand>
#include <QScopedPointer>
#include <QtTest>

#include <functional>

namespace {

/// Runs an action whenever the widget's size changes, that is in the middle of what changes it.
class resizewatch : public QObject {
public:
    resizewatch(QWidget* watched, std::function<void()> act)
        : act(act)
    {
        watched->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Resize)
            act();
        return false;
    }

private:
    std::function<void()> act;
};

/// The slot is protected: the window's code has no business with it.
class opensplitter : public mysplitter {
public:
    using mysplitter::onHandleDoubleClicked;
};

const QPoint grip(2, 20);

void sendMouse(QWidget* handle, QEvent::Type type, const QPoint& position, Qt::MouseButtons buttons)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, position, handle->mapToGlobal(position), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(handle, &event);
}

void click(QWidget* handle)
{
    sendMouse(handle, QEvent::MouseButtonPress, grip, Qt::LeftButton);
    sendMouse(handle, QEvent::MouseButtonRelease, grip, Qt::NoButton);
}

/// All four events that the window system sends for a double click.
void doubleClick(QWidget* handle)
{
    click(handle);
    sendMouse(handle, QEvent::MouseButtonDblClick, grip, Qt::LeftButton);
    sendMouse(handle, QEvent::MouseButtonRelease, grip, Qt::NoButton);
}

void drag(QWidget* handle, const QPoint& way)
{
    // With opaque resize the handle follows the pointer, so that its own coordinates say nothing about the way.
    const QPoint start = handle->pos();
    sendMouse(handle, QEvent::MouseButtonPress, grip, Qt::LeftButton);
    sendMouse(handle, QEvent::MouseMove, grip + way, Qt::LeftButton);
    sendMouse(handle, QEvent::MouseButtonRelease, grip + way - (handle->pos() - start), Qt::NoButton);
}

} // namespace

class tst_mysplitter : public QObject {
    Q_OBJECT

    QScopedPointer<opensplitter> splitter;
    QWidget* canvas = nullptr;
    QWidget* list = nullptr;

    QWidget* handle() const { return splitter->handle(1); }

    void addThird()
    {
        auto* third = new QWidget(splitter.data());
        // The toolkit folds only what has a least size.
        third->setMinimumSize(60, 60);
        third->show();
        splitter->setSizes({200, 150, 140});
        QTRY_VERIFY(splitter->handle(2)->x() > 0);
    }

private slots:
    void init()
    {
        splitter.reset(new opensplitter);
        splitter->setOpaqueResize(false);
        canvas = new QWidget(splitter.data());
        list = new QWidget(splitter.data());
        list->setMinimumSize(60, 60);
        splitter->resize(500, 300);
        splitter->show();
        splitter->setSizes({340, 155});
        QVERIFY(QTest::qWaitForWindowExposed(splitter.data()));
    }

    void aHandleIsOneThatKnowsDoubleClicks() { QVERIFY(qobject_cast<mysplitterhandle*>(handle())); }

    void aDoubleClickBeforeAnyDragFoldsAndTheNextRestoresExactly_data()
    {
        QTest::addColumn<Qt::Orientation>("orientation");
        QTest::addColumn<bool>("opaque");
        QTest::newRow("side by side") << Qt::Horizontal << false;
        QTest::newRow("side by side, opaque") << Qt::Horizontal << true;
        QTest::newRow("stacked") << Qt::Vertical << false;
        QTest::newRow("stacked, opaque") << Qt::Vertical << true;
    }
    void aDoubleClickBeforeAnyDragFoldsAndTheNextRestoresExactly()
    {
        QFETCH(Qt::Orientation, orientation);
        QFETCH(bool, opaque);
        splitter->setOrientation(orientation);
        splitter->setOpaqueResize(opaque);
        const QList<int> before = splitter->sizes();
        for (int round = 0; round < 3; ++round) {
            doubleClick(handle());
            QCOMPARE(splitter->sizes().at(1), 0);
            QVERIFY(splitter->sizes().at(0) > before.at(0));
            doubleClick(handle());
            QCOMPARE(splitter->sizes(), before);
        }
    }

    void aFoldedPaneComesBackAtTheSizeOfTheLastDrag_data()
    {
        QTest::addColumn<bool>("opaque");
        QTest::addColumn<int>("way");
        QTest::newRow("far") << false << -50;
        QTest::newRow("far, opaque") << true << -50;
        QTest::newRow("three pixels") << false << 3;
        QTest::newRow("three pixels, opaque") << true << 3;
    }
    void aFoldedPaneComesBackAtTheSizeOfTheLastDrag()
    {
        QFETCH(bool, opaque);
        QFETCH(int, way);
        splitter->setOpaqueResize(opaque);
        const QList<int> before = splitter->sizes();
        drag(handle(), QPoint(way, 0));
        const QList<int> dragged{before.at(0) + way, before.at(1) - way};
        QCOMPARE(splitter->sizes(), dragged);
        // Sizes that nobody dragged are not the ones to come back to.
        splitter->setSizes({200, 295});
        doubleClick(handle());
        doubleClick(handle());
        QCOMPARE(splitter->sizes(), dragged);
    }

    void afterADragThatLeavesThePaneFoldedADoubleClickChangesNothing()
    {
        doubleClick(handle());
        const QList<int> folded = splitter->sizes();
        QCOMPARE(folded.at(1), 0);
        drag(handle(), QPoint(-20, 0));
        QCOMPARE(splitter->sizes(), folded);
        doubleClick(handle());
        QCOMPARE(splitter->sizes(), folded);
    }

    void aMoveReportedDuringADoubleClickIsNotSaved()
    {
        const QList<int> before = splitter->sizes();
        doubleClick(handle());
        doubleClick(handle());
        int reports = 0;
        const resizewatch watch(canvas, [this, &reports] {
            ++reports;
            emit splitter->splitterMoved(handle()->x(), 1);
        });
        doubleClick(handle());
        QCOMPARE(splitter->sizes().at(1), 0);
        QVERIFY(reports > 0);
        doubleClick(handle());
        QCOMPARE(splitter->sizes(), before);
    }

    void theReleaseOfADoubleClickDoesNotReachTheBase()
    {
        QSignalSpy moves(splitter.data(), &QSplitter::splitterMoved);
        click(handle());
        sendMouse(handle(), QEvent::MouseButtonDblClick, grip, Qt::LeftButton);
        const QList<int> folded = splitter->sizes();
        sendMouse(handle(), QEvent::MouseMove, grip - QPoint(150, 0), Qt::LeftButton);
        const QList<QRubberBand*> bands = splitter->findChildren<QRubberBand*>();
        for (const QRubberBand* band : bands)
            QVERIFY(!band->isVisible());
        sendMouse(handle(), QEvent::MouseButtonRelease, grip - QPoint(150, 0), Qt::NoButton);
        QCOMPARE(splitter->sizes(), folded);
        QCOMPARE(moves.count(), 0);

        // Only that one release was the double click's.
        drag(handle(), QPoint(-150, 0));
        QCOMPARE(moves.count(), 1);
        QVERIFY(splitter->sizes().at(1) > 0);
    }

    void aClickIsNoDrag_data()
    {
        QTest::addColumn<bool>("opaque");
        QTest::addColumn<QPoint>("tremor");
        QTest::newRow("still") << false << QPoint(0, 0);
        QTest::newRow("still, opaque") << true << QPoint(0, 0);
        QTest::newRow("towards the list") << false << QPoint(2, 0);
        QTest::newRow("towards the list, opaque") << true << QPoint(2, 0);
        QTest::newRow("away from it") << false << QPoint(-2, 0);
        QTest::newRow("away from it, opaque") << true << QPoint(-2, 0);
        QTest::newRow("along the handle") << false << QPoint(0, 5);
        QTest::newRow("along the handle, opaque") << true << QPoint(0, 5);
    }
    void aClickIsNoDrag()
    {
        QFETCH(bool, opaque);
        QFETCH(QPoint, tremor);
        splitter->setOpaqueResize(opaque);
        const QList<int> before = splitter->sizes();
        doubleClick(handle());
        QSignalSpy moves(splitter.data(), &QSplitter::splitterMoved);
        drag(handle(), tremor);
        QCOMPARE(moves.count(), 0);
        doubleClick(handle());
        QCOMPARE(splitter->sizes(), before);
    }

    void withAWidgetAddedSinceTheLastDragTheCurrentSizesAreTaken()
    {
        drag(handle(), QPoint(-50, 0));
        addThird();
        const QList<int> before = splitter->sizes();
        QCOMPARE(before.size(), 3);
        doubleClick(splitter->handle(2));
        QCOMPARE(splitter->sizes().at(2), 0);
        doubleClick(splitter->handle(2));
        QCOMPARE(splitter->sizes(), before);
    }

    void aHandleFoldsTheWidgetBehindIt()
    {
        addThird();
        doubleClick(splitter->handle(1));
        QCOMPARE(splitter->sizes().at(1), 0);
        QVERIFY(splitter->sizes().at(2) > 0);
    }

    void anIndexWithoutAHandleIsIgnored_data()
    {
        QTest::addColumn<int>("index");
        QTest::newRow("the first, whose handle is hidden") << 0;
        QTest::newRow("one behind the last") << 2;
        QTest::newRow("far behind") << 99;
        QTest::newRow("negative") << -1;
    }
    void anIndexWithoutAHandleIsIgnored()
    {
        QFETCH(int, index);
        const QList<int> before = splitter->sizes();
        splitter->onHandleDoubleClicked(index);
        QCOMPARE(splitter->sizes(), before);
    }

    void aHandleTellsItsIndex()
    {
        QSignalSpy clicks(static_cast<mysplitterhandle*>(handle()), &mysplitterhandle::doubleClicked);
        doubleClick(handle());
        QCOMPARE(clicks.count(), 1);
        QCOMPARE(clicks.at(0).at(0).toInt(), 1);
    }

    void aHandleOutsideOfItsSplitterTellsNothing()
    {
        mysplitterhandle stray(Qt::Horizontal, splitter.data());
        stray.setParent(nullptr);
        QSignalSpy clicks(&stray, &mysplitterhandle::doubleClicked);
        sendMouse(&stray, QEvent::MouseButtonDblClick, QPoint(1, 1), Qt::LeftButton);
        QCOMPARE(clicks.count(), 0);
    }
};

QTEST_MAIN(tst_mysplitter)
#include "tst_mysplitter.moc"
