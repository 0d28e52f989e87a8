#include "townthread.h"

#include "hostapi/hosttypes.h"
#include "standin/client/voiceconnection.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTest>

#include <memory>

// Listing, upload and download from a client through the server to its store, and what can go wrong on the way.
class tst_filetransfers : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void aListingComesEntryByEntryBehindTheRequest();
    void aWrongPasswordIsRefused_data();
    void aWrongPasswordIsRefused();
    void anUploadArrivesWholeInSeveralSteps();
    void aDownloadArrivesWholeInSeveralSteps();
    void theRemainderCountsDownToNothing();
    void anEmptyFileIsMovedToo();
    void anUploadReplacesAnExistingFile();
    void anUploadThatDoesNotReplaceIsRefused();
    void anUploadThatBreaksLeavesTheOldFile();
    void aDownloadThatBreaksLeavesTheOldFile();
    void aTransferCanBeRefusedWithAnyError();
    void aDownloadCanBeOfAnotherSizeThanItsListing_data();
    void aDownloadCanBeOfAnotherSizeThanItsListing();
    void aHaltedTransferIsTold();
    void aSlowTransferRestsBetweenItsPieces();
    void unreadableNamesAreRefused_data();
    void unreadableNamesAreRefused();
    void aLostServerBreaksATransferOff();
    void anEntryOfTheListingIsWhatTheStoreHolds();

private:
    QByteArray content(const QString& file) const;
    bool write(const QString& file, const QByteArray& bytes) const;
    void restart(const serveroptions& options);
    unsigned int upload(const QByteArray& path, const QByteArray& bytes, bool overwrite = true);
    unsigned int download(const QByteArray& path);
    transferrequest request(const QByteArray& path) const;
    unsigned int lastStatus() const;

    std::unique_ptr<townthread> place;
    std::unique_ptr<voiceconnection> alice;
    std::unique_ptr<QSignalSpy> statuses;
    std::unique_ptr<QTemporaryDir> local;
    quint16 transfer = 0;
};

namespace {

QByteArray patterned(int size)
{
    QByteArray bytes(size, '\0');
    for (int i = 0; i < size; ++i)
        bytes[i] = char(i * 31 + i / 256);
    return bytes;
}

} // namespace

void tst_filetransfers::init()
{
    local = std::make_unique<QTemporaryDir>();
    serveroptions options;
    options.pace.pieceSize = 1000;
    restart(options);
}

void tst_filetransfers::cleanup()
{
    statuses.reset();
    alice.reset();
    place.reset();
}

void tst_filetransfers::restart(const serveroptions& options)
{
    cleanup();
    place = std::make_unique<townthread>(options);
    alice = std::make_unique<voiceconnection>(
        1, place->name(), voiceidentity{QStringLiteral("Alice"), QStringLiteral("Linux"), QString(), false});
    QString problem;
    QVERIFY2(alice->open(&problem), qPrintable(problem));
    QTRY_VERIFY(alice->isEstablished());
    statuses = std::make_unique<QSignalSpy>(alice.get(), &voiceconnection::transferStatus);
}

QByteArray tst_filetransfers::content(const QString& file) const
{
    QFile opened(file);
    return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray("no such file");
}

bool tst_filetransfers::write(const QString& file, const QByteArray& bytes) const
{
    QFile opened(file);
    return opened.open(QIODevice::WriteOnly) && opened.write(bytes) == bytes.size();
}

transferrequest tst_filetransfers::request(const QByteArray& path) const
{
    return {place->channel("Posters"), QByteArray(), path, local->path(), true};
}

unsigned int tst_filetransfers::upload(const QByteArray& path, const QByteArray& bytes, bool overwrite)
{
    const QString name = QString::fromUtf8(path).section(QLatin1Char('/'), -1);
    if (!write(local->filePath(name), bytes))
        return ERROR_undefined;
    transferrequest wish = request(path);
    wish.overwrite = overwrite;
    return alice->transfers().startUpload(wish, &transfer);
}

unsigned int tst_filetransfers::download(const QByteArray& path)
{
    return alice->transfers().startDownload(request(path), &transfer);
}

unsigned int tst_filetransfers::lastStatus() const
{
    return statuses->isEmpty() ? unsigned(ERROR_ok) : statuses->last().at(1).toUInt();
}

void tst_filetransfers::aListingComesEntryByEntryBehindTheRequest()
{
    QVERIFY(write(place->fileOf("Posters", QStringLiteral("/a.png")), "1"));
    QVERIFY(write(place->fileOf("Posters", QStringLiteral("/b.png")), "22"));
    QSignalSpy entries(alice.get(), &voiceconnection::fileListed);
    QCOMPARE(alice->listFiles(place->channel("Posters"), QByteArray(), "/"), unsigned(ERROR_ok));
    QCOMPARE(entries.count(), 0);
    QTRY_COMPARE(entries.count(), 2);
    QCOMPARE(entries.first().at(0).toULongLong(), place->channel("Posters"));
    QCOMPARE(entries.first().at(1).toByteArray(), QByteArray("/"));
}

