#pragma once

#include "protocol/messages.h"

#include <QByteArray>
#include <QList>

/// Messages that no peer of ours sends.
namespace hostile {

/// As numbers of senders: participants and hosts, a stranger, nobody, the own client, and numbers that are cut to 16
/// bits.
QList<QByteArray> senders();

/// What a number becomes on the way to a signal, by either of the ways in which readers take it.
anyID cut(const QByteArray& number);
anyID cutOrNone(const QByteArray& number);

/// As numbers that a message tells about: nobody, the own client, a participant and a channel, the largest client, and
/// one that is cut to nobody where it is not a channel.
QList<QByteArray> told();
/// The message from the sender; where it tells about a client, a channel or a list of them, one for each of told().
QList<QByteArray> messagesFrom(messagekind kind, const QByteArray& sender);
bool tellsAboutOthers(messagekind kind);

/// As long as the voice client lets a message be.
QList<QByteArray> longTexts(int kind);

/// From participant 2, without a picture.
QByteArray startOf(const QByteArray& width, const QByteArray& height);

/// For each tool what all operations take, as participant 2 sends it.
QList<QByteArray> paintTexts();

} // namespace hostile
