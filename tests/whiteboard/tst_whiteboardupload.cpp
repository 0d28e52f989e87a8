#include "canvas/paintscene.h"
#include "serverfiles/ts3downloaddialog.h"
#include "serverfiles/ts3filedialog.h"
#include "tests/support/whenopen.h"
#include "windowtest.h"

#include <QStatusBar>

/// The upload of the picture to a channel.
class tst_whiteboardupload : public filewindowtest {
    Q_OBJECT

private slots:
    void init() { begin(); }
    void cleanup() { end(); }

    void uploadSendsThePicture_data();
    void uploadSendsThePicture();
    void cancelledUploadSendsNothing();
    void refusedUploadShowsTheError();
    void closedUploadShowsTheText();
    void uploadNameThatLeadsAwayEndsSilently_data();
    void uploadNameThatLeadsAwayEndsSilently();
    void earlierTemporaryFileIsNotSent();
    void uploadDoesNotFollowALink();
    void uploadThatCannotBeWrittenEndsSilently();
    void uploadOfAGuestWithoutPictureStandsAtZero();
};

void tst_whiteboardupload::uploadSendsThePicture_data()
{
    QTest::addColumn<QString>("directory");
    QTest::addColumn<QByteArray>("remotePath");
    QTest::newRow("root") << QString() << QByteArray("/my picture.png");
    QTest::newRow("directory") << QString("drawings") << QByteArray("/drawings/my picture.png");
}

void tst_whiteboardupload::uploadSendsThePicture()
{
    QFETCH(QString, directory);
    QFETCH(QByteArray, remotePath);
    whiteboard* window = fixture->openHost({2});
    fixture->receive(1, "\x11 2 \x02 #ff0000 9 50|50 50|50");
    const whenopen<ts3filedialog> chooser = chooseUpload(fixture.data(), "my picture.png", directory);
    const whenopen<ts3downloaddialog> waiter([this](ts3downloaddialog&) { fixture->completeTransfer(); });
    click(window, "Upload");
    QVERIFY(chooser.ran());
    QVERIFY(waiter.ran());
    const filerequest request = fixture->host.requests.last();
    QCOMPARE(request.function, QByteArray("sendFile"));
    QCOMPARE(request.schid, uint64(1));
    QCOMPARE(request.channel, uint64(1));
    QCOMPARE(request.path, remotePath);
    QCOMPARE(request.localDirectory, temporary.path().toLatin1());
    QCOMPARE(QImage(temporary.file("my picture.png")).convertToFormat(QImage::Format_ARGB32),
             canvasOf(window)->picture());
    QVERIFY(window->findChild<QStatusBar*>()->currentMessage().isEmpty());
    QVERIFY(fixture->host.takeSent().isEmpty());
}

void tst_whiteboardupload::cancelledUploadSendsNothing()
{
    whiteboard* window = fixture->openHost({2});
    const whenopen<ts3filedialog> user([](ts3filedialog& dialog) { dialog.reject(); });
    click(window, "Upload");
    QVERIFY(user.ran());
    QVERIFY(fixture->host.requests.isEmpty());
    QVERIFY(temporary.entries().isEmpty());
}

void tst_whiteboardupload::refusedUploadShowsTheError()
{
    whiteboard* window = fixture->openHost({2});
    fixture->host.failing.insert("sendFile");
    fixture->host.failure = ERROR_channel_invalid_password;
    const whenopen<ts3filedialog> chooser = chooseUpload(fixture.data(), "picture.png");
    click(window, "Upload");
    QVERIFY(chooser.ran());
    QCOMPARE(window->findChild<QStatusBar*>()->currentMessage(), QString("error 30d"));
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_whiteboardupload::closedUploadShowsTheText()
{
    whiteboard* window = fixture->openHost({2});
    const whenopen<ts3filedialog> chooser = chooseUpload(fixture.data(), "picture.png");
    const whenopen<ts3downloaddialog> waiter([](ts3downloaddialog& dialog) { dialog.close(); });
    click(window, "Upload");
    QVERIFY(chooser.ran());
    QVERIFY(waiter.ran());
    // No code came, and what the client calls code 0 is shown.
    QCOMPARE(window->findChild<QStatusBar*>()->currentMessage(), QString("error 0"));
}

void tst_whiteboardupload::uploadNameThatLeadsAwayEndsSilently_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("above") << QString("../above.png");
    QTest::newRow("absolute") << QString("absolute");
    QTest::newRow("below") << QString("sub/below.png");
    QTest::newRow("directory above") << QString("..");
    QTest::newRow("directory") << QString(".");
    QTest::newRow("existing directory") << QString("sub");
    QTest::newRow("empty") << QString();
    QTest::newRow("slash") << QString("/");
}

