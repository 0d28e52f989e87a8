#include "dialogs/kelvoraboutdialog.h"
#include "tests/support/controls.h"
#include "tests/support/whenopen.h"

#include <QAbstractButton>
#include <QDesktopServices>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QScopedPointer>
#include <QWindow>
#include <QtTest>

Q_DECLARE_METATYPE(Qt::MouseButton)

/// Stands in for the system's browser.
class browser : public QObject {
    Q_OBJECT

public:
    browser()
    {
        QDesktopServices::setUrlHandler(QLatin1String("https"), this, "open");
        QDesktopServices::setUrlHandler(QLatin1String("http"), this, "open");
    }
    ~browser() override
    {
        QDesktopServices::unsetUrlHandler(QLatin1String("https"));
        QDesktopServices::unsetUrlHandler(QLatin1String("http"));
    }
    QList<QUrl> opened;

public slots:
    void open(const QUrl& url) { opened << url; }
};

class tst_kelvoraboutdialog : public QObject {
    Q_OBJECT

    QScopedPointer<kelvoraboutdialog> dialog;
    QScopedPointer<browser> web;

    QLabel* label(const char* name) const { return dialog->findChild<QLabel*>(QLatin1String(name)); }

    /// Goes through the window as the system's press does, and not straight to the label.
    void pressInWindow(QWidget* part, Qt::MouseButton button)
    {
        const QPoint position = part->mapTo(dialog.data(), part->rect().center());
        QTest::mousePress(dialog->windowHandle(), button, Qt::NoModifier, position);
    }

