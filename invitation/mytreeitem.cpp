#include "mytreeitem.h"

#include "rowlooks.h"

mytreeitem::mytreeitem(anyID client, const rowlooks& looks)
    : mytreeitem(false, 0, client, looks)
{
}

mytreeitem::mytreeitem(uint64 channel, const rowlooks& looks)
    : mytreeitem(true, channel, 0, looks)
{
}

mytreeitem::mytreeitem(bool ischannel, uint64 channel, anyID client, const rowlooks& looks)
    : ischannel(ischannel)
    , channel(channel)
    , client(client)
    , looks(&looks)
{
    setState(invitestate::invite_none);
}

void mytreeitem::setState(invitestate newState)
{
    state = newState;
    const rowlook& look = looks->of(state, ischannel, hasplugin);
    setIcon(0, look.icon);
    setToolTip(0, look.toolTip);
    // A tool tip is not read aloud.
    setData(0, Qt::AccessibleDescriptionRole, look.toolTip);
}

void mytreeitem::setHasPlugin()
{
    hasplugin = true;
    if (state == invitestate::invite_none)
        setState(state);
}
