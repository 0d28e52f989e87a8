#pragma once

#include "hostapi/ts3functions.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>

/// One plugin command as the plugin handed it to the client.
struct sentcommand {
    uint64 schid = 0;
    QByteArray pluginID;
    QByteArray text;
    int targetMode = 0;
    QList<anyID> targets;
};
bool operator==(const sentcommand& a, const sentcommand& b);

/// One file request as the plugin handed it to the client.
struct filerequest {
    QByteArray function; ///< "sendFile", "requestFile" or "requestFileList"
    uint64 schid = 0;
    uint64 channel = 0;
    QByteArray password;
    QByteArray path;
    QByteArray localDirectory;
    int overwrite = -1;
    int resume = -1;
    anyID transferID = 0;
};

struct fakeclient {
    QByteArray nickname;
    uint64 channel = 1;
    QByteArray platform = "Linux";
};

struct fakechannel {
    QByteArray name;
    uint64 parent = 0;
    uint64 order = 0;
    bool password = false;
};

/// What one server connection looks like to the plugin.
struct fakeserver {
    QByteArray name = "Test Server";
    anyID ownID = 1;
    bool away = false;
    QList<anyID> clientOrder; ///< in the order in which the client lists them
    QMap<anyID, fakeclient> clients;
    QList<uint64> channelOrder;
    QMap<uint64, fakechannel> channels;

    void addClient(anyID id, const QByteArray& nickname, uint64 channel = 1, const QByteArray& platform = "Linux");
    void addChannel(uint64 id, const QByteArray& name, uint64 parent = 0, bool password = false);
};

/// A voice client without a window for tests of single classes: serves every function that the plugin calls, records
/// what is sent, counts the memory that it hands out, and lets any function fail on demand. One lives at a time, since
/// the functions of the table know no object.
class fakehost {
public:
    fakehost();
    ~fakehost();
    fakehost(const fakehost&) = delete;
    fakehost& operator=(const fakehost&) = delete;

    TS3Functions table() const;

    /// Adds a connection with the own client 1 ("Me") and the channel 1 ("Lobby").
    fakeserver& addServer(uint64 schid);

    /// Takes what was sent so far and forgets it.
    QList<sentcommand> takeSent();
    /// The same for texts alone.
    QList<QByteArray> takeTexts();

    QMap<uint64, fakeserver> servers;
    uint64 currentConnection = 1;
    QSet<QByteArray> failing; ///< names of functions that report an error, such as "getClientID"
    unsigned int failure = ERROR_undefined; ///< the error that they report
    QList<sentcommand> sent;
    QList<filerequest> requests;
    QList<QByteArray> printed; ///< lines in the current tab
    QList<QByteArray> played; ///< wave files
    QByteArray configPath = "/nonexistent/";
    QByteArray pluginPath = "/nonexistent/";
    anyID nextTransfer = 100;
    int outstanding = 0; ///< texts and lists handed out and not yet given back
    QMap<QByteArray, int> calls; ///< how often each function was called
};
