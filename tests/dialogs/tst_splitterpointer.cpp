#include "dialogs/mysplitter.h"

#include <QApplication>
#include <QListWidget>
#include <QProcess>
#include <QtTest>

#include <cstdio>

namespace {

/// An X server of the test's own, without a screen, on a display number that it finds itself. It ends with its last
/// client.
class xserver {
public:
    xserver()
    {
        process.start(QLatin1String("Xvfb"),
                      {QLatin1String("-displayfd"), QLatin1String("1"), QLatin1String("-terminate"),
                       QLatin1String("-nolisten"), QLatin1String("tcp"), QLatin1String("-screen"), QLatin1String("0"),
                       QLatin1String("800x600x24")});
        if (process.waitForStarted() && process.waitForReadyRead())
            number = process.readLine().trimmed();
    }
    ~xserver()
    {
        process.terminate();
        process.waitForFinished();
    }

    /// The name of the display, empty when the server did not start.
    QByteArray display() const { return number.isEmpty() ? number : ':' + number; }

private:
    QProcess process;
    QByteArray number;
};

/// Counts what the handle gets, so that the test knows when the pointer's events have arrived.
class releasecounter : public QObject {
public:
    int releases = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        releases += event->type() == QEvent::MouseButtonRelease;
        return false;
    }
};

} // namespace

/// The splitter under the X server's own pointer, whose events come in another order than the toolkit's tests send
/// them: a double click begins with a whole click.
class tst_splitterpointer : public QObject {
    Q_OBJECT

    QScopedPointer<mysplitter> splitter;
    QScopedPointer<releasecounter> counter;

    QPoint grip() const { return splitter->handle(1)->mapToGlobal(QPoint(2, 100)); }

    /// Moves the pointer and presses its buttons as xdotool is told, and waits until the handle got all releases.
    void playPointer(const QString& commands, int releases)
    {
        const int expected = counter->releases + releases;
        QProcess tool;
        tool.start(QLatin1String("xdotool"), commands.split(QLatin1Char(' ')));
        QTRY_COMPARE_WITH_TIMEOUT(tool.state(), QProcess::NotRunning, 30000);
        QCOMPARE(tool.error(), QProcess::UnknownError);
        QCOMPARE(tool.exitCode(), 0);
        QTRY_COMPARE_WITH_TIMEOUT(counter->releases, expected, 30000);
    }
    void doubleClick()
    {
        playPointer(
            QString::fromLatin1("mousemove %1 %2 click --repeat 2 --delay 50 1").arg(grip().x()).arg(grip().y()), 2);
    }
    void dragBy(int way)
    {
        const QString text = QLatin1String("mousemove %1 %2 mousedown 1 mousemove %3 %2 mousemove %4 %2 mouseup 1");
        const int x = grip().x();
        playPointer(text.arg(x).arg(grip().y()).arg(x + way / 2).arg(x + way), 1);
    }

private slots:
    void init()
    {
        splitter.reset(new mysplitter);
        splitter->setOpaqueResize(false);
        splitter->addWidget(new QWidget);
        splitter->addWidget(new QListWidget);
        splitter->setGeometry(0, 0, 600, 300);
        splitter->setSizes({400, 195});
        splitter->show();
        QVERIFY(QTest::qWaitForWindowExposed(splitter.data()));
        counter.reset(new releasecounter);
        splitter->handle(1)->installEventFilter(counter.data());
    }

    void aDoubleClickFoldsAndTheNextRestores_data()
    {
        QTest::addColumn<bool>("opaque");
        QTest::newRow("with a rubber band") << false;
        QTest::newRow("opaque") << true;
    }
    void aDoubleClickFoldsAndTheNextRestores()
    {
        QFETCH(bool, opaque);
        splitter->setOpaqueResize(opaque);
        const QList<int> before = splitter->sizes();
        for (int round = 0; round < 2; ++round) {
            doubleClick();
            QCOMPARE(splitter->sizes().at(1), 0);
            doubleClick();
            QCOMPARE(splitter->sizes(), before);
        }
    }

    void afterADragThePaneComesBackAtTheDraggedSize()
    {
        const QList<int> before = splitter->sizes();
        dragBy(-90);
        const QList<int> dragged = splitter->sizes();
        QCOMPARE(dragged, QList<int>({before.at(0) - 90, before.at(1) + 90}));
        doubleClick();
        QCOMPARE(splitter->sizes().at(1), 0);
        doubleClick();
        QCOMPARE(splitter->sizes(), dragged);
    }

    void aDragOpensAFoldedPane()
    {
        doubleClick();
        dragBy(-120);
        QCOMPARE(splitter->sizes().at(1), 120);
    }
};

int main(int argc, char** argv)
{
    const xserver server;
    if (server.display().isEmpty()) {
        std::fputs("tst_splitterpointer: cannot start Xvfb\n", stderr);
        return 1;
    }
    qputenv("DISPLAY", server.display());
    qputenv("QT_QPA_PLATFORM", "xcb");
    QApplication application(argc, argv);
    // A busy machine may take its time between the two clicks.
    QApplication::setDoubleClickInterval(10000);
    tst_splitterpointer test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_splitterpointer.moc"
