#include "canvas/paintscene.h"
#include "serverfiles/ts3downloaddialog.h"
#include "sessionfixture.h"
#include "tests/support/whenopen.h"
#include "windowparts.h"

#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QSignalSpy>
#include <QtTest>

/// The window of a guest whose session has a picture: it is fetched while the window is being made.
class tst_whiteboardguest : public QObject {
    Q_OBJECT

private slots:
    void init() { fixture.reset(new sessionfixture); }
    void cleanup() { fixture.reset(); }

    void withoutPictureNothingIsFetchedOrSaid();
    void pictureIsFetchedShownAndSaid();
    void pictureAsBackground();
    void windowAppearsAfterTheTransfer();
    void transferEventsAreRelayedFromTheDownloadOn();

    void passwordIsAskedHidden_data();
    void passwordIsAskedHidden();
    void openChannelAsksNothing_data();
    void openChannelAsksNothing();

    void messagesDuringTheTransferAreLost();
    void resultThatPassedBeforeShowsNoIcon();
    void lastRowIsTheHosts();
    void aloneNothingIsSaid();

    void controllersEndInAPrompt_data();
    void controllersEndInAPrompt();
    void hostMemoryIsGivenBack();

private:
    // Lets the next transfer end with a picture of one colour.
    [[nodiscard]] whenopen<ts3downloaddialog> deliver(QColor color);

    QScopedPointer<sessionfixture> fixture;
};

namespace {

const QByteArray fetchedToAll("\x14 1 true");

} // namespace

whenopen<ts3downloaddialog> tst_whiteboardguest::deliver(QColor color)
{
    return whenopen<ts3downloaddialog>([this, color](ts3downloaddialog&) {
        fixture->pictureFile("b.png", color);
        fixture->completeTransfer();
    });
}

void tst_whiteboardguest::withoutPictureNothingIsFetchedOrSaid()
{
    whiteboard* window = fixture->openGuest({3, 2});
    QVERIFY(fixture->host.requests.isEmpty());
    QVERIFY(fixture->host.takeSent().isEmpty());
    QVERIFY(isWhite(window));
    QVERIFY(window->findChild<QListWidget*>()->item(1)->icon().isNull());
    // Nor do transfers reach it: an upload from here stands at zero until it is closed.
    QSignalSpy relayed(window, &whiteboard::fileTransferStatus);
    emit fixture->controller.fileTransferStatus(100, ERROR_file_transfer_complete, QString(), 0, 1);
    QCOMPARE(relayed.size(), 0);
}

void tst_whiteboardguest::pictureIsFetchedShownAndSaid()
{
    const whenopen<ts3downloaddialog> sender = deliver(Qt::blue);
    whiteboard* window = fixture->openGuest({3, 2}, 1, "/a/b.png");
    QVERIFY(sender.ran());
    QCOMPARE(fixture->host.requests.size(), 1);
    const filerequest& request = fixture->host.requests[0];
    QCOMPARE(request.function, QByteArray("requestFile"));
    QCOMPARE(request.schid, uint64(1));
    QCOMPARE(request.channel, uint64(1));
    QCOMPARE(request.password, QByteArray());
    QCOMPARE(request.path, QByteArray("/a/b.png"));
    QCOMPARE(request.localDirectory, fixture->directory.path().toLatin1());
    QCOMPARE(pixel(window, 10, 10), QColor(Qt::blue).rgba());
    const QList<sentcommand> sent = fixture->host.takeSent();
    QCOMPARE(sent.size(), 1);
    QCOMPARE(sent[0].text, fetchedToAll);
    QCOMPARE(sent[0].targets, (QList<anyID>{3, 2}));
    QVERIFY(window->findChild<QListWidget*>()->item(0)->icon().isNull());
    QVERIFY(isIcon(rowIcon(window, 1), ":/gfx/gfx/apply.png"));
}

void tst_whiteboardguest::pictureAsBackground()
{
    const whenopen<ts3downloaddialog> sender = deliver(Qt::blue);
    whiteboard* window = fixture->openGuest({2}, 1, "/b.png", true);
    QVERIFY(sender.ran());
    QCOMPARE(pixel(window, 10, 10), QRgb(0x00ffffff));
    QCOMPARE(canvasOf(window)->grab().toImage().pixel(10, 10), QColor(Qt::blue).rgba());
}

