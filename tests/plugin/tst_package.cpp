#include "dialogs/kelvoraboutdialog.h"
#include "libraryfacts.h"
#include "loadedplugin.h"
#include "mainwindow.h"
#include "tests/support/fakehost.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLibrary>
#include <QMap>
#include <QTemporaryDir>
#include <QTest>
#include <QVersionNumber>

/// The package as a user gets it: opened by a common unpacker, looked at, and its library loaded from where it lies
/// then.
class tst_package : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void holdsItsDescriptionAndTheLibraryAndNothingElse();
    void isDeflated();
    void itsDescriptionHasTheKeysThatTheInstallerReads();
    void itsDescriptionTellsWhatTheLibraryTells();
    void packageLibraryAndAboutBoxHaveOneVersion();
    void theLibraryIsStripped();
    void theLibraryRunsWhereItIsFiveYearsOlder();
    void theLibraryLoadsFromWhereItWasUnpacked();

private:
    static QStringList entries(const QStringList& fields);

    QMap<QString, QString> description; ///< package.ini
};

namespace {

// Where the build has the tests unpack it.
const QString unpacked = QDir::cleanPath(KELVOR_LIBRARY "/../..");

QString told(const char* question)
{
    QLibrary library(KELVOR_LIBRARY);
    const auto answer = reinterpret_cast<const char* (*)()>(library.resolve(question));
    const QString text = answer ? QString::fromUtf8(answer()) : QString();
    library.unload();
    return text;
}

} // namespace

void tst_package::initTestCase()
{
    QVERIFY(QDir(unpacked).removeRecursively());
    QVERIFY(!libraryfacts::output("unzip", {KELVOR_PACKAGE, "-d", unpacked}).isEmpty());
    QFile file(unpacked + "/package.ini");
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromLatin1(file.readAll()).split('\n', Qt::SkipEmptyParts);
    for (const QString& line : lines) {
        QVERIFY2(line.contains(" = "), qPrintable(line));
        description.insert(line.section(" = ", 0, 0), line.section(" = ", 1));
    }
    QCOMPARE(description.size(), lines.size());
}

void tst_package::holdsItsDescriptionAndTheLibraryAndNothingElse()
{
    const QByteArray names = libraryfacts::output("unzip", {"-Z1", KELVOR_PACKAGE});
    QCOMPARE(names, QByteArray("package.ini\nplugins/kelvor_linux_amd64.so\n"));
}

void tst_package::isDeflated()
{
    // A line an entry: length, method, size and more, the name last.
    const QString list = QString::fromLatin1(libraryfacts::output("unzip", {"-v", KELVOR_PACKAGE}));
    QStringList methods;
    for (const QString& line : list.split('\n')) {
        const QStringList fields = line.simplified().split(' ');
        if (fields.last().endsWith(".ini") || fields.last().endsWith(".so"))
            methods.append(fields.at(1));
    }
    QCOMPARE(methods, (QStringList{"Defl:N", "Defl:N"}));
}

void tst_package::itsDescriptionHasTheKeysThatTheInstallerReads()
{
    const QStringList keys{"Author", "Description", "Name", "Platforms", "Type", "Version"};
    QCOMPARE(QStringList(description.keys()), keys);
    QCOMPARE(description["Type"], QString("Plugin"));
    QCOMPARE(description["Platforms"], QString("linux_amd64"));
}

void tst_package::itsDescriptionTellsWhatTheLibraryTells()
{
    QCOMPARE(description["Name"], told("ts3plugin_name"));
    QCOMPARE(description["Author"], told("ts3plugin_author"));
    QCOMPARE(description["Description"], '"' + told("ts3plugin_description") + '"');
}

void tst_package::packageLibraryAndAboutBoxHaveOneVersion()
{
    QCOMPARE(description["Version"], QString("1.10"));
    QCOMPARE(told("ts3plugin_version"), description["Version"]);
    QCOMPARE(QFileInfo(KELVOR_PACKAGE).fileName(), QString("kelvor-%1.ts3_plugin").arg(description["Version"]));
    const kelvoraboutdialog about;
    QCOMPARE(about.findChild<QLabel*>("label_2")->text(), description["Version"]);
}

void tst_package::theLibraryIsStripped() { QVERIFY(libraryfacts::isStripped(KELVOR_LIBRARY)); }

// What Debian 11 and Ubuntu 20.04 both have, and what each Qt 5 has.
void tst_package::theLibraryRunsWhereItIsFiveYearsOlder()
{
    const QMap<QString, QVersionNumber> newest{{"GLIBC", QVersionNumber(2, 31)},
                                               {"GLIBCXX", QVersionNumber(3, 4, 28)},
                                               {"CXXABI", QVersionNumber(1, 3, 12)},
                                               {"GCC", QVersionNumber(7, 0, 0)},
                                               {"Qt", QVersionNumber(5)}};
    const QStringList versions = libraryfacts::neededVersions(KELVOR_LIBRARY);
    QVERIFY2(versions.contains("Qt_5"), qPrintable(versions.join(' ')));
    for (const QString& version : versions) {
        const QString owner = version.section('_', 0, 0);
        QVERIFY2(newest.contains(owner), qPrintable(version));
        QVERIFY2(QVersionNumber::fromString(version.section('_', 1)) <= newest[owner], qPrintable(version));
    }
}

void tst_package::theLibraryLoadsFromWhereItWasUnpacked()
{
    const QTemporaryDir configuration;
    fakehost host;
    host.configPath = QFile::encodeName(configuration.path()) + '/';
    host.pluginPath = QFile::encodeName(unpacked) + "/plugins/";
    host.addServer(1).addClient(2, "Ann");
    MainWindow client(6);
    loadedplugin plugin(host.table());
    plugin.init();
    QCOMPARE(client.toolEntries(), QStringList{"Kelvor"});
    plugin.receive(1, "\x16 2");
    QCOMPARE(host.takeTexts(), QList<QByteArray>{"\x17 1"});
    plugin.shutdown();
    QVERIFY(plugin.unload());
    QCOMPARE(client.toolEntries(), QStringList());
}

QTEST_MAIN(tst_package)
#include "tst_package.moc"
