#include "filebrowsing.h"
#include "tests/support/controls.h"

#include <QInputDialog>

/// The remote file dialog as a question: its two modes, when they can be answered, and what they hand out.
class tst_ts3filedialog : public QObject {
    Q_OBJECT

private slots:
    void looksAsFormed();
    void keyboardReachesEachControlByItsName();
    void enterInTheEditAccepts();
    void modesDifferInTheNameEdit();
    void onlyASelectedFileCanBeOpened();
    void doubleClickOnAFileAcceptsAtOnce();
    void fileBelowADirectoryIsHandedOutWithItsPath();
    void exactSizeIsHandedOut();
    void acceptanceWithoutASelectionIsNone();
    void selectionWithoutANameIsNone();
    void cancelHandsOutNothing();
    void onlyATypedNameCanBeSaved();
    void saveHandsOutDirectoryAndName();
    void selectedDirectoryForbidsSaving();
    void selectedFileCanBeSavedWithANameOnly();
    void nameSurvivesATripToTheChannels();
    void destroyedParentEndsItAsCancelled_data();
    void destroyedParentEndsItAsCancelled();
    void destroyedParentEndsThePromptToo_data();
    void destroyedParentEndsThePromptToo();

private:
    static void verifyUntouched(const filebrowsing& browsing)
    {
        QCOMPARE(browsing.channel, uint64{77});
        QCOMPARE(browsing.password, QString("before"));
        QCOMPARE(browsing.path, QString("before"));
        QCOMPARE(browsing.size, uint64{78});
        QCOMPARE(browsing.filename, QString("before"));
    }
};

void tst_ts3filedialog::looksAsFormed()
{
    const filebrowsing browsing;
    const ts3filedialog dialog(browsing.host.table(), filebrowsing::connection, browsing.parent);
    QCOMPARE(dialog.objectName(), QString("ts3filedialog"));
    QCOMPARE(dialog.windowTitle(), QString("Load image"));
    QCOMPARE(dialog.size(), QSize(509, 370));
    const filewindow window(dialog);
    QCOMPARE(dialog.layout()->objectName(), QString("verticalLayout"));
    QCOMPARE(controls::partsOf(dialog, "verticalLayout"),
             QStringList({"horizontalLayout", "table", "buttonBox", window.status.objectName()}));
    QCOMPARE(dialog.layout()->itemAt(3)->widget(), &window.status);
    QCOMPARE(controls::partsOf(dialog, "horizontalLayout"),
             QStringList({"upbutton", "refreshbutton", "-", "filenamelabel", "filenameedit"}));
    QCOMPARE(window.label.text(), QString("Filename:"));
    QVERIFY(window.up.text().isEmpty() && showsPicture(window.up.icon(), "up.png"));
    QVERIFY(window.refresh.text().isEmpty() && showsPicture(window.refresh.icon(), "refresh.png"));
    const auto* const buttons = dialog.findChild<QDialogButtonBox*>();
    QCOMPARE(buttons->orientation(), Qt::Horizontal);
    QCOMPARE(buttons->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QVERIFY(!window.up.isEnabled());
    QVERIFY(!window.ok.isEnabled());
}

void tst_ts3filedialog::keyboardReachesEachControlByItsName()
{
    filebrowsing browsing;
    browsing.save([&](filewindow& window) {
        window.enter();
        browsing.giveDirectory("d");
        browsing.giveDirectory("e");
        QCOMPARE(controls::tabOrder(*window.table.window(), "upbutton"),
                 QStringList({"upbutton", "refreshbutton", "filenameedit", "table"}));
        QCOMPARE(controls::withoutName(*window.table.window()), QStringList());
    });
}

// On the way from the edit to the OK button no other button is pressed by it.
void tst_ts3filedialog::enterInTheEditAccepts()
{
    filebrowsing browsing;
    const bool accepted = browsing.save([](filewindow& window) {
        window.enter();
        window.edit.setFocus();
        QTest::keyClicks(&window.edit, "new.png");
        QTest::keyClick(&window.edit, Qt::Key_Return);
        QVERIFY(!window.table.isVisible());
    });
    QVERIFY(accepted);
    QCOMPARE(browsing.path, QString("/"));
    QCOMPARE(browsing.filename, QString("new.png"));
}

void tst_ts3filedialog::modesDifferInTheNameEdit()
{
    filebrowsing browsing;
    browsing.open([](filewindow& window) {
        QVERIFY(!window.edit.isVisible());
        QVERIFY(!window.label.isVisible());
    });
    browsing.save([](filewindow& window) {
        QVERIFY(window.edit.isVisible());
        QVERIFY(window.label.isVisible());
        QVERIFY(!window.edit.isEnabled());
        QVERIFY(!window.ok.isEnabled());
        window.enter();
        QVERIFY(window.edit.isEnabled());
        QVERIFY(!window.ok.isEnabled());
    });
}

void tst_ts3filedialog::onlyASelectedFileCanBeOpened()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.select(0);
        QVERIFY(!window.ok.isEnabled());
        window.enter();
        browsing.giveDirectory("d");
        browsing.giveFile("a.png");
        window.select(1);
        QVERIFY(window.ok.isEnabled());
        window.select(0);
        QVERIFY(!window.ok.isEnabled());
        window.select(1);
        window.refresh.click();
        QVERIFY(!window.ok.isEnabled());
    });
}

