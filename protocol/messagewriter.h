#pragma once

#include "messages.h"

#include <QByteArray>

/// Writes messages as the bytes that go to the client. Where several kinds have the same fields the kind comes first. A
/// text loses the characters that Latin-1 lacks.
namespace wire {

QByteArray write(const invitemessage& message);
/// invitelist, acceptlist, rejectlist.
QByteArray write(messagekind kind, const clientlistmessage& message);
/// channelInvitelist.
QByteArray write(const channellistmessage& message);
QByteArray write(messagekind kind, const clientmessage& message);
QByteArray write(messagekind kind, const channelmessage& message);
QByteArray write(messagekind kind, const sendermessage& message);
QByteArray write(const startmessage& message);
QByteArray write(const drawmessage& message);
QByteArray write(const extendeddrawmessage& message);
QByteArray write(const downloadfinishedmessage& message);

} // namespace wire
