#include "fuzz/targets/clientworld.h"
#include "fuzz/targets/worldscript.h"

#include <QDir>
#include <QScopedValueRollback>
#include <QTemporaryDir>
#include <QTest>

#include <random>

namespace {

using numbers = QMap<QByteArray, int>;

// Sessions from end to end, with all that asks the voice client for something: as a host who loads a picture, with
// people and channels coming and going, and as a guest with and without a password; one upload, and refusals.
QList<QByteArray> wholeSessions()
{
    return {// Connection 1, own session.
            "uo 1", "ui 1 2 3 c3", "1\x0d 2", "1\x0d 3", "ut 1 3", "hm 1 4 2 1 0", "hc 1 9 1", "hm 1 3 3 9 1",
            "hv 1 9 3", "hd 1 9", "ul 1", "y", "hl 1 1 / cat.png 77 5 1", "y", "y", "n", "n", "1\x17 2", "ua 1",
            "1\x11 2 \x02 #ff0000 3 10|10 20|20", "1\x0d 4", "us 1 2", "ud 1 3 3", "um 1 9 9", "ur 1 9 9", "ub 1 16",
            "y", "y", "y", "n", "n",
            // Connection 4, invited; the picture lies behind a password.
            "4\x01 2 2", "y", "4\x04 2 3", "4\x06 2 4", "4\x10 2 64 48 2 true 77 /cat.png", "y", "y",
            "4\x13 2 \x0a #00ff00 5|5",
            // Connection 5, the same without a password, and the download is cancelled.
            "5\x01 2 3", "y", "5\x10 3 64 48 1 false 77 /cat.png", "n",
            // Others: refused, of another version, on no connection, twice on one.
            "2\x01 2 3", "n", "2\x01 3 3", "6\x01 2 2", "y", "2\x16 3", "uo 2", "uo 2", "uc 2",
            // All end.
            "uw 1", "hm 4 2 1 0 2", "ue 5", "uw 4", "uc 6"};
}

// The same interface allows a client to report no error and to hand out nothing.
template <typename Given, typename... Arguments> unsigned int giveNothing(Arguments..., Given** given)
{
    *given = nullptr;
    return ERROR_ok;
}

} // namespace

/// A voice client whose functions fail, in whole sessions. The world looks after each step whether states and windows
/// agree and all texts and lists were given back.
class tst_failinghost : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theSessionsNeedEveryFunction();
    void oneFunctionFails_data();
    void oneFunctionFails();
    void functionsFailAtRandom_data();
    void functionsFailAtRandom();
    void textsAndListsAreNothing();
    void serversAreEmpty();
    void noTabIsActive();
    void directoriesAreNotTold();

private:
    /// How often each function was called meanwhile.
    numbers playWholeSessions();

    clientworld world;
};

void tst_failinghost::init() { world.start(); }

void tst_failinghost::cleanup()
{
    // What is still open is closed, which every connection must allow, and the sessions of the world can be opened.
    world.restore();
    world.shutdown();
    QCOMPARE(world.host.outstanding, 0);
}

numbers tst_failinghost::playWholeSessions()
{
    numbers calls;
    world.play(wholeSessions(), [&] { calls = world.host.calls; });
    return calls;
}

void tst_failinghost::theSessionsNeedEveryFunction()
{
    const numbers calls = playWholeSessions();
    const QList<QByteArray> functions = worldscript::hostFunctions();
    for (const QByteArray& function : functions) {
        // Asked for only when another function has failed.
        if (function != "getErrorMessage")
            QVERIFY2(calls.value(function) > 0, function.constData());
    }
}

void tst_failinghost::oneFunctionFails_data()
{
    QTest::addColumn<QByteArray>("function");
    QTest::addColumn<bool>("withoutWords");
    const QList<QByteArray> functions = worldscript::hostFunctions();
    for (const QByteArray& function : functions) {
        QTest::newRow(function.constData()) << function << false;
        QTest::newRow((function + ", and no words for it").constData()) << function << true;
    }
}

