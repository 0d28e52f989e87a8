#include "fileparent.h"
#include "serverfiles/ts3downloaddialog.h"
#include "tests/support/fakehost.h"
#include "tests/support/whenopen.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

namespace {

QTestData& addRow(const char* name, const QString& remotePath, const QString& directory)
{
    return QTest::newRow(name) << remotePath << directory;
}

} // namespace

/// The local file that a download ends in, for names from friends and strangers.
class tst_download : public QObject {
    Q_OBJECT

private slots:
    void localPathFollowsTheRemoteName_data();
    void localPathFollowsTheRemoteName();
    void nameOutsideOfTheDirectoryCountsAsFailed_data();
    void nameOutsideOfTheDirectoryCountsAsFailed();
    void nameOfALocalDirectoryCountsAsFailed();

private:
    /// A download that the client completes.
    static QString completedDownload(const QString& remotePath, const QString& directory);
};

QString tst_download::completedDownload(const QString& remotePath, const QString& directory)
{
    constexpr uint64 connection = 7;
    constexpr unsigned int untouched = 12345;
    const fakehost host;
    fileparent parent;
    unsigned int error = untouched;
    const whenopen<ts3downloaddialog> user([&](ts3downloaddialog&) {
        emit parent.fileTransferStatus(host.requests.last().transferID, ERROR_file_transfer_complete, "", 0,
                                       connection);
    });
    const QString localPath = download(host.table(), connection, 3, "pw", remotePath, 10, &error, directory, &parent);
    // Whatever the name, the request goes out as it is; it is the local file that is not believed in.
    const bool asked = user.ran() && host.requests.size() == 1 && host.requests.first().path == remotePath.toLatin1();
    return asked && error == untouched ? localPath : QString("the client was not asked as it should");
}

void tst_download::localPathFollowsTheRemoteName_data()
{
    QTest::addColumn<QString>("remotePath");
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QString>("localPath");

    const QString longName(5000, 'n');
    addRow("at the root", "/b.png", "X") << "X/b.png";
    addRow("in a directory", "/d/e/b.png", "X") << "X/b.png";
    addRow("without a slash", "b.png", "X") << "X/b.png";
    addRow("double slash", "/d//b.png", "X") << "X/b.png";
    addRow("directory with a separator", "/b.png", "/X/") << "/X//b.png";
    addRow("directory with two", "/b.png", "/X//") << "/X///b.png";
    addRow("place markers", "/%1%3.png", "/%2") << "/%2/%1%3.png";
    addRow("dots in the name", "/..b.png", "X") << "X/..b.png";
    addRow("two dots above", "/../../b.png", "X") << "X/b.png";
    addRow("very long", '/' + longName, "X") << "X/" + longName;
    addRow("not ASCII", QString::fromUtf8("/\xe2\x82\xac.png"), "X") << QString::fromUtf8("X/\xe2\x82\xac.png");
    addRow("root directory", "/b.png", "/") << "//b.png";
    addRow("directory with dots", "/b.png", "/a/../X") << "/a/../X/b.png";
}

void tst_download::localPathFollowsTheRemoteName()
{
    QFETCH(QString, remotePath);
    QFETCH(QString, directory);
    QTEST(completedDownload(remotePath, directory), "localPath");
}

void tst_download::nameOutsideOfTheDirectoryCountsAsFailed_data()
{
    QTest::addColumn<QString>("remotePath");
    QTest::addColumn<QString>("directory");

    addRow("empty", "", "/X");
    addRow("root", "/", "/X");
    addRow("slash at the end", "/d/b.png/", "/X");
    addRow("slash at the end, too in the directory", "/d/b.png/", "/X/");
    addRow("parent directory", "/d/..", "/X");
    addRow("bare parent directory", "..", "/X");
    addRow("the directory itself", "/d/.", "/X");
    addRow("parent of a relative directory", "/..", "X");
    addRow("parent of the working directory", "/..", ".");
    addRow("parent of the root", "/..", "/");
    addRow("no directory", "/b.png", "");
}

void tst_download::nameOutsideOfTheDirectoryCountsAsFailed()
{
    QFETCH(QString, remotePath);
    QFETCH(QString, directory);
    QVERIFY(completedDownload(remotePath, directory).isNull());
}

void tst_download::nameOfALocalDirectoryCountsAsFailed()
{
    const QTemporaryDir downloads;
    QVERIFY(QDir(downloads.path()).mkdir("b.png"));
    QVERIFY(completedDownload("/b.png", downloads.path()).isNull());
}

QTEST_MAIN(tst_download)
#include "tst_download.moc"
