#pragma once

#include "hostapi/ts3functions.h"

#include <QList>
#include <QObject>
#include <QPoint>
#include <QString>

#include <memory>

enum class messagekind : char;
struct channelmessage;
struct clientmessage;
struct sendermessage;

/// Turns the messages of peers into signals and send requests into messages. It keeps no list of sessions or peers: one
/// object, owned by the controller, serves all server connections, and every receiver compares the connection and,
/// where it matters, the sender. Signals are emitted from inside dispatch(), on the client's thread.
class kelvorprotocol : public QObject {
    Q_OBJECT

public:
    explicit kelvorprotocol(const TS3Functions& functions);
    ~kelvorprotocol() override;

    /// Whether a ping is answered; it is at first.
    void setPong(bool answer);
    /// Copies the id under which the client relays this plugin's commands; set before anything is sent.
    void setPluginCommandID(const char* id);

    /// Takes one command as the client delivers it, NUL-ended. What is no message of this plugin is dropped.
    void dispatch(uint64 schid, const char* command);

    /// Says "Hallo" to client 123 on connection 1, whatever connection is in front. Peers drop it.
    void sendTestMessage();

    // Every operation below sends one message and returns whether it was sent: without an own id on the connection
    // nothing is, and neither is a list without entries. Lists and targets are ended by 0 and stay the caller's.
    bool sendInvite(uint64 schid, anyID target);
    bool sendInviteList(uint64 schid, const anyID* list, anyID target);
    bool sendChannelInviteList(uint64 schid, const uint64* list, anyID target);
    bool sendAcceptList(uint64 schid, const anyID* list, anyID target);
    bool sendRejectList(uint64 schid, const anyID* list, anyID target);
    bool sendClientInvited(uint64 schid, anyID client, const anyID* targets);
    bool sendChannelInvited(uint64 schid, uint64 channel, const anyID* targets);
    bool sendClientTakenBack(uint64 schid, anyID client, const anyID* targets);
    bool sendChannelTakenBack(uint64 schid, uint64 channel, const anyID* targets);
    bool sendClientAcceptedInvite(uint64 schid, anyID client, const anyID* targets);
    bool sendClientRejectedInvite(uint64 schid, anyID client, const anyID* targets);
    bool sendClientRejectedInviteVersion(uint64 schid, anyID client, const anyID* targets);
    bool sendAccept(uint64 schid, anyID target);
    bool sendReject(uint64 schid, anyID target);
    /// Returns false even after sending.
    bool sendRejectVersion(uint64 schid, anyID target);
    /// width and height in pixels, size in bytes; channel 0 and an empty path when no picture goes with the session.
    bool sendStart(uint64 schid, int width, int height, uint64 channel, bool background, uint64 size,
                   const QString& path, const anyID* targets);
    /// tool is a value of kelvortool, color a QColor::name(), thick and points in canvas pixels.
    bool sendDraw(uint64 schid, char tool, const QString& color, qreal thick, const QList<QPoint>& points,
                  const anyID* targets);
    bool sendLogout(uint64 schid, const anyID* targets);
    bool sendExtendedDraw(uint64 schid, char tool, const QString& data, const anyID* targets);
    bool sendDownloadFinished(uint64 schid, bool result, const anyID* targets);
    bool sendTakeBack(uint64 schid, anyID target);
    bool sendPing(uint64 schid, const anyID* targets);
    bool sendPong(uint64 schid, anyID target);
    bool sendBusy(uint64 schid, anyID target);

signals:
    // Received lists are ended by 0 and valid only during the signal.
    void invited(uint64 schid, anyID sender);
    void invitelistReceived(uint64 schid, anyID* list, anyID sender);
    void channelInvitelistReceived(uint64 schid, uint64* list, anyID sender);
    void acceptlistReceived(uint64 schid, anyID* list, anyID sender);
    void rejectlistReceived(uint64 schid, anyID* list, anyID sender);
    void clientInvited(uint64 schid, anyID client, anyID sender);
    void channelInvited(uint64 schid, uint64 channel, anyID sender);
    void clientAcceptedInvite(uint64 schid, anyID client, anyID sender);
    void clientRejectedInvite(uint64 schid, anyID client, anyID sender);
    void clientRejectedInviteVersion(uint64 schid, anyID client, anyID sender);
    void accept(uint64 schid, anyID sender);
    void reject(uint64 schid, anyID sender);
    void rejectVersion(uint64 schid, anyID sender);
    void start(uint64 schid, int width, int height, uint64 channel, bool background, uint64 size, const QString& path,
               anyID sender);
    void draw(uint64 schid, char tool, const QString& color, qreal thick, const QList<QPoint>& points, anyID sender);
    void extendedDraw(uint64 schid, char tool, const QString& data, anyID sender);
    void logout(uint64 schid, anyID sender);
    void downloadFinished(uint64 schid, bool result, anyID sender);
    void takeBack(uint64 schid, anyID sender);
    void clientTakenBack(uint64 schid, anyID client, anyID sender);
    void channelTakenBack(uint64 schid, uint64 channel, anyID sender);
    void pong(uint64 schid, anyID sender);
    void busy(uint64 schid, anyID sender);

private:
    template <typename Write> bool send(uint64 schid, const anyID* targets, Write write) const;
    bool sendSender(messagekind kind, uint64 schid, const anyID* targets) const;
    bool sendSenderTo(messagekind kind, uint64 schid, anyID target) const;
    bool sendClient(messagekind kind, uint64 schid, anyID client, const anyID* targets) const;
    bool sendClientList(messagekind kind, uint64 schid, const anyID* list, anyID target) const;
    bool sendChannel(messagekind kind, uint64 schid, uint64 channel, const anyID* targets) const;

    TS3Functions functions;
    std::unique_ptr<char[]> pluginID; ///< null until the client has named it
    bool answersPing = true;
};
