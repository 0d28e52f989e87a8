#include "filebrowsing.h"

#include <QInputDialog>

/// The way through channels and directories in the remote file dialog.
class tst_filenavigation : public QObject {
    Q_OBJECT

private slots:
    void enteringAChannelAsksForItsRoot();
    void lockedChannelAsksForItsPassword();
    void foreignNameInThePromptIsPlainText();
    void twoDoubleClicksAskOnce();
    void cancelledPromptLeavesTheChannelForARefresh();
    void enteringAChannelForgetsTheEarlierPassword();
    void directoryIsAppendedToThePath();
    void namesGoAsSingleBytes();
    void upLeadsFromTheFirstLevelToTheRoot();
    void upIsStuckBelowTheSecondLevel();
    void upLeadsFromTheRootToTheChannels();
    void refreshAsksAgain();
    void refusedListingKeepsTheTable();
    void refusedDirectoryIsBrowsedAllTheSame();
    void doubleClickWithoutASelectedNameDoesNothing();
};

void tst_filenavigation::enteringAChannelAsksForItsRoot()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        QCOMPARE(browsing.host.requests.size(), 1);
        const filerequest& request = browsing.host.requests.first();
        QCOMPARE(request.function, QByteArray("requestFileList"));
        QCOMPARE(request.schid, filebrowsing::connection);
        QCOMPARE(request.channel, filebrowsing::openChannel);
        QCOMPARE(request.password, QByteArray(""));
        QCOMPARE(request.path, QByteArray("/"));
        QVERIFY(window.up.isEnabled());
    });
}

void tst_filenavigation::lockedChannelAsksForItsPassword()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        const whenopen<QInputDialog> user([](QInputDialog& prompt) {
            QCOMPARE(prompt.windowTitle(), QString("Type in password"));
            QCOMPARE(prompt.labelText(), QString("Password for Vault:"));
            QCOMPARE(prompt.textEchoMode(), QLineEdit::Normal);
            QVERIFY(prompt.textValue().isEmpty());
            QVERIFY(qobject_cast<ts3filedialog*>(prompt.parentWidget()));
            prompt.setTextValue(QString::fromUtf8("p\xc3\xa4ss"));
            prompt.accept();
        });
        window.doubleClick(1);
        QTRY_COMPARE(browsing.host.requests.size(), 1);
        QVERIFY(user.ran());
        QCOMPARE(browsing.host.requests.first().channel, filebrowsing::lockedChannel);
        QCOMPARE(browsing.host.requests.first().password, QByteArray("p\xe4ss"));
        QVERIFY(window.up.isEnabled());
    });
}

void tst_filenavigation::foreignNameInThePromptIsPlainText()
{
    filebrowsing browsing;
    browsing.server.channels[filebrowsing::lockedChannel].name = "<img src=/dev/zero>%1";
    browsing.open([](filewindow& window) {
        const whenopen<QInputDialog> user([](QInputDialog& prompt) {
            QCOMPARE(prompt.labelText(), QString("Password for <img src=/dev/zero>%1:"));
            QCOMPARE(prompt.findChild<QLabel*>()->textFormat(), Qt::PlainText);
            prompt.reject();
        });
        window.doubleClick(1);
        QTRY_VERIFY(user.ran());
    });
}

void tst_filenavigation::twoDoubleClicksAskOnce()
{
    filebrowsing browsing;
    browsing.open([](filewindow& window) {
        int prompts = 0;
        const whenopen<QInputDialog> user([&](QInputDialog& prompt) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
            prompts = window.table.window()->findChildren<QInputDialog*>().size();
            prompt.reject();
        });
        window.doubleClick(1);
        window.doubleClick(1);
        QTRY_VERIFY(user.ran());
        QCOMPARE(prompts, 1);
        QCOMPARE(QApplication::activeModalWidget(), window.table.window());
    });
}

void tst_filenavigation::cancelledPromptLeavesTheChannelForARefresh()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        const whenopen<QInputDialog> user([](QInputDialog& prompt) {
            prompt.setTextValue("secret");
            prompt.reject();
        });
        window.doubleClick(1);
        QTRY_VERIFY(user.ran());
        QCOMPARE(window.names(), QStringList({"Lobby", "Vault"}));
        QVERIFY(!window.up.isEnabled());
        QVERIFY(browsing.host.requests.isEmpty());

        window.refresh.click();
        QCOMPARE(browsing.host.requests.size(), 1);
        QCOMPARE(browsing.host.requests.first().channel, filebrowsing::lockedChannel);
        QCOMPARE(browsing.host.requests.first().password, QByteArray(""));
        QCOMPARE(browsing.host.requests.first().path, QByteArray("/"));
        QCOMPARE(window.table.rowCount(), 0);
    });
}

