#include "standin/server/filestore.h"

#include "hostapi/hosttypes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class tst_filestore : public QObject {
    Q_OBJECT

private slots:
    void init();
    void listingTellsNamesSizesDatesAndDirectories();
    void aDirectoryBelowIsListedByItsPath();
    void channelsDoNotSeeEachOther();
    void pathsThatWouldLeaveTheStoreAreRefused_data();
    void pathsThatWouldLeaveTheStoreAreRefused();
    void doubledAndOuterSlashesMeanTheSame();
    void linksOutOfTheStoreLeadNowhere();
    void whatIsNotThereIsNotFound();
    void anExistingFileIsReplacedOnlyOnRequest();
    void aFileNeedsItsDirectory();

private:
    QString put(quint64 channel, const QString& path, const QByteArray& content);
    std::unique_ptr<QTemporaryDir> place;
    std::unique_ptr<filestore> store;
};

void tst_filestore::init()
{
    place = std::make_unique<QTemporaryDir>();
    store = std::make_unique<filestore>(place->filePath(QStringLiteral("store")));
    QVERIFY(store->isUsable());
}

QString tst_filestore::put(quint64 channel, const QString& path, const QByteArray& content)
{
    const QString name = store->channelDirectory(channel) + path;
    QDir().mkpath(QFileInfo(name).path());
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size() ? name : QString();
}

void tst_filestore::listingTellsNamesSizesDatesAndDirectories()
{
    const QString file = put(1, QStringLiteral("/b.png"), "12345");
    QVERIFY(!put(1, QStringLiteral("/a/inner.png"), "1").isEmpty());
    QVector<fileentry> entries;
    QCOMPARE(store->list(1, "/", &entries), unsigned(ERROR_ok));
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries.at(0).name, QByteArray("a"));
    QVERIFY(entries.at(0).directory);
    QCOMPARE(entries.at(0).size, quint64(0));
    QCOMPARE(entries.at(1).name, QByteArray("b.png"));
    QVERIFY(!entries.at(1).directory);
    QCOMPARE(entries.at(1).size, quint64(5));
    QCOMPARE(entries.at(1).modified, quint64(QFileInfo(file).lastModified().toSecsSinceEpoch()));
}

void tst_filestore::aDirectoryBelowIsListedByItsPath()
{
    QVERIFY(!put(1, QStringLiteral("/a/b/c.png"), "1").isEmpty());
    QVector<fileentry> entries;
    QCOMPARE(store->list(1, "/a/b", &entries), unsigned(ERROR_ok));
    QCOMPARE(entries.size(), 1);
    QCOMPARE(entries.first().name, QByteArray("c.png"));
}

void tst_filestore::channelsDoNotSeeEachOther()
{
    QVERIFY(!put(1, QStringLiteral("/mine.png"), "1").isEmpty());
    QVector<fileentry> entries;
    QCOMPARE(store->list(2, "/", &entries), unsigned(ERROR_ok));
    QVERIFY(entries.isEmpty());
}

void tst_filestore::pathsThatWouldLeaveTheStoreAreRefused_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::newRow("parent") << QByteArray("/../channel_2/x.png");
    QTest::newRow("parent at the end") << QByteArray("/a/..");
    QTest::newRow("the directory itself") << QByteArray("/./x.png");
    QTest::newRow("backslash") << QByteArray("/..\\x.png");
    QTest::newRow("line break") << QByteArray("/a\nb.png");
    QTest::newRow("not UTF-8") << QByteArray("/\xff\xfe.png");
}

void tst_filestore::pathsThatWouldLeaveTheStoreAreRefused()
{
    QFETCH(const QByteArray, path);
    QVERIFY(!put(2, QStringLiteral("/x.png"), "secret").isEmpty());
    QVector<fileentry> entries;
    QString file;
    QCOMPARE(store->list(1, path, &entries), unsigned(ERROR_file_invalid_name));
    QCOMPARE(store->locateForReading(1, path, &file), unsigned(ERROR_file_invalid_name));
    QCOMPARE(store->locateForWriting(1, path, true, &file), unsigned(ERROR_file_invalid_name));
}

void tst_filestore::doubledAndOuterSlashesMeanTheSame()
{
    QCOMPARE(filestore::cleaned("/a//b/").value(), QStringLiteral("a/b"));
    QCOMPARE(filestore::cleaned("a/b").value(), QStringLiteral("a/b"));
    QCOMPARE(filestore::cleaned("/").value(), QString());
}

void tst_filestore::linksOutOfTheStoreLeadNowhere()
{
    const QString outside = place->filePath(QStringLiteral("outside"));
    QVERIFY(QDir().mkpath(outside));
    QFile secret(outside + QStringLiteral("/secret.png"));
    QVERIFY(secret.open(QIODevice::WriteOnly));
    QVERIFY(QFile::link(outside, store->channelDirectory(1) + QStringLiteral("/way-out")));
    QVector<fileentry> entries;
    QString file;
    QCOMPARE(store->list(1, "/", &entries), unsigned(ERROR_ok));
    QVERIFY(entries.isEmpty());
    QCOMPARE(store->list(1, "/way-out", &entries), unsigned(ERROR_file_not_found));
    QCOMPARE(store->locateForReading(1, "/way-out/secret.png", &file), unsigned(ERROR_file_not_found));
    QCOMPARE(store->locateForWriting(1, "/way-out/new.png", true, &file), unsigned(ERROR_file_not_found));
}

void tst_filestore::whatIsNotThereIsNotFound()
{
    QVector<fileentry> entries;
    QString file;
    QCOMPARE(store->list(1, "/nowhere", &entries), unsigned(ERROR_file_not_found));
    QCOMPARE(store->locateForReading(1, "/nothing.png", &file), unsigned(ERROR_file_not_found));
    QCOMPARE(store->locateForReading(1, "/", &file), unsigned(ERROR_file_invalid_name));
}

void tst_filestore::anExistingFileIsReplacedOnlyOnRequest()
{
    const QString there = put(1, QStringLiteral("/x.png"), "old");
    QString file;
    QCOMPARE(store->locateForWriting(1, "/x.png", false, &file), unsigned(ERROR_file_already_exists));
    QCOMPARE(store->locateForWriting(1, "/x.png", true, &file), unsigned(ERROR_ok));
    QCOMPARE(file, there);
}

void tst_filestore::aFileNeedsItsDirectory()
{
    QString file;
    QCOMPARE(store->locateForWriting(1, "/none/x.png", true, &file), unsigned(ERROR_file_not_found));
    QVERIFY(QDir().mkpath(store->channelDirectory(1) + QStringLiteral("/dir")));
    QCOMPARE(store->locateForWriting(1, "/dir", true, &file), unsigned(ERROR_file_invalid_name));
    QCOMPARE(store->locateForWriting(1, "/dir/", true, &file), unsigned(ERROR_file_invalid_name));
    QCOMPARE(store->locateForWriting(1, "/dir/x.png", true, &file), unsigned(ERROR_ok));
}

QTEST_GUILESS_MAIN(tst_filestore)
#include "tst_filestore.moc"
