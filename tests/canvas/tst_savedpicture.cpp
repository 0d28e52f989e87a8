#include "literalpixels.h"
#include "picturetest.h"
#include "randompictures.h"
#include "scenehand.h"
#include "warningcount.h"

#include <QTemporaryFile>

#include <csignal>
#include <memory>

#include <sys/resource.h>
#include <unistd.h>

namespace {

/// As on a full disk: as long as it lives no file may grow beyond a kilobyte.
class fulldisk {
public:
    fulldisk()
        : formerHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &usual);
        rlimit small = usual;
        small.rlim_cur = 1024;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~fulldisk()
    {
        setrlimit(RLIMIT_FSIZE, &usual);
        std::signal(SIGXFSZ, formerHandler);
    }
    fulldisk(const fulldisk&) = delete;
    fulldisk& operator=(const fulldisk&) = delete;

private:
    rlimit usual{};
    void (*formerHandler)(int);
};

} // namespace

/// The picture as it is written to a file.
class tst_savedpicture : public picturetest {
    Q_OBJECT
private slots:
    void init() { QVERIFY(begin()); }

    void exportWritesTheCanvas();
    void exportMergesTheBackground();
    void exportLeavesOutPreviewsAndOpenTexts();
    void aSaveThatFailsKeepsTheOldFile();
    void aFileIsWrittenOverWhereNoNewOneMayBeMade_data();
    void aFileIsWrittenOverWhereNoNewOneMayBeMade();
    void aWriteProtectedFileIsKept();
    void aSaveIntoNowhereIsSilent();
};

void tst_savedpicture::exportWritesTheCanvas()
{
    QRandomGenerator random(2);
    const QImage picture = randompictures::make(random, QSize(33, 44), randompictures::kind::mixed);
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(fileWith(picture), false);
    // The name does not decide the format.
    const QString path = directory->filePath("export.jpg");
    scene.savePicture(path);
    QImage expected = picture;
    literal::normalise(expected);
    QCOMPARE(QImage(path, "PNG").convertToFormat(QImage::Format_ARGB32), expected);
}

void tst_savedpicture::exportMergesTheBackground()
{
    QRandomGenerator random(3);
    const QImage background = randompictures::make(random, QSize(50, 70), randompictures::kind::opaque);
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(fileWith(background), true);
    scene.applyDraw(static_cast<char>(kelvortool::line), Qt::red, 9, {QPoint(0, 0), QPoint(60, 40)});
    const QString path = directory->filePath("export.png");
    scene.savePicture(path);
    const QImage expected = literal::merged(background, scene.picture());
    QCOMPARE(QImage(path).convertToFormat(QImage::Format_ARGB32), expected.convertToFormat(QImage::Format_ARGB32));
    QCOMPARE(QImage(path).size(), size);
    QCOMPARE(QImage(path).pixel(20, 13), red);
    QCOMPARE(QImage(path).pixel(40, 5), background.pixel(40, 5));
}

void tst_savedpicture::exportLeavesOutPreviewsAndOpenTexts()
{
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(QString(), false);
    scenehand hand(scene);
    hand.take(kelvortool::text, Qt::red, 3);
    hand.drag({QPoint(5, 5), QPoint(50, 30)});
    hand.type("open");
    const QString path = directory->filePath("export.png");
    scene.savePicture(path);
    QCOMPARE(QImage(path).convertToFormat(QImage::Format_ARGB32), filled(size, white));
    hand.take(kelvortool::rect, Qt::red, 3);
    hand.press(QPoint(5, 5));
    hand.move(QPoint(30, 30));
    scene.savePicture(path);
    QCOMPARE(QImage(path).convertToFormat(QImage::Format_ARGB32), filled(size, white));
}

void tst_savedpicture::aSaveThatFailsKeepsTheOldFile()
{
    QRandomGenerator random(4);
    paintscene scene(size.width(), size.height(), nullptr);
    const QString picture = fileWith(randompictures::make(random, QSize(200, 200), randompictures::kind::mixed));
    scene.setImage(picture, false);
    const QString path = directory->filePath("export.png");
    QFile old(path);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("what was there");
    old.close();
    const QStringList before = QDir(directory->path()).entryList(QDir::AllEntries | QDir::Hidden);

    {
        const fulldisk disk;
        scene.savePicture(path);
    }

    QVERIFY(old.open(QIODevice::ReadOnly));
    QCOMPARE(old.readAll(), QByteArray("what was there"));
    QCOMPARE(QDir(directory->path()).entryList(QDir::AllEntries | QDir::Hidden), before);
    old.close();
    scene.savePicture(path);
    QCOMPARE(QImage(path).size(), QSize(200, 200));
}

