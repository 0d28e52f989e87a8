#include "prompts/plainline.h"

#include <QTest>

class tst_plainline : public QObject {
    Q_OBJECT

private slots:
    void lineIsWhatCanBeShown_data();
    void lineIsWhatCanBeShown();
};

void tst_plainline::lineIsWhatCanBeShown_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");

    const auto row = [](const char* name, const char* text, const char* line) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(line);
    };
    row("empty", "", "");
    row("as long as may be", "0123456789", "0123456789");
    row("one too long", "0123456789a", "0123…6789a");
    row("far too long", "0123456789 and so on to the.png", "0123…e.png");
    row("line breaks", "a\nb\r\nc", "a b  c");
    row("line and page separators",
        "a\xe2\x80\xa8"
        "b\xe2\x80\xa9"
        "c\v\f\xc2\x85",
        "a b c   ");
    row("control characters", "\x01\t\x1b[31m\x7f", "   [31m ");
    row("line break where it is cut", "012\n56789ab\n", "012 …89ab ");
    row("HTML", "<b>x</b>", "<b>x</b>");
    row("all that turns the direction",
        "a\u202ab\u202bc\u202cd\u202de\u202e"
        "f\u2066g\u2067h\u2068i\u2069j",
        "abcdefghij");
    row("nothing but what turns the direction", "\u202e\u202e", "");
    row("as long as may be, but for what turns the direction", "\u202e01234\u2066\u202c56789\u2069", "0123456789");
    row("too long without what turns the direction", "\u202e0123456789a", "0123…6789a");
    row("letters from the right", "שלום بيت", "שלום بيت");
    row("beside what turns the direction", "\u2029a\u202f\u2065b\u206ac", " a\u202f\u2065b\u206ac");
    row("not Latin", "J\xc3\xb6rg \xf0\x9f\x8e\xa8", "J\xc3\xb6rg \xf0\x9f\x8e\xa8");
}

void tst_plainline::lineIsWhatCanBeShown()
{
    QFETCH(QString, text);
    QTEST(plainLine(text, 10), "line");
}

QTEST_APPLESS_MAIN(tst_plainline)
#include "tst_plainline.moc"
