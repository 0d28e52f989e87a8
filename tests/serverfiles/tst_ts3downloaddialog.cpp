#include "fileparent.h"
#include "prompts/heldwindow.h"
#include "serverfiles/ts3downloaddialog.h"
#include "tests/support/controls.h"
#include "tests/support/fakehost.h"
#include "tests/support/whenopen.h"

#include <QProgressBar>
#include <QTest>

#include <memory>

namespace {

constexpr uint64 connection = 7;
constexpr uint64 channel = 3;
constexpr uint64 fileSize = 1000;
constexpr uint complete = 0x811;
constexpr unsigned int untouched = 12345;

} // namespace

class tst_ts3downloaddialog : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void looksAsFormed();
    void transferAsksTheClient_data();
    void transferAsksTheClient();
    void textsGoAsSingleBytes();
    void completionEndsItWithSuccess();
    void refusedStartShowsNothing_data();
    void refusedStartShowsNothing();
    void closedWindowIsAFailureWithoutAnError_data();
    void closedWindowIsAFailureWithoutAnError();
    void onlyCompletionEndsIt();
    void otherTransfersLeaveTheBarAlone_data();
    void otherTransfersLeaveTheBarAlone();
    void barStaysAtZeroUntilTheEnd();
    void sizeOutsideOfTheFileLeavesTheBarAlone_data();
    void sizeOutsideOfTheFileLeavesTheBarAlone();
    void emptyFileDoesNotDivideByZero();
    void destroyedParentEndsItAsFailed_data();
    void destroyedParentEndsItAsFailed();

private:
    static void addDirections();

    bool runUpload()
    {
        return upload(host->table(), connection, channel, "pw", "/d/b.png", "/nowhere", fileSize, &error, parent);
    }
    QString runDownload()
    {
        return download(host->table(), connection, channel, "pw", "/d/b.png", fileSize, &error, "/nowhere", parent);
    }
    /// The same in one of the two directions; a failed download has no path at all.
    bool succeeds(bool up) { return up ? runUpload() : !runDownload().isNull(); }
    /// The end of the transfer that was started last.
    void completeTransfer()
    {
        emit parent->fileTransferStatus(host->requests.last().transferID, complete, "", 0, connection);
    }

    std::unique_ptr<fakehost> host;
    QPointer<fileparent> parent;
    unsigned int error = untouched;
};

void tst_ts3downloaddialog::init()
{
    host = std::make_unique<fakehost>();
    parent = new fileparent;
    error = untouched;
}

void tst_ts3downloaddialog::cleanup()
{
    delete parent;
    host.reset();
}

void tst_ts3downloaddialog::looksAsFormed()
{
    const ts3downloaddialog dialog(host->table(), connection, fileSize, parent);
    QCOMPARE(dialog.objectName(), QString("ts3downloaddialog"));
    QCOMPARE(dialog.windowTitle(), QString("Dialog"));
    QCOMPARE(dialog.size(), QSize(149, 45));
    const auto* const bar = dialog.findChild<QProgressBar*>("progressbar");
    QVERIFY(bar);
    QCOMPARE(bar->value(), 0);
    QVERIFY(qobject_cast<QHBoxLayout*>(dialog.layout()));
    QCOMPARE(controls::partsOf(dialog, "horizontalLayout"), QStringList("progressbar"));
    QCOMPARE(controls::spokenName(dialog.findChild<QProgressBar*>()), QString("File transfer"));
}

void tst_ts3downloaddialog::addDirections()
{
    QTest::addColumn<bool>("up");
    QTest::newRow("upload") << true;
    QTest::newRow("download") << false;
}

void tst_ts3downloaddialog::transferAsksTheClient_data() { addDirections(); }

void tst_ts3downloaddialog::transferAsksTheClient()
{
    QFETCH(bool, up);
    const whenopen<ts3downloaddialog> user([](ts3downloaddialog& dialog) { dialog.reject(); });
    QVERIFY(!succeeds(up));
    QVERIFY(user.ran());
    QCOMPARE(host->requests.size(), 1);
    const filerequest& request = host->requests.first();
    QCOMPARE(request.function, QByteArray(up ? "sendFile" : "requestFile"));
    QCOMPARE(request.schid, connection);
    QCOMPARE(request.channel, channel);
    QCOMPARE(request.password, QByteArray("pw"));
    QCOMPARE(request.path, QByteArray("/d/b.png"));
    QCOMPARE(request.localDirectory, QByteArray("/nowhere"));
    // An existing file of that name is replaced, and never continued.
    QCOMPARE(request.overwrite, 1);
    QCOMPARE(request.resume, 0);
}

