#include "plugin/settings.h"
#include "tests/support/fakehost.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

/// The settings file in directories of its own for each test.
class tst_settings : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aFirstRunMakesTheDownloadDirectoryAndNoFile();
    void aPluginDirectoryThatTakesNoSubdirectoryIsUsedItself();
    void anEmptyDownloadDirectoryStaysEmptyAndNothingIsMade();
    void missingKeysTakeTheirDefaultsAndAllEightAreWritten();
    void everyValueSurvivesAFile();
    void valuesOutOfRangeAreTakenAsTheyStand();
    void aFileThatIsNoSettingsFileGivesTheDefaults();
    void aDirectoryThatCannotBeWrittenIsNotReported();
    void keysStandInTheGeneralSection();

private:
    QString configFile() const { return root->filePath(QString::fromLatin1("config/kelvor.conf")); }
    void writeConfig(const QByteArray& text) const;
    QByteArray readConfig() const;

    std::unique_ptr<QTemporaryDir> root;
    std::unique_ptr<fakehost> host;
};

void tst_settings::init()
{
    root = std::make_unique<QTemporaryDir>();
    QVERIFY(root->isValid());
    QVERIFY(QDir(root->path()).mkdir(QString::fromLatin1("config")));
    QVERIFY(QDir(root->path()).mkdir(QString::fromLatin1("plugins")));
    host = std::make_unique<fakehost>();
    host->configPath = QFile::encodeName(root->path()) + "/config/";
    host->pluginPath = QFile::encodeName(root->path()) + "/plugins/";
}

void tst_settings::cleanup()
{
    host.reset();
    root.reset();
}

void tst_settings::writeConfig(const QByteArray& text) const
{
    QFile file(configFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), qint64(text.size()));
}

QByteArray tst_settings::readConfig() const
{
    QFile file(configFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_settings::aFirstRunMakesTheDownloadDirectoryAndNoFile()
{
    const settings values = loadSettings(host->table());
    QCOMPARE(values.downloaddir, root->filePath(QString::fromLatin1("plugins/kelvor")));
    QVERIFY(QDir(values.downloaddir).exists());
    QVERIFY(!QFile::exists(configFile()));
    QCOMPARE(values.playsound, false);
    QCOMPARE(values.soundpath, QString());
    QCOMPARE(values.awayreject, false);
    QCOMPARE(values.onlyactivetab, true);
    QCOMPARE(values.defaultwidth, 640);
    QCOMPARE(values.defaultheight, 320);
    QCOMPARE(values.pong, true);
}

void tst_settings::aPluginDirectoryThatTakesNoSubdirectoryIsUsedItself()
{
    // A file of that name can be neither entered nor made a directory, whoever runs the test.
    QFile blocker(root->filePath(QString::fromLatin1("plugins/kelvor")));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    QCOMPARE(loadSettings(host->table()).downloaddir, root->filePath(QString::fromLatin1("plugins")));
}

void tst_settings::anEmptyDownloadDirectoryStaysEmptyAndNothingIsMade()
{
    writeConfig("[General]\ndownloaddir=\n");
    const settings values = loadSettings(host->table());
    QVERIFY(values.downloaddir.isEmpty());
    QVERIFY(!QFile::exists(root->filePath(QString::fromLatin1("plugins/kelvor"))));
}

void tst_settings::missingKeysTakeTheirDefaultsAndAllEightAreWritten()
{
    writeConfig("[General]\ndefaultwidth=800\npong=false\n");
    const settings values = loadSettings(host->table());
    QCOMPARE(values.defaultwidth, 800);
    QCOMPARE(values.defaultheight, 320);
    QCOMPARE(values.pong, false);
    QCOMPARE(values.onlyactivetab, true);
    saveSettings(host->table(), values);
    const QSettings file(configFile(), QSettings::IniFormat);
    QStringList keys = file.allKeys();
    keys.sort();
    QCOMPARE(keys.join(QLatin1Char(' ')),
             QString::fromLatin1(
                 "awayreject defaultheight defaultwidth downloaddir onlyactivetab playsound pong soundpath"));
}

void tst_settings::everyValueSurvivesAFile()
{
    settings values;
    values.downloaddir = QString::fromUtf8("/tmp/B\xc3\xbcro, 100%/x");
    values.playsound = true;
    values.soundpath = QString::fromLatin1("/sounds/ding \"1\".wav");
    values.awayreject = true;
    values.onlyactivetab = false;
    values.defaultwidth = 1234;
    values.defaultheight = 567;
    values.pong = false;
    saveSettings(host->table(), values);
    const settings read = loadSettings(host->table());
    QCOMPARE(read.downloaddir, values.downloaddir);
    QCOMPARE(read.playsound, values.playsound);
    QCOMPARE(read.soundpath, values.soundpath);
    QCOMPARE(read.awayreject, values.awayreject);
    QCOMPARE(read.onlyactivetab, values.onlyactivetab);
    QCOMPARE(read.defaultwidth, values.defaultwidth);
    QCOMPARE(read.defaultheight, values.defaultheight);
    QCOMPARE(read.pong, values.pong);
}

void tst_settings::valuesOutOfRangeAreTakenAsTheyStand()
{
    writeConfig("[General]\ndownloaddir=/nowhere\ndefaultwidth=-5\ndefaultheight=99999\nsoundpath=/no/such.wav\n");
    const settings values = loadSettings(host->table());
    QCOMPARE(values.defaultwidth, -5);
    QCOMPARE(values.defaultheight, 99999);
    QCOMPARE(values.soundpath, QString::fromLatin1("/no/such.wav"));
}

void tst_settings::aFileThatIsNoSettingsFileGivesTheDefaults()
{
    const char garbage[] = "\x00\xff\xfe garbage ][ =\n\n=====\n";
    writeConfig(QByteArray(garbage, sizeof(garbage) - 1));
    const settings values = loadSettings(host->table());
    QCOMPARE(values.defaultwidth, 640);
    QCOMPARE(values.onlyactivetab, true);
}

void tst_settings::aDirectoryThatCannotBeWrittenIsNotReported()
{
    host->configPath = "/proc/no/such/directory/";
    const settings values = loadSettings(host->table());
    saveSettings(host->table(), values);
    QCOMPARE(host->printed.size(), 0);
    QCOMPARE(values.defaultheight, 320);
}

void tst_settings::keysStandInTheGeneralSection()
{
    saveSettings(host->table(), settings());
    QVERIFY(readConfig().startsWith("[General]\n"));
    QCOMPARE(readConfig().count('['), 1);
}

QTEST_GUILESS_MAIN(tst_settings)
#include "tst_settings.moc"
