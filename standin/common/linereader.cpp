#include "linereader.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>

#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace {

const QEvent::Type lineArrived = QEvent::Type(QEvent::registerEventType());
const QEvent::Type inputClosed = QEvent::Type(QEvent::registerEventType());

} // namespace

linereader::linereader(QObject* parent)
    : QObject(parent)
    , notifier(new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this))
{
    connect(notifier, &QSocketNotifier::activated, this, &linereader::readAvailable);
}

void linereader::writeLine(const QByteArray& line)
{
    std::fwrite(line.constData(), 1, std::size_t(line.size()), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

bool linereader::event(QEvent* arrival)
{
    if (arrival->type() == lineArrived)
        emit lineRead(lines.dequeue());
    else if (arrival->type() == inputClosed)
        emit closed();
    else
        return QObject::event(arrival);
    return true;
}

void linereader::readAvailable()
{
    char buffer[4096];
    const ssize_t length = ::read(STDIN_FILENO, buffer, sizeof(buffer));
    if (length < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (length <= 0) {
        notifier->setEnabled(false);
        QCoreApplication::postEvent(this, new QEvent(inputClosed));
        return;
    }
    incoming.append(buffer, int(length));
    for (int end = incoming.indexOf('\n'); end >= 0; end = incoming.indexOf('\n')) {
        lines.enqueue(incoming.left(end));
        incoming.remove(0, end + 1);
        QCoreApplication::postEvent(this, new QEvent(lineArrived));
    }
}
