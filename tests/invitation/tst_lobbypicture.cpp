#include "picturefixture.h"

#include "tests/support/whenopen.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>

#include <memory>

/// The picture of a session: chosen in a channel's file store, downloaded, shown, dropped.
class tst_lobbypicture : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void loadedPictureIsTaken();
    void clientIsAskedForTheFile();
    void passwordGoesAlong();
    void cancelledChoiceChangesNothing();
    void refusedDownloadShowsWhy();
    void errorMakesRoomForTheLegendWhenCleared();
    void closedTransferDropsThePicture();
    void errorWithoutATextLeavesTheBarEmpty();
    void failedSecondPictureDropsTheFirst();
    void secondPictureReplacesTheFirst();
    void fileThatIsNoPictureIsTaken_data();
    void fileThatIsNoPictureIsTaken();
    void hugePictureIsNotDecoded();
    void clearedPictureLeavesItsSize();
    void clearingWithoutAPicture();
    void strangersPathIsPlainAndContained();

private:
    void compareEmpty();

    std::unique_ptr<picturefixture> lobby;
};

void tst_lobbypicture::init()
{
    lobby = std::make_unique<picturefixture>();
    QVERIFY(lobby->directory.isValid());
}

void tst_lobbypicture::cleanup()
{
    delete lobby->dialog.data();
    QCOMPARE(lobby->host.outstanding, 0);
    lobby.reset();
}

void tst_lobbypicture::compareEmpty()
{
    QCOMPARE(lobby->dialog->channel(), uint64(0));
    QCOMPARE(lobby->dialog->remoteSize(), uint64(0));
    QCOMPARE(lobby->dialog->remotePath(), QString());
    QCOMPARE(lobby->dialog->localFile(), QString());
}

void tst_lobbypicture::loadedPictureIsTaken()
{
    lobby->putPicture("b.png", {123, 45});
    lobby->load(lobby->choose("b.png"), lobby->finish());
    QCOMPARE(lobby->dialog->channel(), uint64(2));
    QCOMPARE(lobby->dialog->remotePath(), QString("/b.png"));
    QCOMPARE(lobby->dialog->remoteSize(), picturefixture::remoteBytes);
    QCOMPARE(QDir::cleanPath(lobby->dialog->localFile()), lobby->directory.filePath("b.png"));
    // The limits of the edits don't bind a picture.
    QCOMPARE(lobby->dialog->imageWidth(), 123);
    QCOMPARE(lobby->dialog->imageHeight(), 45);
    QCOMPARE(lobby->shown("widthedit"), QString("123"));
    QCOMPARE(lobby->shown("heightedit"), QString("45"));
    QCOMPARE(lobby->widget<QLabel>("urllabel")->text(), QString("/b.png"));
    for (const char* name : {"sizelabel", "widthedit", "heightedit"})
        QVERIFY2(!lobby->widget<QWidget>(name)->isEnabled(), name);
    QVERIFY(lobby->widget<QWidget>("imagebgcheckbox")->isEnabled());
    QVERIFY(!lobby->dialog->asBackground());
    lobby->widget<QCheckBox>("imagebgcheckbox")->setChecked(true);
    QVERIFY(lobby->dialog->asBackground());
    QVERIFY(lobby->dialog->findChildren<ts3filedialog*>().isEmpty());
    QCOMPARE(lobby->sent(), QStringList());
}

void tst_lobbypicture::clientIsAskedForTheFile()
{
    lobby->putPicture("b.png", {10, 10});
    lobby->load(lobby->choose("b.png"), lobby->finish());
    QCOMPARE(lobby->host.requests.size(), 2);
    const filerequest listing = lobby->host.requests.at(0);
    QCOMPARE(listing.function, QByteArray("requestFileList"));
    QCOMPARE(listing.schid, uint64(1));
    QCOMPARE(listing.channel, uint64(2));
    const filerequest file = lobby->host.requests.at(1);
    QCOMPARE(file.function, QByteArray("requestFile"));
    QCOMPARE(file.schid, uint64(1));
    QCOMPARE(file.channel, uint64(2));
    QCOMPARE(file.password, QByteArray());
    QCOMPARE(file.path, QByteArray("/b.png"));
    QCOMPARE(file.localDirectory, lobby->directory.path().toLatin1());
}