void tst_ts3downloaddialog::textsGoAsSingleBytes()
{
    const QString password = QString::fromUtf8("p\xc3\xa4ss");
    const QString remotePath = QString::fromUtf8("/\xe2\x82\xac/\xc3\xbc.png");
    const QString directory = QString::fromUtf8("/hom\xc3\xa9");
    ts3downloaddialog dialog(host->table(), connection, fileSize, parent);
    QCOMPARE(dialog.startUpload(channel, password, remotePath, directory), static_cast<unsigned int>(ERROR_ok));
    QCOMPARE(dialog.startDownload(channel, password, remotePath, directory), static_cast<unsigned int>(ERROR_ok));
    for (const filerequest& request : qAsConst(host->requests)) {
        QCOMPARE(request.password, QByteArray("p\xe4ss"));
        QCOMPARE(request.path, QByteArray("/?/\xfc.png"));
        QCOMPARE(request.localDirectory, QByteArray("/hom\xe9"));
    }
}

void tst_ts3downloaddialog::completionEndsItWithSuccess()
{
    {
        const whenopen<ts3downloaddialog> user([this](ts3downloaddialog&) { completeTransfer(); });
        QVERIFY(runUpload());
        QVERIFY(user.ran());
    }
    const whenopen<ts3downloaddialog> user([this](ts3downloaddialog&) { completeTransfer(); });
    QCOMPARE(runDownload(), QString("/nowhere/b.png"));
    QVERIFY(user.ran());
    QCOMPARE(error, untouched);
}

void tst_ts3downloaddialog::refusedStartShowsNothing_data() { addDirections(); }

void tst_ts3downloaddialog::refusedStartShowsNothing()
{
    QFETCH(bool, up);
    host->failing = {"sendFile", "requestFile"};
    host->failure = ERROR_channel_invalid_password;
    const whenopen<ts3downloaddialog> user([](ts3downloaddialog& dialog) { dialog.reject(); });
    QVERIFY(!succeeds(up));
    QVERIFY(!user.ran());
    QCOMPARE(error, static_cast<unsigned int>(ERROR_channel_invalid_password));
    QVERIFY(parent->findChildren<QDialog*>().isEmpty());
}

void tst_ts3downloaddialog::closedWindowIsAFailureWithoutAnError_data() { addDirections(); }

void tst_ts3downloaddialog::closedWindowIsAFailureWithoutAnError()
{
    QFETCH(bool, up);
    const whenopen<ts3downloaddialog> user([](ts3downloaddialog& dialog) { dialog.close(); });
    QVERIFY(!succeeds(up));
    QVERIFY(user.ran());
    QCOMPARE(error, untouched);
    QVERIFY(parent->findChildren<QDialog*>().isEmpty());
    // Nothing stops the transfer at the client, whose further events meet nobody.
    QCOMPARE(host->requests.size(), 1);
    completeTransfer();
}

void tst_ts3downloaddialog::onlyCompletionEndsIt()
{
    const whenopen<ts3downloaddialog> user([this](ts3downloaddialog& dialog) {
        const anyID transfer = host->requests.last().transferID;
        for (const uint status : {uint(ERROR_ok), uint(ERROR_file_transfer_canceled),
                                  uint(ERROR_file_transfer_interrupted), uint(ERROR_connection_lost)}) {
            emit parent->fileTransferStatus(transfer, status, "broken", fileSize, connection);
            QVERIFY(dialog.isVisible());
        }
        completeTransfer();
        QVERIFY(!dialog.isVisible());
    });
    QVERIFY(runUpload());
    QVERIFY(user.ran());
}

void tst_ts3downloaddialog::otherTransfersLeaveTheBarAlone_data()
{
    QTest::addColumn<int>("transferOffset");
    QTest::addColumn<int>("connectionOffset");
    QTest::newRow("other transfer") << 1 << 0;
    QTest::newRow("other connection") << 0 << 1;
}

