#pragma once

#include <QList>
#include <QVector>

/// The form in which lists of clients and channels go to the endpoint and to the voice client: an array ended by a 0
/// entry. It is built for one send and dies with the expression: zeroEnded(clients).constData().
template <typename Id> QVector<Id> zeroEnded(const QList<Id>& ids)
{
    QVector<Id> array = ids.toVector();
    array.append(Id(0));
    return array;
}
