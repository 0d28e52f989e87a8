#pragma once

#include "commandrelay.h"
#include "filestore.h"
#include "serveroptions.h"

#include "standin/common/packet.h"
#include "standin/common/voicemodel.h"

#include <QHash>
#include <QLocalServer>
#include <QObject>
#include <QSet>

class clientsession;

/// One voice server: listens for clients, holds the channels with their passwords and files, tells everybody what
/// happens, and relays plugin commands.
class voiceserver : public QObject {
    Q_OBJECT

public:
    /// store: the directory of the files, which must exist.
    voiceserver(const serveroptions& options, const QString& store, QObject* parent = nullptr);

    /// False when the name is in use or cannot be listened on; error tells why.
    bool listen(QString* error);

    const voicemodel& voices() const { return model; }
    const filestore& files() const { return store; }
    commandrelay& relay() { return commands; }
    serveroptions& settings() { return options; }

    /// The channel's id. An empty password is none.
    quint64 addChannel(quint64 parent, const QString& name, const QString& password, quint16 invoker);
    /// Clients in it go to the first channel, which itself cannot be removed. Gives an error code, as do the following.
    unsigned int removeChannel(quint64 channel, quint16 invoker);
    unsigned int moveChannel(quint64 channel, quint64 parent, quint16 invoker);
    unsigned int checkPassword(quint64 channel, const QByteArray& password) const;

    /// Takes a client in and tells it the present state; an error with its reason otherwise.
    unsigned int enter(clientsession* session, voiceclientinfo info, QString* reason);
    void remove(clientsession* session, bool timedOut);
    unsigned int moveClient(quint16 client, quint64 channel, const QString& password, quint16 invoker);
    void setAway(quint16 client, bool away);
    void chat(quint16 sender, const QString& text);
    /// Shuts a nickname out for as long as the server runs.
    void block(const QString& nickname) { blocked.insert(nickname); }

    clientsession* sessionOf(quint16 client) const { return sessions.value(client); }
    /// Hands what settings() says about transfers to those that begin from now on.
    void applyTransferSettings();

    /// A command to several clients counts once for each.
    void relayCommand(const relayedcommand& command);
    void countDropped() { ++dropped; }
    quint64 relayedCount() const { return relayed; }
    quint64 deliveredCount() const { return delivered; }
    quint64 droppedCount() const { return dropped; }

signals:
    void clientCountChanged(int count);

private:
    void accept();
    void deliver(const relayedcommand& command);
    void tellState(clientsession* session);
    void broadcast(const packet& message);
    quint16 freeClientID();

    serveroptions options;
    QLocalServer listener;
    voicemodel model;
    filestore store;
    commandrelay commands;
    QHash<quint64, QByteArray> passwords;
    QHash<quint16, clientsession*> sessions; ///< of clients that have entered
    QSet<QString> blocked;
    quint64 lastChannel = 0;
    quint16 lastClient = 0;
    quint64 relayed = 0;
    quint64 delivered = 0;
    quint64 dropped = 0; ///< by the limits on length and number
};

/// The town that people find on a fresh server.
void addDefaultChannels(voiceserver* server);