void tst_filenavigation::enteringAChannelForgetsTheEarlierPassword()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        const whenopen<QInputDialog> user([](QInputDialog& prompt) {
            prompt.setTextValue("secret");
            prompt.accept();
        });
        window.doubleClick(1);
        QTRY_COMPARE(browsing.host.requests.size(), 1);
        window.up.click();
        QCOMPARE(window.names(), QStringList({"Lobby", "Vault"}));
        window.enter();
        QCOMPARE(browsing.host.requests.last().channel, filebrowsing::openChannel);
        QCOMPARE(browsing.host.requests.last().password, QByteArray(""));
    });
}

void tst_filenavigation::directoryIsAppendedToThePath()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        browsing.enterDirectory(window, "a", "/");
        QCOMPARE(browsing.host.requests.last().path, QByteArray("/a"));
        browsing.enterDirectory(window, "b", "/a");
        QCOMPARE(browsing.host.requests.last().path, QByteArray("/a/b"));
    });
}

void tst_filenavigation::namesGoAsSingleBytes()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        browsing.enterDirectory(window, QString::fromUtf8("\xc3\xa4\xe2\x82\xac"), "/");
        QCOMPARE(browsing.host.requests.last().path, QByteArray("/\xe4?"));
    });
}

void tst_filenavigation::upLeadsFromTheFirstLevelToTheRoot()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        browsing.enterDirectory(window, "a", "/");
        window.up.click();
        QCOMPARE(browsing.host.requests.last().path, QByteArray("/"));
        QVERIFY(window.up.isEnabled());
    });
}

void tst_filenavigation::upIsStuckBelowTheSecondLevel()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        browsing.enterDirectory(window, "a", "/");
        browsing.enterDirectory(window, "b", "/a");
        for (int press = 0; press < 3; ++press) {
            window.up.click();
            QCOMPARE(browsing.host.requests.last().path, QByteArray("/a/"));
            QVERIFY(window.up.isEnabled());
        }
        browsing.enterDirectory(window, "c", "/a/");
        QCOMPARE(browsing.host.requests.last().path, QByteArray("/a//c"));
    });
}

void tst_filenavigation::upLeadsFromTheRootToTheChannels()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        browsing.giveFile("a.png");
        window.up.click();
        QCOMPARE(window.names(), QStringList({"Lobby", "Vault"}));
        QCOMPARE(window.table.horizontalHeaderItem(0)->text(), QString("Name"));
        QVERIFY(!window.up.isEnabled());
        QCOMPARE(browsing.host.requests.size(), 1);
    });
}

void tst_filenavigation::refreshAsksAgain()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        browsing.server.addChannel(9, "New");
        window.refresh.click();
        QCOMPARE(window.names(), QStringList({"Lobby", "Vault", "New"}));
        window.enter();
        browsing.giveFile("a.png");
        window.refresh.click();
        QCOMPARE(window.table.rowCount(), 0);
        QCOMPARE(browsing.host.requests.size(), 2);
        QCOMPARE(browsing.host.requests.last().path, QByteArray("/"));
    });
}

void tst_filenavigation::refusedListingKeepsTheTable()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        browsing.giveFile("a.png");
        browsing.host.failing.insert("requestFileList");
        browsing.host.failure = ERROR_not_connected;
        window.refresh.click();
        QCOMPARE(window.names(), QStringList({"a.png"}));
        QCOMPARE(window.status.currentMessage(), QString("error 702"));
        QCOMPARE(browsing.host.outstanding, 0);
    });
}

// The table stays, the path does not: what a second try asks for.
void tst_filenavigation::refusedDirectoryIsBrowsedAllTheSame()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        browsing.giveDirectory("d");
        browsing.host.failing.insert("requestFileList");
        window.doubleClick(0);
        QTRY_VERIFY(!window.status.currentMessage().isEmpty());
        QCOMPARE(window.names(), QStringList({"d"}));
        browsing.host.failing.clear();
        window.refresh.click();
        QCOMPARE(browsing.host.requests.last().path, QByteArray("/d"));
        QCOMPARE(window.table.rowCount(), 0);
    });
}

void tst_filenavigation::doubleClickWithoutASelectedNameDoesNothing()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        emit window.table.doubleClicked(QModelIndex());
        QCoreApplication::processEvents();
        QVERIFY(browsing.host.requests.isEmpty());
        window.enter();
        browsing.giveFile("a.png");
        window.selectCell(0, 2);
        emit window.table.doubleClicked(QModelIndex());
        QCoreApplication::processEvents();
        QVERIFY(window.table.isVisible());
    });
}

QTEST_MAIN(tst_filenavigation)
#include "tst_filenavigation.moc"
