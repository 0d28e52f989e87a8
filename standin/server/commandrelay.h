#pragma once

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QQueue>
#include <QRandomGenerator>
#include <QTimer>

/// One plugin command on its way to one client.
struct relayedcommand {
    quint16 target = 0;
    quint16 sender = 0;
    QByteArray plugin;
    QByteArray text;
};

/// What the relay does to commands on their way, for tests. Everything at 0 is a good server: nothing is lost, and all
/// arrive in the order of sending.
struct relayfaults {
    int lossPercent = 0;
    int doublePercent = 0;
    int reorderPercent = 0; ///< this share is delivered behind its successor to the same client
    int delay = 0; ///< milliseconds, the same for all
    quint32 seed = 1;
};

/// Relays plugin commands, with the faults that were asked for. Owned by the server.
class commandrelay : public QObject {
    Q_OBJECT

public:
    explicit commandrelay(const relayfaults& faults, QObject* parent = nullptr);

    void relay(const relayedcommand& command);
    void setFaults(const relayfaults& changed);
    const relayfaults& faults() const { return wanted; }

    /// A command held back for reordering goes out after this time when no other follows it, in milliseconds.
    static constexpr int longestHold = 200;

signals:
    void deliver(const relayedcommand& command);

private:
    bool chance(int percent);
    void schedule(const relayedcommand& command);
    void deliverDue();
    void releaseHeld();
    void armTimer();

    struct waitingcommand {
        qint64 due = 0;
        relayedcommand command;
    };

    relayfaults wanted;
    QRandomGenerator dice;
    QQueue<waitingcommand> waiting; ///< in the order of delivery: the delay is the same for all
    QHash<quint16, relayedcommand> held; ///< by target, for reordering
    QTimer deliveryTimer;
    QTimer holdTimer;
};
