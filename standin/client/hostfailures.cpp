#include "hostfailures.h"

#include "hostapi/hosttypes.h"

void hostfailures::set(const QByteArray& function, const hostfailure& failure)
{
    if (failure.kind == failurekind::none)
        named.remove(function);
    else
        named.insert(function, failure);
}

void hostfailures::setChance(int percent, quint32 seed)
{
    chance = percent;
    dice.seed(seed);
}

void hostfailures::clear()
{
    named.clear();
    chance = 0;
}

hostfailure hostfailures::next(const QByteArray& function)
{
    ++called[function];
    const auto failure = named.constFind(function);
    if (failure != named.constEnd())
        return *failure;
    if (chance > 0 && dice.bounded(100) < chance)
        return {failurekind::error, ERROR_undefined};
    return {};
}