void tst_whiteboardguest::windowAppearsAfterTheTransfer()
{
    int visible = -1;
    const whenopen<ts3downloaddialog> user([this, &visible](ts3downloaddialog& dialog) {
        visible = dialog.parentWidget()->isVisible() ? 1 : 0;
        fixture->completeTransfer();
    });
    const whiteboard* window = fixture->openGuest({2}, 1, "/b.png");
    QVERIFY(user.ran());
    QCOMPARE(visible, 0);
    QVERIFY(window->isVisible());
}

void tst_whiteboardguest::transferEventsAreRelayedFromTheDownloadOn()
{
    const whenopen<ts3downloaddialog> sender = deliver(Qt::blue);
    whiteboard* window = fixture->openGuest({2}, 1, "/b.png");
    QVERIFY(sender.ran());
    QSignalSpy relayed(window, &whiteboard::fileTransferStatus);
    emit fixture->controller.fileTransferStatus(100, ERROR_file_transfer_complete, QString(), 0, 1);
    QCOMPARE(relayed.size(), 1);
}

void tst_whiteboardguest::passwordIsAskedHidden_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("label");
    QTest::newRow("named") << QByteArray("Vault") << QString("Password for Vault:");
    QTest::newRow("not Latin-1") << QByteArray("V\xc3\xa4ult \xe2\x82\xac")
                                 << QString::fromUtf8("Password for V\xc3\xa4ult \xe2\x82\xac:");
    QTest::newRow("HTML and marker") << QByteArray("<b>%1</b>") << QString("Password for <b>%1</b>:");
    QTest::newRow("name unknown") << QByteArray() << QString("Password for channel with id 7");
}

void tst_whiteboardguest::passwordIsAskedHidden()
{
    QFETCH(QByteArray, name);
    QFETCH(QString, label);
    fixture->host.servers[1].channels[7].name = name;
    if (name.isEmpty())
        fixture->host.failing.insert("getChannelVariableAsString");
    QStringList seen;
    const whenopen<QInputDialog> user([&seen](QInputDialog& prompt) {
        seen = QStringList{prompt.windowTitle(), prompt.labelText(), prompt.textValue()};
        seen.append(prompt.textEchoMode() == QLineEdit::Password ? "hidden" : "shown");
        seen.append(prompt.findChild<QLabel*>()->textFormat() == Qt::PlainText ? "plain" : "rich");
        prompt.setTextValue("secret");
        prompt.accept();
    });
    const whenopen<ts3downloaddialog> sender = deliver(Qt::blue);
    whiteboard* window = fixture->openGuest({2}, 7, "/b.png");
    QVERIFY(user.ran());
    QVERIFY(sender.ran());
    QCOMPARE(seen, (QStringList{"Type in password", label, QString(), "hidden", "plain"}));
    QCOMPARE(fixture->host.requests[0].password, QByteArray("secret"));
    QCOMPARE(fixture->host.requests[0].channel, uint64(7));
    QCOMPARE(pixel(window, 10, 10), QColor(Qt::blue).rgba());
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{fetchedToAll});
}

void tst_whiteboardguest::openChannelAsksNothing_data()
{
    QTest::addColumn<int>("channel");
    QTest::addColumn<bool>("failing");
    QTest::newRow("no password") << 1 << false;
    QTest::newRow("flag cannot be read") << 7 << true;
    QTest::newRow("unknown channel") << 55 << false;
}

void tst_whiteboardguest::openChannelAsksNothing()
{
    QFETCH(int, channel);
    QFETCH(bool, failing);
    if (failing)
        fixture->host.failing.insert("getChannelVariableAsInt");
    const whenopen<ts3downloaddialog> sender = deliver(Qt::blue);
    fixture->openGuest({2}, static_cast<uint64>(channel), "/b.png");
    QVERIFY(sender.ran());
    QCOMPARE(fixture->host.requests.size(), 1);
    QCOMPARE(fixture->host.requests[0].password, QByteArray());
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{fetchedToAll});
}

void tst_whiteboardguest::messagesDuringTheTransferAreLost()
{
    const whenopen<ts3downloaddialog> user([this](ts3downloaddialog&) {
        fixture->receive(1, "\x11 2 \x02 #ff0000 9 50|50 50|50");
        fixture->receive(1, "\x12 3");
        emit fixture->controller.clientLeft(1, 3, 1);
        fixture->pictureFile("b.png", Qt::blue);
        fixture->completeTransfer();
    });
    whiteboard* window = fixture->openGuest({3, 2}, 1, "/b.png");
    QVERIFY(user.ran());
    QCOMPARE(pixel(window, 50, 50), QColor(Qt::blue).rgba());
    QCOMPARE(window->findChild<QListWidget*>()->count(), 2);
}

