#include "plugin/packedvalues.h"
#include "plugin/settings.h"
#include "tests/support/fakehost.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

#include <random>
#include <vector>

namespace {

// Whether the toolkit makes a number of a value of the file: texts are never of that type.
bool holdsNumber(const QString& name)
{
    const QSettings file(name, QSettings::IniFormat);
    for (const QString& key : file.allKeys()) {
        const QVariant value = key.isEmpty() ? QVariant() : file.value(key);
        for (const QVariant& part : value.type() == QVariant::List ? value.toList() : QVariantList{value})
            if (part.type() == QVariant::Int)
                return true;
    }
    return false;
}

} // namespace

/// Settings files with objects in them, which the toolkit would unpack: some crash it.
class tst_packedvalues : public QObject {
    Q_OBJECT

private slots:
    void objectsAreFoundHoweverTheyAreSpelled_data();
    void objectsAreFoundHoweverTheyAreSpelled();
    void whatTheToolkitUnpacksIsAlwaysFound();
    void aFileWithAnObjectGivesTheDefaultsAndIsReplaced();
    void textsThatLookLikeObjectsSurviveAFile_data();
    void textsThatLookLikeObjectsSurviveAFile();
};

void tst_packedvalues::objectsAreFoundHoweverTheyAreSpelled_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<bool>("packed");
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("plain") << QByteArray("soundpath=/a@b/Variant(") << false;
    QTest::newRow("object") << QByteArray("soundpath=@Variant(\\0\\0\\0") << true;
    QTest::newRow("date") << QByteArray("soundpath=@DateTime(\\0\\0\\0") << true;
    QTest::newRow("bytes") << QByteArray("soundpath=@ByteArray(abc)") << false;
    QTest::newRow("doubled mark") << QByteArray("soundpath=@@Variant(x)") << false;
    QTest::newRow("doubled mark, then an object") << QByteArray("a=@@Variant(x)\nb=@Variant(x)") << true;
    QTest::newRow("told to be a text") << QByteArray("soundpath=\"@String(@Variant(x\\0)\"") << false;
    QTest::newRow("amid a text") << QByteArray("soundpath=/a/@Variant(x)") << false;
    QTest::newRow("amid a quoted text") << QByteArray("soundpath=\"/a, @Variant(x)\"") << false;
    QTest::newRow("behind a space that counts") << QByteArray("soundpath=\" @Variant(x)\"") << false;
    QTest::newRow("behind a space that does not") << QByteArray("soundpath= @Variant(x)") << true;
    QTest::newRow("a text in front") << QByteArray("soundpath=@String(x), @Variant(x)") << true;
    QTest::newRow("quoted") << QByteArray("soundpath=\"@Variant(x)\"") << true;
    QTest::newRow("quotes within") << QByteArray("soundpath=\"@Var\"\"iant\"(x)") << true;
    QTest::newRow("two quotations") << QByteArray("soundpath=@Var\" \" \"iant(x)\"") << true;
    QTest::newRow("quotation over lines") << QByteArray("a=\"\nb=\"/x,@Variant(x)\"\nc=\"") << true;
    QTest::newRow("continued within the mark") << QByteArray("soundpath=@Var\\\r\niant(x)") << true;
    QTest::newRow("hexadecimal mark") << QByteArray("soundpath=\\x40Variant(x)") << true;
    QTest::newRow("hexadecimal letter") << QByteArray("soundpath=@\\x0056\\x61riant(x)") << true;
    QTest::newRow("hexadecimal beyond 16 bits") << QByteArray("soundpath=\\x10040Variant(x)") << true;
    QTest::newRow("octal mark") << QByteArray("soundpath=\\100Variant(x)") << true;
    QTest::newRow("escape of nothing") << QByteArray("soundpath=\\q@\\qVariant(") << true;
    QTest::newRow("escape of a letter of the mark") << QByteArray("soundpath=@\\Variant(x)") << false;
    QTest::newRow("escape of a control character between") << QByteArray("soundpath=@\\tVariant(x)") << false;
    QTest::newRow("continued line") << QByteArray("soundpath=\\\n@Variant(x)") << true;
    QTest::newRow("in a list") << QByteArray("soundpath=a, @Variant(x)") << true;
    QTest::newRow("ends in a backslash") << QByteArray("soundpath=\\") << false;
    QTest::newRow("ends in a number") << QByteArray("soundpath=\\x4") << false;
}

