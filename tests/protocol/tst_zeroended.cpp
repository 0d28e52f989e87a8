#include "hostapi/hosttypes.h"
#include "protocol/zeroended.h"

#include <QtTest>

class tst_zeroended : public QObject {
    Q_OBJECT

private slots:
    void listKeepsItsOrderAndGetsAnEnd();
    void emptyListIsTheEndAlone();
    void everyWidthOfIdIsKeptWhole();
    void listItselfStaysAsItWas();
};

void tst_zeroended::listKeepsItsOrderAndGetsAnEnd()
{
    QCOMPARE(zeroEnded<anyID>({7, 3, 3, 65535}), (QVector<anyID>{7, 3, 3, 65535, 0}));
}

void tst_zeroended::emptyListIsTheEndAlone()
{
    QCOMPARE(zeroEnded<anyID>({}), QVector<anyID>{0});
    QCOMPARE(*zeroEnded<uint64>({}).constData(), uint64(0));
}

void tst_zeroended::everyWidthOfIdIsKeptWhole()
{
    const uint64 largest = ~uint64(0);
    QCOMPARE(zeroEnded<uint64>({largest, 1}), (QVector<uint64>{largest, 1, 0}));
}

void tst_zeroended::listItselfStaysAsItWas()
{
    const QList<anyID> clients{2, 4};
    const QVector<anyID> array = zeroEnded(clients);
    QCOMPARE(clients, (QList<anyID>{2, 4}));
    QCOMPARE(array.size(), 3);
}

QTEST_APPLESS_MAIN(tst_zeroended)

#include "tst_zeroended.moc"
