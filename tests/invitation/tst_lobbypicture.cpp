#include "lobbyfixture.h"

#include "serverfiles/ts3downloaddialog.h"
#include "serverfiles/ts3filedialog.h"
#include "tests/support/whenopen.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

namespace {

constexpr uint complete = 0x811;
constexpr uint64 remoteBytes = 12345;

using inDialog = std::function<void(ts3filedialog&)>;
using inTransfer = std::function<void(ts3downloaddialog&)>;

} // namespace

/// The picture of a session: chosen in a channel's file store, downloaded, shown, dropped; and all that can happen
/// while one of its two windows is open.
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

    void answersAreHeardMeanwhile_data();
    void answersAreHeardMeanwhile();
    void secondPressMeanwhileDoesNothing_data();
    void secondPressMeanwhileDoesNothing();
    void endOrDestructionMeanwhile_data();
    void endOrDestructionMeanwhile();
    void lobbyOfAnotherConnectionIsNotDisturbed();

private:
    /// Presses the load button and plays the user of both windows.
    void load(const inDialog& choose, const inTransfer& wait = {});
    /// Enters channel 2, lets the file be listed and accepts it.
    inDialog choose(const QString& name);
    inTransfer finish();
    void putFile(const QString& name, const QByteArray& content);
    void putPicture(const QString& name, QSize size);
    void compareEmpty();

    template <typename Widget> Widget* widget(const char* name) { return lobby->dialog->findChild<Widget*>(name); }
    QString shown(const char* edit) { return widget<QLineEdit>(edit)->text(); }
    QString message() { return lobby->dialog->findChild<QStatusBar*>()->currentMessage(); }

    std::unique_ptr<lobbyfixture> lobby;
    std::unique_ptr<QTemporaryDir> directory;
};

void tst_lobbypicture::init()
{
    directory = std::make_unique<QTemporaryDir>();
    QVERIFY(directory->isValid());
    lobby = std::make_unique<lobbyfixture>();
    lobby->downloadDir = directory->path();
    lobby->openHost();
    lobby->dialog->show();
    lobby->sent();
}

void tst_lobbypicture::cleanup()
{
    delete lobby->dialog.data();
    QCOMPARE(lobby->host.outstanding, 0);
    lobby.reset();
}

void tst_lobbypicture::load(const inDialog& choose, const inTransfer& wait)
{
    const whenopen<ts3filedialog> chooser(choose);
    const whenopen<ts3downloaddialog> waiter(wait);
    widget<QPushButton>("loadbutton")->click();
    QVERIFY(chooser.ran());
    QCOMPARE(waiter.ran(), bool(wait));
}

inDialog tst_lobbypicture::choose(const QString& name)
{
    return [this, name](ts3filedialog& files) {
        auto* table = files.findChild<QTableWidget*>("table");
        table->selectRow(1);
        QMetaObject::invokeMethod(&files, "onTableDoubleClicked");
        emit lobby->controller.fileList(1, 2, "/", name, remoteBytes, 0, 1);
        QCOMPARE(table->rowCount(), 1);
        table->selectRow(0);
        files.findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Ok)->click();
    };
}

inTransfer tst_lobbypicture::finish()
{
    return [this](ts3downloaddialog&) {
        emit lobby->controller.fileTransferStatus(lobby->host.requests.last().transferID, complete, "", 0, 1);
    };
}

