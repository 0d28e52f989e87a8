#pragma once

#include "floodmeter.h"
#include "transferdesk.h"

#include "standin/common/packetlink.h"

#include <QElapsedTimer>
#include <QObject>

#include <functional>

class voiceserver;

/// The server's end of the link to one client: reads what the client asks and answers. Owned by the server, deletes
/// itself when the link ends.
class clientsession : public QObject {
    Q_OBJECT

public:
    clientsession(QLocalSocket* socket, voiceserver* server);

    quint16 id() const { return ownID; }
    void setID(quint16 id) { ownID = id; }
    void send(const packet& message) { link.send(message); }
    /// Tells the client why it has to go, and ends the link.
    void refuse(unsigned int error, const QString& reason);
    /// Ends the link without a word, as a lost connection does.
    void cut();
    transferdesk& transfers() { return desk; }

private:
    void receive(const packet& message);
    bool receiveFromMember(const packet& message);
    bool receiveFileRequest(const packet& message);
    bool login(const packet& message);
    bool relayCommand(const packet& message);
    bool listFiles(const packet& message);
    struct transferwish {
        quint16 transfer = 0;
        quint64 channel = 0;
        QByteArray password;
        QByteArray path;
    };
    bool upload(const packet& message);
    bool download(const packet& message);
    /// The file behind a transfer, when the channel's password is right and the store agrees; empty after a refusal.
    QString locate(const transferwish& wish, const std::function<unsigned int(QString*)>& inStore);
    bool changeChannels(const packet& message);
    bool moveClient(const packet& message);
    void notice(unsigned int error, const QString& text);
    void linkEnded();
    void leave(bool timedOut);

    voiceserver* const server;
    packetlink link;
    transferdesk desk;
    floodmeter flood;
    QElapsedTimer clock;
    quint16 ownID = 0; ///< 0 before the login
    bool gone = false;
};
