#include "mainwindow.h"
#include "tests/support/temporarydirectory.h"
#include "unloadstage.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QTest>
#include <QTimer>

/// Load, use, shut down, unload, in every state that a user can leave the plugin in. The exports are called from inside
/// an event loop, as the client does it, and the library is unmapped before that loop comes round again: whatever the
/// plugin left behind then jumps into unmapped memory. No state may have a thread of the plugin's own.
class tst_unload : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { directory.leave(); }

    void leavesNothingBehind_data();
    void leavesNothingBehind();
    void manyCyclesLeaveNothingBehind();

private:
    void cycle(const unloadstage::state& left);

    temporarydirectory directory; ///< uploads leave their file where the system keeps such files
};

namespace {

// Runs act from inside an event loop and waits for it.
void inEventLoop(const std::function<void()>& act)
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
        act();
        loop.quit();
    });
    loop.exec();
}

} // namespace

void tst_unload::initTestCase()
{
    QVERIFY(directory.enter());
    QVERIFY(QDir(directory.path()).mkdir(QString::fromLatin1("plugins")));
    QVERIFY(QFile(directory.file(QString::fromLatin1("old.png"))).open(QIODevice::WriteOnly));
}

void tst_unload::cycle(const unloadstage::state& left)
{
    const MainWindow client(left.withMenu ? 6 : 5);
    unloadstage stage(QDir(directory.path()));
    bool gone = false;
    inEventLoop([&] {
        stage.play(left);
        gone = stage.library().unload();
    });
    QCoreApplication::processEvents();
    QVERIFY2(gone, left.name);
    QCOMPARE(stage.threadsOfPlugin(), QStringList());
    QCOMPARE(stage.outstanding(), 0);
    QVERIFY(client.toolEntries().isEmpty());
}

void tst_unload::leavesNothingBehind_data()
{
    QTest::addColumn<int>("index");
    const QList<unloadstage::state>& states = unloadstage::states();
    for (int i = 0; i < states.size(); ++i)
        QTest::newRow(states.at(i).name) << i;
}

void tst_unload::leavesNothingBehind()
{
    QFETCH(int, index);
    const unloadstage::state& left = unloadstage::states().at(index);
    cycle(left);
    if (!left.withMenu) {
        // Long enough for the timer of the search to fire into what was unmapped.
        QTest::qWait(400);
    }
}

void tst_unload::manyCyclesLeaveNothingBehind()
{
    const QList<unloadstage::state>& states = unloadstage::states();
    for (int i = 0; i < KELVOR_UNLOAD_CYCLES; ++i) {
        const unloadstage::state& left = states.at(i % states.size());
        cycle(left);
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QString::fromLatin1("in cycle %1: %2").arg(i).arg(QLatin1String(left.name))));
    }
}

QTEST_MAIN(tst_unload)
#include "tst_unload.moc"
