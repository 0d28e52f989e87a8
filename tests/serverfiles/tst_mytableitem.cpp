#include "serverfiles/mytableitem.h"

#include <QTest>

class tst_mytableitem : public QObject {
    Q_OBJECT

private slots:
    void keepsWhatItWasMadeWith();
    void passwordIsSetLater();
    void ordersByCodePointsInEveryLanguage_data();
    void ordersByCodePointsInEveryLanguage();
};

void tst_mytableitem::keepsWhatItWasMadeWith()
{
    const mytableitem item("Lobby", mytableitem::channelKind, ~uint64{0});
    QCOMPARE(item.text(), QString("Lobby"));
    QCOMPARE(item.kind(), 1);
    QCOMPARE(item.id(), ~uint64{0});
    QVERIFY(!item.passworded());
}

void tst_mytableitem::passwordIsSetLater()
{
    mytableitem item("Lobby", mytableitem::channelKind, 1);
    item.setPassworded(true);
    QVERIFY(item.passworded());
    item.setPassworded(false);
    QVERIFY(!item.passworded());
}

void tst_mytableitem::ordersByCodePointsInEveryLanguage_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");

    QTest::newRow("upper case first") << "B"
                                      << "a";
    QTest::newRow("digits by place, not by number") << "10"
                                                    << "9";
    QTest::newRow("signs are not skipped") << "a-z"
                                           << "ab";
    QTest::newRow("ASCII before the rest") << "z" << QString::fromUtf8("\xc3\xa4");
    QTest::newRow("shorter first") << "a"
                                   << "a.png";
    QTest::newRow("empty first") << ""
                                 << "a";
}

// Run in more than one language: the toolkit's own items order by the rules of the user's.
void tst_mytableitem::ordersByCodePointsInEveryLanguage()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    const mytableitem a(first, mytableitem::fileKind, 0);
    const mytableitem b(second, mytableitem::fileKind, 0);
    QVERIFY(a < b);
    QVERIFY(!(b < a));
    QVERIFY(!(a < a));
}

QTEST_APPLESS_MAIN(tst_mytableitem)
#include "tst_mytableitem.moc"