void tst_savedpicture::aFileIsWrittenOverWhereNoNewOneMayBeMade_data()
{
    QTest::addColumn<QByteArray>("there");
    QTest::addColumn<bool>("isFull");
    QTest::newRow("an empty file") << QByteArray() << false;
    QTest::newRow("a longer file") << QByteArray(1000000, 'x') << false;
    QTest::newRow("a file on a full disk") << QByteArray("what was there") << true;
}

void tst_savedpicture::aFileIsWrittenOverWhereNoNewOneMayBeMade()
{
    QFETCH(const QByteArray, there);
    QFETCH(const bool, isFull);
    QRandomGenerator random(5);
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(fileWith(randompictures::make(random, size, randompictures::kind::opaque)), false);
    const QString path = directory->filePath("export.png");
    QFile old(path);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write(there);
    old.close();
    QVERIFY(old.setPermissions(QFile::Permissions(0x6666)));
    QVERIFY(QFile::setPermissions(directory->path(), QFile::Permissions(0x5555)));

    // The superuser makes files anywhere, so that for once it is nobody.
    const uid_t user = geteuid();
    QCOMPARE(user == 0 ? seteuid(65534) : 0, 0);
    const bool isClosed = !QFile(directory->filePath("new.png")).open(QIODevice::WriteOnly);
    {
        const std::unique_ptr<fulldisk> disk(isFull ? new fulldisk : nullptr);
        scene.savePicture(path);
    }
    QCOMPARE(seteuid(user), 0);

    QVERIFY(QFile::setPermissions(directory->path(), QFile::Permissions(0x7700)));
    QVERIFY(isClosed);
    QVERIFY(old.open(QIODevice::ReadOnly));
    if (isFull) {
        QCOMPARE(old.readAll(), there);
    } else {
        QVERIFY(old.size() < there.size() || there.isEmpty());
        QCOMPARE(QImage(path).convertToFormat(QImage::Format_ARGB32), scene.picture());
    }
}

// Also by its owner, who could put another file in its place.
void tst_savedpicture::aWriteProtectedFileIsKept()
{
    const warningcount warnings;
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(QString(), false);
    const QString path = directory->filePath("export.png");
    QFile old(path);
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("what was there");
    old.close();
    QVERIFY(old.setPermissions(QFile::Permissions(0x4444)));
    QVERIFY(QFile::setPermissions(directory->path(), QFile::Permissions(0x7777)));

    // Nothing is protected from the superuser, so that for once it is nobody, in name as well, which the toolkit asks.
    const bool isSuperuser = geteuid() == 0;
    const uid_t nobody = 65534;
    QCOMPARE(isSuperuser ? chown(qPrintable(path), nobody, gid_t(-1)) : 0, 0);
    QCOMPARE(isSuperuser ? setresuid(nobody, nobody, 0) : 0, 0);
    const bool isProtected = !QFile(path).open(QIODevice::WriteOnly);
    const bool isClosed = !QTemporaryFile(directory->filePath("new.png")).open();
    scene.savePicture(path);
    QCOMPARE(isSuperuser ? setresuid(0, 0, 0) : 0, 0);

    QVERIFY(isProtected);
    QVERIFY(!isClosed);
    QVERIFY(old.open(QIODevice::ReadOnly));
    QCOMPARE(old.readAll(), QByteArray("what was there"));
    QCOMPARE(QDir(directory->path()).entryList(QDir::Files), QStringList{"export.png"});
    QCOMPARE(warnings.count(), 0);
}

void tst_savedpicture::aSaveIntoNowhereIsSilent()
{
    const warningcount warnings;
    paintscene scene(size.width(), size.height(), nullptr);
    scene.setImage(QString(), false);
    scene.savePicture(directory->filePath("absent/export.png"));
    scene.savePicture(directory->path());
    scene.savePicture(QString());
    QVERIFY(QDir(directory->path()).isEmpty());
    QCOMPARE(warnings.count(), 0);
}

QTEST_MAIN(tst_savedpicture)
#include "tst_savedpicture.moc"
