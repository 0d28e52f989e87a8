#include "picturefixture.h"

#include "tests/support/whenopen.h"

#include <QApplication>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include <memory>

/// What can happen to a lobby while the file dialog is open or a transfer runs.
class tst_lobbyreentry : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void answersAreHeardMeanwhile_data();
    void answersAreHeardMeanwhile();
    void secondPressMeanwhileDoesNothing_data();
    void secondPressMeanwhileDoesNothing();
    void endOrDestructionMeanwhile_data();
    void endOrDestructionMeanwhile();
    void lobbyOfAnotherConnectionIsNotDisturbed();

private:
    std::unique_ptr<picturefixture> lobby;
};

void tst_lobbyreentry::init()
{
    lobby = std::make_unique<picturefixture>();
    QVERIFY(lobby->directory.isValid());
}

void tst_lobbyreentry::cleanup()
{
    delete lobby->dialog.data();
    QCOMPARE(lobby->host.outstanding, 0);
    lobby.reset();
}

void tst_lobbyreentry::answersAreHeardMeanwhile_data()
{
    QTest::addColumn<bool>("inTransfer");
    QTest::newRow("file dialog open") << false;
    QTest::newRow("transfer running") << true;
}

void tst_lobbyreentry::answersAreHeardMeanwhile()
{
    QFETCH(bool, inTransfer);
    lobby->putPicture("b.png", {10, 20});
    lobby->inviteClient(2);
    lobby->inviteClient(3);
    lobby->sent();
    const auto answers = [this] {
        lobby->receive(13, "2");
        lobby->receive(14, "3");
        emit lobby->controller.channelDeleted(1, 3);
        emit lobby->controller.clientLeft(1, 4, 3);
        QCOMPARE(lobby->sent(), QStringList({"2 1 3>2", "11 1 3>2"}));
    };
    lobby->load(
        [&](ts3filedialog& files) {
            if (!inTransfer)
                answers();
            lobby->choose("b.png")(files);
        },
        [&](ts3downloaddialog& transfer) {
            if (inTransfer)
                answers();
            lobby->finish()(transfer);
        });
    QCOMPARE(lobby->lists(), QString("A 2|I|R 3|C"));
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Bert], Empty"));
    QCOMPARE(lobby->shown("widthedit"), QString("10"));
}

void tst_lobbyreentry::secondPressMeanwhileDoesNothing_data() { answersAreHeardMeanwhile_data(); }

void tst_lobbyreentry::secondPressMeanwhileDoesNothing()
{
    QFETCH(bool, inTransfer);
    lobby->putPicture("b.png", {10, 20});
    const auto press = [this] {
        lobby->widget<QPushButton>("loadbutton")->click();
        QCOMPARE(lobby->dialog->findChildren<ts3filedialog*>().size(), 1);
    };
    lobby->load(
        [&](ts3filedialog& files) {
            if (!inTransfer)
                press();
            lobby->choose("b.png")(files);
        },
        [&](ts3downloaddialog& transfer) {
            if (inTransfer)
                press();
            lobby->finish()(transfer);
        });
    QCOMPARE(lobby->shown("widthedit"), QString("10"));
}

void tst_lobbyreentry::endOrDestructionMeanwhile_data()
{
    QTest::addColumn<bool>("inTransfer");
    QTest::addColumn<QByteArray>("way");
    QTest::addColumn<QList<int>>("results");
    for (const bool inTransfer : {false, true}) {
        const char* where = inTransfer ? "transfer running" : "file dialog open";
        QTest::addRow("%s, destroyed", where) << inTransfer << QByteArray("delete") << QList<int>();
        QTest::addRow("%s, cancelled", where) << inTransfer << QByteArray("reject") << QList<int>{0};
        QTest::addRow("%s, accepted", where) << inTransfer << QByteArray("accept") << QList<int>{1};
    }
}

void tst_lobbyreentry::endOrDestructionMeanwhile()
{
    QFETCH(bool, inTransfer);
    QFETCH(QByteArray, way);
    lobby->putPicture("b.png", {10, 20});
    const auto end = [&] {
        if (way == "delete")
            delete lobby->dialog.data();
        else if (way == "reject")
            lobby->dialog->reject();
        else
            lobby->dialog->accept();
    };
    const whenopen<ts3filedialog> chooser([&](ts3filedialog& files) {
        if (inTransfer)
            lobby->choose("b.png")(files);
        else
            end();
    });
    const whenopen<ts3downloaddialog> waiter([&](ts3downloaddialog&) { end(); });
    lobby->widget<QPushButton>("loadbutton")->click();
    QVERIFY(chooser.ran());
    QCOMPARE(waiter.ran(), inTransfer);
    QTRY_VERIFY(!lobby->dialog);
    QTEST(lobby->results, "results");
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_lobbyreentry::lobbyOfAnotherConnectionIsNotDisturbed()
{
    lobby->putPicture("b.png", {10, 20});
    lobby->load(
        [&](ts3filedialog& files) {
            auto* table = files.findChild<QTableWidget*>("table");
            table->selectRow(1);
            QMetaObject::invokeMethod(&files, "onTableDoubleClicked");
            emit lobby->controller.fileList(2, 2, "/", "other.png", 1, 0, 1);
            QCOMPARE(table->rowCount(), 0);
            lobby->choose("b.png")(files);
        },
        [&](ts3downloaddialog& transfer) {
            const anyID id = lobby->host.requests.last().transferID;
            emit lobby->controller.fileTransferStatus(id, picturefixture::complete, "", 0, 2);
            emit lobby->controller.fileTransferStatus(anyID(id + 1), picturefixture::complete, "", 0, 1);
            QVERIFY(transfer.isVisible());
            lobby->finish()(transfer);
        });
    QCOMPARE(lobby->shown("widthedit"), QString("10"));
}

QTEST_MAIN(tst_lobbyreentry)
#include "tst_lobbyreentry.moc"
