#include "voicetypes.h"

QDataStream& operator<<(QDataStream& stream, const voicechannel& channel)
{
    return stream << channel.id << channel.parent << channel.order << channel.name << channel.hasPassword;
}

QDataStream& operator>>(QDataStream& stream, voicechannel& channel)
{
    return stream >> channel.id >> channel.parent >> channel.order >> channel.name >> channel.hasPassword;
}

QDataStream& operator<<(QDataStream& stream, const voiceclientinfo& client)
{
    return stream << client.id << client.channel << client.nickname << client.platform << client.away;
}

QDataStream& operator>>(QDataStream& stream, voiceclientinfo& client)
{
    return stream >> client.id >> client.channel >> client.nickname >> client.platform >> client.away;
}

QDataStream& operator<<(QDataStream& stream, const fileentry& entry)
{
    return stream << entry.name << entry.size << entry.modified << entry.directory;
}

QDataStream& operator>>(QDataStream& stream, fileentry& entry)
{
    return stream >> entry.name >> entry.size >> entry.modified >> entry.directory;
}
