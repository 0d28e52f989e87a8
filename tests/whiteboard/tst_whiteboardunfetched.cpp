#include "canvas/paintscene.h"
#include "serverfiles/ts3downloaddialog.h"
#include "sessionfixture.h"
#include "tests/support/whenopen.h"
#include "windowparts.h"

#include <QBuffer>
#include <QInputDialog>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

/// The window of a guest who cannot have the picture of the session: it paints on a white one, and the others hear of
/// it.
class tst_whiteboardunfetched : public QObject {
    Q_OBJECT

private slots:
    void init() { fixture.reset(new sessionfixture); }
    void cleanup() { fixture.reset(); }

    void cancelledPasswordGivesAWhitePicture();
    void refusedTransferGivesAWhitePicture();
    void closedTransferGivesAWhitePicture();
    void unreadablePictureGivesAWhitePicture_data();
    void unreadablePictureGivesAWhitePicture();
    void emptyPathIsTriedAllTheSame();
    void whatIsNoPictureByItsNameIsNotAskedFor_data();
    void whatIsNoPictureByItsNameIsNotAskedFor();

private:
    QScopedPointer<sessionfixture> fixture;
};

namespace {

// Noise, which no format packs, so that half of the file is half of the picture.
QByteArray wholePicture()
{
    QRandomGenerator random(1);
    QImage picture(100, 100, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, random.generate());
    }
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    picture.save(&file, "PNG");
    return file.data();
}

const QByteArray failedToAll("\x14 1 false");

} // namespace

void tst_whiteboardunfetched::cancelledPasswordGivesAWhitePicture()
{
    const whenopen<QInputDialog> user([](QInputDialog& prompt) { prompt.reject(); });
    whiteboard* window = fixture->openGuest({3, 2}, 7, "/b.png");
    QVERIFY(user.ran());
    QVERIFY(fixture->host.requests.isEmpty());
    const QList<sentcommand> sent = fixture->host.takeSent();
    QCOMPARE(sent.size(), 1);
    QCOMPARE(sent[0].text, failedToAll);
    QCOMPARE(sent[0].targets, (QList<anyID>{3, 2}));
    QVERIFY(isWhite(window));
    QVERIFY(isIcon(rowIcon(window, 1), ":/gfx/gfx/apply.png"));
    QSignalSpy relayed(window, &whiteboard::fileTransferStatus);
    emit fixture->controller.fileTransferStatus(100, ERROR_file_transfer_complete, QString(), 0, 1);
    QCOMPARE(relayed.size(), 0);
}

void tst_whiteboardunfetched::refusedTransferGivesAWhitePicture()
{
    fixture->host.failing.insert("requestFile");
    whiteboard* window = fixture->openGuest({2}, 1, "/b.png");
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{failedToAll});
    QVERIFY(isWhite(window));
    QVERIFY(window->isVisible());
    QVERIFY(fixture->host.printed.isEmpty());
}

void tst_whiteboardunfetched::closedTransferGivesAWhitePicture()
{
    fixture->pictureFile("b.png", Qt::red);
    const whenopen<ts3downloaddialog> user([](ts3downloaddialog& dialog) { dialog.close(); });
    whiteboard* window = fixture->openGuest({2}, 1, "/b.png");
    QVERIFY(user.ran());
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{failedToAll});
    QVERIFY(isWhite(window));
}

void tst_whiteboardunfetched::unreadablePictureGivesAWhitePicture_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("background");
    QTest::newRow("garbage") << QByteArray("no picture") << false;
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("garbage as background") << QByteArray("no picture") << true;
    const QByteArray whole = wholePicture();
    QCOMPARE(QImage::fromData(whole).size(), QSize(100, 100));
    QTest::newRow("half of a picture") << whole.left(whole.size() / 2) << false;
    QTest::newRow("half of a picture as background") << whole.left(whole.size() / 2) << true;
    QTest::newRow("all but the end of a picture") << whole.left(whole.size() - 20) << false;
}

void tst_whiteboardunfetched::unreadablePictureGivesAWhitePicture()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, background);
    const whenopen<ts3downloaddialog> user([this, content](ts3downloaddialog&) {
        QFile file(fixture->directory.filePath("b.png"));
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
        file.close();
        fixture->completeTransfer();
    });
    whiteboard* window = fixture->openGuest({2}, 1, "/b.png", background);
    QVERIFY(user.ran());
    // The transfer itself went well, and that is what is told.
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{"\x14 1 true"});
    QCOMPARE(canvasOf(window)->grab().toImage().pixel(10, 10), QColor(Qt::white).rgba());
    fixture->receive(1, "\x11 2 \x02 #ff0000 9 50|50 50|50");
    QCOMPARE(pixel(window, 50, 50), QColor(Qt::red).rgba());
}

void tst_whiteboardunfetched::emptyPathIsTriedAllTheSame()
{
    const whenopen<ts3downloaddialog> user([this](ts3downloaddialog&) { fixture->completeTransfer(); });
    whiteboard* window = fixture->openGuest({2}, 1, QString());
    QVERIFY(user.ran());
    QCOMPARE(fixture->host.requests.size(), 1);
    QCOMPARE(fixture->host.requests[0].path, QByteArray());
    QCOMPARE(fixture->host.requests[0].channel, uint64(1));
    // Without a name no file can have come.
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{failedToAll});
    QVERIFY(isWhite(window));
}

void tst_whiteboardunfetched::whatIsNoPictureByItsNameIsNotAskedFor_data()
{
    QTest::addColumn<QString>("path");
    for (const char* path : {"/.profile", "/kelvor.so", "/b.png/kelvor.so", "/b.png/", "/b.png.exe", "/"})
        QTest::newRow(path) << QString::fromLatin1(path);
}

void tst_whiteboardunfetched::whatIsNoPictureByItsNameIsNotAskedFor()
{
    QFETCH(QString, path);
    whiteboard* window = fixture->openGuest({2}, 1, path);
    QVERIFY(fixture->host.requests.isEmpty());
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{failedToAll});
    QVERIFY(isWhite(window));
    QVERIFY(window->isVisible());
}

int main(int argc, char** argv)
{
    qRegisterMetaType<uint64>("uint64");
    qRegisterMetaType<anyID>("anyID");
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    tst_whiteboardunfetched test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_whiteboardunfetched.moc"