void tst_lobbypicture::putFile(const QString& name, const QByteArray& content)
{
    QFile file(directory->filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

void tst_lobbypicture::putPicture(const QString& name, QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(picture.save(directory->filePath(name), "PNG"));
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
    putPicture("b.png", {123, 45});
    load(choose("b.png"), finish());
    QCOMPARE(lobby->dialog->channel(), uint64(2));
    QCOMPARE(lobby->dialog->remotePath(), QString("/b.png"));
    QCOMPARE(lobby->dialog->remoteSize(), remoteBytes);
    QCOMPARE(QDir::cleanPath(lobby->dialog->localFile()), directory->filePath("b.png"));
    // The limits of the edits don't bind a picture.
    QCOMPARE(lobby->dialog->imageWidth(), 123);
    QCOMPARE(lobby->dialog->imageHeight(), 45);
    QCOMPARE(shown("widthedit"), QString("123"));
    QCOMPARE(shown("heightedit"), QString("45"));
    QCOMPARE(widget<QLabel>("urllabel")->text(), QString("/b.png"));
    for (const char* name : {"sizelabel", "widthedit", "heightedit"})
        QVERIFY2(!widget<QWidget>(name)->isEnabled(), name);
    QVERIFY(widget<QWidget>("imagebgcheckbox")->isEnabled());
    QVERIFY(!lobby->dialog->asBackground());
    widget<QCheckBox>("imagebgcheckbox")->setChecked(true);
    QVERIFY(lobby->dialog->asBackground());
    QVERIFY(lobby->dialog->findChildren<ts3filedialog*>().isEmpty());
    QCOMPARE(lobby->sent(), QStringList());
}

void tst_lobbypicture::clientIsAskedForTheFile()
{
    putPicture("b.png", {10, 10});
    load(choose("b.png"), finish());
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
    QCOMPARE(file.localDirectory, directory->path().toLatin1());
}

void tst_lobbypicture::passwordGoesAlong()
{
    putPicture("b.png", {10, 10});
    lobby->host.servers[1].channels[2].password = true;
    load(
        [this](ts3filedialog& files) {
            const whenopen<QDialog> user([](QDialog& box) {
                box.findChild<QLineEdit*>()->setText("secret");
                box.accept();
            });
            choose("b.png")(files);
            QVERIFY(user.ran());
        },
        finish());
    QCOMPARE(lobby->host.requests.last().function, QByteArray("requestFile"));
    QCOMPARE(lobby->host.requests.last().password, QByteArray("secret"));
}

void tst_lobbypicture::cancelledChoiceChangesNothing()
{
    putPicture("b.png", {10, 20});
    load(choose("b.png"), finish());
    load([](ts3filedialog& files) { files.reject(); });
    QCOMPARE(lobby->dialog->channel(), uint64(2));
    QCOMPARE(lobby->dialog->remotePath(), QString("/b.png"));
    QCOMPARE(shown("widthedit"), QString("10"));
    QCOMPARE(message(), QString());
    QVERIFY(lobby->dialog->findChildren<ts3filedialog*>().isEmpty());
}

void tst_lobbypicture::refusedDownloadShowsWhy()
{
    lobby->host.failing.insert("requestFile");
    lobby->host.failure = ERROR_file_not_found;
    load(choose("b.png"));
    QCOMPARE(message(), QString("error 803"));
    compareEmpty();
    QCOMPARE(shown("widthedit"), QString("640"));
    QVERIFY(widget<QLineEdit>("widthedit")->isEnabled());
    QVERIFY(!widget<QWidget>("imagebgcheckbox")->isEnabled());
    QCOMPARE(widget<QLabel>("urllabel")->text(), QString());
    // It goes on as if nothing had been.
    lobby->host.failing.clear();
    putPicture("b.png", {10, 20});
    load(choose("b.png"), finish());
    QCOMPARE(shown("heightedit"), QString("20"));
    QCOMPARE(message(), QString());
}

void tst_lobbypicture::errorMakesRoomForTheLegendWhenCleared()
{
    const QWidget* legend = lobby->dialog->findChild<QStatusBar*>()->findChild<QLabel*>();
    QVERIFY(legend->isVisible());
    lobby->host.failing.insert("requestFile");
    load(choose("b.png"));
    QVERIFY(!legend->isVisible());
    widget<QPushButton>("clearbutton")->click();
    QCOMPARE(message(), QString());
    QVERIFY(legend->isVisible());
}

void tst_lobbypicture::closedTransferDropsThePicture()
{
    load(choose("b.png"), [](ts3downloaddialog& transfer) { transfer.close(); });
    // Nothing was refused, so that it is the text of no error.
    QCOMPARE(message(), QString("error 0"));
    compareEmpty();
    QVERIFY(widget<QLineEdit>("widthedit")->isEnabled());
}

void tst_lobbypicture::errorWithoutATextLeavesTheBarEmpty()
{
    lobby->host.failing = {"requestFile", "getErrorMessage"};
    load(choose("b.png"));
    QCOMPARE(message(), QString());
    compareEmpty();
}

void tst_lobbypicture::failedSecondPictureDropsTheFirst()
{
    putPicture("b.png", {10, 20});
    load(choose("b.png"), finish());
    lobby->host.failing.insert("requestFile");
    load(choose("c.png"));
    compareEmpty();
    QCOMPARE(shown("widthedit"), QString("10"));
    QVERIFY(!widget<QLineEdit>("widthedit")->isEnabled());
    widget<QPushButton>("clearbutton")->click();
    QVERIFY(widget<QLineEdit>("widthedit")->isEnabled());
}

void tst_lobbypicture::secondPictureReplacesTheFirst()
{
    putPicture("b.png", {10, 20});
    putPicture("c.png", {30, 40});
    load(choose("b.png"), finish());
    load(choose("c.png"), finish());
    QCOMPARE(lobby->dialog->remotePath(), QString("/c.png"));
    QCOMPARE(widget<QLabel>("urllabel")->text(), QString("/c.png"));
    QCOMPARE(QDir::cleanPath(lobby->dialog->localFile()), directory->filePath("c.png"));
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
    putFile("b.png", content);
    load(choose("b.png"), finish());
    QCOMPARE(shown("widthedit"), QString("0"));
    QCOMPARE(shown("heightedit"), QString("0"));
    QCOMPARE(lobby->dialog->channel(), uint64(2));
    QVERIFY(!lobby->dialog->localFile().isEmpty());
    QVERIFY(!widget<QLineEdit>("widthedit")->isEnabled());
    QVERIFY(widget<QWidget>("imagebgcheckbox")->isEnabled());
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
    putFile("b.bmp", content);
    load(choose("b.bmp"), finish());
    QCOMPARE(shown("widthedit"), QString("0"));
    QCOMPARE(shown("heightedit"), QString("0"));
}

void tst_lobbypicture::clearedPictureLeavesItsSize()
{
    putPicture("b.png", {123, 45});
    load(choose("b.png"), finish());
    widget<QCheckBox>("imagebgcheckbox")->setChecked(true);
    widget<QPushButton>("clearbutton")->click();
    compareEmpty();
    QCOMPARE(widget<QLabel>("urllabel")->text(), QString());
    for (const char* name : {"sizelabel", "widthedit", "heightedit"})
        QVERIFY2(widget<QWidget>(name)->isEnabled(), name);
    QVERIFY(!widget<QWidget>("imagebgcheckbox")->isEnabled());
    QVERIFY(lobby->dialog->asBackground());
    QCOMPARE(lobby->dialog->imageWidth(), 123);
    QCOMPARE(lobby->dialog->imageHeight(), 45);
    QVERIFY(QFile::exists(directory->filePath("b.png")));
}

void tst_lobbypicture::clearingWithoutAPicture()
{
    widget<QPushButton>("clearbutton")->click();
    compareEmpty();
    QCOMPARE(shown("widthedit"), QString("640"));
    QVERIFY(widget<QWidget>("widthedit")->isEnabled());
}

void tst_lobbypicture::strangersPathIsPlainAndContained()
{
    const QString name = "<img src=dev>" + QString(200, 'w') + "\n.png";
    putPicture(name, {10, 20});
    const QSize before = lobby->dialog->size();
    load(choose(name), finish());
    QCOMPARE(shown("widthedit"), QString("10"));
    QCOMPARE(widget<QLabel>("urllabel")->text(), "/" + name);
    QCOMPARE(widget<QLabel>("urllabel")->textFormat(), Qt::PlainText);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(lobby->dialog->size(), before);
    QVERIFY(widget<QLabel>("urllabel")->geometry().right() < widget<QPushButton>("loadbutton")->geometry().left());
}

void tst_lobbypicture::answersAreHeardMeanwhile_data()
{
    QTest::addColumn<bool>("inTransfer");
    QTest::newRow("file dialog open") << false;
    QTest::newRow("transfer running") << true;
}

void tst_lobbypicture::answersAreHeardMeanwhile()
{
    QFETCH(bool, inTransfer);
    putPicture("b.png", {10, 20});
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
    load(
        [&](ts3filedialog& files) {
            if (!inTransfer)
                answers();
            choose("b.png")(files);
        },
        [&](ts3downloaddialog& transfer) {
            if (inTransfer)
                answers();
            finish()(transfer);
        });
    QCOMPARE(lobby->lists(), QString("A 2|I|R 3|C"));
    QCOMPARE(lobby->rows(), QString("Lobby[Me, Anna, Query], Games[Bert], Empty"));
    QCOMPARE(shown("widthedit"), QString("10"));
}

void tst_lobbypicture::secondPressMeanwhileDoesNothing_data() { answersAreHeardMeanwhile_data(); }

void tst_lobbypicture::secondPressMeanwhileDoesNothing()
{
    QFETCH(bool, inTransfer);
    putPicture("b.png", {10, 20});
    const auto press = [this] {
        widget<QPushButton>("loadbutton")->click();
        QCOMPARE(lobby->dialog->findChildren<ts3filedialog*>().size(), 1);
    };
    load(
        [&](ts3filedialog& files) {
            if (!inTransfer)
                press();
            choose("b.png")(files);
        },
        [&](ts3downloaddialog& transfer) {
            if (inTransfer)
                press();
            finish()(transfer);
        });
    QCOMPARE(shown("widthedit"), QString("10"));
}

void tst_lobbypicture::endOrDestructionMeanwhile_data()
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

void tst_lobbypicture::endOrDestructionMeanwhile()
{
    QFETCH(bool, inTransfer);
    QFETCH(QByteArray, way);
    putPicture("b.png", {10, 20});
    QList<int> results;
    connect(lobby->dialog, &invitationdialog::inviteFinished, this, [&results](int ret) { results.append(ret); });
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
            choose("b.png")(files);
        else
            end();
    });
    const whenopen<ts3downloaddialog> waiter([&](ts3downloaddialog&) { end(); });
    widget<QPushButton>("loadbutton")->click();
    QVERIFY(chooser.ran());
    QCOMPARE(waiter.ran(), inTransfer);
    QTRY_VERIFY(!lobby->dialog);
    QTEST(results, "results");
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_lobbypicture::lobbyOfAnotherConnectionIsNotDisturbed()
{
    putPicture("b.png", {10, 20});
    load(
        [&](ts3filedialog& files) {
            auto* table = files.findChild<QTableWidget*>("table");
            table->selectRow(1);
            QMetaObject::invokeMethod(&files, "onTableDoubleClicked");
            emit lobby->controller.fileList(2, 2, "/", "other.png", 1, 0, 1);
            QCOMPARE(table->rowCount(), 0);
            choose("b.png")(files);
        },
        [&](ts3downloaddialog& transfer) {
            const anyID id = lobby->host.requests.last().transferID;
            emit lobby->controller.fileTransferStatus(id, complete, "", 0, 2);
            emit lobby->controller.fileTransferStatus(anyID(id + 1), complete, "", 0, 1);
            QVERIFY(transfer.isVisible());
            finish()(transfer);
        });
    QCOMPARE(shown("widthedit"), QString("10"));
}

QTEST_MAIN(tst_lobbypicture)
#include "tst_lobbypicture.moc"
