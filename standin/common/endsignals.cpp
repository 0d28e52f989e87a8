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

constexpr int ends[] = {SIGINT, SIGTERM, SIGHUP};

} // namespace

endsignals::endsignals(QObject* parent)
    : QObject(parent)
{
    if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &endsignals::wake);
    for (const int number : ends) {
        // Whoever started the program with nohup wants it to outlive the terminal.
        if (std::signal(number, onSignal) == SIG_IGN && number == SIGHUP)
            std::signal(number, SIG_IGN);
    }
}

endsignals::~endsignals()
{
    for (const int number : ends)
        std::signal(number, SIG_DFL);
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
