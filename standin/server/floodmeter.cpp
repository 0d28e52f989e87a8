#include "floodmeter.h"

floodverdict floodmeter::commandAt(qint64 now)
{
    if (lastForgiven < 0)
        lastForgiven = now;
    const qint64 intervals = (now - lastForgiven) / interval;
    lastForgiven += intervals * interval;
    current = int(qMax<qint64>(0, current - intervals * forgiven));

    const int before = current;
    // A dropped command costs as well: whoever goes on at the limit ends up shut out.
    current += commandCost;
    if (before >= blockLimit)
        return floodverdict::block;
    return before >= dropLimit ? floodverdict::drop : floodverdict::pass;
}