void tst_lobbypicture::passwordGoesAlong()
{
    lobby->putPicture("b.png", {10, 10});
    lobby->host.servers[1].channels[2].password = true;
    lobby->load(
        [this](ts3filedialog& files) {
            const whenopen<QDialog> user([](QDialog& box) {
                box.findChild<QLineEdit*>()->setText("secret");
                box.accept();
            });
            lobby->choose("b.png")(files);
            QVERIFY(user.ran());
        },
        lobby->finish());
    QCOMPARE(lobby->host.requests.last().function, QByteArray("requestFile"));
    QCOMPARE(lobby->host.requests.last().password, QByteArray("secret"));
}

void tst_lobbypicture::cancelledChoiceChangesNothing()
{
    lobby->putPicture("b.png", {10, 20});
    lobby->load(lobby->choose("b.png"), lobby->finish());
    lobby->load([](ts3filedialog& files) { files.reject(); });
    QCOMPARE(lobby->dialog->channel(), uint64(2));
    QCOMPARE(lobby->dialog->remotePath(), QString("/b.png"));
    QCOMPARE(lobby->shown("widthedit"), QString("10"));
    QCOMPARE(lobby->message(), QString());
    QVERIFY(lobby->dialog->findChildren<ts3filedialog*>().isEmpty());
}

void tst_lobbypicture::refusedDownloadShowsWhy()
{
    lobby->host.failing.insert("requestFile");
    lobby->host.failure = ERROR_file_not_found;
    lobby->load(lobby->choose("b.png"));
    QCOMPARE(lobby->message(), QString("error 803"));
    compareEmpty();
    QCOMPARE(lobby->shown("widthedit"), QString("640"));
    QVERIFY(lobby->widget<QLineEdit>("widthedit")->isEnabled());
    QVERIFY(!lobby->widget<QWidget>("imagebgcheckbox")->isEnabled());
    QCOMPARE(lobby->widget<QLabel>("urllabel")->text(), QString());
    // It goes on as if nothing had been.
    lobby->host.failing.clear();
    lobby->putPicture("b.png", {10, 20});
    lobby->load(lobby->choose("b.png"), lobby->finish());
    QCOMPARE(lobby->shown("heightedit"), QString("20"));
    QCOMPARE(lobby->message(), QString());
}

void tst_lobbypicture::errorMakesRoomForTheLegendWhenCleared()
{
    const QWidget* legend = lobby->dialog->findChild<QStatusBar*>()->findChild<QLabel*>();
    QVERIFY(legend->isVisible());
    lobby->host.failing.insert("requestFile");
    lobby->load(lobby->choose("b.png"));
    QVERIFY(!legend->isVisible());
    lobby->widget<QPushButton>("clearbutton")->click();
    QCOMPARE(lobby->message(), QString());
    QVERIFY(legend->isVisible());
}

void tst_lobbypicture::closedTransferDropsThePicture()
{
    lobby->load(lobby->choose("b.png"), [](ts3downloaddialog& transfer) { transfer.close(); });
    // Nothing was refused, so that it is the text of no error.
    QCOMPARE(lobby->message(), QString("error 0"));
    compareEmpty();
    QVERIFY(lobby->widget<QLineEdit>("widthedit")->isEnabled());
}

void tst_lobbypicture::errorWithoutATextLeavesTheBarEmpty()
{
    lobby->host.failing = {"requestFile", "getErrorMessage"};
    lobby->load(lobby->choose("b.png"));
    QCOMPARE(lobby->message(), QString());
    compareEmpty();
}

void tst_lobbypicture::failedSecondPictureDropsTheFirst()
{
    lobby->putPicture("b.png", {10, 20});
    lobby->load(lobby->choose("b.png"), lobby->finish());
    lobby->host.failing.insert("requestFile");
    lobby->load(lobby->choose("c.png"));
    compareEmpty();
    QCOMPARE(lobby->shown("widthedit"), QString("10"));
    QVERIFY(!lobby->widget<QLineEdit>("widthedit")->isEnabled());
    lobby->widget<QPushButton>("clearbutton")->click();
    QVERIFY(lobby->widget<QLineEdit>("widthedit")->isEnabled());
}

