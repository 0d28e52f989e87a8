#include "programrun.h"

#include <QFileInfo>
#include <QLibrary>
#include <QTemporaryDir>
#include <QTest>

// Sessions in which one half of the people has the plugin of interface 8 and the other half that of interface 26.
class tst_mixedsession : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void thePicturesAreEqual_data();
    void thePicturesAreEqual();

private:
    static int versionOf(const QString& file);
};

int tst_mixedsession::versionOf(const QString& file)
{
    QLibrary library(file);
    const auto version = reinterpret_cast<int (*)()>(library.resolve("ts3plugin_apiVersion"));
    const int told = version ? version() : 0;
    library.unload();
    return told;
}

void tst_mixedsession::initTestCase()
{
    QVERIFY2(QFileInfo(QStringLiteral(KELVOR_OTHER_LIBRARY)).isFile(),
             "Build the preset release first, or name the plugin of interface 8 by -DKELVOR_OTHER_LIBRARY=FILE: "
             "'" KELVOR_OTHER_LIBRARY "' is not there.");
    QCOMPARE(versionOf(QStringLiteral(KELVOR_OTHER_LIBRARY)), 8);
    QCOMPARE(versionOf(QStringLiteral(KELVOR_LIBRARY)), 26);
}

void tst_mixedsession::thePicturesAreEqual_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QStringList>("libraries"); // the host's first
    QTest::addColumn<int>("players");
    const QString old = QStringLiteral(KELVOR_OTHER_LIBRARY);
    const QString today = QStringLiteral(KELVOR_LIBRARY);
    for (const char* script : {"road", "tools", "picture"}) {
        QTest::addRow("%s, old invites", script) << script << QStringList{old, today} << 2;
        QTest::addRow("%s, today invites", script) << script << QStringList{today, old} << 2;
    }
    QTest::newRow("road of four") << QStringLiteral("road") << QStringList{old, today} << 4;
}

void tst_mixedsession::thePicturesAreEqual()
{
    QFETCH(const QString, script);
    QFETCH(const QStringList, libraries);
    QFETCH(const int, players);
    const QTemporaryDir shots;
    QStringList arguments{QStringLiteral("--script"),      script,
                          QStringLiteral("--players"),     QString::number(players),
                          QStringLiteral("--screenshots"), shots.path()};
    for (const QString& library : libraries)
        arguments += {QStringLiteral("--plugin"), library};
    const programrun run = runProgram(QStringLiteral("director"), arguments);
    QVERIFY2(run.status == 0, qPrintable(run.output + run.errors));
    QVERIFY2(run.output.contains(QStringLiteral("All scripts ran to their end.")), qPrintable(run.output));
}

QTEST_GUILESS_MAIN(tst_mixedsession)
#include "tst_mixedsession.moc"