void tst_ts3filedialog::doubleClickOnAFileAcceptsAtOnce()
{
    filebrowsing browsing;
    const bool accepted = browsing.open([&](filewindow& window) {
        window.enter();
        browsing.giveFile("a.png", 1536);
        window.doubleClick(0);
        QTRY_VERIFY(!window.table.isVisible());
    });
    QVERIFY(accepted);
    QCOMPARE(browsing.channel, filebrowsing::openChannel);
    QCOMPARE(browsing.password, QString());
    QCOMPARE(browsing.path, QString("/a.png"));
    QCOMPARE(browsing.size, uint64{1536});
}

void tst_ts3filedialog::fileBelowADirectoryIsHandedOutWithItsPath()
{
    filebrowsing browsing;
    const bool accepted = browsing.open([&](filewindow& window) {
        window.enter();
        browsing.enterDirectory(window, "d", "/");
        browsing.giveFile(QString::fromUtf8("\xe2\x82\xac.png"), 2, "/d");
        window.select(0);
        window.ok.click();
    });
    QVERIFY(accepted);
    QCOMPARE(browsing.path, QString::fromUtf8("/d/\xe2\x82\xac.png"));
}

void tst_ts3filedialog::exactSizeIsHandedOut()
{
    filebrowsing browsing;
    const bool accepted = browsing.open([&](filewindow& window) {
        window.enter();
        browsing.giveFile("a.png", uint64{0x123456789abcdef0});
        window.select(0);
        window.ok.click();
    });
    QVERIFY(accepted);
    QCOMPARE(browsing.size, uint64{0x123456789abcdef0});
}

void tst_ts3filedialog::acceptanceWithoutASelectionIsNone()
{
    filebrowsing browsing;
    const bool accepted = browsing.open([](filewindow& window) {
        window.enter();
        qobject_cast<QDialog*>(window.table.window())->accept();
    });
    QVERIFY(!accepted);
    verifyUntouched(browsing);
}

void tst_ts3filedialog::selectionWithoutANameIsNone()
{
    filebrowsing browsing;
    const bool accepted = browsing.open([&](filewindow& window) {
        window.enter();
        browsing.giveFile("a.png");
        window.selectCell(0, 2);
        window.ok.click();
    });
    QVERIFY(!accepted);
    verifyUntouched(browsing);
}

void tst_ts3filedialog::cancelHandsOutNothing()
{
    filebrowsing browsing;
    const auto cancel = [&](filewindow& window) {
        window.enter();
        browsing.giveFile("a.png");
        window.cancel.click();
    };
    QVERIFY(!browsing.open(cancel));
    QVERIFY(!browsing.save(cancel));
    verifyUntouched(browsing);
}

void tst_ts3filedialog::onlyATypedNameCanBeSaved()
{
    filebrowsing browsing;
    browsing.save([](filewindow& window) {
        window.enter();
        QTest::keyClicks(&window.edit, "n");
        QVERIFY(window.ok.isEnabled());
        QTest::keyClick(&window.edit, Qt::Key_Backspace);
        QVERIFY(!window.ok.isEnabled());
    });
}

