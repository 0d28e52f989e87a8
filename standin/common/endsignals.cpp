#include "endsignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

int pipeEnds[2] = {-1, -1};

// Only write() may be called here: the signal may have struck in the middle of anything.
void onSignal(int)
{
    const char byte = 1;
    const ssize_t written = ::write(pipeEnds[1], &byte, 1);
    static_cast<void>(written);
}

} // namespace

endsignals::endsignals(QObject* parent)
    : QObject(parent)
{
    if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &endsignals::wake);
    std::signal(SIGINT, onSignal);
    std::signal(SIGTERM, onSignal);
}

endsignals::~endsignals()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    for (int& end : pipeEnds) {
        if (end >= 0)
            ::close(end);
        end = -1;
    }
}

void endsignals::wake()
{
    char byte = 0;
    while (::read(pipeEnds[0], &byte, 1) > 0) { }
    emit caught();
}