void tst_failinghost::oneFunctionFails()
{
    QFETCH(QByteArray, function);
    QFETCH(bool, withoutWords);
    world.host.failing.insert(function);
    if (withoutWords)
        world.host.failing.insert("getErrorMessage");
    const numbers calls = playWholeSessions();
    if (function != "getErrorMessage")
        QVERIFY(calls.value(function) > 0);
}

void tst_failinghost::functionsFailAtRandom_data()
{
    QTest::addColumn<unsigned int>("seed");
    for (unsigned int seed = 1; seed <= 20; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_failinghost::functionsFailAtRandom()
{
    QFETCH(unsigned int, seed);
    std::mt19937 random(seed);
    QList<QByteArray> records;
    const QList<QByteArray> session = wholeSessions();
    // Before each step one more function fails, or all work again.
    for (const QByteArray& step : session)
        records << (random() % 3 == 0 ? "f" : "f" + QByteArray::number(static_cast<uint>(random()))) << step;
    bool ended = false;
    world.play(records, [&] { ended = true; });
    QVERIFY(ended);
}

void tst_failinghost::textsAndListsAreNothing()
{
    TS3Functions table = world.host.table();
    table.getErrorMessage = giveNothing<char, unsigned int>;
    table.getClientVariableAsString = giveNothing<char, uint64, anyID, size_t>;
    table.getChannelVariableAsString = giveNothing<char, uint64, uint64, size_t>;
    table.getServerVariableAsString = giveNothing<char, uint64, size_t>;
    table.getClientList = giveNothing<anyID, uint64>;
    table.getChannelList = giveNothing<uint64, uint64>;
    world.start(table);
    QVERIFY(playWholeSessions().value("getConnectionStatus") > 0);
    // The world cannot be opened with such a client.
    world.start();
}

void tst_failinghost::serversAreEmpty()
{
    for (fakeserver& server : world.host.servers) {
        server.clientOrder.clear();
        server.clients.clear();
        server.channelOrder.clear();
        server.channels.clear();
    }
    QVERIFY(playWholeSessions().value("getClientList") > 0);
}

void tst_failinghost::noTabIsActive()
{
    const QScopedValueRollback<uint64> tab(world.host.currentConnection, 0);
    world.host.takeSent();
    world.controller->startWhiteboard();
    QCOMPARE(world.host.printed, QList<QByteArray>{"error querying connection status"});
    QVERIFY(world.host.sent.isEmpty());
    QCOMPARE(world.controller->stateOf(0), session_none);
    QVERIFY(playWholeSessions().value("requestFile") > 0);
}

// The files are then those of the directory in which the client runs: the settings, and one for downloads.
void tst_failinghost::directoriesAreNotTold()
{
    const QTemporaryDir working;
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(working.path()));
    TS3Functions table = world.host.table();
    table.getConfigPath = [](char*, size_t) {};
    table.getPluginPath = [](char*, size_t) {};
    world.start(table);
    playWholeSessions();
    QList<filerequest> requests;
    world.play(QList<QByteArray>{"uo 2", "ua 2", "ub 2 16", "y", "y", "y", "uw 2", "uo 2", "ul 2", "y",
                                 "hl 2 1 / cat.png 77 5 1", "y", "y", "uc 2"},
               [&] { requests = world.host.requests; });
    world.shutdown();
    const QStringList made = QDir(working.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    QVERIFY(QDir::setCurrent(before));
    world.start();
    QCOMPARE(requests.value(1).function, QByteArray("sendFile"));
    QCOMPARE(requests.last().function, QByteArray("requestFile"));
    QCOMPARE(requests.last().localDirectory, QFile::encodeName(working.filePath(QString::fromLatin1("kelvor"))));
    QCOMPARE(made, (QStringList{QString::fromLatin1("kelvor"), QString::fromLatin1("kelvor.conf")}));
}

QTEST_MAIN(tst_failinghost)
#include "tst_failinghost.moc"
