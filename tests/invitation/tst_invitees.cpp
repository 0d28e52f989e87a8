#include "invitation/invitees.h"

#include <QTest>

using ids = QList<anyID>;

class tst_invitees : public QObject {
    Q_OBJECT

private slots:
    void keepsTheOrderOfAcceptance();
    void clientStandsInOneList_data();
    void clientStandsInOneList();
    void clientStandsThereOnce();
    void otherStatesTakeOutOfAcceptedAndInvited();
    void releaseLeavesRefusals();
    void removeTakesOutOfAll();
    void clientZeroNeverGetsIn();
    void channelsAreMarkedAndUnmarked();
};

void tst_invitees::keepsTheOrderOfAcceptance()
{
    invitees lists;
    for (const anyID client : QList<anyID>{5, 2, 9})
        lists.set(client, invitestate::invite_invited);
    for (const anyID client : QList<anyID>{9, 5, 2})
        lists.set(client, invitestate::invite_accepted);
    QCOMPARE(lists.accepted(), (ids{9, 5, 2}));
    QCOMPARE(lists.invited(), ids());
}

void tst_invitees::clientStandsInOneList_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    for (int before = 1; before <= 5; ++before) {
        for (int after = 1; after <= 5; ++after)
            QTest::addRow("from %d to %d", before, after) << before << after;
    }
}

void tst_invitees::clientStandsInOneList()
{
    QFETCH(int, before);
    QFETCH(int, after);
    const auto state = static_cast<invitestate>(after);
    invitees lists;
    lists.set(7, static_cast<invitestate>(before));
    lists.set(7, state);
    QCOMPARE(lists.accepted(), state == invitestate::invite_accepted ? ids{7} : ids());
    QCOMPARE(lists.invited(), state == invitestate::invite_invited ? ids{7} : ids());
    const bool refused = state != invitestate::invite_accepted && state != invitestate::invite_invited;
    QCOMPARE(lists.rejected(), refused ? ids{7} : ids());
}

// A message that the network doubles must not double the strokes later.
void tst_invitees::clientStandsThereOnce()
{
    invitees lists;
    lists.set(7, invitestate::invite_accepted);
    lists.set(8, invitestate::invite_accepted);
    lists.set(7, invitestate::invite_accepted);
    QCOMPARE(lists.accepted(), (ids{7, 8}));
}

void tst_invitees::otherStatesTakeOutOfAcceptedAndInvited()
{
    for (const invitestate state : {invitestate::invite_none, invitestate::invite_host, invitestate::invite_self}) {
        invitees lists;
        lists.set(1, invitestate::invite_accepted);
        lists.set(2, invitestate::invite_invited);
        lists.set(3, invitestate::invite_rejected);
        for (const anyID client : QList<anyID>{1, 2, 3})
            lists.set(client, state);
        QCOMPARE(lists.accepted(), ids());
        QCOMPARE(lists.invited(), ids());
        QCOMPARE(lists.rejected(), ids{3});
    }
}

void tst_invitees::releaseLeavesRefusals()
{
    invitees lists;
    lists.set(1, invitestate::invite_accepted);
    lists.set(2, invitestate::invite_invited);
    lists.set(3, invitestate::invite_busy);
    for (const anyID client : QList<anyID>{1, 2, 3, 4})
        lists.release(client);
    QCOMPARE(lists.accepted() + lists.invited(), ids());
    QCOMPARE(lists.rejected(), ids{3});
}

void tst_invitees::removeTakesOutOfAll()
{
    invitees lists;
    lists.set(1, invitestate::invite_accepted);
    lists.set(2, invitestate::invite_invited);
    lists.set(3, invitestate::invite_rejectedversion);
    for (const anyID client : QList<anyID>{1, 2, 3, 4})
        lists.remove(client);
    QCOMPARE(lists.accepted() + lists.invited() + lists.rejected(), ids());
}

void tst_invitees::clientZeroNeverGetsIn()
{
    invitees lists;
    for (int state = 0; state <= 7; ++state)
        lists.set(0, static_cast<invitestate>(state));
    QCOMPARE(lists.accepted() + lists.invited() + lists.rejected(), ids());
}

void tst_invitees::channelsAreMarkedAndUnmarked()
{
    invitees lists;
    for (const uint64 channel : {uint64(3), uint64(1), ~uint64(0)})
        lists.markChannel(channel);
    QCOMPARE(lists.channels(), (QList<uint64>{3, 1, ~uint64(0)}));
    lists.unmarkChannel(1);
    lists.unmarkChannel(99);
    QCOMPARE(lists.channels(), (QList<uint64>{3, ~uint64(0)}));
}

QTEST_APPLESS_MAIN(tst_invitees)
#include "tst_invitees.moc"
