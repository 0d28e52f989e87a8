#pragma once

#include <QByteArray>
#include <QMap>

/// Counts plugin commands by kind, the first byte of the text. A command to several clients counts once for each of
/// them as sent, so that the sums of all senders and of all receivers agree when nothing was lost or doubled.
class trafficcount {
public:
    void countSent(const QByteArray& text, int targets);
    /// sender: as the server says.
    void countReceived(const QByteArray& text, quint16 sender);
    void clear();

    const QMap<int, int>& sentByKind() const { return sent; }
    const QMap<int, int>& receivedByKind() const { return received; }
    int sentOf(int kind) const { return sent.value(kind); }
    int receivedOf(int kind) const { return received.value(kind); }
    QByteArray lastText() const { return last; }
    quint16 lastSender() const { return sender; }

private:
    QMap<int, int> sent;
    QMap<int, int> received;
    QByteArray last; ///< the command that came last
    quint16 sender = 0;
};
