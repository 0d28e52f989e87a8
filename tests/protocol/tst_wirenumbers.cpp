#include "protocol/wirenumbers.h"

#include <QtTest>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace {

QByteArray realText(qreal value)
{
    char text[wire::longestNumber];
    const char* behind = wire::putReal(text, value);
    return {text, static_cast<int>(behind - text)};
}

QByteArray argText(qreal value) { return QString("%1").arg(value, 0, 'g', -1).toLatin1(); }

template <typename T> QByteArray numberText(T value)
{
    char text[wire::longestNumber];
    const char* behind = wire::putNumber(text, value);
    return {text, static_cast<int>(behind - text)};
}

std::string_view view(const QByteArray& bytes) { return {bytes.constData(), static_cast<std::size_t>(bytes.size())}; }

bool sameReal(qreal a, qreal b) { return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof(a)) == 0; }

} // namespace

class tst_wirenumbers : public QObject {
    Q_OBJECT

private slots:
    void partsAreReadAsTheToolkitReadsThem_data();
    void partsAreReadAsTheToolkitReadsThem();
    void clientsAreCutTo16Bits();
    void realsAreReadAsTheToolkitReadsThem_data();
    void realsAreReadAsTheToolkitReadsThem();
    void randomRealsAreReadAsTheToolkitReadsThem();
    void pointsAreTheSectionsAroundTheBar_data();
    void pointsAreTheSectionsAroundTheBar();
    void scanningTakesTheNumberInFront_data();
    void scanningTakesTheNumberInFront();
    void integersAreWrittenInFull();
    void realsAreWrittenWithSixDigits_data();
    void realsAreWrittenWithSixDigits();
    void everyWidthOfTheWindowComesBackAsItWas();
    void thousandthsAreWrittenAsArgWritesThem();
    void randomRealsAreWrittenAsArgWritesThem();
};

void tst_wirenumbers::partsAreReadAsTheToolkitReadsThem_data()
{
    QTest::addColumn<QByteArray>("part");
    QTest::addColumn<uint>("asUInt");
    QTest::addColumn<int>("asInt");
    QTest::addColumn<qulonglong>("asUInt64");
    const auto row = [](const char* name, const QByteArray& part, uint asUInt, int asInt, qulonglong asUInt64) {
        QTest::newRow(name) << part << asUInt << asInt << asUInt64;
    };
    row("nothing", "", 0, 0, 0);
    row("a digit", "7", 7, 7, 7);
    row("zeros in front", "000000000012", 12, 12, 12);
    row("a plus", "+5", 5, 5, 5);
    row("a minus", "-5", 0, -5, 0);
    row("minus nothing", "-", 0, 0, 0);
    row("two signs", "--5", 0, 0, 0);
    row("minus zero", "-0", 0, 0, 0);
    row("a tab in front", "\t7", 7, 7, 7);
    row("a line end behind", "7\r\n", 7, 7, 7);
    row("a hard blank in front",
        "\xa0"
        "7",
        7, 7, 7);
    row("the next line byte behind", "7\x85", 7, 7, 7);
    row("a tab inside", "1\t2", 0, 0, 0);
    row("letters", "abc", 0, 0, 0);
    row("letters behind", "12abc", 0, 0, 0);
    row("a hexadecimal number", "0x10", 0, 0, 0);
    row("an exponent", "1e3", 0, 0, 0);
    row("a fraction", "1.5", 0, 0, 0);
    row("groups", "1,000", 0, 0, 0);
    row("the largest of 9 digits", "999999999", 999999999, 999999999, 999999999);
    row("the largest int", "2147483647", 2147483647u, 2147483647, 2147483647u);
    row("above the largest int", "2147483648", 2147483648u, 0, 2147483648u);
    row("the smallest int", "-2147483648", 0, std::numeric_limits<int>::min(), 0);
    row("below the smallest int", "-2147483649", 0, 0, 0);
    row("the largest uint", "4294967295", 4294967295u, 0, 4294967295u);
    row("above the largest uint", "4294967296", 0, 0, 4294967296u);
    row("the largest of 64 bits", "18446744073709551615", 0, 0, ~0ull);
    row("above the largest of 64 bits", "18446744073709551616", 0, 0, 0);
    row("a hundred digits", QByteArray(100, '9'), 0, 0, 0);
    row("a byte above 127", "\xff", 0, 0, 0);
    row("a superscript digit", "\xb2", 0, 0, 0);
}

void tst_wirenumbers::partsAreReadAsTheToolkitReadsThem()
{
    QFETCH(QByteArray, part);
    QFETCH(uint, asUInt);
    QFETCH(int, asInt);
    QFETCH(qulonglong, asUInt64);
    const QString text = QString::fromLatin1(part);
    QCOMPARE(text.toUInt(), asUInt);
    QCOMPARE(text.toInt(), asInt);
    QCOMPARE(text.toULongLong(), asUInt64);
    QCOMPARE(wire::toUInt(view(part)), asUInt);
    QCOMPARE(wire::toInt(view(part)), asInt);
    QCOMPARE(static_cast<qulonglong>(wire::toUInt64(view(part))), asUInt64);
}

