#pragma once

#include "hostapi/hosttypes.h"

#include <QList>
#include <QPoint>
#include <QString>

#include <vector>

// The messages that peers exchange, as plain values. messagewriter.h turns them into bytes and messagereader.h back;
// docs/protocol.md is the reference. Senders are client ids, the last member as in the signals of kelvorprotocol.

/// The first byte of a message. The values are the wire's and part of what older peers understand.
enum class messagekind : char {
    invite = 1,
    invitelist = 2,
    channelInvitelist = 3,
    acceptlist = 4,
    rejectlist = 5,
    clientInvited = 6,
    channelInvited = 7,
    clientTakenBack = 8,
    channelTakenBack = 9,
    clientAcceptedInvite = 10,
    clientRejectedInvite = 11,
    clientRejectedInviteVersion = 12,
    accept = 13,
    reject = 14,
    rejectVersion = 15,
    start = 16,
    draw = 17,
    logout = 18,
    extendedDraw = 19,
    downloadFinished = 20,
    takeBack = 21,
    ping = 22,
    pong = 23,
    busy = 24,
};

/// Travels in invite only; a peer of another version is turned away there.
constexpr unsigned int protocolVersion = 2;

struct invitemessage {
    unsigned int version = protocolVersion;
    anyID sender = 0;
};

/// invitelist, acceptlist, rejectlist: clients of the lobby for a guest that has just accepted. The list is ended by 0.
struct clientlistmessage {
    std::vector<anyID> list = {0};
    anyID sender = 0;
};

/// channelInvitelist: the invited channels for a guest that has just accepted. The list is ended by 0.
struct channellistmessage {
    std::vector<uint64> list = {0};
    anyID sender = 0;
};

/// clientInvited, clientTakenBack, clientAcceptedInvite, clientRejectedInvite, clientRejectedInviteVersion.
struct clientmessage {
    anyID client = 0;
    anyID sender = 0;
};

/// channelInvited, channelTakenBack.
struct channelmessage {
    uint64 channel = 0;
    anyID sender = 0;
};

/// Messages that say no more than who sent them: accept, reject, rejectVersion, logout, takeBack, ping, pong, busy.
struct sendermessage {
    anyID sender = 0;
};

struct startmessage {
    int width = 0; ///< pixels
    int height = 0;
    uint64 channel = 0; ///< whose file store holds the picture, 0 when none goes with the session
    bool background = false;
    uint64 size = 0; ///< of the picture in bytes; means nothing without a channel
    QString path;
    anyID sender = 0;
};

struct drawmessage {
    char tool = 0; ///< a value of kelvortool, handed on as it came
    QString color; ///< QColor::name()
    qreal thick = 0; ///< pixels
    QList<QPoint> points;
    anyID sender = 0;
};

struct extendeddrawmessage {
    char tool = 0;
    QString data; ///< its form is the tool's business
    anyID sender = 0;
};

struct downloadfinishedmessage {
    bool result = false;
    anyID sender = 0;
};

bool operator==(const invitemessage& a, const invitemessage& b);
bool operator==(const clientlistmessage& a, const clientlistmessage& b);
bool operator==(const channellistmessage& a, const channellistmessage& b);
bool operator==(const clientmessage& a, const clientmessage& b);
bool operator==(const channelmessage& a, const channelmessage& b);
bool operator==(const sendermessage& a, const sendermessage& b);
bool operator==(const startmessage& a, const startmessage& b);
bool operator==(const drawmessage& a, const drawmessage& b);
bool operator==(const extendeddrawmessage& a, const extendeddrawmessage& b);
bool operator==(const downloadfinishedmessage& a, const downloadfinishedmessage& b);