void tst_ts3filedialog::saveHandsOutDirectoryAndName()
{
    filebrowsing browsing;
    const bool accepted = browsing.save([&](filewindow& window) {
        const whenopen<QInputDialog> user([](QInputDialog& prompt) {
            prompt.setTextValue("secret");
            prompt.accept();
        });
        window.doubleClick(1);
        QTRY_COMPARE(browsing.host.requests.size(), 1);
        emit browsing.parent->fileList(filebrowsing::connection, filebrowsing::lockedChannel, "/", "d", 0, 0, 0);
        window.enter();
        QTest::keyClicks(&window.edit, "new.png");
        window.ok.click();
    });
    QVERIFY(accepted);
    QCOMPARE(browsing.channel, filebrowsing::lockedChannel);
    QCOMPARE(browsing.password, QString("secret"));
    QCOMPARE(browsing.path, QString("/d"));
    QCOMPARE(browsing.filename, QString("new.png"));
}

void tst_ts3filedialog::selectedDirectoryForbidsSaving()
{
    filebrowsing browsing;
    browsing.save([&](filewindow& window) {
        window.enter();
        browsing.giveDirectory("d");
        QTest::keyClicks(&window.edit, "new.png");
        QVERIFY(window.ok.isEnabled());
        window.select(0);
        QVERIFY(!window.ok.isEnabled());
    });
}

// The save mode lists no files, but would know what to do with one.
void tst_ts3filedialog::selectedFileCanBeSavedWithANameOnly()
{
    filebrowsing browsing;
    browsing.save([&](filewindow& window) {
        window.enter();
        browsing.giveDirectory("d");
        window.table.item(0, 2)->setText("File");
        window.select(0);
        QVERIFY(!window.ok.isEnabled());
        window.table.clearSelection();
        QTest::keyClicks(&window.edit, "n");
        window.select(0);
        QVERIFY(window.ok.isEnabled());
    });
}

void tst_ts3filedialog::nameSurvivesATripToTheChannels()
{
    filebrowsing browsing;
    const bool accepted = browsing.save([&](filewindow& window) {
        window.enter();
        QTest::keyClicks(&window.edit, "new.png");
        window.up.click();
        QVERIFY(!window.edit.isEnabled());
        QVERIFY(window.ok.isEnabled());
        window.ok.click();
    });
    QVERIFY(accepted);
    QCOMPARE(browsing.channel, uint64{0});
    QCOMPARE(browsing.path, QString("/"));
    QCOMPARE(browsing.filename, QString("new.png"));
}

void tst_ts3filedialog::destroyedParentEndsItAsCancelled_data()
{
    QTest::addColumn<bool>("saving");
    QTest::newRow("open") << false;
    QTest::newRow("save") << true;
}

void tst_ts3filedialog::destroyedParentEndsItAsCancelled()
{
    QFETCH(bool, saving);
    filebrowsing browsing;
    const auto destroy = [&](filewindow& window) {
        window.enter();
        delete browsing.parent;
    };
    QVERIFY(!(saving ? browsing.save(destroy) : browsing.open(destroy)));
    verifyUntouched(browsing);
}

void tst_ts3filedialog::destroyedParentEndsThePromptToo_data() { destroyedParentEndsItAsCancelled_data(); }

void tst_ts3filedialog::destroyedParentEndsThePromptToo()
{
    QFETCH(bool, saving);
    filebrowsing browsing;
    const auto destroy = [&](filewindow& window) {
        const whenopen<QInputDialog> user([&](QInputDialog&) { delete browsing.parent; });
        window.doubleClick(1);
        QTRY_VERIFY(user.ran());
        QVERIFY(!browsing.parent);
    };
    QVERIFY(!(saving ? browsing.save(destroy) : browsing.open(destroy)));
    verifyUntouched(browsing);
    QVERIFY(browsing.host.requests.isEmpty());
}

QTEST_MAIN(tst_ts3filedialog)
#include "tst_ts3filedialog.moc"
