// Commands about the servers: talk, channels, moves, presence.
#include "playverb.h"

#include "standin/client/connectiontab.h"
#include "standin/client/mainwindow.h"
#include "standin/client/voiceclient.h"

namespace {

voiceconnection* current(const playrequest& request)
{
    const connectiontab* const tab = request.client->window()->currentTab();
    return tab && tab->server()->isEstablished() ? tab->server() : nullptr;
}

// Lets work act on the connection of the current tab.
template <typename Work> playoutcome act(const playrequest& request, Work work)
{
    voiceconnection* const server = current(request);
    return server ? work(server) : playWaiting(QStringLiteral("the client is not connected"));
}

playoutcome withChannel(voiceconnection* server, const QString& name, const std::function<void(quint64)>& work)
{
    const quint64 channel = server->voices().channelNamed(name);
    if (channel == 0)
        return playWaiting(QStringLiteral("no channel '%1'").arg(name));
    work(channel);
    return playDone();
}

// chat LINE: typed into the line of the current tab.
playoutcome chat(playrequest& request)
{
    connectiontab* const tab = request.client->window()->currentTab();
    const QString line = request.rest(0);
    QMetaObject::invokeMethod(
        tab, [=] { tab->submit(line); }, Qt::QueuedConnection);
    return playActed();
}

// away on|off, answered when the server has told everybody.
playoutcome away(playrequest& request)
{
    return act(request, [&](voiceconnection* server) {
        const bool wanted = request.word(0) == QLatin1String("on");
        if (request.phase == 0) {
            server->setAway(wanted);
            return playAgain();
        }
        return server->isAway() == wanted ? playDone() : playWaiting(QStringLiteral("the server does not answer"));
    });
}

// enter CHANNEL [PASSWORD]
playoutcome enter(playrequest& request)
{
    return act(request, [&](voiceconnection* server) {
        if (request.phase == 0) {
            const playoutcome asked = withChannel(server, request.word(0), [&](quint64 channel) {
                server->moveClient(server->ownID(), channel, request.word(1));
            });
            return asked.state == playstate::done ? playAgain() : asked;
        }
        return server->voices().channel(server->ownChannel()).name == request.word(0)
            ? playDone()
            : playWaiting(QStringLiteral("the channel cannot be entered"));
    });
}

// send-to CHANNEL NICKNAME: moves somebody else.
playoutcome sendTo(playrequest& request)
{
    return act(request, [&](voiceconnection* server) {
        const quint16 client = server->voices().clientNamed(request.word(1));
        if (client == 0)
            return playWaiting(QStringLiteral("no client '%1'").arg(request.word(1)));
        return withChannel(server, request.word(0),
                           [=](quint64 channel) { server->moveClient(client, channel, QString()); });
    });
}

// make-channel NAME [PARENT] [PASSWORD], remove-channel NAME, move-channel NAME [PARENT]
playoutcome makeChannel(playrequest& request)
{
    return act(request, [&](voiceconnection* server) {
        if (request.word(1).isEmpty()) {
            server->createChannel(0, request.word(0), request.word(2));
            return playDone();
        }
        return withChannel(server, request.word(1),
                           [&](quint64 parent) { server->createChannel(parent, request.word(0), request.word(2)); });
    });
}

playoutcome removeChannel(playrequest& request)
{
    return act(request, [&](voiceconnection* server) {
        return withChannel(server, request.word(0), [=](quint64 channel) { server->removeChannel(channel); });
    });
}

playoutcome moveChannel(playrequest& request)
{
    return act(request, [&](voiceconnection* server) {
        const quint64 parent = server->voices().channelNamed(request.word(1));
        return withChannel(server, request.word(0), [=](quint64 channel) { server->moveChannel(channel, parent); });
    });
}

} // namespace

void addServerVerbs(verbtable* verbs)
{
    verbs->insert(QStringLiteral("chat"), chat);
    verbs->insert(QStringLiteral("away"), away);
    verbs->insert(QStringLiteral("enter"), enter);
    verbs->insert(QStringLiteral("send-to"), sendTo);
    verbs->insert(QStringLiteral("make-channel"), makeChannel);
    verbs->insert(QStringLiteral("remove-channel"), removeChannel);
    verbs->insert(QStringLiteral("move-channel"), moveChannel);
    verbs->insert(QStringLiteral("connect"), [](playrequest& request) {
        request.client->connectAgain(request.word(0));
        return playDone();
    });
    verbs->insert(QStringLiteral("tab"), [](playrequest& request) {
        request.client->window()->showTab(request.word(0).toULongLong());
        return playDone();
    });
}
