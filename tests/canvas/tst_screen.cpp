#include "canvas/paintscene.h"

#include "literalpixels.h"
#include "scenehand.h"

#include <QApplication>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QtTest>

// What a user sees: the canvas in a window of a real X server, read back from the server's screen. A widget that is
// painted into an image, as most tests do it, would not tell a canvas that stays black.

namespace {

constexpr QRgb white = 0xffffffff;
constexpr QRgb red = 0xffff0000;

const QSize size(160, 120);
const char* const onScreen = "--on-screen";

} // namespace

/// Runs on the X server, in a process of its own.
class tst_onscreen : public QObject {
    Q_OBJECT
private slots:
    void init();
    void theCanvasIsOnTheScreen();
    void strokesOfPeersAppear();
    void aPreviewIsOnTheScreenAndGoesAgain();
    void aBackgroundIsOnTheScreen();

private:
    void open(const QString& path, bool asBackground);
    QImage screenshot() const { return QGuiApplication::primaryScreen()->grabWindow(0).toImage(); }

    QTemporaryDir directory;
    QScopedPointer<paintscene> scene;
};

void tst_onscreen::open(const QString& path, bool asBackground)
{
    scene.reset(new paintscene(size.width(), size.height(), nullptr));
    scene->setWindowFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    scene->setImage(path, asBackground);
    scene->move(0, 0);
    scene->show();
    QVERIFY(QTest::qWaitForWindowExposed(scene.data()));
}

void tst_onscreen::init() { open(QString(), false); }

void tst_onscreen::theCanvasIsOnTheScreen()
{
    QTRY_COMPARE(screenshot().pixel(20, 20), white);
    QTRY_COMPARE(screenshot().pixel(159, 119), white);
    scenehand hand(*scene);
    hand.take(kelvortool::pencil, Qt::red, 9);
    hand.drag({QPoint(20, 20), QPoint(100, 20)});
    QTRY_COMPARE(screenshot().pixel(60, 20), red);
    QTRY_COMPARE(screenshot().copy(QRect(QPoint(), size)).convertToFormat(QImage::Format_RGB32),
                 literal::shown(size, QImage(), scene->picture()));
}

void tst_onscreen::strokesOfPeersAppear()
{
    scene->applyDraw(static_cast<char>(kelvortool::line), Qt::red, 9, {QPoint(20, 90), QPoint(100, 90)});
    QTRY_COMPARE(screenshot().pixel(60, 90), red);
    scene->applyExtendedDraw(static_cast<char>(kelvortool::invert), "full");
    QTRY_COMPARE(screenshot().pixel(60, 90), QRgb{0xff00ffff});
    QTRY_COMPARE(screenshot().pixel(60, 50), QRgb{0xff000000});
}

void tst_onscreen::aPreviewIsOnTheScreenAndGoesAgain()
{
    scenehand hand(*scene);
    hand.take(kelvortool::line, Qt::red, 9);
    hand.press(QPoint(20, 20));
    hand.move(QPoint(140, 20));
    QTRY_COMPARE(screenshot().pixel(80, 20), red);
    hand.move(QPoint(20, 100));
    QTRY_COMPARE(screenshot().pixel(20, 60), red);
    QCOMPARE(screenshot().pixel(80, 20), white);
    hand.release(QPoint(20, 20));
    QTRY_COMPARE(screenshot().pixel(20, 60), white);
}

void tst_onscreen::aBackgroundIsOnTheScreen()
{
    QImage background(size, QImage::Format_RGB32);
    background.fill(0xff2060a0);
    const QString path = directory.filePath("background.png");
    QVERIFY(background.save(path));
    open(path, true);
    QTRY_COMPARE(screenshot().pixel(80, 60), QRgb{0xff2060a0});
    scenehand hand(*scene);
    hand.take(kelvortool::fill, Qt::red);
    hand.press(QPoint(80, 60));
    QTRY_COMPARE(screenshot().pixel(80, 60), red);
    hand.take(kelvortool::eraser, Qt::red, 21);
    hand.drag({QPoint(80, 60)});
    QTRY_COMPARE(screenshot().pixel(80, 60), QRgb{0xff2060a0});
}

/// Starts an X server without a monitor and the process above on it.
class tst_screen : public QObject {
    Q_OBJECT
private slots:
    void whatIsPaintedIsSeen();
};

void tst_screen::whatIsPaintedIsSeen()
{
    QProcess server;
    // The server chooses a free number and tells it.
    server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "640x480x24", "-nolisten", "tcp"});
    QVERIFY2(server.waitForStarted(), "Xvfb is needed");
    QByteArray display;
    while (!display.endsWith('\n')) {
        QVERIFY(server.waitForReadyRead());
        display += server.readAllStandardOutput();
    }

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", ':' + QString::fromLatin1(display.trimmed()));
    environment.insert("QT_QPA_PLATFORM", "xcb");
    QProcess shown;
    shown.setProcessEnvironment(environment);
    shown.setProcessChannelMode(QProcess::ForwardedChannels);
    shown.start(QCoreApplication::applicationFilePath(), {onScreen});
    QVERIFY(shown.waitForFinished(60000));
    server.terminate();
    QVERIFY(server.waitForFinished());
    QCOMPARE(shown.exitStatus(), QProcess::NormalExit);
    QCOMPARE(shown.exitCode(), 0);
}

int main(int argc, char** argv)
{
    if (argc > 1 && qstrcmp(argv[1], onScreen) == 0) {
        QApplication application(argc, argv);
        tst_onscreen test;
        return QTest::qExec(&test);
    }
    QCoreApplication application(argc, argv);
    tst_screen test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_screen.moc"
