#pragma once

#include "hostapi/hosttypes.h"

/// Who a message says it is from. Messages carry their sender as text, so a peer can write any: where the voice server
/// names the client that spoke, the two are held against each other before the message is read.
namespace wire {

/// The sender that a NUL-ended message states, its number read as the reader of its kind reads it; 0 for a message
/// that states none or is of no kind. The reader's signal names the same sender, or, where the reader is known to miss
/// it, the sender 0; a message in which it would find another one states none here.
anyID statedSender(const char* text);

/// Whether the client with the id invoker may have sent the message. With the invoker 0, which is how the server leaves
/// it open, anyone may have. A null text comes from nobody.
bool mayComeFrom(anyID invoker, const char* text);

} // namespace wire
