#include "statedsender.h"

#include "messages.h"
#include "partwalker.h"
#include "wirenumbers.h"

namespace {

// The part with that number, the kind's own being 0, as a client.
anyID clientInPart(int number, const char* text)
{
    partwalker parts(text);
    for (; number > 0; --number)
        parts.take();
    return wire::toClient(parts.take());
}

anyID scanned(const char* text)
{
    uint64 sender = 0;
    wire::scanNumber(text, &sender);
    return static_cast<anyID>(sender);
}

} // namespace

namespace wire {

anyID statedSender(const char* text)
{
    switch (static_cast<messagekind>(*text)) {
    case messagekind::invite:
        return clientInPart(2, text);
    case messagekind::invitelist:
    case messagekind::channelInvitelist:
    case messagekind::rejectlist:
        // Their readers look for the sender in front of the blank, where there is nothing in a message of an honest
        // peer. What stands there would be believed, so with anything there the message states no sender.
        return text[1] == ' ' ? clientInPart(1, text) : anyID(0);
    case messagekind::acceptlist:
    case messagekind::ping:
    case messagekind::pong:
    case messagekind::busy:
        // Their readers trim the text. That takes away at most blanks behind the number, which are none of it anyway.
    case messagekind::start:
    case messagekind::draw:
    case messagekind::extendedDraw:
    case messagekind::downloadFinished:
        return clientInPart(1, text);
    case messagekind::clientInvited:
    case messagekind::channelInvited:
    case messagekind::clientTakenBack:
    case messagekind::channelTakenBack:
    case messagekind::clientAcceptedInvite:
    case messagekind::clientRejectedInvite:
    case messagekind::clientRejectedInviteVersion:
    case messagekind::takeBack:
        return scanned(text + 1);
    case messagekind::accept:
    case messagekind::reject:
    case messagekind::rejectVersion:
    case messagekind::logout:
        return scanClient(text + 1);
    }
    return 0;
}

bool mayComeFrom(anyID invoker, const char* text) { return text && (invoker == 0 || statedSender(text) == invoker); }

} // namespace wire
