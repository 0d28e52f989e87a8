#include "canvas/paintscene.h"

#include "literalscene.h"
#include "randompictures.h"
#include "wildhand.h"

#include <QTemporaryDir>
#include <QtTest>

class tst_literalscene : public QObject {
    Q_OBJECT
private slots:
    void whateverIsDoneTheCanvasIsTheLiteralOne_data();
    void whateverIsDoneTheCanvasIsTheLiteralOne();
};

void tst_literalscene::whateverIsDoneTheCanvasIsTheLiteralOne_data()
{
    QTest::addColumn<quint32>("firstSeed");
    QTest::addColumn<int>("contents");
    QTest::addColumn<QSize>("fileSize");
    QTest::addColumn<bool>("asBackground");
    const int opaque = static_cast<int>(randompictures::kind::opaque);
    const int mixed = static_cast<int>(randompictures::kind::mixed);
    QTest::newRow("blank") << quint32{100} << opaque << QSize() << false;
    QTest::newRow("a picture") << quint32{200} << opaque << QSize(70, 50) << false;
    QTest::newRow("a larger picture") << quint32{300} << opaque << QSize(90, 80) << false;
    QTest::newRow("a smaller picture of any pixels") << quint32{400} << mixed << QSize(40, 60) << false;
    QTest::newRow("over a background") << quint32{500} << opaque << QSize(70, 50) << true;
    QTest::newRow("over a smaller background") << quint32{600} << opaque << QSize(50, 70) << true;
    QTest::newRow("over a background of any pixels") << quint32{700} << mixed << QSize(100, 60) << true;
}

void tst_literalscene::whateverIsDoneTheCanvasIsTheLiteralOne()
{
    QFETCH(quint32, firstSeed);
    QFETCH(int, contents);
    QFETCH(QSize, fileSize);
    QFETCH(bool, asBackground);
    const QSize size(70, 50);
    QTemporaryDir directory;
    for (quint32 seed = firstSeed; seed < firstSeed + 24; ++seed) {
        QRandomGenerator random(seed);
        QImage file;
        QString path;
        if (fileSize.isValid()) {
            file = randompictures::make(random, fileSize, static_cast<randompictures::kind>(contents));
            path = directory.filePath("picture.png");
            QVERIFY(file.save(path));
        }
        paintscene real(size.width(), size.height(), nullptr);
        real.setImage(path, asBackground);
        literalscene oracle(size);
        oracle.setImage(file, asBackground);
        wildhand hand(real, oracle, seed);
        for (int deed = 0; deed < 400; ++deed) {
            hand.act();
            const QByteArray where = QString("seed %1, deed %2").arg(seed).arg(deed).toLatin1();
            QVERIFY2(hand.takeSent() == oracle.takeSent(), where);
            QVERIFY2(real.picture() == oracle.picture(), where);
            if (deed % 4 == 0) {
                QVERIFY2(real.grab().toImage().convertToFormat(QImage::Format_RGB32) == oracle.shown(), where);
            }
        }
    }
}

QTEST_MAIN(tst_literalscene)
#include "tst_literalscene.moc"