void tst_lobbypicture::secondPictureReplacesTheFirst()
{
    lobby->putPicture("b.png", {10, 20});
    lobby->putPicture("c.png", {30, 40});
    lobby->load(lobby->choose("b.png"), lobby->finish());
    lobby->load(lobby->choose("c.png"), lobby->finish());
    QCOMPARE(lobby->dialog->remotePath(), QString("/c.png"));
    QCOMPARE(lobby->widget<QLabel>("urllabel")->text(), QString("/c.png"));
    QCOMPARE(QDir::cleanPath(lobby->dialog->localFile()), lobby->directory.filePath("c.png"));
    QCOMPARE(lobby->dialog->imageWidth(), 30);
    QCOMPARE(lobby->dialog->imageHeight(), 40);
}

void tst_lobbypicture::fileThatIsNoPictureIsTaken_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("text") << QByteArray("no picture");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("broken") << QByteArray("\x89PNG\r\n\x1a\n");
}

void tst_lobbypicture::fileThatIsNoPictureIsTaken()
{
    QFETCH(QByteArray, content);
    lobby->putFile("b.png", content);
    lobby->load(lobby->choose("b.png"), lobby->finish());
    QCOMPARE(lobby->shown("widthedit"), QString("0"));
    QCOMPARE(lobby->shown("heightedit"), QString("0"));
    QCOMPARE(lobby->dialog->channel(), uint64(2));
    QVERIFY(!lobby->dialog->localFile().isEmpty());
    QVERIFY(!lobby->widget<QLineEdit>("widthedit")->isEnabled());
    QVERIFY(lobby->widget<QWidget>("imagebgcheckbox")->isEnabled());
}

// A bitmap of 60000 by 60000 as its head declares it, without a single pixel.
void tst_lobbypicture::hugePictureIsNotDecoded()
{
    QByteArray content("BM");
    const quint32 head[] = {54, 0, 54, 40, 60000, 60000, 24 << 16 | 1, 0, 0, 0, 0, 0, 0};
    for (const quint32 word : head) {
        for (int byte = 0; byte < 4; ++byte)
            content.append(char(word >> (8 * byte) & 0xff));
    }
    lobby->putFile("b.bmp", content);
    lobby->load(lobby->choose("b.bmp"), lobby->finish());
    QCOMPARE(lobby->shown("widthedit"), QString("0"));
    QCOMPARE(lobby->shown("heightedit"), QString("0"));
}

void tst_lobbypicture::clearedPictureLeavesItsSize()
{
    lobby->putPicture("b.png", {123, 45});
    lobby->load(lobby->choose("b.png"), lobby->finish());
    lobby->widget<QCheckBox>("imagebgcheckbox")->setChecked(true);
    lobby->widget<QPushButton>("clearbutton")->click();
    compareEmpty();
    QCOMPARE(lobby->widget<QLabel>("urllabel")->text(), QString());
    for (const char* name : {"sizelabel", "widthedit", "heightedit"})
        QVERIFY2(lobby->widget<QWidget>(name)->isEnabled(), name);
    QVERIFY(!lobby->widget<QWidget>("imagebgcheckbox")->isEnabled());
    QVERIFY(lobby->dialog->asBackground());
    QCOMPARE(lobby->dialog->imageWidth(), 123);
    QCOMPARE(lobby->dialog->imageHeight(), 45);
    QVERIFY(QFile::exists(lobby->directory.filePath("b.png")));
}

void tst_lobbypicture::clearingWithoutAPicture()
{
    lobby->widget<QPushButton>("clearbutton")->click();
    compareEmpty();
    QCOMPARE(lobby->shown("widthedit"), QString("640"));
    QVERIFY(lobby->widget<QWidget>("widthedit")->isEnabled());
}

void tst_lobbypicture::strangersPathIsPlainAndContained()
{
    const QString name = "<img src=dev>" + QString(200, 'w') + "\n.png";
    lobby->putPicture(name, {10, 20});
    const QSize before = lobby->dialog->size();
    lobby->load(lobby->choose(name), lobby->finish());
    QCOMPARE(lobby->shown("widthedit"), QString("10"));
    QCOMPARE(lobby->widget<QLabel>("urllabel")->text(), "/" + name);
    QCOMPARE(lobby->widget<QLabel>("urllabel")->textFormat(), Qt::PlainText);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(lobby->dialog->size(), before);
    QVERIFY(lobby->widget<QLabel>("urllabel")->geometry().right()
            < lobby->widget<QPushButton>("loadbutton")->geometry().left());
}

QTEST_MAIN(tst_lobbypicture)
#include "tst_lobbypicture.moc"
