#include "dialogs/kelvorconfigdialog.h"
#include "tests/support/controls.h"
#include "tests/support/whenopen.h"

#include <QFileDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

using controls::part;

/// The buttons of the settings dialog that let the user choose a directory and a sound file.
class tst_configchoosers : public QObject {
    Q_OBJECT

private slots:
    void twoClicksOpenOneFileDialog()
    {
        kelvorconfigdialog dialog(QString(), nullptr);
        part<QGroupBox>(dialog, "soundgroup")->setChecked(true);
        int open = 0;
        const whenopen<QFileDialog> user([&](QFileDialog& chooser) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
            open = dialog.findChildren<QFileDialog*>().size();
            chooser.reject();
        });
        part<QToolButton>(dialog, "downloadbutton")->click();
        part<QToolButton>(dialog, "soundbutton")->click();
        QTRY_VERIFY(user.ran());
        QCOMPARE(open, 1);
        QVERIFY(!QApplication::activeModalWidget());
    }

    void aDirectoryIsChosenFromTheOneThatIsThere()
    {
        const QTemporaryDir start;
        const QTemporaryDir chosen;
        kelvorconfigdialog dialog(QString(), nullptr);
        auto* field = part<QLineEdit>(dialog, "downloadedit");
        field->setText(start.path());
        const whenopen<QFileDialog> user([&](QFileDialog& chooser) {
            QCOMPARE(chooser.windowTitle(), QLatin1String("Choose Download Directory"));
            QCOMPARE(chooser.parentWidget(), &dialog);
            QCOMPARE(chooser.directory().absolutePath(), start.path());
            QVERIFY(chooser.testOption(QFileDialog::ShowDirsOnly));
            QCOMPARE(chooser.fileMode(), QFileDialog::Directory);
            chooser.setDirectory(chosen.path());
            chooser.findChild<QLineEdit*>()->setText(chosen.path());
            chooser.findChild<QDialogButtonBox*>()->buttons().at(0)->click();
        });
        part<QToolButton>(dialog, "downloadbutton")->click();
        QTRY_VERIFY(user.ran());
        QCOMPARE(field->text(), chosen.path());
    }

    void aSoundIsChosenFromTheOneThatIsThere()
    {
        const QTemporaryDir folder;
        // The pattern has no dot: whatever ends in these letters is offered.
        for (const char* name : {"gong.wav", "oldwav", "note.txt"}) {
            QFile file(folder.filePath(QLatin1String(name)));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        kelvorconfigdialog dialog(QString(), nullptr);
        part<QGroupBox>(dialog, "soundgroup")->setChecked(true);
        auto* field = part<QLineEdit>(dialog, "soundedit");
        field->setText(folder.filePath(QLatin1String("gong.wav")));
        const whenopen<QFileDialog> user([&](QFileDialog& chooser) {
            QCOMPARE(chooser.windowTitle(), QLatin1String("Open Wave File"));
            QCOMPARE(chooser.parentWidget(), &dialog);
            QCOMPARE(chooser.directory().absolutePath(), folder.path());
            QCOMPARE(chooser.nameFilters(), QStringList({QLatin1String("Wavefiles (*wav)")}));
            chooser.selectFile(folder.filePath(QLatin1String("oldwav")));
            chooser.findChild<QDialogButtonBox*>()->buttons().at(0)->click();
        });
        part<QToolButton>(dialog, "soundbutton")->click();
        QTRY_VERIFY(user.ran());
        QCOMPARE(field->text(), folder.filePath(QLatin1String("oldwav")));
    }

    void aCancelledChooserLeavesTheField_data()
    {
        QTest::addColumn<QString>("edit");
        QTest::newRow("downloadbutton") << "downloadedit";
        QTest::newRow("soundbutton") << "soundedit";
    }
    void aCancelledChooserLeavesTheField()
    {
        QFETCH(QString, edit);
        kelvorconfigdialog dialog(QString(), nullptr);
        part<QGroupBox>(dialog, "soundgroup")->setChecked(true);
        auto* field = dialog.findChild<QLineEdit*>(edit);
        field->setText(QLatin1String("/as it was"));
        const whenopen<QFileDialog> user([](QFileDialog& chooser) { chooser.reject(); });
        part<QToolButton>(dialog, QTest::currentDataTag())->click();
        QTRY_VERIFY(user.ran());
        QCOMPARE(field->text(), QLatin1String("/as it was"));
    }
};

QTEST_MAIN(tst_configchoosers)
#include "tst_configchoosers.moc"
