#include "dialogs/kelvorconfigdialog.h"
#include "tests/support/controls.h"
#include "tests/support/whenopen.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

using controls::part;

namespace {

struct settingvalues {
    QString downloaddir;
    bool playsound;
    QString soundpath;
    bool awayreject;
    bool onlyactivetab;
    int defaultwidth;
    int defaultheight;
    bool pong;
};

bool operator==(const settingvalues& a, const settingvalues& b)
{
    return a.downloaddir == b.downloaddir && a.playsound == b.playsound && a.soundpath == b.soundpath
        && a.awayreject == b.awayreject && a.onlyactivetab == b.onlyactivetab && a.defaultwidth == b.defaultwidth
        && a.defaultheight == b.defaultheight && a.pong == b.pong;
}

const settingvalues shown{"/pictures", true, "/ping.wav", false, true, 640, 320, true};
const settingvalues untouched{"untouched", false, "untouched", true, false, -1, -2, false};

bool edit(settingvalues* result, QWidget* parent = nullptr)
{
    return editSettings(QLatin1String("Kelvor Config"), shown.downloaddir, shown.playsound, shown.soundpath,
                        shown.awayreject, shown.onlyactivetab, shown.defaultwidth, shown.defaultheight, shown.pong,
                        &result->downloaddir, &result->playsound, &result->soundpath, &result->awayreject,
                        &result->onlyactivetab, &result->defaultwidth, &result->defaultheight, &result->pong, parent);
}

void press(QWidget& dialog, QDialogButtonBox::StandardButton button)
{
    part<QDialogButtonBox>(dialog, "buttonBox")->button(button)->click();
}

} // namespace

/// The settings dialog: its form, and what of it comes back.
class tst_kelvorconfigdialog : public QObject {
    Q_OBJECT

private slots:
    void theFormHasItsSizeAndTitle()
    {
        kelvorconfigdialog dialog(QLatin1String("Kelvor Config"), nullptr);
        QCOMPARE(dialog.windowTitle(), QLatin1String("Kelvor Config"));
        QCOMPARE(dialog.objectName(), QLatin1String("kelvorconfigdialog"));
        QCOMPARE(dialog.size(), QSize(275, 308));
        QVERIFY(qobject_cast<QVBoxLayout*>(dialog.layout()));
    }

