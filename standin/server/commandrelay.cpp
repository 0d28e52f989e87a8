#include "commandrelay.h"

#include <QDateTime>

commandrelay::commandrelay(const relayfaults& faults, QObject* parent)
    : QObject(parent)
    , wanted(faults)
    , dice(faults.seed)
{
    deliveryTimer.setSingleShot(true);
    deliveryTimer.setTimerType(Qt::PreciseTimer);
    holdTimer.setSingleShot(true);
    connect(&deliveryTimer, &QTimer::timeout, this, &commandrelay::deliverDue);
    connect(&holdTimer, &QTimer::timeout, this, &commandrelay::releaseHeld);
}

void commandrelay::relay(const relayedcommand& command)
{
    if (chance(wanted.lossPercent))
        return;
    if (!held.contains(command.target) && chance(wanted.reorderPercent)) {
        held.insert(command.target, command);
        holdTimer.start(longestHold);
        return;
    }
    schedule(command);
    if (chance(wanted.doublePercent))
        schedule(command);
    if (held.contains(command.target))
        schedule(held.take(command.target));
}

void commandrelay::setFaults(const relayfaults& changed)
{
    wanted = changed;
    dice.seed(changed.seed);
    releaseHeld();
}

bool commandrelay::chance(int percent) { return percent > 0 && dice.bounded(100) < percent; }

void commandrelay::schedule(const relayedcommand& command)
{
    if (wanted.delay == 0 && waiting.isEmpty()) {
        emit deliver(command);
        return;
    }
    // A delay that was lowered meanwhile must not let the later command overtake.
    const qint64 due = QDateTime::currentMSecsSinceEpoch() + wanted.delay;
    waiting.enqueue({waiting.isEmpty() ? due : qMax(due, waiting.last().due), command});
    armTimer();
}

void commandrelay::deliverDue()
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    while (!waiting.isEmpty() && waiting.head().due <= now)
        emit deliver(waiting.dequeue().command);
    armTimer();
}

void commandrelay::releaseHeld()
{
    const QList<relayedcommand> late = held.values();
    held.clear();
    for (const relayedcommand& command : late)
        schedule(command);
}

void commandrelay::armTimer()
{
    if (waiting.isEmpty() || deliveryTimer.isActive())
        return;
    deliveryTimer.start(int(qMax<qint64>(0, waiting.head().due - QDateTime::currentMSecsSinceEpoch())));
}
