#include "libraryfacts.h"

#include <QDirIterator>
#include <QTemporaryDir>
#include <QTest>

/// What lies where after an installation from the build directory.
class tst_installation : public QObject {
    Q_OBJECT

private slots:
    void theStrippedLibraryLiesAmongThePluginsAndNothingElse();
};

void tst_installation::theStrippedLibraryLiesAmongThePluginsAndNothingElse()
{
    const QTemporaryDir prefix;
    QVERIFY(!libraryfacts::output(KELVOR_CMAKE, {"--install", KELVOR_BUILD_DIRECTORY, "--prefix", prefix.path()})
                 .isEmpty());
    QStringList installed;
    QDirIterator files(prefix.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext())
        installed.append(QDir(prefix.path()).relativeFilePath(files.next()));
#if KELVOR_HOST_INTERFACE == 26
    const QString library = "plugins/kelvor_linux_amd64.so";
#else
    const QString library = "plugins/kelvor.so";
#endif
    QCOMPARE(installed, QStringList{library});
    QVERIFY(libraryfacts::isStripped(prefix.filePath(library)));
}

QTEST_GUILESS_MAIN(tst_installation)
#include "tst_installation.moc"
