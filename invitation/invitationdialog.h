#pragma once

#include "hostapi/ts3functions.h"
#include "invitees.h"
#include "ui_invitationdialog.h"

#include <QDialog>

#include <memory>

class kelvorprotocol;
class lobbystate;
class mytreeitem;
class QAction;
class QMenu;
class QStatusBar;
class ts3filedialog;

/// The lobby of a session. On the session's host the user chooses here the size or a picture and whom to invite; on a
/// guest it is a read-only mirror of the same, in which the client waits for the start. Made and connected by the
/// controller, shown modeless; it deletes itself when it is closed, and hears nothing more once it has ended.
class invitationdialog : public QDialog, private Ui::invitationdialog {
    Q_OBJECT

public:
    /// host is 0 on the session's host, on a guest the host's client id. width and height in pixels. The endpoint must
    /// outlive the dialog's use.
    invitationdialog(anyID host, kelvorprotocol* protocol, const TS3Functions& functions, uint64 schandler,
                     const QString& downloadDir, int width, int height, QWidget* parent = nullptr);
    ~invitationdialog() override;

    /// What the edits hold, 0 where that is no number.
    int imageWidth() const;
    int imageHeight() const;
    QString remotePath() const { return imagePath; }
    uint64 channel() const { return imageChannel; } ///< 0 when no picture was chosen
    QString localFile() const { return imageFile; }
    bool asBackground() const;
    uint64 remoteSize() const { return imageSize; } ///< in bytes
    anyID sessionHost() const { return host; }
    QList<anyID> accepted() const { return lists().accepted(); } ///< in order of acceptance

    const invitees& lists() const;
    /// Null when there is no row.
    const mytreeitem* clientRow(anyID client) const;
    const mytreeitem* channelRow(uint64 channel) const;

signals:
    /// The dialog's own result, 1 when the session starts, 0 otherwise; emitted once.
    void inviteFinished(int ret, uint64 schid);
    void fileList(uint64 schandler, uint64 channelID, QString path, QString name, uint64 size, uint64 datetime,
                  int type);
    void fileTransferStatus(anyID transferID, uint status, QString statusMessage, uint64 remotefileSize, uint64 schid);
    /// Declared beside its neighbours; nothing emits it, since a listing has no end that anybody waits for.
    void fileListFinished(uint64 schandler, uint64 channelID, QString path);

public slots:
    void onClientConnected(uint64 schandler, anyID clientID, uint64 channelID);
    void onClientMoved(uint64 schandler, anyID clientID, uint64 oldChannelID, uint64 newChannelID);
    void onClientLeft(uint64 schandler, anyID clientID, uint64);
    void onChannelCreated(uint64 schandler, uint64 channelID, uint64 parent);
    void onChannelMoved(uint64 schandler, uint64 channelID, uint64 newparent);
    void onChannelDeleted(uint64 schandler, uint64 channelID);
    void onFileList(uint64 schandler, uint64 channelID, QString path, QString name, uint64 size, uint64 datetime,
                    int type);
    void onFileTransferStatusEvent(anyID transferID, uint status, QString statusMessage, uint64 remotefileSize,
                                   uint64 schid);

    // On the session's host.
    void onClientAccepted(uint64 schandler, anyID client);
    void onClientRejected(uint64 schandler, anyID client);
    void onClientRejectedVersion(uint64 schandler, anyID client);
    void onPong(uint64 schandler, anyID client);
    void onBusy(uint64 schandler, anyID client);
    void invite();
    void takeBack();

    // On a guest. Lists are ended by 0 and valid only during the call.
    void onAcceptListReceived(uint64 schandler, anyID* list, anyID sender);
    void onInvitelistReceived(uint64 schandler, anyID* list, anyID sender);
    void onRejectlistReceived(uint64 schandler, anyID* list, anyID sender);
    void onChannelInvitelistReceived(uint64 schandler, uint64* list, anyID sender);
    void onClientAcceptedInvite(uint64 schandler, anyID client, anyID sender);
    void onClientInvited(uint64 schandler, anyID client, anyID sender);
    void onClientRejectedInvite(uint64 schandler, anyID client, anyID sender);
    void onClientRejectedInivteVersion(uint64 schandler, anyID client, anyID sender);
    void onChannelInvited(uint64 schandler, uint64 channel, anyID sender);
    void onTakeBack(uint64 schandler, anyID sender);
    void onClientTakenBack(uint64 schandler, anyID client, anyID sender);
    void onChannelTakenBack(uint64 schandler, uint64 channel, anyID sender);

    // On both.
    void onLogout(uint64 schandler, anyID sender);

private slots:
    void onLoadButtonClicked();
    void onClearButtonClicked();
    void onTreeContextMenu(QPoint pos);
    void dialogFinished(int ret);

private:
    void makeLegend();
    void makeMenu();
    void disableInput();
    void buildTree();
    bool isMine(uint64 schid) const { return schid == schandler && !ended; }
    bool isReady(uint64 schid) const { return isMine(schid) && treeReady; }
    bool isFromHost(uint64 schid, anyID sender) const { return isMine(schid) && host != 0 && sender == host; }
    void mirrorList(const anyID* list, invitestate state);
    void fetchPicture();
    void takePicture();
    void dropPicture(unsigned int error);

    anyID host;
    kelvorprotocol* protocol;
    TS3Functions ts3Functions;
    uint64 schandler;
    std::unique_ptr<lobbystate> people;
    bool treeReady = false;
    bool ended = false;
    QMenu* contextMenu = nullptr; ///< on a guest there is none
    QAction* inviteAction = nullptr;
    QAction* takeBackAction = nullptr;
    ts3filedialog* fileDialog = nullptr; ///< only while a picture is being loaded
    uint64 imageChannel = 0;
    QString imagePath; ///< in the channel's file store
    QString imagePassword; ///< the channel's
    QString imageFile; ///< on the local disk
    uint64 imageSize = 0;
    QStatusBar* legendBar = nullptr;
    QString downloadDir;
};
