#include "standin/common/words.h"
#include "standin/director/playscript.h"
#include "standin/director/scoretable.h"

#include <QTest>

// What people write: lines of words, scripts, and the table that comes of them.
class tst_playscript : public QObject {
    Q_OBJECT

private slots:
    void wordsAreCutAtBlanks_data();
    void wordsAreCutAtBlanks();
    void anOpenQuoteIsNoLine();
    void aQuotedWordComesBack_data();
    void aQuotedWordComesBack();
    void aScriptIsReadLineByLine();
    void aScriptTakesAsManyPlayersAsAreWanted();
    void aPlayerHasProperties();
    void whatIsNoStepIsNamedWithItsLine_data();
    void whatIsNoStepIsNamedWithItsLine();
    void theTableKnowsWhatWasPainted();
    void theTableKnowsWhenSomethingIsLostOrDoubled();
    void theTableKnowsWhenPicturesDiffer();
};

void tst_playscript::wordsAreCutAtBlanks_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("plain") << QStringLiteral("open menu") << QStringList{"open", "menu"};
    QTest::newRow("many blanks") << QStringLiteral("  a \t b ") << QStringList{"a", "b"};
    QTest::newRow("quotes") << QStringLiteral("row \"Town Square\" double")
                            << QStringList{"row", "Town Square", "double"};
    QTest::newRow("quotes inside") << QStringLiteral("channel=\"Coffee Corner\"")
                                   << QStringList{"channel=Coffee Corner"};
    QTest::newRow("empty word") << QStringLiteral("a \"\" b") << QStringList{"a", "", "b"};
    QTest::newRow("escapes") << QStringLiteral("\"a\\\"b\\\\c\"") << QStringList{"a\"b\\c"};
    QTest::newRow("backslash outside of quotes") << QStringLiteral("a\\b") << QStringList{"a\\b"};
    QTest::newRow("nothing") << QString() << QStringList();
}

void tst_playscript::wordsAreCutAtBlanks()
{
    QFETCH(const QString, line);
    QFETCH(const QStringList, words);
    QCOMPARE(splitWords(line).value(), words);
}

void tst_playscript::anOpenQuoteIsNoLine() { QVERIFY(!splitWords(QStringLiteral("type \"abc"))); }

void tst_playscript::aQuotedWordComesBack_data()
{
    QTest::addColumn<QString>("word");
    QTest::newRow("plain") << QStringLiteral("word");
    QTest::newRow("blanks") << QStringLiteral("two words");
    QTest::newRow("quote") << QStringLiteral("say \"hi\"");
    QTest::newRow("backslash") << QStringLiteral("a\\");
    QTest::newRow("empty") << QString();
}

void tst_playscript::aQuotedWordComesBack()
{
    QFETCH(const QString, word);
    QCOMPARE(splitWords(quoteWord(word)).value(), QStringList{word});
}

void tst_playscript::aScriptIsReadLineByLine()
{
    QString problem;
    const std::optional<playscript> script = readScript(
        QStringLiteral(
            "# a comment\ntitle Two of them\nplayers 2\n\nnote here we go\nAlice for guests: row {name} double\n"
            "Bob: question => by Alice\nserver: delay 5\nsame all\nplace whiteboard\nsettle\nequal a b\n"),
        0, &problem);
    QVERIFY2(script, qPrintable(problem));
    QCOMPARE(script->title, QStringLiteral("Two of them"));
    QCOMPARE(script->players.size(), 2);
    QCOMPARE(script->steps.size(), 8);
    QCOMPARE(script->steps.at(1).kind, stepkind::command);
    QCOMPARE(script->steps.at(1).who, QStringLiteral("Alice"));
    QCOMPARE(script->steps.at(1).whom, QStringLiteral("guests"));
    QCOMPARE(script->steps.at(1).text, QStringLiteral("row {name} double"));
    QVERIFY(!script->steps.at(1).expected);
    QCOMPARE(script->steps.at(2).expected.value(), QStringLiteral("by Alice"));
    QCOMPARE(script->steps.at(2).line, 7);
    QCOMPARE(script->steps.at(3).kind, stepkind::server);
    QCOMPARE(script->steps.at(4).who, QStringLiteral("all"));
}

