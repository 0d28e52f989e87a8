#include "serverfiles/filetexts.h"

#include <QDateTime>
#include <QTest>

class tst_filetexts : public QObject {
    Q_OBJECT

private slots:
    void sizeIsCutToWholeUnits_data();
    void sizeIsCutToWholeUnits();
    void dateIsLocalTime();
    void dateBeyond32BitsIsCut();
    void pictureIsKnownByItsSuffix_data();
    void pictureIsKnownByItsSuffix();
};

void tst_filetexts::sizeIsCutToWholeUnits_data()
{
    QTest::addColumn<qulonglong>("size");
    QTest::addColumn<QString>("text");

    QTest::newRow("nothing") << 0ULL << "0 Bytes";
    QTest::newRow("1023 bytes") << 1023ULL << "1023 Bytes";
    QTest::newRow("1 KB") << 1024ULL << "1 KB";
    QTest::newRow("one and a half KB") << 1536ULL << "1 KB";
    QTest::newRow("just below 2 KB") << 2047ULL << "1 KB";
    QTest::newRow("just below 1 MB") << 1048575ULL << "1023 KB";
    QTest::newRow("1 MB") << 1048576ULL << "1 MB";
    QTest::newRow("just below 1 GB") << (1ULL << 30) - 1 << "1023 MB";
    QTest::newRow("1 GB") << (1ULL << 30) << "1 GB";
    QTest::newRow("1 TB") << (1ULL << 40) << "1 TB";
    QTest::newRow("1 PB") << (1ULL << 50) << "1 PB";
    QTest::newRow("largest that does not wrap") << ~0ULL / 100 << "163 PB";
    // 64 bits keep 2^62 of 2^60 * 100, which is 40.96 times 2^50 after the division.
    QTest::newRow("2^60 wraps") << (1ULL << 60) << "40 PB";
    QTest::newRow("2^64 - 1 wraps") << ~0ULL << "163 PB";
}

void tst_filetexts::sizeIsCutToWholeUnits()
{
    QFETCH(qulonglong, size);
    QTEST(filetexts::sizeText(size), "text");
}

void tst_filetexts::dateIsLocalTime()
{
    const QDateTime date(QDate(2010, 5, 7), QTime(9, 8, 3));
    const QString month = date.toString("MMM");
    QCOMPARE(filetexts::dateText(static_cast<uint64>(date.toSecsSinceEpoch())), month + " 07 09:08:03 2010");
}

void tst_filetexts::dateBeyond32BitsIsCut()
{
    QCOMPARE(filetexts::dateText((uint64{1} << 32) + 1000), filetexts::dateText(1000));
    QCOMPARE(filetexts::dateText(~uint64{0}), filetexts::dateText(0xffffffff));
}

void tst_filetexts::pictureIsKnownByItsSuffix_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("picture");

    QTest::newRow("jpg") << "a.jpg" << true;
    QTest::newRow("png") << "a.png" << true;
    QTest::newRow("bmp") << "a.bmp" << true;
    QTest::newRow("gif") << "a.gif" << true;
    QTest::newRow("upper case") << "HOLIDAY.JPG" << true;
    QTest::newRow("no dot") << "png" << true;
    QTest::newRow("nothing before the dot") << ".gif" << true;
    QTest::newRow("only the last dot counts") << "a.txt.png" << true;
    QTest::newRow("picture suffix in the middle") << "a.png.txt" << false;
    QTest::newRow("jpeg is not listed") << "a.jpeg" << false;
    QTest::newRow("no suffix") << "readme" << false;
    QTest::newRow("dot at the end") << "png." << false;
    QTest::newRow("empty") << "" << false;
}

void tst_filetexts::pictureIsKnownByItsSuffix()
{
    QFETCH(QString, name);
    QTEST(filetexts::isPicture(name), "picture");
}

QTEST_APPLESS_MAIN(tst_filetexts)
#include "tst_filetexts.moc"
