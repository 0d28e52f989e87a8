#include "packetlink.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QtEndian>

namespace {

const QEvent::Type packetArrived = QEvent::Type(QEvent::registerEventType());
const QEvent::Type linkEnded = QEvent::Type(QEvent::registerEventType());

constexpr int headerSize = 5;

} // namespace

packetlink::packetlink(QLocalSocket* socket, QObject* parent)
    : QObject(parent)
    , socket(socket)
{
    socket->setParent(this);
    connect(socket, &QLocalSocket::readyRead, this, &packetlink::readAvailable);
    connect(socket, &QLocalSocket::disconnected, this, &packetlink::socketEnded);
    if (socket->bytesAvailable() > 0)
        readAvailable();
}

packetlink::~packetlink()
{
    // The socket reports its end while it is destroyed, to an object that is half gone.
    socket->disconnect(this);
}

void packetlink::send(const packet& message)
{
    if (!isOpen())
        return;
    QByteArray frame(headerSize, '\0');
    qToBigEndian(quint32(message.body.size()), frame.data());
    frame[4] = char(message.kind);
    socket->write(frame + message.body);
}

std::optional<packet> packetlink::waitFor(const std::function<bool(const packet&)>& fits, int milliseconds)
{
    QElapsedTimer clock;
    clock.start();
    int looked = 0;
    for (;;) {
        for (; looked < queue.size(); ++looked) {
            if (fits(queue.at(looked)))
                return queue.takeAt(looked);
        }
        const int left = milliseconds - int(clock.elapsed());
        if (left <= 0 || !isOpen())
            return std::nullopt;
        socket->waitForReadyRead(left);
    }
}

void packetlink::close(int milliseconds)
{
    finished = true;
    QElapsedTimer clock;
    clock.start();
    while (isOpen() && socket->bytesToWrite() > 0 && clock.elapsed() < milliseconds) {
        if (!socket->waitForBytesWritten(qMax(1, milliseconds - int(clock.elapsed()))))
            break;
    }
    socket->disconnectFromServer();
}

void packetlink::abort()
{
    finished = true;
    socket->abort();
}

bool packetlink::isOpen() const { return socket->state() == QLocalSocket::ConnectedState; }

bool packetlink::event(QEvent* arrival)
{
    if (arrival->type() == packetArrived)
        handOutNext();
    else if (arrival->type() == linkEnded)
        emit ended();
    else
        return QObject::event(arrival);
    return true;
}

void packetlink::readAvailable()
{
    incoming += socket->readAll();
    int used = 0;
    while (incoming.size() - used >= headerSize) {
        const auto length = qFromBigEndian<quint32>(incoming.constData() + used);
        if (length > largestFrame) {
            incoming.clear();
            socket->abort();
            return;
        }
        if (incoming.size() - used - headerSize < int(length))
            break;
        enqueue({packetkind(quint8(incoming.at(used + 4))), incoming.mid(used + headerSize, int(length))});
        used += headerSize + int(length);
    }
    incoming.remove(0, used);
}

void packetlink::socketEnded()
{
    if (finished)
        return;
    finished = true;
    readAvailable();
    QCoreApplication::postEvent(this, new QEvent(linkEnded));
}

void packetlink::enqueue(const packet& message)
{
    queue.enqueue(message);
    // One event a packet: what is left is handed out even when the receiver of this one enters a nested loop.
    QCoreApplication::postEvent(this, new QEvent(packetArrived));
}

void packetlink::handOutNext()
{
    // A packet that waitFor took leaves its event behind.
    if (queue.isEmpty())
        return;
    const packet next = queue.dequeue();
    // A nested loop that the receiver opens would sleep on the events that were posted before it began.
    if (!queue.isEmpty())
        QAbstractEventDispatcher::instance()->wakeUp();
    emit received(next);
}