void tst_filetransfers::aWrongPasswordIsRefused_data()
{
    QTest::addColumn<QByteArray>("password");
    QTest::addColumn<unsigned int>("expected");
    QTest::newRow("right") << QByteArray("rose") << unsigned(ERROR_ok);
    QTest::newRow("wrong") << QByteArray("thistle") << unsigned(ERROR_channel_invalid_password);
    QTest::newRow("none") << QByteArray() << unsigned(ERROR_channel_invalid_password);
}

void tst_filetransfers::aWrongPasswordIsRefused()
{
    QFETCH(const QByteArray, password);
    QFETCH(const unsigned int, expected);
    const quint64 garden = place->channel("Secret Garden");
    QVERIFY(write(place->fileOf("Secret Garden", QStringLiteral("/x.png")), "old"));
    QVERIFY(write(local->filePath(QStringLiteral("x.png")), "new"));
    const transferrequest wish{garden, password, "/x.png", local->path(), true};
    QCOMPARE(alice->listFiles(garden, password, "/"), expected);
    QCOMPARE(alice->transfers().startDownload(wish, &transfer), expected);
    QCOMPARE(alice->transfers().startUpload(wish, &transfer), expected);
}

void tst_filetransfers::anUploadArrivesWholeInSeveralSteps()
{
    const QByteArray bytes = patterned(7300);
    QCOMPARE(upload("/up.png", bytes), unsigned(ERROR_ok));
    QTRY_COMPARE(lastStatus(), unsigned(ERROR_file_transfer_complete));
    QVERIFY2(statuses->count() > 5, QByteArray::number(statuses->count()));
    QCOMPARE(content(place->fileOf("Posters", QStringLiteral("/up.png"))), bytes);
}

void tst_filetransfers::aDownloadArrivesWholeInSeveralSteps()
{
    const QByteArray bytes = patterned(7300);
    QVERIFY(write(place->fileOf("Posters", QStringLiteral("/down.png")), bytes));
    QCOMPARE(download("/down.png"), unsigned(ERROR_ok));
    QTRY_COMPARE(lastStatus(), unsigned(ERROR_file_transfer_complete));
    QVERIFY2(statuses->count() > 5, QByteArray::number(statuses->count()));
    QCOMPARE(content(local->filePath(QStringLiteral("down.png"))), bytes);
    QVERIFY(!QFile::exists(local->filePath(QStringLiteral("down.png.part"))));
}

void tst_filetransfers::theRemainderCountsDownToNothing()
{
    QVERIFY(write(place->fileOf("Posters", QStringLiteral("/down.png")), patterned(2500)));
    QCOMPARE(download("/down.png"), unsigned(ERROR_ok));
    QTRY_COMPARE(lastStatus(), unsigned(ERROR_file_transfer_complete));
    QVector<quint64> remainders;
    for (const QList<QVariant>& status : *statuses) {
        QCOMPARE(status.at(0).value<quint16>(), transfer);
        remainders.append(status.at(2).toULongLong());
    }
    QCOMPARE(remainders, (QVector<quint64>{1500, 500, 0, 0}));
}

void tst_filetransfers::anEmptyFileIsMovedToo()
{
    QCOMPARE(upload("/empty.png", QByteArray()), unsigned(ERROR_ok));
    QTRY_COMPARE(lastStatus(), unsigned(ERROR_file_transfer_complete));
    QCOMPARE(content(place->fileOf("Posters", QStringLiteral("/empty.png"))), QByteArray());
}

void tst_filetransfers::anUploadReplacesAnExistingFile()
{
    const QString there = place->fileOf("Posters", QStringLiteral("/x.png"));
    QVERIFY(write(there, patterned(5000)));
    QCOMPARE(upload("/x.png", "short"), unsigned(ERROR_ok));
    QTRY_COMPARE(lastStatus(), unsigned(ERROR_file_transfer_complete));
    QCOMPARE(content(there), QByteArray("short"));
}

void tst_filetransfers::anUploadThatDoesNotReplaceIsRefused()
{
    QVERIFY(write(place->fileOf("Posters", QStringLiteral("/x.png")), "old"));
    QCOMPARE(upload("/x.png", "new", false), unsigned(ERROR_file_already_exists));
}

void tst_filetransfers::anUploadThatBreaksLeavesTheOldFile()
{
    serveroptions options;
    options.pace.pieceSize = 1000;
    options.transfers.breakAfter = 2000;
    restart(options);
    const QString there = place->fileOf("Posters", QStringLiteral("/x.png"));
    QVERIFY(write(there, "old"));
    QCOMPARE(upload("/x.png", patterned(5000)), unsigned(ERROR_ok));
    QTRY_COMPARE(lastStatus(), unsigned(ERROR_file_transfer_interrupted));
    QCOMPARE(content(there), QByteArray("old"));
}

