#include "voicemodel.h"

bool voicemodel::addChannel(const voicechannel& channel)
{
    if (channel.id == 0 || hasChannel(channel.id) || (channel.parent != 0 && !hasChannel(channel.parent)))
        return false;
    channels.insert(channel.id, channel);
    QVector<quint64>& chain = chains[channel.parent];
    const int before = chain.indexOf(channel.order);
    if (channel.order == 0 && !chain.isEmpty())
        chain.prepend(channel.id);
    else
        chain.insert(before < 0 ? chain.size() : before + 1, channel.id);
    renumber(channel.parent);
    return true;
}

void voicemodel::removeChannel(quint64 id)
{
    if (id == 0 || !hasChannel(id))
        return;
    const quint64 parent = channels.value(id).parent;
    const QVector<quint64> gone = branch(id);
    for (const quint64 one : gone) {
        channels.remove(one);
        chains.remove(one);
    }
    chains[parent].removeAll(id);
    renumber(parent);
}

bool voicemodel::moveChannel(quint64 id, quint64 parent)
{
    if (!hasChannel(id) || (parent != 0 && !hasChannel(parent)) || branch(id).contains(parent))
        return false;
    const quint64 before = channels.value(id).parent;
    chains[before].removeAll(id);
    renumber(before);
    chains[parent].append(id);
    channels[id].parent = parent;
    renumber(parent);
    return true;
}

quint64 voicemodel::channelNamed(const QString& name) const
{
    for (const quint64 id : branch(0)) {
        if (channels.value(id).name == name)
            return id;
    }
    return 0;
}

const QVector<quint64>& voicemodel::children(quint64 parent) const
{
    static const QVector<quint64> none;
    const auto chain = chains.constFind(parent);
    return chain == chains.constEnd() ? none : *chain;
}

QVector<quint64> voicemodel::branch(quint64 id) const
{
    QVector<quint64> found;
    if (id != 0)
        found.append(id);
    collect(id, &found);
    return found;
}

void voicemodel::moveClient(quint16 id, quint64 channel)
{
    if (hasClient(id))
        clients[id].channel = channel;
}

void voicemodel::setAway(quint16 id, bool away)
{
    if (hasClient(id))
        clients[id].away = away;
}

quint16 voicemodel::clientNamed(const QString& nickname) const
{
    for (const voiceclientinfo& one : clients) {
        if (one.nickname == nickname)
            return one.id;
    }
    return 0;
}

QList<quint16> voicemodel::clientsIn(quint64 channel) const
{
    QList<quint16> found;
    for (const voiceclientinfo& one : clients) {
        if (one.channel == channel)
            found.append(one.id);
    }
    return found;
}

void voicemodel::collect(quint64 id, QVector<quint64>* found) const
{
    for (const quint64 child : children(id)) {
        found->append(child);
        collect(child, found);
    }
}

void voicemodel::renumber(quint64 parent)
{
    quint64 before = 0;
    for (const quint64 child : children(parent)) {
        channels[child].order = before;
        before = child;
    }
}
