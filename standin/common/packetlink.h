#pragma once

#include "packet.h"

#include <QLocalSocket>
#include <QObject>
#include <QQueue>

#include <functional>
#include <optional>

/// One end of a link between client and server: cuts the stream into packets and hands them out one an event, in order.
/// A receiver that runs a nested event loop gets the following packets inside it, as a real client's callbacks do.
/// Owned by whoever opened or accepted the socket.
class packetlink : public QObject {
    Q_OBJECT

public:
    /// Takes over the socket, connected or not yet.
    explicit packetlink(QLocalSocket* socket, QObject* parent = nullptr);
    ~packetlink() override;

    void send(const packet& message);
    /// Blocks without an event loop until a packet arrives that fits; the others stay queued in their order. Empty when
    /// the link ended or the time ran out.
    std::optional<packet> waitFor(const std::function<bool(const packet&)>& fits, int milliseconds);
    /// Writes what is buffered and says goodbye; at most milliseconds.
    void close(int milliseconds);
    /// Ends the link at once; what is buffered may be lost.
    void abort();
    bool isOpen() const;

    /// A frame above this size ends the link: no honest end sends one.
    static constexpr quint32 largestFrame = 4 * 1024 * 1024;

signals:
    void received(const packet& message);
    /// After the last packet was handed out; at most once, and not after close() or abort().
    void ended();

protected:
    bool event(QEvent* arrival) override;

private:
    void readAvailable();
    void socketEnded();
    void enqueue(const packet& message);
    void handOutNext();

    QLocalSocket* const socket;
    QByteArray incoming;
    QQueue<packet> queue;
    bool finished = false;
};