void tst_filetransfers::aDownloadThatBreaksLeavesTheOldFile()
{
    serveroptions options;
    options.pace.pieceSize = 1000;
    options.transfers.breakAfter = 2000;
    restart(options);
    QVERIFY(write(place->fileOf("Posters", QStringLiteral("/x.png")), patterned(5000)));
    QVERIFY(write(local->filePath(QStringLiteral("x.png")), "old"));
    QCOMPARE(download("/x.png"), unsigned(ERROR_ok));
    QTRY_COMPARE(lastStatus(), unsigned(ERROR_file_transfer_interrupted));
    QCOMPARE(statuses->last().at(2).toULongLong(), quint64(3000));
    QCOMPARE(content(local->filePath(QStringLiteral("x.png"))), QByteArray("old"));
    QVERIFY(!QFile::exists(local->filePath(QStringLiteral("x.png.part"))));
}

void tst_filetransfers::aTransferCanBeRefusedWithAnyError()
{
    serveroptions options;
    options.transfers.refusal = 0x0501;
    restart(options);
    QVERIFY(write(place->fileOf("Posters", QStringLiteral("/x.png")), "1"));
    QCOMPARE(download("/x.png"), 0x0501u);
    QCOMPARE(upload("/y.png", "1"), 0x0501u);
    QVERIFY(!QFile::exists(local->filePath(QStringLiteral("x.png"))));
}

void tst_filetransfers::aDownloadCanBeOfAnotherSizeThanItsListing_data()
{
    QTest::addColumn<int>("off");
    QTest::newRow("longer") << 700;
    QTest::newRow("shorter") << -700;
    QTest::newRow("nothing at all") << -100000;
}

void tst_filetransfers::aDownloadCanBeOfAnotherSizeThanItsListing()
{
    QFETCH(const int, off);
    serveroptions options;
    options.transfers.sizeOff = off;
    restart(options);
    QVERIFY(write(place->fileOf("Posters", QStringLiteral("/x.png")), patterned(2000)));
    QCOMPARE(download("/x.png"), unsigned(ERROR_ok));
    QTRY_COMPARE(lastStatus(), unsigned(ERROR_file_transfer_complete));
    QCOMPARE(content(local->filePath(QStringLiteral("x.png"))).size(), qMax(0, 2000 + off));
}

void tst_filetransfers::aHaltedTransferIsTold()
{
    QVERIFY(write(place->fileOf("Posters", QStringLiteral("/x.png")), patterned(500000)));
    QCOMPARE(download("/x.png"), unsigned(ERROR_ok));
    QCOMPARE(alice->transfers().halt(transfer), unsigned(ERROR_ok));
    QCOMPARE(lastStatus(), unsigned(ERROR_file_transfer_canceled));
    QCOMPARE(alice->transfers().halt(transfer), unsigned(ERROR_parameter_invalid));
    QVERIFY(!QFile::exists(local->filePath(QStringLiteral("x.png"))));
}

void tst_filetransfers::aSlowTransferRestsBetweenItsPieces()
{
    serveroptions options;
    options.pace.pieceSize = 100;
    options.pace.pause = 10;
    restart(options);
    QVERIFY(write(place->fileOf("Posters", QStringLiteral("/x.png")), patterned(1000)));
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(download("/x.png"), unsigned(ERROR_ok));
    QTRY_COMPARE(lastStatus(), unsigned(ERROR_file_transfer_complete));
    QVERIFY2(clock.elapsed() >= 50, "ten pieces with a pause behind each do not come at once");
}

void tst_filetransfers::unreadableNamesAreRefused_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("a directory") << QByteArray("/dir/");
    QTest::newRow("the parent") << QByteArray("/..");
    QTest::newRow("through the parent") << QByteArray("/../channel_7/x.png");
}

void tst_filetransfers::unreadableNamesAreRefused()
{
    QFETCH(const QByteArray, path);
    QVERIFY(download(path) != ERROR_ok);
    QVERIFY(QDir(local->path()).isEmpty());
}

void tst_filetransfers::aLostServerBreaksATransferOff()
{
    serveroptions options;
    options.pace.pieceSize = 10;
    options.pace.pause = 1000;
    restart(options);
    QVERIFY(write(place->fileOf("Posters", QStringLiteral("/x.png")), patterned(5000)));
    QCOMPARE(download("/x.png"), unsigned(ERROR_ok));
    place.reset();
    QTRY_COMPARE(lastStatus(), unsigned(ERROR_file_transfer_interrupted));
}

void tst_filetransfers::anEntryOfTheListingIsWhatTheStoreHolds()
{
    fileentry heard;
    connect(alice.get(), &voiceconnection::fileListed, this,
            [&](quint64, const QByteArray&, const fileentry& entry) { heard = entry; });
    QCOMPARE(upload("/x.png", "12345"), unsigned(ERROR_ok));
    QTRY_COMPARE(lastStatus(), unsigned(ERROR_file_transfer_complete));
    QCOMPARE(alice->listFiles(place->channel("Posters"), QByteArray(), "/"), unsigned(ERROR_ok));
    QTRY_COMPARE(heard.name, QByteArray("x.png"));
    QCOMPARE(heard.size, quint64(5));
    QVERIFY(!heard.directory);
}

QTEST_GUILESS_MAIN(tst_filetransfers)
#include "tst_filetransfers.moc"
