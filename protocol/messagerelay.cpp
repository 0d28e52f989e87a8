#include "messagerelay.h"

namespace wire {

void relay(kelvorprotocol* to, sendersignal signal, uint64 schid, const std::optional<sendermessage>& message)
{
    if (message)
        (to->*signal)(schid, message->sender);
}

void relay(kelvorprotocol* to, clientsignal signal, uint64 schid, const clientmessage& message)
{
    (to->*signal)(schid, message.client, message.sender);
}

void relay(kelvorprotocol* to, channelsignal signal, uint64 schid, const channelmessage& message)
{
    (to->*signal)(schid, message.channel, message.sender);
}

void relay(kelvorprotocol* to, clientlistsignal signal, uint64 schid, std::optional<clientlistmessage> message)
{
    if (message)
        (to->*signal)(schid, message->list.data(), message->sender);
}

void relay(kelvorprotocol* to, uint64 schid, channellistmessage message)
{
    emit to->channelInvitelistReceived(schid, message.list.data(), message.sender);
}

void relay(kelvorprotocol* to, uint64 schid, const std::optional<startmessage>& message)
{
    if (message)
        emit to->start(schid, message->width, message->height, message->channel, message->background, message->size,
                       message->path, message->sender);
}

void relay(kelvorprotocol* to, uint64 schid, const std::optional<drawmessage>& message)
{
    if (message)
        emit to->draw(schid, message->tool, message->color, message->thick, message->points, message->sender);
}

void relay(kelvorprotocol* to, uint64 schid, const std::optional<extendeddrawmessage>& message)
{
    if (message)
        emit to->extendedDraw(schid, message->tool, message->data, message->sender);
}

void relay(kelvorprotocol* to, uint64 schid, const std::optional<downloadfinishedmessage>& message)
{
    if (message)
        emit to->downloadFinished(schid, message->result, message->sender);
}

// The only test of the version: who has another one is told so by itself, without a word to the user.
void relay(kelvorprotocol* to, uint64 schid, const std::optional<invitemessage>& message)
{
    if (!message)
        return;
    if (message->version == protocolVersion)
        emit to->invited(schid, message->sender);
    else
        to->sendRejectVersion(schid, message->sender);
}

void answer(kelvorprotocol* by, uint64 schid, const std::optional<sendermessage>& ping)
{
    if (ping)
        by->sendPong(schid, ping->sender);
}

} // namespace wire
