#include "lobbyfixture.h"

#include "invitation/rowlooks.h"

#include <QTest>

class tst_mytreeitem : public QObject {
    Q_OBJECT

private slots:
    void clientRowStartsFresh();
    void channelRowStartsFresh();
    void stateBringsIconAndToolTip_data();
    void stateBringsIconAndToolTip();
    void stateOfAChannelBringsIconAndToolTip_data();
    void stateOfAChannelBringsIconAndToolTip();
    void pluginShowsAtOnceOnlyInAFreshRow_data();
    void pluginShowsAtOnceOnlyInAFreshRow();
    void pluginShowsWhenTheRowIsFreshAgain();
    void selectedRowKeepsThePicture_data();
    void selectedRowKeepsThePicture();
    void rowsShareTheirIcons();
    void stateHasTheNumbersOfTheLobby();

private:
    rowlooks looks;
};

void tst_mytreeitem::clientRowStartsFresh()
{
    const mytreeitem row(anyID(7), looks);
    QVERIFY(!row.isChannel());
    QCOMPARE(row.clientID(), anyID(7));
    QCOMPARE(row.channelID(), uint64(0));
    QVERIFY(!row.hasPlugin());
    QCOMPARE(row.type(), 0);
    QCOMPARE(lookOf(&row), QString("none"));
}

void tst_mytreeitem::channelRowStartsFresh()
{
    const mytreeitem row(~uint64(0), looks);
    QVERIFY(row.isChannel());
    QCOMPARE(row.clientID(), anyID(0));
    QCOMPARE(row.channelID(), ~uint64(0));
    QCOMPARE(lookOf(&row), QString("channel"));
}

void tst_mytreeitem::stateBringsIconAndToolTip_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("look");
    QTest::newRow("none") << 0 << "none";
    QTest::newRow("busy") << 1 << "busy";
    QTest::newRow("invited") << 2 << "invited";
    QTest::newRow("accepted") << 3 << "accepted";
    QTest::newRow("rejected") << 4 << "rejected";
    QTest::newRow("version") << 5 << "version";
    QTest::newRow("host") << 6 << "host";
    QTest::newRow("self") << 7 << "self";
}

void tst_mytreeitem::stateBringsIconAndToolTip()
{
    QFETCH(int, state);
    mytreeitem row(anyID(7), looks);
    row.setState(static_cast<invitestate>(state));
    QTEST(lookOf(&row), "look");
    row.setState(invitestate::invite_none);
    QCOMPARE(lookOf(&row), QString("none"));
}

void tst_mytreeitem::stateOfAChannelBringsIconAndToolTip_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<QString>("toolTip");
    QTest::newRow("none") << 0 << "channel"
                          << "Rightclick or doubleclick to invite";
    QTest::newRow("busy") << 1 << "player_busy"
                          << "Client autorejected invite";
    QTest::newRow("invited") << 2 << "channel_invited"
                             << "Channel is invited";
    QTest::newRow("accepted") << 3 << "player_accepted"
                              << "Client accepted invite";
    QTest::newRow("rejected") << 4 << "player_rejected"
                              << "Client rejected invite";
    QTest::newRow("version") << 5 << "player_rejectedversion"
                             << "Plugin version mismatch";
    QTest::newRow("host") << 6 << "player_host"
                          << "Host";
    QTest::newRow("self") << 7 << "player_self"
                          << "You";
}

void tst_mytreeitem::stateOfAChannelBringsIconAndToolTip()
{
    QFETCH(int, state);
    QFETCH(QString, icon);
    mytreeitem row(uint64(7), looks);
    row.setState(static_cast<invitestate>(state));
    const QImage expected = QIcon(":/gfx/gfx/" + icon + ".png").pixmap(16).toImage();
    QVERIFY(!expected.isNull());
    QCOMPARE(row.icon(0).pixmap(16).toImage(), expected);
    QTEST(row.toolTip(0), "toolTip");
    QTEST(row.data(0, Qt::AccessibleDescriptionRole).toString(), "toolTip");
}

void tst_mytreeitem::pluginShowsAtOnceOnlyInAFreshRow_data() { stateBringsIconAndToolTip_data(); }

void tst_mytreeitem::pluginShowsAtOnceOnlyInAFreshRow()
{
    QFETCH(int, state);
    QFETCH(QString, look);
    mytreeitem row(anyID(7), looks);
    row.setState(static_cast<invitestate>(state));
    row.setHasPlugin();
    QVERIFY(row.hasPlugin());
    QCOMPARE(lookOf(&row), state == 0 ? QString("plugin") : look);
}

void tst_mytreeitem::pluginShowsWhenTheRowIsFreshAgain()
{
    mytreeitem row(anyID(7), looks);
    row.setState(invitestate::invite_accepted);
    row.setHasPlugin();
    row.setState(invitestate::invite_none);
    QCOMPARE(lookOf(&row), QString("plugin"));
}

void tst_mytreeitem::selectedRowKeepsThePicture_data() { stateBringsIconAndToolTip_data(); }

void tst_mytreeitem::selectedRowKeepsThePicture()
{
    QFETCH(int, state);
    mytreeitem row(anyID(7), looks);
    row.setState(static_cast<invitestate>(state));
    const QIcon icon = row.icon(0);
    const QImage normal = icon.pixmap(16).toImage().convertToFormat(QImage::Format_ARGB32);
    const QImage selected = icon.pixmap(16, QIcon::Selected).toImage().convertToFormat(QImage::Format_ARGB32);
    QCOMPARE(selected.size(), normal.size());
    int opaque = 0;
    for (int y = 0; y < normal.height(); ++y) {
        for (int x = 0; x < normal.width(); ++x) {
            if (qAlpha(normal.pixel(x, y)) != 255)
                continue;
            ++opaque;
            QCOMPARE(selected.pixel(x, y), normal.pixel(x, y));
        }
    }
    QVERIFY(opaque > 0);
}

void tst_mytreeitem::rowsShareTheirIcons()
{
    const mytreeitem first(anyID(7), looks);
    const mytreeitem second(anyID(8), looks);
    QCOMPARE(first.icon(0).cacheKey(), second.icon(0).cacheKey());
}

void tst_mytreeitem::stateHasTheNumbersOfTheLobby()
{
    QCOMPARE(int(invitestate::invite_none), 0);
    QCOMPARE(int(invitestate::invite_busy), 1);
    QCOMPARE(int(invitestate::invite_invited), 2);
    QCOMPARE(int(invitestate::invite_accepted), 3);
    QCOMPARE(int(invitestate::invite_rejected), 4);
    QCOMPARE(int(invitestate::invite_rejectedversion), 5);
    QCOMPARE(int(invitestate::invite_host), 6);
    QCOMPARE(int(invitestate::invite_self), 7);
}

QTEST_MAIN(tst_mytreeitem)
#include "tst_mytreeitem.moc"
