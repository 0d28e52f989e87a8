#include "fileparent.h"
#include "serverfiles/ts3downloaddialog.h"
#include "tests/support/fakehost.h"
#include "tests/support/whenopen.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

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
    QTest::newRow("at the root") << "/b.png"
                                 << "X"
                                 << "X/b.png";
    QTest::newRow("in a directory") << "/d/e/b.png"
                                    << "X"
                                    << "X/b.png";
    QTest::newRow("without a slash") << "b.png"
                                     << "X"
                                     << "X/b.png";
    QTest::newRow("double slash") << "/d//b.png"
                                  << "X"
                                  << "X/b.png";
    QTest::newRow("directory with a separator") << "/b.png"
                                                << "/X/"
                                                << "/X//b.png";
    QTest::newRow("directory with two") << "/b.png"
                                        << "/X//"
                                        << "/X///b.png";
    QTest::newRow("place markers") << "/%1%3.png"
                                   << "/%2"
                                   << "/%2/%1%3.png";
    QTest::newRow("dots in the name") << "/..b.png"
                                      << "X"
                                      << "X/..b.png";
    QTest::newRow("two dots above") << "/../../b.png"
                                    << "X"
                                    << "X/b.png";
    QTest::newRow("very long") << '/' + longName << "X"
                               << "X/" + longName;
    QTest::newRow("not ASCII") << QString::fromUtf8("/\xe2\x82\xac.png") << "X"
                               << QString::fromUtf8("X/\xe2\x82\xac.png");
    QTest::newRow("root directory") << "/b.png"
                                    << "/"
                                    << "//b.png";
    QTest::newRow("directory with dots") << "/b.png"
                                         << "/a/../X"
                                         << "/a/../X/b.png";
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

    QTest::newRow("empty") << ""
                           << "/X";
    QTest::newRow("root") << "/"
                          << "/X";
    QTest::newRow("slash at the end") << "/d/b.png/"
                                      << "/X";
    QTest::newRow("slash at the end, too in the directory") << "/d/b.png/"
                                                            << "/X/";
    QTest::newRow("parent directory") << "/d/.."
                                      << "/X";
    QTest::newRow("bare parent directory") << ".."
                                           << "/X";
    QTest::newRow("the directory itself") << "/d/."
                                          << "/X";
    QTest::newRow("parent of a relative directory") << "/.."
                                                    << "X";
    QTest::newRow("parent of the working directory") << "/.."
                                                     << ".";
    QTest::newRow("parent of the root") << "/.."
                                        << "/";
    QTest::newRow("no directory") << "/b.png"
                                  << "";
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
