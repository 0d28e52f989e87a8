#include "signalrecorder.h"

#include "calltext.h"

template <typename... Arguments>
void signalrecorder::record(kelvorprotocol* protocol, const char* name,
                            void (kelvorprotocol::*signal)(uint64, Arguments...))
{
    connect(protocol, signal, this, [this, name](uint64 schid, Arguments... arguments) {
        connections.append(schid);
        lines.append(calltext::call(name, arguments...));
    });
}

signalrecorder::signalrecorder(kelvorprotocol* protocol)
{
    using p = kelvorprotocol;
    record(protocol, "invited", &p::invited);
    record(protocol, "invitelistReceived", &p::invitelistReceived);
    record(protocol, "channelInvitelistReceived", &p::channelInvitelistReceived);
    record(protocol, "acceptlistReceived", &p::acceptlistReceived);
    record(protocol, "rejectlistReceived", &p::rejectlistReceived);
    record(protocol, "clientInvited", &p::clientInvited);
    record(protocol, "channelInvited", &p::channelInvited);
    record(protocol, "clientAcceptedInvite", &p::clientAcceptedInvite);
    record(protocol, "clientRejectedInvite", &p::clientRejectedInvite);
    record(protocol, "clientRejectedInviteVersion", &p::clientRejectedInviteVersion);
    record(protocol, "accept", &p::accept);
    record(protocol, "reject", &p::reject);
    record(protocol, "rejectVersion", &p::rejectVersion);
    record(protocol, "start", &p::start);
    record(protocol, "draw", &p::draw);
    record(protocol, "extendedDraw", &p::extendedDraw);
    record(protocol, "logout", &p::logout);
    record(protocol, "downloadFinished", &p::downloadFinished);
    record(protocol, "takeBack", &p::takeBack);
    record(protocol, "clientTakenBack", &p::clientTakenBack);
    record(protocol, "channelTakenBack", &p::channelTakenBack);
    record(protocol, "pong", &p::pong);
    record(protocol, "busy", &p::busy);
}

QList<QByteArray> signalrecorder::take()
{
    QList<QByteArray> taken;
    taken.swap(lines);
    return taken;
}
