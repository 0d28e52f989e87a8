#include "canvas/paintscene.h"
#include "controllerfixture.h"
#include "invitation/invitationdialog.h"
#include "serverfiles/ts3downloaddialog.h"
#include "tests/support/whenopen.h"
#include "whiteboard/whiteboard.h"

#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

/// The start that a host sends, those that come to a guest in time, too early, from others, or not at all, and what of
/// them the guest's window is made of.
class tst_starts : public QObject {
    Q_OBJECT

private slots:
    void aHostOpensWhateverTheStatusOfTheConnection();
    void theStartLeavesOnceTheHostsWindowStands();
    void theStartOfTheHostReplacesThatOfAnother();
    void theNewestStartIsUsed();
    void aUsedStartIsForgotten();
    void everyValueOfAStartIsUsed();
    void aLobbyThatEndsWithoutAStartOpensNothing();
    void aStartDuringTheQuestionEndsNoLobby();
    void aYesAfterTheHostHasLeftWaits();

private:
    static void answerYesAfter(controllerfixture& fixture, const QByteArray& message);
    static QList<QSize> sizesOfBoards();
};

namespace {

// The client's own function behind the one that counts the windows at each message.
decltype(TS3Functions::sendPluginCommand) send = nullptr;
int boardsAtTheLastMessage = 0;

} // namespace

// The message comes while the user is being asked.
void tst_starts::answerYesAfter(controllerfixture& fixture, const QByteArray& message)
{
    fixture.duringNextQuestion([&fixture, message] {
        fixture.receive(message);
        controllerfixture::questions().last()->button(QMessageBox::Yes)->click();
    });
    fixture.receive(controllerfixture::inviteFromAnn);
}

QList<QSize> tst_starts::sizesOfBoards()
{
    QList<QSize> sizes;
    const QList<whiteboard*> boards = controllerfixture::boards();
    for (const whiteboard* board : boards)
        sizes.append(board->findChild<paintscene*>()->picture().size());
    return sizes;
}

// Only whether it can be asked for counts.
void tst_starts::aHostOpensWhateverTheStatusOfTheConnection()
{
    controllerfixture fixture;
    TS3Functions table = fixture.host.table();
    table.getConnectionStatus = [](uint64, int* status) {
        *status = STATUS_DISCONNECTED;
        return static_cast<unsigned int>(ERROR_ok);
    };
    fixture.controller = std::make_unique<kelvor>(table);
    fixture.controller->openSession(1);
    QCOMPARE(fixture.controller->stateOf(1), session_hosting);
}

void tst_starts::theStartLeavesOnceTheHostsWindowStands()
{
    controllerfixture fixture;
    TS3Functions table = fixture.host.table();
    send = table.sendPluginCommand;
    table.sendPluginCommand = [](auto... arguments) {
        boardsAtTheLastMessage = controllerfixture::boards().size();
        send(arguments...);
    };
    fixture.controller = std::make_unique<kelvor>(table);
    fixture.controller->setPluginCommandID("id");
    fixture.controller->openSession(1);
    invitationdialog* lobby = controllerfixture::lobbies().first();
    lobby->findChild<QTreeWidget*>(QString::fromLatin1("tree"))->selectAll();
    lobby->invite();
    fixture.receive("\x0d 2");
    QCOMPARE(boardsAtTheLastMessage, 0);
    fixture.host.takeSent();
    lobby->accept();
    QCOMPARE(fixture.host.takeTexts(), QList<QByteArray>{"\x10 1 640 320 0 false 0 "});
    QCOMPARE(boardsAtTheLastMessage, 1);
}

void tst_starts::theStartOfTheHostReplacesThatOfAnother()
{
    controllerfixture fixture;
    fixture.start();
    fixture.acceptInvitation();
    fixture.receive("\x10 3 400 100 0 false 0 ");
    QCOMPARE(sizesOfBoards(), QList<QSize>());
    fixture.receive("\x10 2 300 200 0 false 0 ");
    QCOMPARE(sizesOfBoards(), QList<QSize>{QSize(300, 200)});
}

void tst_starts::theNewestStartIsUsed()
{
    controllerfixture fixture;
    fixture.start();
    fixture.receive("\x10 2 300 200 0 false 0 ");
    fixture.receive("\x10 4 120 90 0 false 0 ");
    fixture.receive("\x10 2 80 60 0 false 0 ", 2);
    fixture.acceptInvitation();
    controllerfixture::lobbies().first()->accept();
    QCOMPARE(sizesOfBoards(), QList<QSize>{QSize(120, 90)});
}

