#include "standin/common/voicemodel.h"

#include <QTest>

class tst_voicemodel : public QObject {
    Q_OBJECT

private slots:
    void init();
    void channelsComeParentsFirstAndInTheirOrder();
    void orderNamesTheSiblingInFront();
    void anUnknownOrderPutsAChannelLast();
    void aRemovedChannelTakesItsBranchAlong();
    void aMovedChannelComesLastBelowItsNewParent();
    void aChannelDoesNotMoveIntoItsOwnBranch();
    void idsAreTakenOnce();
    void aParentMustBeThere();
    void clientsAreKnownByIdNameAndChannel();

private:
    bool add(quint64 id, quint64 parent, quint64 order);
    voicemodel model;
};

bool tst_voicemodel::add(quint64 id, quint64 parent, quint64 order)
{
    voicechannel channel;
    channel.id = id;
    channel.parent = parent;
    channel.order = order;
    channel.name = QString::number(id);
    return model.addChannel(channel);
}

// 1, 2 (with 3, 4 below it), 5
void tst_voicemodel::init()
{
    model = voicemodel();
    QVERIFY(add(1, 0, 0) && add(2, 0, 1) && add(5, 0, 2) && add(3, 2, 0) && add(4, 2, 3));
}

void tst_voicemodel::channelsComeParentsFirstAndInTheirOrder()
{
    QCOMPARE(model.branch(0), (QVector<quint64>{1, 2, 3, 4, 5}));
    QCOMPARE(model.branch(2), (QVector<quint64>{2, 3, 4}));
}

void tst_voicemodel::orderNamesTheSiblingInFront()
{
    QVERIFY(add(6, 0, 1));
    QCOMPARE(model.children(0), (QVector<quint64>{1, 6, 2, 5}));
    QCOMPARE(model.channel(2).order, quint64(6));
    QCOMPARE(model.channel(1).order, quint64(0));
}

void tst_voicemodel::anUnknownOrderPutsAChannelLast()
{
    QVERIFY(add(6, 0, 99));
    QCOMPARE(model.children(0).last(), quint64(6));
    QCOMPARE(model.channel(6).order, quint64(5));
}

void tst_voicemodel::aRemovedChannelTakesItsBranchAlong()
{
    model.removeChannel(2);
    QCOMPARE(model.branch(0), (QVector<quint64>{1, 5}));
    QCOMPARE(model.channel(5).order, quint64(1));
    QVERIFY(!model.hasChannel(3));
}

void tst_voicemodel::aMovedChannelComesLastBelowItsNewParent()
{
    QVERIFY(model.moveChannel(1, 2));
    QCOMPARE(model.branch(0), (QVector<quint64>{2, 3, 4, 1, 5}));
    QCOMPARE(model.channel(1).order, quint64(4));
    QCOMPARE(model.channel(2).order, quint64(0));
}

void tst_voicemodel::aChannelDoesNotMoveIntoItsOwnBranch()
{
    QVERIFY(!model.moveChannel(2, 3));
    QVERIFY(!model.moveChannel(2, 2));
    QVERIFY(!model.moveChannel(2, 77));
    QCOMPARE(model.branch(0), (QVector<quint64>{1, 2, 3, 4, 5}));
}

void tst_voicemodel::idsAreTakenOnce()
{
    QVERIFY(!add(3, 0, 0));
    QVERIFY(!add(0, 0, 0));
}

void tst_voicemodel::aParentMustBeThere() { QVERIFY(!add(9, 8, 0)); }

void tst_voicemodel::clientsAreKnownByIdNameAndChannel()
{
    model.addClient({7, 3, QStringLiteral("Alice"), QStringLiteral("Linux"), false});
    model.addClient({8, 3, QStringLiteral("Bob"), QStringLiteral("Linux"), false});
    QCOMPARE(model.clientNamed(QStringLiteral("Bob")), quint16(8));
    QCOMPARE(model.clientNamed(QStringLiteral("bob")), quint16(0));
    QCOMPARE(model.clientsIn(3), (QList<quint16>{7, 8}));
    model.moveClient(7, 1);
    QCOMPARE(model.clientsIn(3), (QList<quint16>{8}));
    model.setAway(8, true);
    QVERIFY(model.client(8).away);
    model.removeClient(8);
    QVERIFY(!model.hasClient(8));
    QCOMPARE(model.clientIDs(), (QList<quint16>{7}));
}

QTEST_GUILESS_MAIN(tst_voicemodel)
#include "tst_voicemodel.moc"
