#include "controllerfixture.h"

#include "dialogs/kelvorconfigdialog.h"
#include "invitation/invitationdialog.h"
#include "tests/support/whenopen.h"

#include <QSettings>
#include <QTest>

/// The settings dialog as the client opens it: what the controller shows in it, and what it takes from it when.
class tst_configure : public QObject {
    Q_OBJECT

private slots:
    void showsTheValuesInForce();
    void okTakesThePongFlagAtOnceAndWritesNoFile();
    void cancelChangesNothing();
    void anEmptiedDownloadDirectoryMeansThePlainPluginDirectory();
    void newSizesReachLobbiesOpenedLaterOnly();
    void changedValuesAreWrittenAtTheEnd();

private:
    static QLineEdit* edit(const QDialog& dialog, const char* name);
    static void setPong(const QDialog& dialog, bool on);
    static QVariant written(const controllerfixture& fixture, const char* key);
};

QLineEdit* tst_configure::edit(const QDialog& dialog, const char* name)
{
    return dialog.findChild<QLineEdit*>(QString::fromLatin1(name));
}

void tst_configure::setPong(const QDialog& dialog, bool on)
{
    dialog.findChild<QCheckBox*>(QString::fromLatin1("pongcheckbox"))->setChecked(on);
}

QVariant tst_configure::written(const controllerfixture& fixture, const char* key)
{
    return QSettings(fixture.directory.filePath(QString::fromLatin1("kelvor.conf")), QSettings::IniFormat)
        .value(QString::fromLatin1(key));
}

void tst_configure::showsTheValuesInForce()
{
    controllerfixture fixture;
    fixture.start();
    const whenopen<kelvorconfigdialog> user([&fixture](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QString::fromLatin1("Kelvor Config"));
        QCOMPARE(edit(dialog, "widthedit")->text(), QString::fromLatin1("640"));
        QCOMPARE(edit(dialog, "heightedit")->text(), QString::fromLatin1("320"));
        QCOMPARE(edit(dialog, "downloadedit")->text(),
                 fixture.directory.filePath(QString::fromLatin1("plugins/kelvor")));
        dialog.reject();
    });
    fixture.controller->showConfigDialog(nullptr);
    QVERIFY(user.ran());
}

void tst_configure::okTakesThePongFlagAtOnceAndWritesNoFile()
{
    controllerfixture fixture;
    fixture.start();
    const whenopen<kelvorconfigdialog> user([](QDialog& dialog) {
        setPong(dialog, false);
        dialog.accept();
    });
    fixture.controller->showConfigDialog(nullptr);
    QVERIFY(user.ran());
    fixture.receive("\x16 2");
    QVERIFY(fixture.host.sent.isEmpty());
    QVERIFY(!written(fixture, "pong").isValid());
}

void tst_configure::cancelChangesNothing()
{
    controllerfixture fixture;
    fixture.start();
    const whenopen<kelvorconfigdialog> user([](QDialog& dialog) {
        setPong(dialog, false);
        edit(dialog, "widthedit")->setText(QString::fromLatin1("999"));
        dialog.reject();
    });
    fixture.controller->showConfigDialog(nullptr);
    QVERIFY(user.ran());
    fixture.receive("\x16 2");
    QCOMPARE(fixture.host.takeTexts(), QList<QByteArray>{"\x17 1"});
    fixture.controller.reset();
    QCOMPARE(written(fixture, "defaultwidth").toInt(), 640);
}

void tst_configure::anEmptiedDownloadDirectoryMeansThePlainPluginDirectory()
{
    controllerfixture fixture;
    fixture.start();
    const whenopen<kelvorconfigdialog> user([](QDialog& dialog) {
        edit(dialog, "downloadedit")->clear();
        dialog.accept();
    });
    fixture.controller->showConfigDialog(nullptr);
    QVERIFY(user.ran());
    fixture.controller.reset();
    QCOMPARE(written(fixture, "downloaddir").toString(),
             fixture.directory.filePath(QString::fromLatin1("plugins")) + QLatin1Char('/'));
}

void tst_configure::newSizesReachLobbiesOpenedLaterOnly()
{
    controllerfixture fixture;
    fixture.start();
    fixture.controller->openSession(1);
    const whenopen<kelvorconfigdialog> user([](QDialog& dialog) {
        edit(dialog, "widthedit")->setText(QString::fromLatin1("800"));
        edit(dialog, "heightedit")->clear();
        dialog.accept();
    });
    fixture.controller->showConfigDialog(nullptr);
    QVERIFY(user.ran());
    QCOMPARE(controllerfixture::lobbies().first()->imageWidth(), 640);
    fixture.controller->openSession(2);
    QList<invitationdialog*> lobbies = controllerfixture::lobbies();
    QCOMPARE(lobbies.size(), 2);
    QList<QSize> sizes;
    for (const invitationdialog* lobby : qAsConst(lobbies))
        sizes.append({lobby->imageWidth(), lobby->imageHeight()});
    QVERIFY(sizes.contains(QSize(640, 320)));
    QVERIFY(sizes.contains(QSize(800, 0)));
}

void tst_configure::changedValuesAreWrittenAtTheEnd()
{
    controllerfixture fixture;
    fixture.start();
    const whenopen<kelvorconfigdialog> user([](QDialog& dialog) {
        edit(dialog, "soundedit")->setText(QString::fromLatin1("/ding.wav"));
        dialog.findChild<QCheckBox*>(QString::fromLatin1("awaycheckbox"))->setChecked(true);
        dialog.findChild<QCheckBox*>(QString::fromLatin1("activecheckbox"))->setChecked(false);
        dialog.accept();
    });
    fixture.controller->showConfigDialog(nullptr);
    QVERIFY(user.ran());
    fixture.controller.reset();
    QCOMPARE(written(fixture, "soundpath").toString(), QString::fromLatin1("/ding.wav"));
    QCOMPARE(written(fixture, "playsound").toBool(), false);
    QCOMPARE(written(fixture, "awayreject").toBool(), true);
    QCOMPARE(written(fixture, "onlyactivetab").toBool(), false);
}

QTEST_MAIN(tst_configure)
#include "tst_configure.moc"
