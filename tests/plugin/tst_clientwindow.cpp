#include "controllerfixture.h"
#include "invitation/invitationdialog.h"
#include "mainwindow.h"
#include "serverfiles/ts3downloaddialog.h"
#include "serverfiles/ts3filedialog.h"
#include "tests/support/whenopen.h"
#include "whiteboard/whiteboard.h"

#include <QEventLoop>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

/// The client's window goes, and with it all that stands before it, while the plugin is still loaded.
class tst_clientwindow : public QObject {
    Q_OBJECT

private slots:
    void aHostsLobbyEndsWithIt();
    void aGuestsLobbyEndsWithIt();
    void aFileDialogEndsWithItsLobby();
    void aGuestThatDownloadsGoesOn_data();
    void aGuestThatDownloadsGoesOn();
    void thePluginGoesBeforeItWhileAGuestDownloads();
    void aWhiteboardStays();
};

namespace {

void acceptInvitation(controllerfixture& fixture)
{
    fixture.answerNext(QMessageBox::Yes);
    fixture.receive("\x01 2 2");
    fixture.host.takeSent();
}

// As the client calls in.
void inEventLoop(const std::function<void()>& act)
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
        act();
        loop.quit();
    });
    loop.exec();
}

} // namespace

void tst_clientwindow::aHostsLobbyEndsWithIt()
{
    controllerfixture fixture;
    {
        MainWindow window(6);
        fixture.start();
        fixture.controller->openSession(1);
        invitationdialog* lobby = controllerfixture::lobbies().first();
        auto* tree = lobby->findChild<QTreeWidget*>(QString::fromLatin1("tree"));
        tree->setCurrentItem(
            tree->findItems(QString::fromLatin1("Ann"), Qt::MatchExactly | Qt::MatchRecursive).value(0));
        lobby->invite();
        fixture.receive("\x0d 2");
        fixture.host.takeSent();
    }
    QCOMPARE(fixture.controller->stateOf(1), session_none);
    QCOMPARE(fixture.host.takeSent(), (QList<sentcommand>{{1, "id", "\x12 1", PluginCommandTarget_CLIENT, {2}}}));
    // Nobody is left who would hear it, and the connection is free.
    fixture.receive("\x0d 3");
    fixture.controller->openSession(1);
    QCOMPARE(controllerfixture::lobbies().size(), 1);
    QVERIFY(!controllerfixture::lobbies().first()->parentWidget());
    QVERIFY(fixture.host.printed.isEmpty());
}

void tst_clientwindow::aGuestsLobbyEndsWithIt()
{
    controllerfixture fixture;
    {
        MainWindow window(6);
        fixture.start();
        acceptInvitation(fixture);
    }
    QCOMPARE(fixture.controller->stateOf(1), session_none);
    QCOMPARE(fixture.host.takeSent(), (QList<sentcommand>{{1, "id", "\x12 1", PluginCommandTarget_CLIENT, {2}}}));
    fixture.receive("\x10 2 300 200 0 false 0 ");
    QVERIFY(controllerfixture::boards().isEmpty());
}

void tst_clientwindow::aFileDialogEndsWithItsLobby()
{
    controllerfixture fixture;
    auto window = std::make_unique<MainWindow>(6);
    fixture.start();
    fixture.controller->openSession(1);
    const whenopen<ts3filedialog> user([&window](ts3filedialog&) { window.reset(); });
    controllerfixture::lobbies().first()->findChild<QPushButton*>(QString::fromLatin1("loadbutton"))->click();
    QVERIFY(user.ran());
    QVERIFY(!window);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(fixture.controller->stateOf(1), session_none);
}

void tst_clientwindow::aGuestThatDownloadsGoesOn_data()
{
    QTest::addColumn<bool>("inLoop");
    QTest::newRow("its lobby stands below on the stack") << true;
    // What is closed outside of any event loop is deleted inside of the next.
    QTest::newRow("its lobby is gone") << false;
}

void tst_clientwindow::aGuestThatDownloadsGoesOn()
{
    QFETCH(bool, inLoop);
    controllerfixture fixture;
    auto window = std::make_unique<MainWindow>(6);
    fixture.start();
    acceptInvitation(fixture);
    const QPointer<invitationdialog> lobby = controllerfixture::lobbies().first();
    bool alive = false;
    const whenopen<ts3downloaddialog> user([&](ts3downloaddialog&) {
        window.reset();
        alive = !lobby.isNull();
        emit fixture.controller->fileTransferStatus(fixture.host.requests.last().transferID,
                                                    ERROR_file_transfer_complete, QString(), 0, 1);
    });
    const auto receiveStart = [&fixture] { fixture.receive("\x10 2 300 200 1 false 77 /b.png"); };
    if (inLoop)
        inEventLoop(receiveStart);
    else
        receiveStart();
    QVERIFY(user.ran());
    QVERIFY(!window);
    QCOMPARE(alive, inLoop);
    QCOMPARE(controllerfixture::boards().size(), 1);
    QCOMPARE(fixture.controller->stateOf(1), session_running);
}

// The controller hears no more of the window, and the lobby still stands below on the stack.
void tst_clientwindow::thePluginGoesBeforeItWhileAGuestDownloads()
{
    controllerfixture fixture;
    auto window = std::make_unique<MainWindow>(6);
    fixture.start();
    acceptInvitation(fixture);
    const QPointer<invitationdialog> lobby = controllerfixture::lobbies().first();
    bool alive = false;
    const whenopen<ts3downloaddialog> user([&](ts3downloaddialog&) {
        fixture.controller.reset();
        window.reset();
        alive = !lobby.isNull();
    });
    inEventLoop([&fixture] { fixture.receive("\x10 2 300 200 1 false 77 /b.png"); });
    QVERIFY(user.ran());
    QVERIFY(!window);
    QVERIFY(alive);
    QVERIFY(!lobby);
    QVERIFY(controllerfixture::boards().isEmpty());
}

void tst_clientwindow::aWhiteboardStays()
{
    controllerfixture fixture;
    {
        MainWindow window(6);
        fixture.start();
        acceptInvitation(fixture);
        fixture.receive("\x10 2 300 200 0 false 0 ");
    }
    QCOMPARE(controllerfixture::boards().size(), 1);
    QCOMPARE(fixture.controller->stateOf(1), session_running);
}

QTEST_MAIN(tst_clientwindow)
#include "tst_clientwindow.moc"