    void eachPartOfTheFormHasItsTextAndToolTip_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("toolTip");
        QTest::newRow("groupBox_2") << QByteArray("title") << "Default image size"
                                    << "";
        QTest::newRow("widthedit") << QByteArray("text") << ""
                                   << "Width";
        QTest::newRow("label") << QByteArray("text") << "x"
                               << "";
        QTest::newRow("heightedit") << QByteArray("text") << ""
                                    << "Height";
        QTest::newRow("groupBox") << QByteArray("title") << "Download directory"
                                  << "";
        QTest::newRow("downloadedit") << QByteArray("text") << ""
                                      << "";
        QTest::newRow("downloadbutton") << QByteArray("text") << "..."
                                        << "Load";
        QTest::newRow("soundgroup") << QByteArray("title") << "Play sound on invite"
                                    << "";
        QTest::newRow("soundedit") << QByteArray("text") << ""
                                   << "";
        QTest::newRow("soundbutton") << QByteArray("text") << "..."
                                     << "Load";
        QTest::newRow("awaycheckbox") << QByteArray("text") << "Automatically reject if away"
                                      << "";
        QTest::newRow("activecheckbox") << QByteArray("text") << "Show only invites from active tab"
                                        << "";
        QTest::newRow("pongcheckbox") << QByteArray("text") << "Show Whiteboard-Status"
                                      << "If this option is activated, the plugin will answer queries from other "
                                         "clients, if you have kelvor activated";
    }
    void eachPartOfTheFormHasItsTextAndToolTip()
    {
        QFETCH(QByteArray, property);
        QFETCH(QString, text);
        QFETCH(QString, toolTip);
        kelvorconfigdialog dialog(QString(), nullptr);
        auto* widget = part<QWidget>(dialog, QTest::currentDataTag());
        QVERIFY(widget);
        QCOMPARE(widget->property(property).toString(), text);
        QCOMPARE(widget->toolTip(), toolTip);
    }

    void theTwoChoosersShowADirectory()
    {
        kelvorconfigdialog dialog(QString(), nullptr);
        const QImage directory = QPixmap(QLatin1String(":/gfx/gfx/directory.png")).toImage();
        QCOMPARE(directory.size(), QSize(24, 24));
        for (const char* name : {"downloadbutton", "soundbutton"})
            QCOMPARE(part<QToolButton>(dialog, name)->icon().pixmap(24).toImage(), directory);
    }

    void itEndsInOkAndCancel()
    {
        kelvorconfigdialog dialog(QString(), nullptr);
        const auto* buttons = part<QDialogButtonBox>(dialog, "buttonBox");
        QCOMPARE(buttons->orientation(), Qt::Horizontal);
        QCOMPARE(buttons->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    }

    void theSoundIsOffUntilFilled()
    {
        kelvorconfigdialog dialog(QString(), nullptr);
        QVERIFY(part<QGroupBox>(dialog, "soundgroup")->isCheckable());
        QVERIFY(!part<QGroupBox>(dialog, "soundgroup")->isChecked());
    }

    void oneValidatorServesBothSizes()
    {
        kelvorconfigdialog dialog(QString(), nullptr);
        const auto* validator = qobject_cast<const QIntValidator*>(part<QLineEdit>(dialog, "widthedit")->validator());
        QVERIFY(validator);
        QCOMPARE(validator->bottom(), 200);
        QCOMPARE(validator->top(), 2000);
        QCOMPARE(validator->parent(), &dialog);
        QCOMPARE(part<QLineEdit>(dialog, "heightedit")->validator(), validator);
    }

    void okReturnsWhatWasShown()
    {
        settingvalues result = untouched;
        const whenopen<kelvorconfigdialog> user(
            [](kelvorconfigdialog& dialog) { press(dialog, QDialogButtonBox::Ok); });
        QVERIFY(edit(&result));
        QVERIFY(user.ran());
        QVERIFY(result == shown);
    }

    void okReturnsEachChange()
    {
        settingvalues result = untouched;
        const whenopen<kelvorconfigdialog> user([](kelvorconfigdialog& dialog) {
            part<QLineEdit>(dialog, "downloadedit")->setText(QLatin1String("/elsewhere"));
            part<QLineEdit>(dialog, "soundedit")->setText(QLatin1String("/gong.wav"));
            part<QLineEdit>(dialog, "widthedit")->setText(QLatin1String("800"));
            part<QLineEdit>(dialog, "heightedit")->setText(QLatin1String("600"));
            part<QGroupBox>(dialog, "soundgroup")->setChecked(false);
            for (const char* name : {"awaycheckbox", "activecheckbox", "pongcheckbox"})
                part<QCheckBox>(dialog, name)->toggle();
            press(dialog, QDialogButtonBox::Ok);
        });
        QVERIFY(edit(&result));
        QVERIFY(user.ran());
        const settingvalues expected{"/elsewhere", false, "/gong.wav", true, false, 800, 600, false};
        QVERIFY(result == expected);
    }

    void cancelOrTheClosedWindowChangesNothing_data()
    {
        QTest::addColumn<bool>("cancel");
        QTest::newRow("cancel") << true;
        QTest::newRow("closed") << false;
    }
    void cancelOrTheClosedWindowChangesNothing()
    {
        QFETCH(bool, cancel);
        settingvalues result = untouched;
        const whenopen<kelvorconfigdialog> user([cancel](kelvorconfigdialog& dialog) {
            part<QLineEdit>(dialog, "downloadedit")->setText(QLatin1String("/elsewhere"));
            if (cancel)
                press(dialog, QDialogButtonBox::Cancel);
            else
                dialog.close();
        });
        QVERIFY(!edit(&result));
        QVERIFY(user.ran());
        QVERIFY(result == untouched);
    }

    void okWithASizeThatIsNoneTakesWhatStandsThere_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("width");
        QTest::newRow("emptied") << "" << 0;
        QTest::newRow("below the range") << "7" << 7;
        QTest::newRow("with a group separator") << "1,000" << 0;
    }
    void okWithASizeThatIsNoneTakesWhatStandsThere()
    {
        QFETCH(QString, text);
        QFETCH(int, width);
        settingvalues result = untouched;
        const whenopen<kelvorconfigdialog> user([text](kelvorconfigdialog& dialog) {
            part<QLineEdit>(dialog, "widthedit")->setText(text);
            press(dialog, QDialogButtonBox::Ok);
        });
        QVERIFY(edit(&result));
        QVERIFY(user.ran());
        QCOMPARE(result.defaultwidth, width);
        QCOMPARE(result.defaultheight, shown.defaultheight);
    }

    void okWithTheDirectoryEmptiedReturnsAnEmptyOne()
    {
        settingvalues result = untouched;
        const whenopen<kelvorconfigdialog> user([](kelvorconfigdialog& dialog) {
            part<QLineEdit>(dialog, "downloadedit")->clear();
            press(dialog, QDialogButtonBox::Ok);
        });
        QVERIFY(edit(&result));
        QVERIFY(user.ran());
        QCOMPARE(result.downloaddir, QString());
    }

    void theSoundFileIsKeptWhenTheSoundIsOff()
    {
        settingvalues result = untouched;
        const whenopen<kelvorconfigdialog> user([](kelvorconfigdialog& dialog) {
            part<QGroupBox>(dialog, "soundgroup")->setChecked(false);
            QCOMPARE(part<QLineEdit>(dialog, "soundedit")->text(), shown.soundpath);
            press(dialog, QDialogButtonBox::Ok);
        });
        QVERIFY(edit(&result));
        QVERIFY(user.ran());
        QVERIFY(!result.playsound);
        QCOMPARE(result.soundpath, shown.soundpath);
    }

    void theEndOfItsParentCountsAsCancelled()
    {
        settingvalues result = untouched;
        auto* parent = new QWidget;
        const whenopen<kelvorconfigdialog> user([parent](kelvorconfigdialog&) { delete parent; });
        QVERIFY(!edit(&result, parent));
        QVERIFY(user.ran());
        QVERIFY(result == untouched);
    }

    void theEndOfItsParentBehindAFileDialogCountsAsCancelled_data()
    {
        QTest::addColumn<QString>("button");
        QTest::newRow("directory") << "downloadbutton";
        QTest::newRow("sound") << "soundbutton";
    }
    void theEndOfItsParentBehindAFileDialogCountsAsCancelled()
    {
        QFETCH(QString, button);
        settingvalues result = untouched;
        auto* parent = new QWidget;
        bool ended = false;
        const whenopen<kelvorconfigdialog> user([parent, button, &ended](kelvorconfigdialog& dialog) {
            const whenopen<QFileDialog> chooser([parent](QFileDialog&) { delete parent; });
            part<QGroupBox>(dialog, "soundgroup")->setChecked(true);
            dialog.findChild<QToolButton*>(button)->click();
            // The button is not below the file dialog on the stack, for it goes as well.
            QVERIFY(!chooser.ran());
            QTRY_VERIFY(chooser.ran());
            ended = true;
        });
        QVERIFY(!edit(&result, parent));
        QVERIFY(ended);
        QVERIFY(result == untouched);
    }

    void theTabKeyWalksFromTopToBottom()
    {
        kelvorconfigdialog dialog(QString(), nullptr);
        part<QGroupBox>(dialog, "soundgroup")->setChecked(true);
        dialog.show();
        QCOMPARE(controls::tabOrder(dialog, "widthedit"),
                 QStringList({"widthedit", "heightedit", "downloadedit", "downloadbutton", "soundgroup", "soundedit",
                              "soundbutton", "awaycheckbox", "activecheckbox", "pongcheckbox"}));
    }

    void eachControlHasANameForScreenReaders()
    {
        const kelvorconfigdialog dialog(QString(), nullptr);
        QCOMPARE(controls::withoutName(dialog), QStringList());
    }

    void thePartsStandInTheirLayouts_data()
    {
        QTest::addColumn<QStringList>("parts");
        QTest::newRow("verticalLayout") << QStringList{"groupBox_2",     "groupBox",     "soundgroup", "awaycheckbox",
                                                       "activecheckbox", "pongcheckbox", "buttonBox"};
        QTest::newRow("horizontalLayout_3") << QStringList{"widthedit", "label", "heightedit"};
        QTest::newRow("horizontalLayout") << QStringList{"downloadedit", "downloadbutton"};
        QTest::newRow("horizontalLayout_2") << QStringList{"soundedit", "soundbutton"};
    }
    void thePartsStandInTheirLayouts()
    {
        QFETCH(QStringList, parts);
        const kelvorconfigdialog dialog(QString(), nullptr);
        QCOMPARE(controls::partsOf(dialog, QTest::currentDataTag()), parts);
    }
};

QTEST_MAIN(tst_kelvorconfigdialog)
#include "tst_kelvorconfigdialog.moc"
