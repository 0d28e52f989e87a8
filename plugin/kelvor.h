#pragma once

#include "hostapi/ts3functions.h"
#include "sessionstate.h"
#include "settings.h"
#include "windowkeeper.h"

#include <QAction>
#include <QHash>
#include <QList>
#include <QMainWindow>
#include <QObject>
#include <QPointer>

class invitationdialog;
class kelvorprotocol;
class whiteboard;

/// The one controller of the plugin, made when the client loads it and deleted when the client shuts it down. It places
/// the menu entry, turns what the client reports into signals, and holds for each server connection the state of its
/// session with the open lobby or whiteboard. Nothing of it, and no window that it made, outlives it.
class kelvor : public QObject {
    Q_OBJECT

public:
    explicit kelvor(const TS3Functions& functions);
    ~kelvor() override;

    /// The chat command behind the keyword. Only the word "open", in any case, opens a session and gives true; any
    /// other text sends the fixed test message and gives false.
    bool handleCommand(uint64 schid, const QString& command);
    /// A plugin command from a peer; dropped unless the part of pluginName before the first dot is "kelvor".
    void handlePluginCommand(uint64 schid, const QString& pluginName, const char* pluginCommand);
    /// visibility is one of the client's ENTER_, RETAIN_ and LEAVE_VISIBILITY; any other value counts as a plain move.
    void handleClientMove(uint64 schid, anyID client, uint64 oldChannel, uint64 newChannel, int visibility);
    void setPluginCommandID(const char* id);

    /// Starts a session as its host on the connection; a line in the current tab tells why if that cannot be.
    void openSession(uint64 schid);
    /// Runs the settings dialog; parent is a QWidget of the client, or null.
    void showConfigDialog(void* parent);

    sessionstate stateOf(uint64 schid) const;

signals:
    /// Declared for the client's sake; nothing emits it.
    void pluginCommandEvent(uint64 schid, QString command);
    void clientConnected(uint64 schid, anyID client, uint64 channel);
    void clientLeft(uint64 schid, anyID client, uint64 channel);
    void clientMoved(uint64 schid, anyID client, uint64 oldChannel, uint64 newChannel);
    void channelCreated(uint64 schid, uint64 channel, uint64 parent);
    void channelDeleted(uint64 schid, uint64 channel);
    void channelMoved(uint64 schid, uint64 channel, uint64 newParent);
    void fileList(uint64 schid, uint64 channel, QString path, QString name, uint64 size, uint64 datetime, int type);
    void fileTransferStatus(anyID transfer, uint status, QString statusMessage, uint64 remotefileSize, uint64 schid);
    /// Emitted at the very end, while endpoint and windows still live: whoever sits in a nested event loop that the
    /// controller does not hold takes leave now.
    void shuttingDown();

public slots:
    void createMenu();
    void startWhiteboard();
    void onInviteFinishedHost(int ret, uint64 schid);
    void onInviteFinishedInvited(int ret, uint64 schid);
    void onWhiteboardClosed(uint64 schid);
    void onInvited(uint64 schid, anyID sender);
    void onStart(uint64 schid, int width, int height, uint64 channel, bool background, uint64 size, QString path,
                 anyID sender);

private slots:
    void onMainWindowGone();

private:
    void loadConfig();
    void saveConfig();

    bool asksUser(uint64 schid, anyID sender);
    void joinLobby(uint64 schid, anyID sender);
    invitationdialog* makeLobby(uint64 schid, anyID sessionHost);
    void startAsHost(uint64 schid, invitationdialog* lobby);
    void startAsGuest(uint64 schid, invitationdialog* lobby);
    void showWhiteboard(uint64 schid, whiteboard* board);
    void leaveLobbies();
    /// Closes every window of every connection; the peers of each hear of it.
    void endSessions();

    TS3Functions ts3Functions;
    QPointer<QMainWindow> mainWindow; ///< the client's, found by its class name
    QPointer<QAction> menuAction; ///< owned, in a menu of the client

    QHash<uint64, int> sessions; ///< a sessionstate by connection; an absent entry counts as session_none
    QHash<uint64, whiteboard*> whiteboards;
    QHash<uint64, invitationdialog*> invitations;
    QHash<uint64, startinfo> pendingstarts; ///< the last start that came on a connection, until a guest's lobby uses it
    QHash<uint64, QList<anyID>> participants; ///< with whom the last whiteboard of a connection was opened

    kelvorprotocol* protocol; ///< owned

    settings config;
    windowkeeper windows;
};
