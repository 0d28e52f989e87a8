#pragma once

#include "kelvorprotocol.h"
#include "messages.h"

#include <optional>

/// The way from a message that was read to the signal of the endpoint that tells of it; nothing for a message that was
/// dropped. Each of these emits as its last act and touches nothing of the endpoint afterwards: a slot may run an event
/// loop in which the whole library is shut down.
namespace wire {

using clientsignal = void (kelvorprotocol::*)(uint64 schid, anyID client, anyID sender);
using channelsignal = void (kelvorprotocol::*)(uint64 schid, uint64 channel, anyID sender);
using clientlistsignal = void (kelvorprotocol::*)(uint64 schid, anyID* list, anyID sender);
using sendersignal = void (kelvorprotocol::*)(uint64 schid, anyID sender);

void relay(kelvorprotocol* to, sendersignal signal, uint64 schid, const std::optional<sendermessage>& message);
void relay(kelvorprotocol* to, clientsignal signal, uint64 schid, const clientmessage& message);
void relay(kelvorprotocol* to, channelsignal signal, uint64 schid, const channelmessage& message);
void relay(kelvorprotocol* to, clientlistsignal signal, uint64 schid, std::optional<clientlistmessage> message);
void relay(kelvorprotocol* to, uint64 schid, channellistmessage message);
void relay(kelvorprotocol* to, uint64 schid, const std::optional<startmessage>& message);
void relay(kelvorprotocol* to, uint64 schid, const std::optional<drawmessage>& message);
void relay(kelvorprotocol* to, uint64 schid, const std::optional<extendeddrawmessage>& message);
void relay(kelvorprotocol* to, uint64 schid, const std::optional<downloadfinishedmessage>& message);
void relay(kelvorprotocol* to, uint64 schid, const std::optional<invitemessage>& message);
void answer(kelvorprotocol* by, uint64 schid, const std::optional<sendermessage>& ping);

} // namespace wire
