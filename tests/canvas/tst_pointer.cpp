#include "canvas/paintscene.h"

#include <QDialog>
#include <QMouseEvent>
#include <QWindow>
#include <QtTest>

namespace {

constexpr QRgb red = 0xffff0000;

const QSize size(100, 80);
// Where the canvas lies in its window.
const QPoint corner(30, 20);

/// An event of the screen's pointer, which stands between the toolkit's whole pixels.
void point(QDialog& window, QEvent::Type type, const QPointF& pos)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    const QPointF inWindow = pos + corner;
    QMouseEvent event(type, inWindow, inWindow, window.geometry().topLeft() + inWindow, button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(window.windowHandle(), &event);
}

QList<QPoint> redPixels(const QImage& picture)
{
    QList<QPoint> found;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == red)
                found.append(QPoint(x, y));
        }
    }
    return found;
}

} // namespace

/// The pointer on a screen that has four pixels for each of the canvas: it can stand within a canvas pixel.
class tst_pointer : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void aDotIsPaintedUnderThePointer_data();
    void aDotIsPaintedUnderThePointer();
    void aStrokeGoesThroughThePixelsUnderThePointer();
    void aFillBeginsAtThePixelUnderThePointer();

private:
    QScopedPointer<QDialog> window;
    paintscene* scene = nullptr;
};

void tst_pointer::initTestCase() { QCOMPARE(qApp->devicePixelRatio(), 2.0); }

void tst_pointer::init()
{
    window.reset(new QDialog);
    window->resize(200, 150);
    scene = new paintscene(size.width(), size.height(), window.data());
    scene->setImage(QString(), false);
    scene->move(corner);
    scene->setColor(red);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.data()));
}

void tst_pointer::aDotIsPaintedUnderThePointer_data()
{
    QTest::addColumn<QPointF>("pointer");
    QTest::addColumn<QPoint>("pixel");
    QTest::newRow("at a pixel's corner") << QPointF(40, 30) << QPoint(40, 30);
    QTest::newRow("in its right half") << QPointF(40.5, 30) << QPoint(40, 30);
    QTest::newRow("in its lower half") << QPointF(40, 30.5) << QPoint(40, 30);
    QTest::newRow("in its last quarter") << QPointF(40.5, 30.5) << QPoint(40, 30);
    QTest::newRow("shortly before the next") << QPointF(40.9, 30.9) << QPoint(40, 30);
    QTest::newRow("in the first half") << QPointF(40.25, 30.25) << QPoint(40, 30);
    QTest::newRow("in the first pixel") << QPointF(0.5, 0.5) << QPoint(0, 0);
}

void tst_pointer::aDotIsPaintedUnderThePointer()
{
    QFETCH(QPointF, pointer);
    QFETCH(QPoint, pixel);
    scene->setTool(kelvortool::pencil);
    QSignalSpy sent(scene, &paintscene::paintDataAvailable);
    point(*window, QEvent::MouseButtonPress, pointer);
    point(*window, QEvent::MouseButtonRelease, pointer);
    QCOMPARE(redPixels(scene->picture()), QList<QPoint>{pixel});
    // The peers paint the same pixel.
    QCOMPARE(sent.size(), 1);
    QCOMPARE(sent[0][1].value<QList<QPoint>>(), (QList<QPoint>{pixel, pixel}));
}

void tst_pointer::aStrokeGoesThroughThePixelsUnderThePointer()
{
    scene->setTool(kelvortool::pencil);
    point(*window, QEvent::MouseButtonPress, {40.5, 30.5});
    point(*window, QEvent::MouseMove, {41.5, 31.5});
    point(*window, QEvent::MouseMove, {42.5, 31.5});
    point(*window, QEvent::MouseButtonRelease, {42.5, 31.5});
    QCOMPARE(redPixels(scene->picture()), (QList<QPoint>{{40, 30}, {41, 31}, {42, 31}}));
}

void tst_pointer::aFillBeginsAtThePixelUnderThePointer()
{
    // A single red pixel in the paper is filled when the pointer stands in its last quarter, and the paper is not.
    scene->setTool(kelvortool::pencil);
    point(*window, QEvent::MouseButtonPress, {40, 30});
    point(*window, QEvent::MouseButtonRelease, {40, 30});
    scene->setTool(kelvortool::fill);
    scene->setColor(Qt::green);
    point(*window, QEvent::MouseButtonPress, {40.5, 30.5});
    QCOMPARE(scene->picture().pixel(40, 30), QColor(Qt::green).rgba());
    QCOMPARE(scene->picture().pixel(41, 31), QColor(Qt::white).rgba());
    QVERIFY(redPixels(scene->picture()).isEmpty());
}

int main(int argc, char** argv)
{
    qRegisterMetaType<kelvortool>("kelvortool");
    qRegisterMetaType<QList<QPoint>>("QList<QPoint>");
    QApplication application(argc, argv);
    tst_pointer test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_pointer.moc"