void tst_wirenumbers::clientsAreCutTo16Bits()
{
    QCOMPARE(wire::toClient("65535"), anyID(65535));
    QCOMPARE(wire::toClient("65536"), anyID(0));
    QCOMPARE(wire::toClient("65549"), anyID(13));
    QCOMPARE(wire::toClient("4294967295"), anyID(65535));
    QCOMPARE(wire::toClient("4294967309"), anyID(0));
}

void tst_wirenumbers::realsAreReadAsTheToolkitReadsThem_data()
{
    QTest::addColumn<QByteArray>("part");
    for (const char* part : {"",
                             ".",
                             "1",
                             "1.5",
                             "0.1",
                             "199.95",
                             "1.",
                             ".5",
                             "-1.5",
                             "+1.5",
                             "-0",
                             "0",
                             "00.50",
                             "1..5",
                             "1.5.5",
                             "1,5",
                             "1,000.5",
                             "inf",
                             "-inf",
                             "+inf",
                             "Inf",
                             "infinity",
                             "nan",
                             "NaN",
                             "-nan",
                             "nan(7)",
                             "1e3",
                             "1e-7",
                             "1E+2",
                             "1e309",
                             "-1e309",
                             "1e-400",
                             "4.9e-324",
                             "0x10",
                             "0x1p3",
                             "1.5f",
                             "\t1.5",
                             "1.5\n",
                             "\xa0"
                             "1.5",
                             "1.5\x85",
                             "1\xa0"
                             "5",
                             "123456789",
                             "1234567890",
                             "999999999.999999999",
                             "123456789.12345",
                             "123456789.123456",
                             "0.000000001",
                             "0.0000000001",
                             "9007199254740993",
                             "1.7976931348623157e308",
                             "#",
                             "|",
                             "1|2"})
        QTest::newRow(*part ? QByteArray(part).toPercentEncoding().constData() : "nothing") << QByteArray(part);
    QTest::newRow("five hundred digits") << QByteArray(500, '9');
    QTest::newRow("five hundred digits behind the dot") << "0." + QByteArray(500, '3');
}

void tst_wirenumbers::realsAreReadAsTheToolkitReadsThem()
{
    QFETCH(QByteArray, part);
    QVERIFY(sameReal(wire::toReal(view(part)), QString::fromLatin1(part).toDouble()));
}

void tst_wirenumbers::randomRealsAreReadAsTheToolkitReadsThem()
{
    std::mt19937_64 random(7);
    for (int round = 0; round < 200000; ++round) {
        QByteArray part = QByteArray::number(static_cast<qulonglong>(random() >> random() % 64));
        if (random() % 4)
            part.insert(static_cast<int>(random() % static_cast<uint64_t>(part.size() + 1)), '.');
        QVERIFY2(sameReal(wire::toReal(view(part)), QString::fromLatin1(part).toDouble()), part);
    }
}

void tst_wirenumbers::pointsAreTheSectionsAroundTheBar_data()
{
    QTest::addColumn<QByteArray>("part");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("a point") << QByteArray("10|20") << QPoint(10, 20);
    QTest::newRow("a point left of and above the canvas") << QByteArray("-1|-20") << QPoint(-1, -20);
    QTest::newRow("nothing") << QByteArray("") << QPoint(0, 0);
    QTest::newRow("no bar") << QByteArray("10") << QPoint(10, 0);
    QTest::newRow("no x") << QByteArray("|20") << QPoint(0, 20);
    QTest::newRow("no y") << QByteArray("10|") << QPoint(10, 0);
    QTest::newRow("a bar alone") << QByteArray("|") << QPoint(0, 0);
    QTest::newRow("three sections") << QByteArray("10|20|30") << QPoint(10, 20);
    QTest::newRow("an empty section in the middle") << QByteArray("10||30") << QPoint(10, 0);
    QTest::newRow("a bar behind") << QByteArray("10|20|") << QPoint(10, 20);
    QTest::newRow("signs and a tab") << QByteArray("+10|\t20") << QPoint(10, 20);
    QTest::newRow("letters in x") << QByteArray("a|20") << QPoint(0, 20);
    QTest::newRow("letters behind y") << QByteArray("10|20b") << QPoint(10, 0);
    QTest::newRow("the ends of the range") << QByteArray("-2147483648|2147483647")
                                           << QPoint(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    QTest::newRow("above the range") << QByteArray("2147483648|1") << QPoint(0, 1);
}

void tst_wirenumbers::pointsAreTheSectionsAroundTheBar()
{
    QFETCH(QByteArray, part);
    QFETCH(QPoint, expected);
    const QString text = QString::fromLatin1(part);
    QCOMPARE(QPoint(text.section('|', 0, 0).toInt(), text.section('|', 1, 1).toInt()), expected);
    QCOMPARE(wire::toPoint(view(part)), expected);
}

void tst_wirenumbers::scanningTakesTheNumberInFront_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qulonglong>("number");
    QTest::addColumn<ushort>("client");
    QTest::addColumn<int>("length");
    const auto row = [](const char* name, const char* text, qulonglong number, ushort client, int length) {
        QTest::newRow(name) << QByteArray(text) << number << client << length;
    };
    // A length of -1 stands for a text without a number, at which the preset value of 99 stays.
    row("nothing", "", 99, 0, -1);
    row("a blank alone", " ", 99, 0, -1);
    row("a number", " 45", 45, 45, 3);
    row("no blank in front", "45", 45, 45, 2);
    row("many blanks and tabs", " \t\n 45", 45, 45, 6);
    row("a plus", " +5", 5, 5, 3);
    row("a minus", " -5", ~0ull - 4, 65531, 3);
    row("a sign alone", " -", 99, 0, -1);
    row("letters", " abc", 99, 0, -1);
    row("letters behind", " 12abc", 12, 12, 3);
    row("a hexadecimal number", " 0x10", 0, 0, 2);
    row("17 bits", " 65549", 65549, 13, 6);
    row("33 bits", " 4294967301", 4294967301ull, 5, 11);
    row("64 bits", " 18446744073709551615", ~0ull, 65535, 21);
    row("too many bits", " 99999999999999999999999", ~0ull, 65535, 24);
    row("too many bits below zero", " -99999999999999999999999", ~0ull, 0, 25);
}