void tst_whiteboardupload::uploadNameThatLeadsAwayEndsSilently()
{
    QFETCH(QString, name);
    whiteboard* window = fixture->openHost({2});
    QVERIFY(QDir(temporary.path()).mkdir("sub"));
    const QString above = QFileInfo(temporary.file("../above.png")).absoluteFilePath();
    const whenopen<ts3filedialog> chooser =
        chooseUpload(fixture.data(), name == "absolute" ? fixture->directory.filePath("absolute.png") : name);
    click(window, "Upload");
    QVERIFY(chooser.ran());
    for (const filerequest& request : qAsConst(fixture->host.requests))
        QCOMPARE(request.function, QByteArray("requestFileList"));
    QVERIFY(!QFileInfo::exists(above));
    QVERIFY(!QFileInfo::exists(fixture->directory.filePath("absolute.png")));
    QCOMPARE(temporary.entries(), QStringList{"sub"});
    QVERIFY(QDir(temporary.file("sub")).isEmpty());
    QVERIFY(window->findChild<QStatusBar*>()->currentMessage().isEmpty());
}

void tst_whiteboardupload::earlierTemporaryFileIsNotSent()
{
    // Nothing can be written for a session without a canvas: what an earlier upload left must not go out in its place.
    whiteboard* window = fixture->openHost({2}, QString(), false, {0, 0});
    QImage old(5, 5, QImage::Format_ARGB32);
    old.fill(Qt::red);
    QVERIFY(old.save(temporary.file("picture.png")));
    const whenopen<ts3filedialog> chooser = chooseUpload(fixture.data(), "picture.png");
    click(window, "Upload");
    QVERIFY(chooser.ran());
    QCOMPARE(fixture->host.requests.last().function, QByteArray("requestFileList"));
    QVERIFY(!QFileInfo::exists(temporary.file("picture.png")));
    QVERIFY(window->findChild<QStatusBar*>()->currentMessage().isEmpty());
}

void tst_whiteboardupload::uploadDoesNotFollowALink()
{
    // The temporary directory is everybody's: somebody may have put a link there.
    whiteboard* window = fixture->openHost({2});
    const QString precious = fixture->pictureFile("precious.png", Qt::green);
    const QString absent = fixture->directory.filePath("absent.png");
    QVERIFY(QFile::link(precious, temporary.file("one.png")));
    QVERIFY(QFile::link(absent, temporary.file("two.png")));
    for (const char* name : {"one.png", "two.png"}) {
        const whenopen<ts3filedialog> chooser = chooseUpload(fixture.data(), name);
        const whenopen<ts3downloaddialog> waiter([this](ts3downloaddialog&) { fixture->completeTransfer(); });
        click(window, "Upload");
        QVERIFY(chooser.ran());
        QVERIFY(waiter.ran());
        QCOMPARE(fixture->host.requests.last().function, QByteArray("sendFile"));
        QVERIFY(!QFileInfo(temporary.file(name)).isSymLink());
    }
    QCOMPARE(QImage(precious).pixel(10, 10), QColor(Qt::green).rgba());
    QVERIFY(!QFileInfo::exists(absent));
}

void tst_whiteboardupload::uploadThatCannotBeWrittenEndsSilently()
{
    whiteboard* window = fixture->openHost({2});
    // Longer than a file system takes.
    const whenopen<ts3filedialog> chooser = chooseUpload(fixture.data(), QString(300, 'n') + ".png");
    click(window, "Upload");
    QVERIFY(chooser.ran());
    QCOMPARE(fixture->host.requests.last().function, QByteArray("requestFileList"));
    QVERIFY(window->findChild<QStatusBar*>()->currentMessage().isEmpty());
}

void tst_whiteboardupload::uploadOfAGuestWithoutPictureStandsAtZero()
{
    whiteboard* window = fixture->openGuest({2});
    const whenopen<ts3filedialog> chooser = chooseUpload(fixture.data(), "picture.png");
    bool openAfterTheEnd = false;
    const whenopen<ts3downloaddialog> waiter([&](ts3downloaddialog& dialog) {
        fixture->completeTransfer();
        openAfterTheEnd = dialog.isVisible();
        dialog.close();
    });
    click(window, "Upload");
    QVERIFY(chooser.ran());
    QVERIFY(waiter.ran());
    QVERIFY(openAfterTheEnd);
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    // The dialogs of the desktop cannot be driven from here.
    application.setAttribute(Qt::AA_DontUseNativeDialogs);
    tst_whiteboardupload test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_whiteboardupload.moc"
