#include "invitees.h"

void invitees::set(anyID client, invitestate state)
{
    QList<anyID>* list = nullptr;
    if (state == invitestate::invite_accepted)
        list = &acceptedClients;
    else if (state == invitestate::invite_invited)
        list = &invitedClients;
    else if (state == invitestate::invite_busy || state == invitestate::invite_rejected
             || state == invitestate::invite_rejectedversion)
        list = &rejectedClients;
    if (!list) {
        release(client);
    } else if (client != 0 && !list->contains(client)) {
        remove(client);
        list->append(client);
    }
}

void invitees::release(anyID client)
{
    if (!invitedClients.removeOne(client))
        acceptedClients.removeOne(client);
}

void invitees::remove(anyID client)
{
    release(client);
    rejectedClients.removeOne(client);
}
