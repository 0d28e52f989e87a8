#pragma once

#include <QtTest>

/// One row of the tables that tell what a lobby does.
struct transition {
    const char* state; ///< what the row shows before, as lookOf() names it
    const char* event;
    const char* look; ///< of the row afterwards
    const char* lists; ///< afterwards, as lobbyfixture::lists() tells them
    const char* sent; ///< as lobbyfixture::sent() tells it, joined
};

/// A data row for each row of a table.
template <typename Table> void addTransitions(const Table& table)
{
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<QByteArray>("event");
    QTest::addColumn<QString>("look");
    QTest::addColumn<QString>("lists");
    QTest::addColumn<QString>("sent");
    for (const transition& row : table)
        QTest::addRow("%s, %s", row.state, row.event) << QByteArray(row.state) << QByteArray(row.event)
                                                      << QString(row.look) << QString(row.lists) << QString(row.sent);
}
