#include "standin/server/commandrelay.h"
#include "standin/server/floodmeter.h"

#include <QTest>

#include <algorithm>
#include <numeric>

// The relay with its faults, and the flood rule in front of it.
class tst_commandrelay : public QObject {
    Q_OBJECT

private slots:
    void aGoodRelayLosesNothingAndKeepsTheOrder();
    void aDelayKeepsTheOrder();
    void aDelayThatIsTakenAwayLetsNobodyOvertake();
    void lossLosesItsShare();
    void doublingDeliversTheSameTwiceInARow();
    void reorderingLosesNothing();
    void theLastCommandHeldBackGoesOutByItself();
    void targetsAreReorderedEachByItself();
    void theSameSeedGivesTheSameFaults();
    void aBurstOfThirtyPassesAndTheNextIsDropped();
    void halfASecondForgivesOneCommand();
    void whoGoesOnAtTheLimitIsBlocked();
    void timeForgivesEverything();

private:
    static QVector<int> relayed(const relayfaults& faults, int count);
    static relayedcommand command(int number, quint16 target = 1);
};

relayedcommand tst_commandrelay::command(int number, quint16 target)
{
    return {target, 9, "kelvor", QByteArray::number(number)};
}

// What arrives of so many commands to one target.
QVector<int> tst_commandrelay::relayed(const relayfaults& faults, int count)
{
    commandrelay relay(faults);
    QVector<int> arrived;
    connect(&relay, &commandrelay::deliver, &relay,
            [&](const relayedcommand& one) { arrived.append(one.text.toInt()); });
    for (int i = 0; i < count; ++i)
        relay.relay(command(i));
    relay.setFaults(relayfaults()); // lets go what is held back
    return arrived;
}

void tst_commandrelay::aGoodRelayLosesNothingAndKeepsTheOrder()
{
    QVector<int> expected(1000);
    std::iota(expected.begin(), expected.end(), 0);
    QCOMPARE(relayed(relayfaults(), 1000), expected);
}

void tst_commandrelay::aDelayKeepsTheOrder()
{
    relayfaults faults;
    faults.delay = 20;
    commandrelay relay(faults);
    QVector<int> arrived;
    connect(&relay, &commandrelay::deliver, this, [&](const relayedcommand& one) { arrived.append(one.text.toInt()); });
    for (int i = 0; i < 5; ++i)
        relay.relay(command(i));
    QVERIFY(arrived.isEmpty());
    QTRY_COMPARE(arrived, (QVector<int>{0, 1, 2, 3, 4}));
}

void tst_commandrelay::aDelayThatIsTakenAwayLetsNobodyOvertake()
{
    relayfaults faults;
    faults.delay = 30;
    commandrelay relay(faults);
    QVector<int> arrived;
    connect(&relay, &commandrelay::deliver, this, [&](const relayedcommand& one) { arrived.append(one.text.toInt()); });
    relay.relay(command(1));
    relay.setFaults(relayfaults());
    relay.relay(command(2));
    QTRY_COMPARE(arrived, (QVector<int>{1, 2}));
}

void tst_commandrelay::lossLosesItsShare()
{
    relayfaults faults;
    faults.lossPercent = 30;
    const int arrived = relayed(faults, 10000).size();
    QVERIFY2(arrived > 6700 && arrived < 7300, QByteArray::number(arrived));
    faults.lossPercent = 100;
    QVERIFY(relayed(faults, 100).isEmpty());
}

void tst_commandrelay::doublingDeliversTheSameTwiceInARow()
{
    relayfaults faults;
    faults.doublePercent = 100;
    QCOMPARE(relayed(faults, 3), (QVector<int>{0, 0, 1, 1, 2, 2}));
}

void tst_commandrelay::reorderingLosesNothing()
{
    relayfaults faults;
    faults.reorderPercent = 30;
    QVector<int> arrived = relayed(faults, 1000);
    QVERIFY(!std::is_sorted(arrived.begin(), arrived.end()));
    std::sort(arrived.begin(), arrived.end());
    QVector<int> expected(1000);
    std::iota(expected.begin(), expected.end(), 0);
    QCOMPARE(arrived, expected);
}

void tst_commandrelay::theLastCommandHeldBackGoesOutByItself()
{
    relayfaults faults;
    faults.reorderPercent = 100;
    commandrelay relay(faults);
    QVector<int> arrived;
    connect(&relay, &commandrelay::deliver, this, [&](const relayedcommand& one) { arrived.append(one.text.toInt()); });
    relay.relay(command(7));
    QVERIFY(arrived.isEmpty());
    QTRY_COMPARE(arrived, QVector<int>{7});
}

void tst_commandrelay::targetsAreReorderedEachByItself()
{
    relayfaults faults;
    faults.reorderPercent = 100;
    commandrelay relay(faults);
    QMap<quint16, QVector<int>> arrived;
    connect(&relay, &commandrelay::deliver, this,
            [&](const relayedcommand& one) { arrived[one.target].append(one.text.toInt()); });
    for (const int number : {1, 2}) {
        relay.relay(command(number, 1));
        relay.relay(command(number, 2));
    }
    QCOMPARE(arrived.value(1), (QVector<int>{2, 1}));
    QCOMPARE(arrived.value(2), (QVector<int>{2, 1}));
}

void tst_commandrelay::theSameSeedGivesTheSameFaults()
{
    relayfaults faults;
    faults.lossPercent = 20;
    faults.doublePercent = 20;
    faults.reorderPercent = 20;
    faults.seed = 5;
    const QVector<int> once = relayed(faults, 500);
    QCOMPARE(relayed(faults, 500), once);
    faults.seed = 6;
    QVERIFY(relayed(faults, 500) != once);
}

void tst_commandrelay::aBurstOfThirtyPassesAndTheNextIsDropped()
{
    floodmeter meter;
    for (int i = 0; i < 30; ++i)
        QCOMPARE(meter.commandAt(1000), floodverdict::pass);
    QCOMPARE(meter.commandAt(1000), floodverdict::drop);
}

void tst_commandrelay::halfASecondForgivesOneCommand()
{
    floodmeter meter;
    for (int i = 0; i < 30; ++i)
        meter.commandAt(0);
    QCOMPARE(meter.commandAt(499), floodverdict::drop);
    // The dropped command cost as well: it takes two intervals to get below the limit again.
    QCOMPARE(meter.commandAt(1000), floodverdict::pass);
    QCOMPARE(meter.points(), 150);
}

void tst_commandrelay::whoGoesOnAtTheLimitIsBlocked()
{
    floodmeter meter;
    for (int i = 0; i < 50; ++i)
        QVERIFY(meter.commandAt(0) != floodverdict::block);
    QCOMPARE(meter.commandAt(0), floodverdict::block);
}

void tst_commandrelay::timeForgivesEverything()
{
    floodmeter meter;
    for (int i = 0; i < 40; ++i)
        meter.commandAt(0);
    QCOMPARE(meter.commandAt(60 * 60 * 1000), floodverdict::pass);
    QCOMPARE(meter.points(), floodmeter::commandCost);
}

QTEST_GUILESS_MAIN(tst_commandrelay)
#include "tst_commandrelay.moc"
