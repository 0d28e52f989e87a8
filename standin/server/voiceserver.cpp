#include "voiceserver.h"

#include "clientsession.h"

#include "hostapi/hosttypes.h"

#include <QLocalSocket>

namespace {

constexpr int probeTime = 500; // milliseconds

constexpr int longestNickname = 4096;

} // namespace

voiceserver::voiceserver(const serveroptions& options, const QString& storeDirectory, QObject* parent)
    : QObject(parent)
    , options(options)
    , store(storeDirectory)
    , commands(options.relay)
{
    connect(&listener, &QLocalServer::newConnection, this, &voiceserver::accept);
    connect(&commands, &commandrelay::deliver, this, &voiceserver::deliver);
}

bool voiceserver::listen(QString* error)
{
    if (listener.listen(options.name))
        return true;
    if (listener.serverError() == QAbstractSocket::AddressInUseError) {
        QLocalSocket probe;
        probe.connectToServer(options.name);
        if (probe.waitForConnected(probeTime)) {
            *error = QStringLiteral("The server name '%1' is in use.").arg(options.name);
            return false;
        }
        // Nobody answers: the name was left behind by a server that did not end well.
        QLocalServer::removeServer(options.name);
        if (listener.listen(options.name))
            return true;
    }
    *error = QStringLiteral("Cannot listen as '%1': %2").arg(options.name, listener.errorString());
    return false;
}

quint64 voiceserver::addChannel(quint64 parent, const QString& name, const QString& password, quint16 invoker)
{
    voicechannel channel;
    channel.id = lastChannel + 1;
    channel.parent = parent;
    channel.order = model.children(parent).isEmpty() ? 0 : model.children(parent).last();
    channel.name = name;
    channel.hasPassword = !password.isEmpty();
    if (name.isEmpty() || !model.addChannel(channel))
        return 0;
    lastChannel = channel.id;
    if (channel.hasPassword)
        passwords.insert(channel.id, password.toUtf8());
    broadcast(makePacket(packetkind::channelAdded, channel, invoker, false));
    return channel.id;
}

unsigned int voiceserver::removeChannel(quint64 channel, quint16 invoker)
{
    const quint64 first = model.children(0).value(0);
    const QVector<quint64> branch = model.branch(channel);
    if (!model.hasChannel(channel) || branch.contains(first))
        return ERROR_channel_invalid_id;
    for (const quint64 one : branch) {
        const QList<quint16> inside = model.clientsIn(one);
        for (const quint16 client : inside) {
            model.moveClient(client, first);
            broadcast(makePacket(packetkind::clientMoved, client, one, first, invoker));
        }
    }
    model.removeChannel(channel);
    // The branch is told from its top: whoever follows must be able to hear of a channel whose parent is gone already.
    for (const quint64 one : branch) {
        passwords.remove(one);
        broadcast(makePacket(packetkind::channelRemoved, one, invoker));
    }
    return ERROR_ok;
}

unsigned int voiceserver::moveChannel(quint64 channel, quint64 parent, quint16 invoker)
{
    if (!model.moveChannel(channel, parent))
        return ERROR_channel_invalid_id;
    broadcast(makePacket(packetkind::channelMoved, channel, parent, model.channel(channel).order, invoker));
    return ERROR_ok;
}

unsigned int voiceserver::checkPassword(quint64 channel, const QByteArray& password) const
{
    if (!model.hasChannel(channel))
        return ERROR_channel_invalid_id;
    return passwords.value(channel).isEmpty() || passwords.value(channel) == password ? ERROR_ok
                                                                                      : ERROR_channel_invalid_password;
}

unsigned int voiceserver::enter(clientsession* session, voiceclientinfo info, QString* reason)
{
    if (info.nickname.isEmpty() || info.nickname.size() > longestNickname) {
        *reason = QStringLiteral("A nickname is needed.");
        return ERROR_parameter_invalid;
    }
    if (model.clientNamed(info.nickname) != 0) {
        *reason = QStringLiteral("The nickname '%1' is in use on this server.").arg(info.nickname);
        return ERROR_parameter_invalid;
    }
    if (blocked.contains(info.nickname)) {
        *reason = QStringLiteral("You sent too much and were shut out.");
        return ERROR_client_is_flooding;
    }
    info.id = freeClientID();
    if (info.id == 0) {
        *reason = QStringLiteral("The server is full.");
        return ERROR_undefined;
    }
    if (info.channel == 0)
        info.channel = model.children(0).value(0);
    model.addClient(info);
    session->setID(info.id);
    tellState(session);
    broadcast(makePacket(packetkind::clientEntered, info, false));
    sessions.insert(info.id, session);
    emit clientCountChanged(sessions.size());
    return ERROR_ok;
}

