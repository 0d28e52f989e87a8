#include "protocol/partwalker.h"

#include <QtTest>

class tst_partwalker : public QObject {
    Q_OBJECT

private slots:
    void takesThePartsInOrder();
    void emptyPartsCount();
    void emptyTextIsOneEmptyPart();
    void restHoldsItsBlanks();
    void nothingIsLeftBehindTheEnd();
};

void tst_partwalker::takesThePartsInOrder()
{
    partwalker parts("one two three");
    QCOMPARE(parts.left(), 3);
    QVERIFY(parts.take() == "one");
    QCOMPARE(parts.left(), 2);
    QVERIFY(parts.take() == "two");
    QVERIFY(!parts.atEnd());
    QVERIFY(parts.take() == "three");
    QVERIFY(parts.atEnd());
}

void tst_partwalker::emptyPartsCount()
{
    partwalker parts("  two ");
    QCOMPARE(parts.left(), 4);
    QVERIFY(parts.take().empty());
    QVERIFY(parts.take().empty());
    QVERIFY(parts.take() == "two");
    QVERIFY(!parts.atEnd());
    QVERIFY(parts.take().empty());
    QVERIFY(parts.atEnd());
}

void tst_partwalker::emptyTextIsOneEmptyPart()
{
    partwalker parts("");
    QCOMPARE(parts.left(), 1);
    QVERIFY(!parts.atEnd());
    QVERIFY(parts.take().empty());
    QVERIFY(parts.atEnd());
}

void tst_partwalker::restHoldsItsBlanks()
{
    partwalker parts("one  two three ");
    parts.take();
    QVERIFY(parts.takeRest() == " two three ");
    QVERIFY(parts.atEnd());
    QCOMPARE(parts.left(), 0);
}

void tst_partwalker::nothingIsLeftBehindTheEnd()
{
    partwalker parts("one");
    parts.take();
    QCOMPARE(parts.left(), 0);
    QVERIFY(parts.take().empty());
    QVERIFY(parts.takeRest().empty());
    QVERIFY(parts.atEnd());
}

QTEST_APPLESS_MAIN(tst_partwalker)
#include "tst_partwalker.moc"
