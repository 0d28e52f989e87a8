#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QString>
#include <QVector>

/// One channel as server and clients know it. Channels below one parent form a chain: order names the sibling in front,
/// 0 the first place.
struct voicechannel {
    quint64 id = 0;
    quint64 parent = 0;
    quint64 order = 0;
    QString name;
    bool hasPassword = false;
};

struct voiceclientinfo {
    quint16 id = 0;
    quint64 channel = 0;
    QString nickname;
    QString platform;
    bool away = false;
};

/// One entry of a directory in a channel's file store.
struct fileentry {
    QByteArray name; ///< UTF-8
    quint64 size = 0; ///< bytes, 0 for a directory
    quint64 modified = 0; ///< seconds since 1970
    bool directory = false;
};

QDataStream& operator<<(QDataStream& stream, const voicechannel& channel);
QDataStream& operator>>(QDataStream& stream, voicechannel& channel);
QDataStream& operator<<(QDataStream& stream, const voiceclientinfo& client);
QDataStream& operator>>(QDataStream& stream, voiceclientinfo& client);
QDataStream& operator<<(QDataStream& stream, const fileentry& entry);
QDataStream& operator>>(QDataStream& stream, fileentry& entry);

/// What a client opens a link with; whoever says something else is turned away.
constexpr char linkSignature[] = "voice stand-in 1";