void voiceserver::remove(clientsession* session, bool timedOut)
{
    const quint16 id = session->id();
    if (sessions.remove(id) == 0)
        return;
    const quint64 channel = model.client(id).channel;
    model.removeClient(id);
    broadcast(makePacket(packetkind::clientLeft, id, channel, timedOut));
    emit clientCountChanged(sessions.size());
}

unsigned int voiceserver::moveClient(quint16 client, quint64 channel, const QString& password, quint16 invoker)
{
    if (!model.hasClient(client))
        return ERROR_client_invalid_id;
    if (const unsigned int error = checkPassword(channel, password.toUtf8()))
        return error;
    const quint64 before = model.client(client).channel;
    if (before == channel)
        return ERROR_ok;
    model.moveClient(client, channel);
    broadcast(makePacket(packetkind::clientMoved, client, before, channel, invoker));
    return ERROR_ok;
}

void voiceserver::setAway(quint16 client, bool away)
{
    model.setAway(client, away);
    broadcast(makePacket(packetkind::clientAway, client, away));
}

void voiceserver::chat(quint16 sender, const QString& text)
{
    const QList<quint16> listeners = model.clientsIn(model.client(sender).channel);
    for (const quint16 listener : listeners)
        sessions.value(listener)->send(makePacket(packetkind::chat, sender, text));
}

void voiceserver::applyTransferSettings()
{
    for (clientsession* session : qAsConst(sessions)) {
        session->transfers().setPace(options.pace);
        session->transfers().setFaults(options.transfers);
    }
}

void voiceserver::relayCommand(const relayedcommand& command)
{
    ++relayed;
    commands.relay(command);
}

void voiceserver::accept()
{
    while (QLocalSocket* const socket = listener.nextPendingConnection())
        new clientsession(socket, this);
}

void voiceserver::deliver(const relayedcommand& command)
{
    clientsession* const session = sessions.value(command.target);
    if (!session)
        return;
    ++delivered;
    session->send(makePacket(packetkind::command, command.plugin, command.text, command.sender));
}

void voiceserver::tellState(clientsession* session)
{
    session->send(makePacket(packetkind::welcome, session->id(), options.title));
    const QVector<quint64> all = model.branch(0);
    for (const quint64 channel : all)
        session->send(makePacket(packetkind::channelAdded, model.channel(channel), quint16(0), true));
    const QList<quint16> clients = model.clientIDs();
    for (const quint16 client : clients)
        session->send(makePacket(packetkind::clientEntered, model.client(client), true));
    session->send(makePacket(packetkind::ready));
}

void voiceserver::broadcast(const packet& message)
{
    for (clientsession* session : qAsConst(sessions))
        session->send(message);
}

// Ids are not given twice in a row: what is still on its way to somebody who left must not reach a newcomer.
quint16 voiceserver::freeClientID()
{
    for (int tries = 0; tries < 0xffff; ++tries) {
        lastClient = quint16(lastClient + 1);
        if (lastClient != 0 && !model.hasClient(lastClient))
            return lastClient;
    }
    return 0;
}

void addDefaultChannels(voiceserver* server)
{
    server->addChannel(0, QStringLiteral("Town Square"), QString(), 0);
    const quint64 team = server->addChannel(0, QStringLiteral("Design Team"), QString(), 0);
    server->addChannel(team, QStringLiteral("Sketches"), QString(), 0);
    server->addChannel(team, QStringLiteral("Posters"), QString(), 0);
    const quint64 coffee = server->addChannel(0, QStringLiteral("Coffee Corner"), QString(), 0);
    server->addChannel(coffee, QStringLiteral("Window Table"), QString(), 0);
    server->addChannel(0, QStringLiteral("Secret Garden"), QStringLiteral("rose"), 0);
}