void tst_playscript::aScriptTakesAsManyPlayersAsAreWanted()
{
    QString problem;
    const std::optional<playscript> script = readScript(QStringLiteral("players 2"), 12, &problem);
    QVERIFY(script);
    QCOMPARE(script->players.size(), 12);
    QStringList names;
    for (const scriptplayer& player : script->players)
        names.append(player.name);
    QCOMPARE(names.removeDuplicates(), 0);
}

void tst_playscript::aPlayerHasProperties()
{
    QString problem;
    const std::optional<playscript> script =
        readScript(QStringLiteral("player Dora channel=\"Coffee Corner\" plugin=none away=yes platform=ServerQuery "
                                  "setting=\"pong=false\""),
                   0, &problem);
    QVERIFY2(script, qPrintable(problem));
    const scriptplayer dora = script->players.first();
    QCOMPARE(dora.name, QStringLiteral("Dora"));
    QCOMPARE(dora.channel, QStringLiteral("Coffee Corner"));
    QCOMPARE(dora.platform, QStringLiteral("ServerQuery"));
    QVERIFY(!dora.hasPlugin);
    QVERIFY(dora.away);
    QCOMPARE(dora.settings, QStringList{"pong=false"});
}

void tst_playscript::whatIsNoStepIsNamedWithItsLine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("words");
    QTest::newRow("unknown word") << QStringLiteral("players 2\ndance") << QStringLiteral("Line 2");
    QTest::newRow("unknown player") << QStringLiteral("players 2\nZoe: open menu")
                                    << QStringLiteral("nobody is called 'Zoe'");
    QTest::newRow("unknown other") << QStringLiteral("players 2\nBob for Zoe: open menu") << QStringLiteral("'Zoe'");
    QTest::newRow("no number") << QStringLiteral("players many") << QStringLiteral("Line 1");
    QTest::newRow("too many") << QStringLiteral("players 100") << QStringLiteral("Line 1");
    QTest::newRow("unknown property") << QStringLiteral("player Zoe hat=red") << QStringLiteral("'hat'");
    QTest::newRow("no players") << QStringLiteral("note alone") << QStringLiteral("no players");
}

void tst_playscript::whatIsNoStepIsNamedWithItsLine()
{
    QFETCH(const QString, text);
    QFETCH(const QString, words);
    QString problem;
    QVERIFY(!readScript(text, 0, &problem));
    QVERIFY2(problem.contains(words), qPrintable(problem));
}

void tst_playscript::theTableKnowsWhatWasPainted()
{
    scoretable table;
    table.note(QStringLiteral("Alice"), QStringLiteral("tool pencil"));
    table.note(QStringLiteral("Alice"), QStringLiteral("drag 1,1 2,2"));
    table.note(QStringLiteral("Alice"), QStringLiteral("drag 3,3 4,4"));
    table.note(QStringLiteral("Alice"), QStringLiteral("click \"Invert pixels\" in whiteboard"));
    table.note(QStringLiteral("Bob"), QStringLiteral("open menu"));
    QVERIFY(table.print().contains(QStringLiteral("painted 1 Invert pixels, 2 pencil")));
    QVERIFY(table.print().contains(QStringLiteral("painted nothing")));
}

void tst_playscript::theTableKnowsWhenSomethingIsLostOrDoubled()
{
    scoretable table;
    table.setCounts(QStringLiteral("Alice"), {{17, 3}}, {});
    table.setCounts(QStringLiteral("Bob"), {}, {{17, 3}});
    QVERIFY(table.isBalanced());
    QVERIFY(table.print().contains(QStringLiteral("draw")));
    table.setCounts(QStringLiteral("Bob"), {}, {{17, 4}});
    QVERIFY(!table.isBalanced());
    QVERIFY(table.print().contains(QStringLiteral("not the same")));
}

void tst_playscript::theTableKnowsWhenPicturesDiffer()
{
    scoretable table;
    table.addComparison({QStringLiteral("Alice"), QStringLiteral("Bob")}, 0);
    table.addComparison({QStringLiteral("Alice"), QStringLiteral("Bob")}, 0);
    QVERIFY(table.allEqual());
    QVERIFY(table.print().contains(QStringLiteral("compared 2 times")));
    table.addComparison({QStringLiteral("Alice"), QStringLiteral("Bob")}, 7);
    QVERIFY(!table.allEqual());
    QVERIFY(table.print().contains(QStringLiteral("DIFFERENT in 7 pixels")));
}

QTEST_GUILESS_MAIN(tst_playscript)
#include "tst_playscript.moc"