    static void addButtonRows()
    {
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::newRow("left") << Qt::LeftButton;
        QTest::newRow("middle") << Qt::MiddleButton;
        QTest::newRow("right") << Qt::RightButton;
    }

private slots:
    void init()
    {
        web.reset(new browser);
        dialog.reset(new kelvoraboutdialog(nullptr));
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog.data()));
    }
    void cleanup()
    {
        dialog.reset();
        web.reset();
    }

    void theWindowHasItsTitleAndStartSize()
    {
        QCOMPARE(dialog->windowTitle(), QLatin1String("Kelvor Info"));
        const kelvoraboutdialog unshown;
        QCOMPARE(unshown.size(), QSize(346, 314));
    }

    void eachLabelHasItsText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("label") << "Kelvor-Version:";
        QTest::newRow("label_2") << "1.10";
        QTest::newRow("label_3") << "Protocol-Version:";
        QTest::newRow("label_4") << "2";
        QTest::newRow("label_5") << "Icon-Modifications:";
        QTest::newRow("label_6") << "The kelvor project";
        QTest::newRow("label_7") << "Programming:";
        QTest::newRow("label_8") << "The kelvor project";
        QTest::newRow("label_9") << "Copyright The kelvor project";
        QTest::newRow("label_13") << "Using Qt 4.6.2";
        QTest::newRow("qtlabel") << "";
        QTest::newRow("donatelabel") << "";
    }
    void eachLabelHasItsText()
    {
        QFETCH(QString, text);
        QLabel* shown = label(QTest::currentDataTag());
        QVERIFY(shown);
        QCOMPARE(shown->text(), text);
    }

    void theHeadingIsLargeAndUnderlined()
    {
        const QString text = label("label_10")->text();
        QVERIFY(text.contains(QLatin1String(">Kelvor - Whiteboard<")));
        QVERIFY(text.contains(QLatin1String("font-size:18pt; font-weight:600; text-decoration: underline;")));
        QVERIFY(text.contains(QLatin1String("align=\"center\"")));
    }

    void thePartsStandInTheirLayouts_data()
    {
        QTest::addColumn<QStringList>("parts");
        QTest::newRow("verticalLayout") << QStringList{"label_10", "gridLayout", "horizontalLayout_2", "teamspeaklabel",
                                                       "horizontalLayout"};
        QTest::newRow("gridLayout") << QStringList{"label",   "label_2", "label_3", "label_4",
                                                   "label_5", "label_6", "label_7", "label_8"};
        QTest::newRow("horizontalLayout_2") << QStringList{"qtlabel", "label_13"};
        QTest::newRow("horizontalLayout") << QStringList{"label_9", "donatelabel"};
    }
    void thePartsStandInTheirLayouts()
    {
        QFETCH(QStringList, parts);
        QCOMPARE(controls::partsOf(*dialog, QTest::currentDataTag()), parts);
    }

    void theGridHasTwoColumns()
    {
        const auto* grid = dialog->findChild<QGridLayout*>(QLatin1String("gridLayout"));
        for (int row = 0; row < 4; ++row) {
            QCOMPARE(grid->itemAtPosition(row, 0), grid->itemAt(2 * row));
            QCOMPARE(grid->itemAtPosition(row, 1), grid->itemAt(2 * row + 1));
        }
    }

    void theTwoPicturesAreShown()
    {
        QCOMPARE(label("qtlabel")->pixmap(Qt::ReturnByValue).size(), QSize(64, 64));
        QCOMPARE(label("donatelabel")->pixmap(Qt::ReturnByValue).size(), QSize(74, 21));
    }

    void aClickOnTheQtLogoShowsTheToolkitsOwnBox_data() { addButtonRows(); }
    void aClickOnTheQtLogoShowsTheToolkitsOwnBox()
    {
        QFETCH(Qt::MouseButton, button);
        QString title;
        QWidget* parent = nullptr;
        const whenopen<QMessageBox> user([&](QMessageBox& box) {
            title = box.windowTitle();
            parent = box.parentWidget();
            box.close();
        });
        pressInWindow(label("qtlabel"), button);
        QTRY_VERIFY(user.ran());
        QCOMPARE(title, QLatin1String("About Qt"));
        QCOMPARE(parent, dialog.data());
        QCOMPARE(web->opened, QList<QUrl>());
    }

    void twoPressesShowOneBox()
    {
        int boxes = 0;
        const whenopen<QMessageBox> user([&](QMessageBox& box) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
            boxes = dialog->findChildren<QMessageBox*>().size();
            box.close();
        });
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
            QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), button, button, Qt::NoModifier);
            QApplication::sendEvent(label("qtlabel"), &press);
        }
        QTRY_VERIFY(user.ran());
        QCOMPARE(boxes, 1);
        QVERIFY(!QApplication::activeModalWidget());
    }

    void aClickOnTheDonationPictureOpensItsPage_data() { addButtonRows(); }
    void aClickOnTheDonationPictureOpensItsPage()
    {
        QFETCH(Qt::MouseButton, button);
        QTest::mouseClick(label("donatelabel"), button);
        QCOMPARE(web->opened.size(), 1);
        const QUrl page = web->opened.at(0);
        QCOMPARE(page.scheme(), QLatin1String("https"));
        QVERIFY2(page.host().endsWith(QLatin1String(".example")), "a name that can belong to somebody");
        QVERIFY(page.hasQuery());
    }

    void aClickOnAnyOtherPartDoesNothing_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"label_10", "label", "label_2", "label_3", "label_4", "label_5", "label_6", "label_7",
                                 "label_8", "label_13", "label_9"})
            QTest::newRow(name) << QString::fromLatin1(name);
        QTest::newRow("the window itself") << QString();
    }
    void aClickOnAnyOtherPartDoesNothing()
    {
        QFETCH(QString, name);
        QWidget* part = name.isEmpty() ? dialog.data() : dialog->findChild<QWidget*>(name);
        QTest::mouseClick(part, Qt::LeftButton);
        QCOMPARE(web->opened, QList<QUrl>());
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(dialog->isVisible());
    }

    void aDoubleClickIsNoFurtherPress()
    {
        QTest::mouseDClick(label("donatelabel"), Qt::LeftButton);
        QCOMPARE(web->opened, QList<QUrl>());
    }

    void theLinkLeadsToTheMakerOfTheClient()
    {
        QVERIFY(label("teamspeaklabel")->wordWrap());
        emit label("teamspeaklabel")->linkActivated(QLatin1String("https://www.teamspeak.com"));
        QCOMPARE(web->opened, QList<QUrl>({QUrl(QLatin1String("https://www.teamspeak.com"))}));
    }

    void theLinkCanBeFollowedFromTheKeyboard()
    {
        QApplication::setActiveWindow(dialog.data());
        QTRY_VERIFY(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), label("teamspeaklabel"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(web->opened, QList<QUrl>({QUrl(QLatin1String("https://www.teamspeak.com"))}));
    }

    void aFailingBrowserIsNotReported()
    {
        web.reset();
        QTest::ignoreMessage(QtWarningMsg,
                             "This plugin does not support QPlatformServices::openUrl() for "
                             "'https://www.teamspeak.com'.");
        emit label("teamspeaklabel")->linkActivated(QLatin1String("https://www.teamspeak.com"));
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(dialog->isVisible());
    }

    void theFilterNeverSwallowsAPress()
    {
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QObject* filter = dialog.data();
        QVERIFY(!filter->eventFilter(label("donatelabel"), &press));
        QCOMPARE(web->opened.size(), 1);
        QVERIFY(!filter->eventFilter(label("label_2"), &press));
        QCOMPARE(web->opened.size(), 1);
    }

    void itHasNoButtonsAndClosesByItsWindow()
    {
        QVERIFY(dialog->findChildren<QAbstractButton*>().isEmpty());
        dialog->close();
        QVERIFY(!dialog->isVisible());
    }

    // The library can be shut down while the toolkit's box is open, which takes this dialog away.
    void itMayGoWhileTheToolkitsBoxIsOpen_data() { addButtonRows(); }
    void itMayGoWhileTheToolkitsBoxIsOpen()
    {
        QFETCH(Qt::MouseButton, button);
        const whenopen<QMessageBox> user([this](QMessageBox&) { dialog.reset(); });
        pressInWindow(label("qtlabel"), button);
        QTRY_VERIFY(user.ran());
        QVERIFY(!dialog);
    }

    void thePicturesHaveNamesForScreenReaders()
    {
        for (const char* name : {"qtlabel", "donatelabel"})
            QVERIFY(!controls::spokenName(label(name)).isEmpty());
    }
};

QTEST_MAIN(tst_kelvoraboutdialog)
#include "tst_kelvoraboutdialog.moc"