void tst_wirenumbers::scanningTakesTheNumberInFront()
{
    QFETCH(QByteArray, text);
    QFETCH(qulonglong, number);
    QFETCH(ushort, client);
    QFETCH(int, length);
    uint64 scanned = 99;
    const char* behind = wire::scanNumber(text.constData(), &scanned);
    QCOMPARE(behind ? static_cast<int>(behind - text.constData()) : -1, length);
    QCOMPARE(static_cast<qulonglong>(scanned), number);
    QCOMPARE(wire::scanClient(text.constData()), client);
}

void tst_wirenumbers::integersAreWrittenInFull()
{
    QCOMPARE(numberText(0), QByteArray("0"));
    QCOMPARE(numberText(-1), QByteArray("-1"));
    QCOMPARE(numberText(std::numeric_limits<int>::max()), QByteArray("2147483647"));
    QCOMPARE(numberText(std::numeric_limits<int>::min()), QByteArray("-2147483648"));
    QCOMPARE(numberText(uint64(0)), QByteArray("0"));
    QCOMPARE(numberText(~uint64(0)), QByteArray("18446744073709551615"));
}

void tst_wirenumbers::realsAreWrittenWithSixDigits_data()
{
    QTest::addColumn<qreal>("value");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](qreal value, const char* expected) {
        QTest::newRow(expected) << value << QByteArray(expected);
    };
    row(0, "0");
    row(0.3, "0.3");
    row(1, "1");
    row(1.5, "1.5");
    row(199.95, "199.95");
    row(200, "200");
    row(0.1 + 0.2, "0.3");
    row(0.001, "0.001");
    row(0.05, "0.05");
    row(100.001, "100.001");
    row(1e-7, "1e-07");
    row(999999, "999999");
    row(1e6, "1e+06");
    row(123456.7, "123457");
    row(-1.5, "-1.5");
    row(std::numeric_limits<qreal>::infinity(), "inf");
    row(-std::numeric_limits<qreal>::infinity(), "-inf");
    row(std::numeric_limits<qreal>::quiet_NaN(), "nan");
    row(-std::numeric_limits<qreal>::denorm_min(), "-4.94066e-324");
}

void tst_wirenumbers::realsAreWrittenWithSixDigits()
{
    QFETCH(qreal, value);
    QFETCH(QByteArray, expected);
    QCOMPARE(argText(value), expected);
    QCOMPARE(realText(value), expected);
}

void tst_wirenumbers::everyWidthOfTheWindowComesBackAsItWas()
{
    for (int slider = 1; slider <= 2000; ++slider) {
        const qreal width = slider / 10.0;
        const QByteArray text = realText(width);
        QCOMPARE(text, argText(width));
        QVERIFY2(sameReal(wire::toReal(view(text)), width), text);
    }
}

void tst_wirenumbers::thousandthsAreWrittenAsArgWritesThem()
{
    for (int thousandths = 0; thousandths <= 1000010; thousandths += 3) {
        const qreal value = thousandths / 1000.0;
        QCOMPARE(realText(value), argText(value));
    }
}

void tst_wirenumbers::randomRealsAreWrittenAsArgWritesThem()
{
    std::mt19937_64 random(11);
    for (int round = 0; round < 200000; ++round) {
        const uint64_t bits = random();
        qreal anything;
        std::memcpy(&anything, &bits, sizeof(anything));
        QCOMPARE(realText(anything), argText(anything));
        // Neighbours of short values are where rounding would show.
        const qreal width = static_cast<qreal>(random() % 300000) / 1000.0;
        const qreal neighbour = std::nextafter(width, random() % 2 ? 1e9 : -1e9);
        QCOMPARE(realText(neighbour), argText(neighbour));
    }
}

QTEST_APPLESS_MAIN(tst_wirenumbers)
#include "tst_wirenumbers.moc"