void tst_ts3downloaddialog::otherTransfersLeaveTheBarAlone()
{
    QFETCH(int, transferOffset);
    QFETCH(int, connectionOffset);
    const whenopen<ts3downloaddialog> user([&](ts3downloaddialog& dialog) {
        const auto transfer = static_cast<anyID>(host->requests.last().transferID + transferOffset);
        const uint64 other = connection + static_cast<uint64>(connectionOffset);
        for (const uint status : {uint(ERROR_ok), complete}) {
            emit parent->fileTransferStatus(transfer, status, "", 0, other);
            QCOMPARE(dialog.findChild<QProgressBar*>("progressbar")->value(), 0);
            QVERIFY(dialog.isVisible());
        }
        dialog.reject();
    });
    QVERIFY(!runUpload());
    QVERIFY(user.ran());
}

void tst_ts3downloaddialog::barStaysAtZeroUntilTheEnd()
{
    const whenopen<ts3downloaddialog> user([this](ts3downloaddialog& dialog) {
        const auto* const bar = dialog.findChild<QProgressBar*>("progressbar");
        const anyID transfer = host->requests.last().transferID;
        for (const uint64 remaining : {fileSize, fileSize / 2, uint64{1}}) {
            emit parent->fileTransferStatus(transfer, ERROR_ok, "", remaining, connection);
            QCOMPARE(bar->value(), 0);
        }
        emit parent->fileTransferStatus(transfer, ERROR_ok, "", 0, connection);
        QCOMPARE(bar->value(), 100);
        dialog.reject();
    });
    runUpload();
    QVERIFY(user.ran());
}

void tst_ts3downloaddialog::sizeOutsideOfTheFileLeavesTheBarAlone_data()
{
    QTest::addColumn<qulonglong>("remaining");
    QTest::newRow("one byte too many") << qulonglong{fileSize + 1};
    QTest::newRow("twice the file") << qulonglong{2 * fileSize};
    QTest::newRow("half of the numbers") << (1ULL << 63);
    // The result of the division is 2^30, and a hundred times that is 0 in 32 bits.
    QTest::newRow("within the range in 32 bits") << qulonglong{fileSize - (fileSize << 30)};
}

void tst_ts3downloaddialog::sizeOutsideOfTheFileLeavesTheBarAlone()
{
    QFETCH(qulonglong, remaining);
    const whenopen<ts3downloaddialog> user([&](ts3downloaddialog& dialog) {
        const auto* const bar = dialog.findChild<QProgressBar*>("progressbar");
        const anyID transfer = host->requests.last().transferID;
        emit parent->fileTransferStatus(transfer, ERROR_ok, "", 0, connection);
        emit parent->fileTransferStatus(transfer, ERROR_ok, "", remaining, connection);
        QCOMPARE(bar->value(), 100);
        dialog.reject();
    });
    runUpload();
    QVERIFY(user.ran());
}

void tst_ts3downloaddialog::emptyFileDoesNotDivideByZero()
{
    const whenopen<ts3downloaddialog> user([this](ts3downloaddialog& dialog) {
        const anyID transfer = host->requests.last().transferID;
        emit parent->fileTransferStatus(transfer, ERROR_ok, "", 0, connection);
        QCOMPARE(dialog.findChild<QProgressBar*>("progressbar")->value(), 0);
        completeTransfer();
    });
    QVERIFY(upload(host->table(), connection, channel, "", "/empty.png", "/tmp", 0, &error, parent));
    QVERIFY(user.ran());
}

void tst_ts3downloaddialog::destroyedParentEndsItAsFailed_data() { addDirections(); }

void tst_ts3downloaddialog::destroyedParentEndsItAsFailed()
{
    QFETCH(bool, up);
    const whenopen<ts3downloaddialog> user([this](ts3downloaddialog&) { delete parent; });
    QVERIFY(!succeeds(up));
    QVERIFY(user.ran());
    QVERIFY(!parent);
    QCOMPARE(error, untouched);
}

QTEST_MAIN(tst_ts3downloaddialog)
#include "tst_ts3downloaddialog.moc"
