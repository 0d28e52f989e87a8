#pragma once

#include "messages.h"

#include <optional>

/// Reads messages from their bytes: NUL-ended, beginning with the byte of the kind, which is not looked at again. An
/// empty optional means that the message has the wrong number of parts and is to be dropped. Nothing else is an error:
/// a field that is no number is 0.
namespace wire {

std::optional<invitemessage> readInvite(const char* text);

/// invitelist and rejectlist. The list begins with the sender, and the sender is 0: see docs/protocol.md.
clientlistmessage readUntrimmedClients(const char* text);
/// channelInvitelist, with the same twist.
channellistmessage readUntrimmedChannels(const char* text);
/// The list has one slot more than it needs, so it ends in two zeros.
std::optional<clientlistmessage> readAcceptlist(const char* text);

/// The five kinds that tell of a client.
clientmessage readClient(const char* text);
/// channelInvited and channelTakenBack.
channelmessage readChannel(const char* text);

/// accept, reject, rejectVersion and logout.
sendermessage readSender(const char* text);
sendermessage readTakeBack(const char* text);
/// ping, pong and busy.
std::optional<sendermessage> readTrimmedSender(const char* text);

std::optional<startmessage> readStart(const char* text);
std::optional<drawmessage> readDraw(const char* text);
std::optional<extendeddrawmessage> readExtendedDraw(const char* text);
std::optional<downloadfinishedmessage> readDownloadFinished(const char* text);

} // namespace wire
