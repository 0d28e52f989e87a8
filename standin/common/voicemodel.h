#pragma once

#include "voicetypes.h"

#include <QHash>
#include <QMap>
#include <QVector>

/// The channels and clients of one server: the server's own truth, and the picture that each client keeps of it. Both
/// apply the same changes in the same order, so that they agree about the chain of siblings.
class voicemodel {
public:
    /// Puts the channel behind the sibling that its order names, or last when that is none of its parent's. False when
    /// the id is taken or the parent unknown.
    bool addChannel(const voicechannel& channel);
    /// The channel and all below it.
    void removeChannel(quint64 id);
    /// Puts the channel last below the new parent. False when that is unknown or lies in the channel's own branch.
    bool moveChannel(quint64 id, quint64 parent);

    bool hasChannel(quint64 id) const { return channels.contains(id); }
    /// The id 0 when unknown.
    voicechannel channel(quint64 id) const { return channels.value(id); }
    quint64 channelNamed(const QString& name) const;
    const QVector<quint64>& children(quint64 parent) const;
    /// The channel and all below it, parents before their children, siblings in their order; 0 gives all.
    QVector<quint64> branch(quint64 id) const;

    void addClient(const voiceclientinfo& client) { clients.insert(client.id, client); }
    void removeClient(quint16 id) { clients.remove(id); }
    void moveClient(quint16 id, quint64 channel);
    void setAway(quint16 id, bool away);
    bool hasClient(quint16 id) const { return clients.contains(id); }
    /// The id 0 when unknown.
    voiceclientinfo client(quint16 id) const { return clients.value(id); }
    quint16 clientNamed(const QString& nickname) const;
    QList<quint16> clientIDs() const { return clients.keys(); }
    QList<quint16> clientsIn(quint64 channel) const;

private:
    void collect(quint64 id, QVector<quint64>* found) const;
    void renumber(quint64 parent);

    QHash<quint64, voicechannel> channels;
    QHash<quint64, QVector<quint64>> chains; ///< by parent
    QMap<quint16, voiceclientinfo> clients;
};
