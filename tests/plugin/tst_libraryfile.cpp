#include "libraryfacts.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QSet>
#include <QTest>
#include <QVersionNumber>

/// What stands in the file that the voice client loads: its names, the versions that it asks for. Read with
/// the tools of binutils, as somebody would who looks at the file of a stranger.
class tst_libraryfile : public QObject {
    Q_OBJECT

private slots:
    void exportsTheNamesOfTheInterfaceAndNothingElse();
    void hasNoUniqueSymbolThatWouldKeepItMapped();
    void asksForNoQtVersionTagBeyondTheCommonOne();
    void callsNothingNewerThanQt512();
    void asksForNothingThatStartsAThreadOrLocks();
    void hasNoRunPath();

private:
    static QHash<QByteArray, QVersionNumber> minimumVersions();
};

namespace {

const char* const expectedNames[] = {
    "ts3plugin_apiVersion",
    "ts3plugin_author",
    "ts3plugin_commandKeyword",
    "ts3plugin_configure",
    "ts3plugin_description",
    "ts3plugin_init",
    "ts3plugin_name",
    "ts3plugin_offersConfigure",
    "ts3plugin_onChannelMoveEvent",
    "ts3plugin_onClientMoveEvent",
    "ts3plugin_onClientMoveMovedEvent",
    "ts3plugin_onClientMoveTimeoutEvent",
    "ts3plugin_onDelChannelEvent",
    "ts3plugin_onFileListEvent",
    "ts3plugin_onFileTransferStatusEvent",
    "ts3plugin_onNewChannelCreatedEvent",
    "ts3plugin_onNewChannelEvent",
    "ts3plugin_onPluginCommandEvent",
    "ts3plugin_processCommand",
#if KELVOR_HOST_INTERFACE == 26
    "ts3plugin_registerPluginID",
    "ts3plugin_requestAutoload",
#else
    "ts3plugin_registerPluginCommandID",
#endif
    "ts3plugin_setFunctionPointers",
    "ts3plugin_shutdown",
    "ts3plugin_version",
};

// All that the C and C++ libraries and Qt have for threads and locks, by how their names begin.
const char* const threadNames[] = {
    " pthread_",
    " thrd_",
    " mtx_",
    " sem_",
    " std::thread",
    " std::mutex",
    " std::condition_variable",
    " QThread",
    " QRunnable",
    " QtConcurrent",
    " QFuture",
    " QMutex",
    " QBasicMutex",
    " QReadWriteLock",
    " QSemaphore",
    " QWaitCondition",
};

} // namespace

// The first version of Qt 5 that has each name, from what Debian's packages say of their libraries.
QHash<QByteArray, QVersionNumber> tst_libraryfile::minimumVersions()
{
    QHash<QByteArray, QVersionNumber> versions;
    const QDir info(QString::fromLatin1("/var/lib/dpkg/info"));
    const QStringList files = info.entryList({QString::fromLatin1("libqt5*.symbols")});
    for (const QString& name : files) {
        QFile file(info.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QList<QByteArray> lines = file.readAll().split('\n');
        for (const QByteArray& line : lines) {
            const QList<QByteArray> fields = line.trimmed().split(' ');
            if (line.startsWith(' ') && fields.size() >= 2)
                versions.insert(fields[0].mid(fields[0].lastIndexOf(')') + 1),
                                QVersionNumber::fromString(QString::fromLatin1(fields[1])));
        }
    }
    return versions;
}

void tst_libraryfile::exportsTheNamesOfTheInterfaceAndNothingElse()
{
    QStringList found;
    const QList<QByteArray> lines = libraryfacts::output("nm", {"-D", "--defined-only", KELVOR_LIBRARY}).split('\n');
    for (const QByteArray& line : lines) {
        if (!line.isEmpty())
            found.append(QString::fromLatin1(line.mid(line.lastIndexOf(' ') + 1)));
    }
    found.sort();
    QStringList expected;
    for (const char* name : expectedNames)
        expected.append(QString::fromLatin1(name));
    QCOMPARE(found, expected);
}

void tst_libraryfile::hasNoUniqueSymbolThatWouldKeepItMapped()
{
    const QByteArray symbols = libraryfacts::output("readelf", {"-W", "--dyn-syms", KELVOR_LIBRARY});
    QVERIFY(symbols.contains("ts3plugin_init"));
    QVERIFY2(!symbols.contains("UNIQUE"), symbols.constData());
}

void tst_libraryfile::asksForNoQtVersionTagBeyondTheCommonOne()
{
    const QByteArray versions = libraryfacts::output("readelf", {"-W", "-V", KELVOR_LIBRARY});
    QVERIFY(versions.contains("Name: Qt_5 "));
    QVERIFY2(!versions.contains("Name: Qt_5."), versions.constData());
}

void tst_libraryfile::callsNothingNewerThanQt512()
{
    const QHash<QByteArray, QVersionNumber> versions = minimumVersions();
    QVERIFY2(versions.size() > 1000, "the packages of Qt do not say which version has which name");
    const QVersionNumber limit(5, 13);
    int known = 0;
    QByteArray tooNew;
    const QList<QByteArray> lines = libraryfacts::output("nm", {"-D", "--undefined-only", KELVOR_LIBRARY}).split('\n');
    for (const QByteArray& line : lines) {
        const QByteArray name = line.mid(line.lastIndexOf(' ') + 1);
        const auto version = versions.find(name);
        if (version == versions.end())
            continue;
        ++known;
        if (*version >= limit)
            tooNew += name + ' ' + version->toString().toLatin1() + '\n';
    }
    QVERIFY(known > 100);
    QVERIFY2(tooNew.isEmpty(), tooNew.constData());
}

void tst_libraryfile::asksForNothingThatStartsAThreadOrLocks()
{
    const QByteArray names = libraryfacts::output("nm", {"-D", "-C", "--undefined-only", KELVOR_LIBRARY});
    QVERIFY(names.contains(" QWidget::"));
    for (const char* const name : threadNames)
        QVERIFY2(!names.contains(name), name);
}

void tst_libraryfile::hasNoRunPath()
{
    const QByteArray dynamic = libraryfacts::output("readelf", {"-W", "-d", KELVOR_LIBRARY});
    QVERIFY(dynamic.contains("libQt5Core.so.5"));
    QVERIFY(!dynamic.contains("RPATH") && !dynamic.contains("RUNPATH"));
}

QTEST_GUILESS_MAIN(tst_libraryfile)
#include "tst_libraryfile.moc"