void tst_whiteboardguest::resultThatPassedBeforeShowsNoIcon()
{
    const whenopen<ts3downloaddialog> user([this](ts3downloaddialog&) {
        fixture->receive(1, "\x14 3 true");
        fixture->completeTransfer();
    });
    whiteboard* window = fixture->openGuest({3, 4, 2}, 1, "/b.png");
    QVERIFY(user.ran());
    QVERIFY(window->findChild<QListWidget*>()->item(0)->icon().isNull());
    fixture->receive(1, "\x14 4 true");
    QVERIFY(isIcon(rowIcon(window, 1), ":/gfx/gfx/apply.png"));
}

void tst_whiteboardguest::lastRowIsTheHosts()
{
    const whenopen<ts3downloaddialog> sender = deliver(Qt::blue);
    whiteboard* window = fixture->openGuest({99, 3, 4, 2}, 1, "/b.png");
    QVERIFY(sender.ran());
    const auto* list = window->findChild<QListWidget*>();
    QCOMPARE(list->count(), 3);
    QCOMPARE(list->item(2)->text(), QString("Anna"));
    QVERIFY(isIcon(rowIcon(window, 2), ":/gfx/gfx/apply.png"));
    QVERIFY(list->item(1)->icon().isNull());
}

void tst_whiteboardguest::aloneNothingIsSaid()
{
    const whenopen<ts3downloaddialog> sender = deliver(Qt::blue);
    whiteboard* window = fixture->openGuest({}, 1, "/b.png");
    QVERIFY(sender.ran());
    QVERIFY(fixture->host.takeSent().isEmpty());
    QCOMPARE(window->findChild<QListWidget*>()->count(), 0);
    QCOMPARE(pixel(window, 10, 10), QColor(Qt::blue).rgba());
}

void tst_whiteboardguest::controllersEndInAPrompt_data()
{
    QTest::addColumn<int>("channel");
    QTest::newRow("password") << 7;
    QTest::newRow("transfer") << 1;
}

void tst_whiteboardguest::controllersEndInAPrompt()
{
    QFETCH(int, channel);
    auto* endpoint = new kelvorprotocol(fixture->host.table());
    endpoint->setPluginCommandID("kelvor");
    auto* controller = new fakecontroller;
    const QPointer<fakecontroller> controllerAlive(controller);
    QList<sentcommand> saidAtOnce;
    const whenopen<QDialog> user([&](QDialog&) {
        emit controller->shuttingDown();
        saidAtOnce = fixture->host.takeSent();
        delete endpoint;
        delete controller;
    });
    QScopedPointer<whiteboard> window(new whiteboard(fixture->host.table(), endpoint, 1, {3, 2}, 300, 200,
                                                     static_cast<uint64>(channel), "/b.png", 1000, false, controller,
                                                     fixture->directory.path(), nullptr));
    QVERIFY(!controllerAlive);
    QCOMPARE(saidAtOnce.size(), 1);
    QCOMPARE(saidAtOnce[0].text, QByteArray("\x12 1"));
    QCOMPARE(saidAtOnce[0].targets, (QList<anyID>{3, 2}));
    QVERIFY(!QApplication::activeModalWidget());
    QSignalSpy closed(window.data(), &whiteboard::closed);
    const int callsBefore = fixture->host.calls.value("getClientVariableAsString");
    window->close();
    window.reset();
    QCOMPARE(closed.size(), 0);
    QVERIFY(fixture->host.takeSent().isEmpty());
    QCOMPARE(fixture->host.calls.value("getClientVariableAsString"), callsBefore);
    QCOMPARE(callsBefore, 0);
}

void tst_whiteboardguest::hostMemoryIsGivenBack()
{
    const whenopen<QInputDialog> user([](QInputDialog& prompt) { prompt.accept(); });
    const whenopen<ts3downloaddialog> sender = deliver(Qt::blue);
    fixture->openGuest({3, 2}, 7, "/b.png");
    QVERIFY(user.ran());
    QVERIFY(sender.ran());
    QVERIFY(fixture->host.calls.value("getChannelVariableAsString") > 0);
    QCOMPARE(fixture->host.outstanding, 0);
}

int main(int argc, char** argv)
{
    qRegisterMetaType<uint64>("uint64");
    qRegisterMetaType<anyID>("anyID");
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    tst_whiteboardguest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_whiteboardguest.moc"
