#include "invitees.h"

// Null for the states of those who stand in no list.
invitees::list invitees::listOf(invitestate state)
{
    switch (state) {
    case invitestate::invite_accepted:
        return &invitees::acceptedClients;
    case invitestate::invite_invited:
        return &invitees::invitedClients;
    case invitestate::invite_busy:
    case invitestate::invite_rejected:
    case invitestate::invite_rejectedversion:
        return &invitees::rejectedClients;
    default:
        return nullptr;
    }
}

void invitees::set(anyID client, invitestate state)
{
    const list place = listOf(state);
    if (!place) {
        release(client);
    } else if (client != 0 && places.value(client) != place) {
        remove(client);
        (this->*place).append(client);
        places.insert(client, place);
    }
}

void invitees::release(anyID client)
{
    if (places.value(client) != &invitees::rejectedClients)
        remove(client);
}

void invitees::remove(anyID client)
{
    if (const list place = places.take(client))
        (this->*place).removeOne(client);
}