void tst_packedvalues::objectsAreFoundHoweverTheyAreSpelled()
{
    QFETCH(QByteArray, ini);
    QFETCH(bool, packed);
    QCOMPARE(holdsPackedValues(ini), packed);
}

void tst_packedvalues::whatTheToolkitUnpacksIsAlwaysFound()
{
    // A whole object, a number, in two halves, and what may stand around and between them.
    const std::vector<QByteArray> pieces = {"@Var",   "iant(\\0\\0\\0\\x2\\0\\0\\0\\x5)",
                                            "\"",     "\" \"",
                                            " ",      ",",
                                            "\\",     "\n",
                                            "\\\n",   "\\\r\n",
                                            ";",      "=",
                                            "a=",     "b=\"",
                                            "c=@Var", "[General]\n",
                                            "\\x40",  "@",
                                            "x",      "\\q",
                                            "\t"};
    const QTemporaryDir directory;
    std::mt19937 random(20);
    int unpacked = 0;
    int texts = 0;
    for (int round = 0; round < 20000; ++round) {
        QByteArray ini = "a=";
        for (auto left = random() % 10; left > 0; --left)
            ini += pieces[random() % pieces.size()];
        // The halves, and perhaps something that joins them.
        ini += pieces[0] + (random() % 2 == 0 ? pieces[random() % pieces.size()] : QByteArray()) + pieces[1];
        for (auto left = random() % 4; left > 0; --left)
            ini += pieces[random() % pieces.size()];
        // A name of its own for each: the toolkit keeps what it read by the name of the file.
        const QString name = directory.filePath(QString::number(round));
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(ini);
        file.close();
        const bool found = holdsPackedValues(ini);
        if (holdsNumber(name)) {
            ++unpacked;
            QVERIFY2(found, ini.constData());
        } else if (!found && ini.contains("@Variant("))
            ++texts;
        file.remove();
    }
    QVERIFY(unpacked > 100);
    QVERIFY(texts > 10);
}

void tst_packedvalues::aFileWithAnObjectGivesTheDefaultsAndIsReplaced()
{
    const QTemporaryDir directory;
    fakehost host;
    host.configPath = QFile::encodeName(directory.path()) + '/';
    // A polygon of 2^31 - 1 points, none of which follows.
    QFile file(directory.filePath(QString::fromLatin1("kelvor.conf")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[General]\npong=false\nsoundpath=@Variant(\\0\\0\\0\\xb7\\x7f\\xff\\xff\\xff)\n");
    file.close();
    settings values = loadSettings(host.table());
    QVERIFY(values.pong);
    QVERIFY(values.soundpath.isEmpty());
    values.defaultwidth = 700;
    saveSettings(host.table(), values);
    QCOMPARE(loadSettings(host.table()).defaultwidth, 700);
}

void tst_packedvalues::textsThatLookLikeObjectsSurviveAFile_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("object") << QString::fromLatin1("@Variant(abc");
    QTest::newRow("mark") << QString::fromLatin1("@");
    QTest::newRow("marks") << QString::fromLatin1("@@Variant(x)");
    QTest::newRow("object with a NUL") << "@Variant(" + QString(QChar());
    QTest::newRow("object amid a path") << QString::fromLatin1("/music/@Variant(x)/ding.wav");
    QTest::newRow("object behind a comma") << QString::fromLatin1("/a, @Variant(x)");
    QTest::newRow("object behind a space") << QString::fromLatin1(" @Variant(x)");
    QTest::newRow("object in quotation marks") << QString::fromLatin1("\"@Variant(x)\"");
    QTest::newRow("object behind a line break") << QString::fromLatin1("/a\n@Variant(x)");
    QTest::newRow("network directory") << QString::fromLatin1("\\\\server\\@pictures");
}

void tst_packedvalues::textsThatLookLikeObjectsSurviveAFile()
{
    QFETCH(QString, text);
    const QTemporaryDir directory;
    fakehost host;
    host.configPath = QFile::encodeName(directory.path()) + '/';
    settings values;
    values.soundpath = text;
    saveSettings(host.table(), values);
    QCOMPARE(loadSettings(host.table()).soundpath, text);
}

QTEST_GUILESS_MAIN(tst_packedvalues)
#include "tst_packedvalues.moc"