void tst_starts::aUsedStartIsForgotten()
{
    controllerfixture fixture;
    fixture.start();
    fixture.acceptInvitation();
    fixture.receive("\x10 2 300 200 0 false 0 ");
    controllerfixture::boards().first()->close();
    controllerfixture::settle();
    fixture.acceptInvitation();
    controllerfixture::lobbies().first()->accept();
    QCOMPARE(sizesOfBoards(), QList<QSize>());
}

void tst_starts::everyValueOfAStartIsUsed()
{
    controllerfixture fixture;
    fixture.start();
    fixture.acceptInvitation();
    fixture.host.takeSent();
    QImage picture(300, 200, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    QVERIFY(picture.save(fixture.directory.filePath(QString::fromLatin1("plugins/kelvor/b.png"))));
    const whenopen<ts3downloaddialog> user([&fixture](ts3downloaddialog& dialog) {
        const anyID transfer = fixture.host.requests.last().transferID;
        // A bar that knew no size, or one below 77 bytes, would stay at 0: the number wraps around to a file and 76
        // bytes.
        emit fixture.controller->fileTransferStatus(transfer, 0, QString(), uint64(0) - 76, 1);
        QCOMPARE(dialog.findChild<QProgressBar*>()->value(), 100);
        emit fixture.controller->fileTransferStatus(transfer, ERROR_file_transfer_complete, QString(), 0, 1);
    });
    fixture.receive("\x10 2 300 200 1 true 77 /d/b.png");
    QVERIFY(user.ran());
    QCOMPARE(fixture.host.requests.size(), 1);
    const filerequest request = fixture.host.requests.first();
    QCOMPARE(request.function, QByteArray("requestFile"));
    QCOMPARE(request.channel, uint64(1));
    QCOMPARE(request.path, QByteArray("/d/b.png"));
    QCOMPARE(request.localDirectory,
             QFile::encodeName(fixture.directory.filePath(QString::fromLatin1("plugins/kelvor"))));
    QCOMPARE(fixture.host.takeTexts(), QList<QByteArray>{"\x14 1 true"});
    auto* scene = controllerfixture::boards().first()->findChild<paintscene*>();
    QCOMPARE(scene->picture().pixel(10, 10), QRgb(0x00ffffff));
    QCOMPARE(scene->grab().toImage().pixel(10, 10), QColor(Qt::blue).rgba());
}

// The connection stays taken: whoever ends a guest's lobby so means to start.
void tst_starts::aLobbyThatEndsWithoutAStartOpensNothing()
{
    controllerfixture fixture;
    fixture.start();
    fixture.acceptInvitation();
    fixture.host.takeSent();
    controllerfixture::lobbies().first()->accept();
    QCOMPARE(sizesOfBoards(), QList<QSize>());
    QVERIFY(fixture.host.sent.isEmpty());
    QCOMPARE(fixture.controller->stateOf(1), session_joining);
    fixture.receive("\x10 2 300 200 0 false 0 ");
    QCOMPARE(sizesOfBoards(), QList<QSize>());
    fixture.receive(controllerfixture::inviteFromAnn);
    QCOMPARE(fixture.host.takeTexts(), QList<QByteArray>{"\x18 1"});
}

void tst_starts::aStartDuringTheQuestionEndsNoLobby()
{
    controllerfixture fixture;
    fixture.start();
    answerYesAfter(fixture, "\x10 2 300 200 0 false 0 ");
    QCOMPARE(sizesOfBoards(), QList<QSize>());
    QCOMPARE(controllerfixture::lobbies().size(), 1);
    QCOMPARE(fixture.controller->stateOf(1), session_joining);
}

// Nobody hears the answer, and the lobby waits until its user closes it.
void tst_starts::aYesAfterTheHostHasLeftWaits()
{
    controllerfixture fixture;
    fixture.start();
    answerYesAfter(fixture, "\x12 2");
    QCOMPARE(fixture.host.takeTexts(), QList<QByteArray>{"\x0d 1"});
    QCOMPARE(controllerfixture::lobbies().size(), 1);
    QCOMPARE(fixture.controller->stateOf(1), session_joining);
    QVERIFY(fixture.host.printed.isEmpty());
    controllerfixture::lobbies().first()->close();
    QCOMPARE(fixture.controller->stateOf(1), session_none);
}

QTEST_MAIN(tst_starts)
#include "tst_starts.moc"
