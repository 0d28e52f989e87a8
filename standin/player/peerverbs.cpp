// Commands by which a client without a plugin plays a peer: it sends plugin commands byte by byte.
#include "playverb.h"

#include "standin/client/connectiontab.h"
#include "standin/client/mainwindow.h"
#include "standin/client/voiceclient.h"

namespace {

// {me} stands for the own client id, {NICKNAME} for another's, \xNN for a byte.
QByteArray expand(const QString& text, const voiceconnection& server)
{
    QByteArray bytes;
    for (int i = 0; i < text.size(); ++i) {
        const int close = text.indexOf(QLatin1Char('}'), i);
        if (text.midRef(i, 2) == QLatin1String("\\x")) {
            bytes.append(char(text.midRef(i + 2, 2).toUInt(nullptr, 16)));
            i += 3;
        } else if (text.at(i) == QLatin1Char('{') && close > i) {
            const QString name = text.mid(i + 1, close - i - 1);
            const quint16 id = name == QLatin1String("me") ? server.ownID() : server.voices().clientNamed(name);
            bytes.append(QByteArray::number(id));
            i = close;
        } else {
            bytes.append(text.at(i).toLatin1());
        }
    }
    return bytes;
}

// raw NICKNAME TEXT: in quotes a backslash has to be doubled.
playoutcome raw(playrequest& request)
{
    const connectiontab* const tab = request.client->window()->currentTab();
    if (!tab || !tab->server()->isEstablished())
        return playWaiting(QStringLiteral("the client is not connected"));
    voiceconnection* const server = tab->server();
    const quint16 target = server->voices().clientNamed(request.word(0));
    if (target == 0)
        return playWaiting(QStringLiteral("no client '%1'").arg(request.word(0)));
    const QByteArray text = expand(request.rest(1), *server);
    request.client->host().traffic.countSent(text, 1);
    server->sendCommand("kelvor", text, {target});
    return playDone();
}

// last: the plugin command that came last, in hexadecimal
playoutcome last(playrequest& request)
{
    return playDone(QString::fromLatin1(request.client->host().traffic.lastText().toHex()));
}

} // namespace

void addPeerVerbs(verbtable* verbs)
{
    verbs->insert(QStringLiteral("raw"), raw);
    verbs->insert(QStringLiteral("last"), last);
}
