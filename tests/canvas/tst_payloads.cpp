#include "canvas/payloads.h"

#include <QtTest>

#include <limits>

class tst_payloads : public QObject {
    Q_OBJECT
private slots:
    void writesATextWithItsBox();
    void aTypedPercentSignStaysWhatItIs();
    void widthsHaveSixSignificantDigits_data();
    void widthsHaveSixSignificantDigits();
    void writesAFillWithItsSeed();
    void writesARegionByItsCorners();
    void readsWhatItWrites();
    void readsOnlyTwoParts_data();
    void readsOnlyTwoParts();
    void whatIsNoNumberReadsAsZero_data();
    void whatIsNoNumberReadsAsZero();
    void aColourThatIsNoneIsInvalid();
};

void tst_payloads::writesATextWithItsBox()
{
    QCOMPARE(payloads::textData(QColor("black"), 1, QPoint(30, 40), QPoint(200, 80), "hello"),
             QString("#000000 1 30|40 200|80 hello"));
    // An empty text ends in the blank before its empty field.
    QCOMPARE(payloads::textData(QColor("red"), 2.5, QPoint(-1, -2), QPoint(0, 0), ""),
             QString("#ff0000 2.5 -1|-2 0|0 "));
    QCOMPARE(payloads::textData(QColor("red"), 1, QPoint(), QPoint(), "a b"), QString("#ff0000 1 0|0 0|0 a b"));
}

void tst_payloads::aTypedPercentSignStaysWhatItIs()
{
    QCOMPARE(payloads::textData(QColor("red"), 1, QPoint(), QPoint(), "%1%5%L2"), QString("#ff0000 1 0|0 0|0 %1%5%L2"));
}

void tst_payloads::widthsHaveSixSignificantDigits_data()
{
    QTest::addColumn<double>("width");
    QTest::addColumn<QString>("written");
    QTest::newRow("whole") << 20.0 << "20";
    QTest::newRow("tenth") << 0.3 << "0.3";
    QTest::newRow("largest steps") << 199.95 << "199.95";
    QTest::newRow("cut") << 1234.5678 << "1234.57";
    QTest::newRow("tiny") << 1e-7 << "1e-07";
    QTest::newRow("large") << 1e9 << "1e+09";
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << "nan";
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << "inf";
}

void tst_payloads::widthsHaveSixSignificantDigits()
{
    QFETCH(double, width);
    QFETCH(QString, written);
    QCOMPARE(payloads::textData(QColor("red"), width, QPoint(), QPoint(), "x"),
             QString("#ff0000 %1 0|0 0|0 x").arg(written));
    // The form in which the stroke messages give it.
    QCOMPARE(QString("%1").arg(width, 0, 'g', -1), written);
}

void tst_payloads::writesAFillWithItsSeed()
{
    QCOMPARE(payloads::fillData(QColor("red"), QPoint(120, 45)), QString("#ff0000 120|45"));
    QCOMPARE(payloads::fillData(QColor(0, 255, 1, 7), QPoint(-3, -9)), QString("#00ff01 -3|-9"));
}

void tst_payloads::writesARegionByItsCorners()
{
    QCOMPARE(payloads::regionData(QRect(QPoint(10, 20), QPoint(110, 90))), QString("10|20 110|90"));
    QCOMPARE(payloads::regionData(QRect(QPoint(-5, -6), QPoint(3, 4))), QString("-5|-6 3|4"));
}

void tst_payloads::readsWhatItWrites()
{
    const auto seed = payloads::readFill(payloads::fillData(QColor("#12ab34"), QPoint(-120, 45)));
    QVERIFY(seed.has_value());
    QCOMPARE(seed->color, QColor("#12ab34"));
    QCOMPARE(seed->pos, QPoint(-120, 45));
    const QRect region(QPoint(-5, -6), QPoint(300, 4));
    QCOMPARE(payloads::readRegion(payloads::regionData(region)).value_or(QRect()), region);
    const QRect edges(QPoint(std::numeric_limits<int>::min(), 0), QPoint(std::numeric_limits<int>::max(), -7));
    // Not by QCOMPARE, which prints widths, and this one does not fit.
    QVERIFY(payloads::readRegion(payloads::regionData(edges)).value_or(QRect()) == edges);
}

void tst_payloads::readsOnlyTwoParts_data()
{
    QTest::addColumn<QString>("data");
    QTest::newRow("nothing") << "";
    QTest::newRow("one part") << "full";
    QTest::newRow("a double blank") << "10|20  110|90";
    QTest::newRow("a blank at the end") << "10|20 110|90 ";
    QTest::newRow("a blank in front") << " 10|20 110|90";
    QTest::newRow("three parts") << "#ff0000 1|2 3|4";
}

void tst_payloads::readsOnlyTwoParts()
{
    QFETCH(QString, data);
    QVERIFY(!payloads::readFill(data).has_value());
    QVERIFY(!payloads::readRegion(data).has_value());
}

void tst_payloads::whatIsNoNumberReadsAsZero_data()
{
    QTest::addColumn<QString>("data");
    QTest::addColumn<QRect>("region");
    const auto corners = [](int left, int top, int right, int bottom) {
        return QRect(QPoint(left, top), QPoint(right, bottom));
    };
    QTest::newRow("words") << "a|b 5|c" << corners(0, 0, 5, 0);
    QTest::newRow("no bar") << "12 5|6" << corners(12, 0, 5, 6);
    QTest::newRow("a third section") << "1|2|3 4|5|6" << corners(1, 2, 4, 5);
    QTest::newRow("a fraction") << "1.5|2 3|4" << corners(0, 2, 3, 4);
    QTest::newRow("above 32 bits") << "4294967296|2 2147483648|2147483647" << corners(0, 2, 0, 2147483647);
    QTest::newRow("only a blank") << " " << corners(0, 0, 0, 0);
    QTest::newRow("plus signs") << "+7|+8 -9|10" << corners(7, 8, -9, 10);
}

void tst_payloads::whatIsNoNumberReadsAsZero()
{
    QFETCH(QString, data);
    QFETCH(QRect, region);
    QVERIFY(payloads::readRegion(data).has_value());
    QCOMPARE(*payloads::readRegion(data), region);
}

void tst_payloads::aColourThatIsNoneIsInvalid()
{
    QVERIFY(!payloads::readFill("nonsense 1|2")->color.isValid());
    QVERIFY(!payloads::readFill(" 1|2")->color.isValid());
    QCOMPARE(payloads::readFill("#80ff0000 1|2")->color, QColor(255, 0, 0, 128));
}

QTEST_GUILESS_MAIN(tst_payloads)
#include "tst_payloads.moc"
