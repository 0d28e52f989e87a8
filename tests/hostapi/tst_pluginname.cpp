#include "hostapi/pluginname.h"

#include <QTest>

class tst_pluginname : public QObject {
    Q_OBJECT

private slots:
    void stemIsTheNameWithoutEndingAndPlatform_data();
    void stemIsTheNameWithoutEndingAndPlatform();
};

void tst_pluginname::stemIsTheNameWithoutEndingAndPlatform_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("stem");
    const auto row = [](const char* name, const char* stem) {
        QTest::newRow(name) << QString::fromLatin1(name) << QString::fromLatin1(stem);
    };
    row("kelvor", "kelvor");
    row("kelvor.so", "kelvor");
    row("kelvor_linux_amd64", "kelvor");
    row("kelvor_linux_amd64.so", "kelvor");
    row("kelvor_linux_x86", "kelvor");
    row("kelvor_win64.dll", "kelvor");
    row("kelvor_win32", "kelvor");
    row("kelvor_mac.dylib", "kelvor");
    row("kelvor_mac.tar.gz", "kelvor");
    row("", "");
    row("_win64", "");
    row("kelvor._win64", "kelvor");
    row("kelvor_", "kelvor_");
    row("kelvor_linux", "kelvor_linux");
    row("kelvor_linux_arm64", "kelvor_linux_arm64");
    row("kelvor_WIN64", "kelvor_WIN64");
    row("kelvor_win64_", "kelvor_win64_");
    row("kelvor_win64_mac", "kelvor_win64");
    row("kelvor_mac_win64", "kelvor_mac");
    row("kelvor_macaroni", "kelvor_macaroni");
    row("kelvormac", "kelvormac");
    row("my_mac_kelvor", "my_mac_kelvor");
}

void tst_pluginname::stemIsTheNameWithoutEndingAndPlatform()
{
    QFETCH(QString, name);
    QFETCH(QString, stem);
    QCOMPARE(pluginStem(name), stem);
}

QTEST_APPLESS_MAIN(tst_pluginname)
#include "tst_pluginname.moc"
