#pragma once

#include "protocol/messages.h"

#include <QByteArray>

#include <optional>

/// The wire once more, step by step with the toolkit's own calls and without a thought for speed. What the product
/// reads and writes is compared with this, and its speed is measured against it.
namespace literal {

std::optional<invitemessage> readInvite(const char* text);
clientlistmessage readUntrimmedClients(const char* text);
channellistmessage readUntrimmedChannels(const char* text);
std::optional<clientlistmessage> readAcceptlist(const char* text);
clientmessage readClient(const char* text);
channelmessage readChannel(const char* text);
sendermessage readSender(const char* text);
sendermessage readTakeBack(const char* text);
std::optional<sendermessage> readTrimmedSender(const char* text);
std::optional<startmessage> readStart(const char* text);
std::optional<drawmessage> readDraw(const char* text);
std::optional<extendeddrawmessage> readExtendedDraw(const char* text);
std::optional<downloadfinishedmessage> readDownloadFinished(const char* text);

// A text with a percent sign and a digit in it is filled in further here, so these are asked without one.
QByteArray write(const invitemessage& message);
QByteArray write(messagekind kind, const clientlistmessage& message);
QByteArray write(const channellistmessage& message);
QByteArray write(messagekind kind, const clientmessage& message);
QByteArray write(messagekind kind, const channelmessage& message);
QByteArray write(messagekind kind, const sendermessage& message);
QByteArray write(const startmessage& message);
QByteArray write(const drawmessage& message);
QByteArray write(const extendeddrawmessage& message);
QByteArray write(const downloadfinishedmessage& message);

} // namespace literal
