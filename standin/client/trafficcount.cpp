#include "trafficcount.h"

namespace {

int kindOf(const QByteArray& text) { return text.isEmpty() ? 0 : int(quint8(text.at(0))); }

} // namespace

void trafficcount::countSent(const QByteArray& text, int targets) { sent[kindOf(text)] += targets; }

void trafficcount::countReceived(const QByteArray& text, quint16 from)
{
    ++received[kindOf(text)];
    last = text;
    sender = from;
}

void trafficcount::clear()
{
    sent.clear();
    received.clear();
}
