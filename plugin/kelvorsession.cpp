#include "kelvor.h"

#include "hostapi/hostcalls.h"
#include "invitation/invitationdialog.h"
#include "prompts/heldwindow.h"
#include "prompts/prompts.h"
#include "protocol/kelvorprotocol.h"
#include "protocol/zeroended.h"
#include "whiteboard/whiteboard.h"

#include <QMessageBox>

// The session logic of the controller: from the first invitation to the closed whiteboard. Boxes and transfers run
// nested event loops in which everything here can be entered again, up to the controller's own end; the state is set
// before one opens, and after it nothing is taken for granted.

void kelvor::openSession(uint64 schid)
{
    int status = STATUS_DISCONNECTED;
    if (ts3Functions.getConnectionStatus(schid, &status) != ERROR_ok) {
        hostcalls::printToCurrentTab(ts3Functions, QString::fromLatin1("error querying connection status"));
        return;
    }
    if (stateOf(schid) != session_none) {
        hostcalls::printToCurrentTab(ts3Functions,
                                     QString::fromLatin1("There is already a kelvor session running on this server"));
        return;
    }
    sessions[schid] = session_hosting;
    invitationdialog* lobby = makeLobby(schid, 0);
    connectHostLobby(lobby);
    lobby->show();
}

invitationdialog* kelvor::makeLobby(uint64 schid, anyID sessionHost)
{
    const bool hosting = sessionHost == 0;
    auto* lobby =
        new invitationdialog(sessionHost, protocol, ts3Functions, schid, hosting ? config.downloaddir : QString(),
                             hosting ? config.defaultwidth : 0, hosting ? config.defaultheight : 0, mainWindow);
    keepTrack(lobby);
    invitations.insert(schid, lobby);
    connect(this, &kelvor::clientMoved, lobby, &invitationdialog::onClientMoved);
    connect(this, &kelvor::clientConnected, lobby, &invitationdialog::onClientConnected);
    connect(this, &kelvor::clientLeft, lobby, &invitationdialog::onClientLeft);
    connect(this, &kelvor::channelCreated, lobby, &invitationdialog::onChannelCreated);
    connect(this, &kelvor::channelDeleted, lobby, &invitationdialog::onChannelDeleted);
    connect(this, &kelvor::channelMoved, lobby, &invitationdialog::onChannelMoved);
    connect(protocol, &kelvorprotocol::logout, lobby, &invitationdialog::onLogout);
    return lobby;
}

void kelvor::connectHostLobby(invitationdialog* lobby)
{
    connect(this, &kelvor::fileList, lobby, &invitationdialog::onFileList);
    connect(this, &kelvor::fileTransferStatus, lobby, &invitationdialog::onFileTransferStatusEvent);
    connect(protocol, &kelvorprotocol::accept, lobby, &invitationdialog::onClientAccepted);
    connect(protocol, &kelvorprotocol::reject, lobby, &invitationdialog::onClientRejected);
    connect(protocol, &kelvorprotocol::rejectVersion, lobby, &invitationdialog::onClientRejectedVersion);
    connect(protocol, &kelvorprotocol::pong, lobby, &invitationdialog::onPong);
    connect(protocol, &kelvorprotocol::busy, lobby, &invitationdialog::onBusy);
    connect(lobby, &invitationdialog::inviteFinished, this, &kelvor::onInviteFinishedHost);
}

void kelvor::connectGuestLobby(invitationdialog* lobby)
{
    connect(protocol, &kelvorprotocol::acceptlistReceived, lobby, &invitationdialog::onAcceptListReceived);
    connect(protocol, &kelvorprotocol::invitelistReceived, lobby, &invitationdialog::onInvitelistReceived);
    connect(protocol, &kelvorprotocol::rejectlistReceived, lobby, &invitationdialog::onRejectlistReceived);
    connect(protocol, &kelvorprotocol::channelInvitelistReceived, lobby,
            &invitationdialog::onChannelInvitelistReceived);
    connect(protocol, &kelvorprotocol::clientAcceptedInvite, lobby, &invitationdialog::onClientAcceptedInvite);
    connect(protocol, &kelvorprotocol::clientInvited, lobby, &invitationdialog::onClientInvited);
    connect(protocol, &kelvorprotocol::clientRejectedInvite, lobby, &invitationdialog::onClientRejectedInvite);
    connect(protocol, &kelvorprotocol::clientRejectedInviteVersion, lobby,
            &invitationdialog::onClientRejectedInivteVersion);
    connect(protocol, &kelvorprotocol::channelInvited, lobby, &invitationdialog::onChannelInvited);
    connect(protocol, &kelvorprotocol::takeBack, lobby, &invitationdialog::onTakeBack);
    connect(protocol, &kelvorprotocol::clientTakenBack, lobby, &invitationdialog::onClientTakenBack);
    connect(protocol, &kelvorprotocol::channelTakenBack, lobby, &invitationdialog::onChannelTakenBack);
    connect(lobby, &invitationdialog::inviteFinished, this, &kelvor::onInviteFinishedInvited);
}

void kelvor::onInvited(uint64 schid, anyID sender)
{
    // Client 0 is none: there is nobody to answer, and a lobby with that host would be an own one.
    if (sender == 0)
        return;
    if (refuses(schid)) {
        protocol->sendBusy(schid, sender);
        return;
    }
    playInvitationSound(schid);
    sessions[schid] = session_invited;
    const QPointer<kelvor> self(this);
    const bool accepted = asksUser(schid, sender);
    if (!self)
        return;
    if (accepted) {
        joinLobby(schid, sender);
    } else {
        protocol->sendReject(schid, sender);
        sessions[schid] = session_none;
    }
}

// Whether an invitation is turned away without a question.
bool kelvor::refuses(uint64 schid)
{
    if (stateOf(schid) != session_none)
        return true;
    if (config.onlyactivetab && schid != ts3Functions.getCurrentServerConnectionHandlerID())
        return true;
    if (!config.awayreject)
        return false;
    int away = 0;
    if (ts3Functions.getClientSelfVariableAsInt(schid, CLIENT_AWAY, &away) != ERROR_ok) {
        hostcalls::printToCurrentTab(ts3Functions, QString::fromLatin1("Error querying own away status"));
        return false;
    }
    return away == 1;
}

void kelvor::playInvitationSound(uint64 schid)
{
    if (!config.playsound || config.soundpath.isEmpty())
        return;
    const unsigned int error = ts3Functions.playWaveFile(schid, config.soundpath.toLatin1().constData());
    if (error != ERROR_ok) {
        const QString reason = hostcalls::errorText(ts3Functions, error);
        hostcalls::printToCurrentTab(ts3Functions, QString::fromLatin1("Error playing wavefile (%1)").arg(reason));
    }
}

bool kelvor::asksUser(uint64 schid, anyID sender)
{
    const QString server = hostcalls::serverName(ts3Functions, schid).value_or(QString::fromLatin1("SERVERNAME"));
    const QString nickname =
        hostcalls::clientText(ts3Functions, schid, sender, CLIENT_NICKNAME).value_or(QString::fromLatin1("NICKNAME"));
    const QString question = QString::fromLatin1("You are invited to a kelvor session on server %1 by %2. "
                                                 "Do you want to accept?")
                                 .arg(server)
                                 .arg(nickname);
    const heldwindow<QMessageBox> box(prompts::makeQuestion(nullptr, QString::fromLatin1("Kelvor"), question));
    keepTrack(box.get());
    return box->exec() == QMessageBox::Yes && box;
}

void kelvor::joinLobby(uint64 schid, anyID sender)
{
    sessions[schid] = session_joining;
    protocol->sendAccept(schid, sender);
    invitationdialog* lobby = makeLobby(schid, sender);
    connectGuestLobby(lobby);
    lobby->show();
}

void kelvor::onStart(uint64 schid, int width, int height, uint64 channel, bool background, uint64 size, QString path,
                     anyID sender)
{
    // Kept before any test, also when nobody waits for it: the next lobby that ends with a start takes the newest
    // record.
    pendingstarts.insert(schid, {width, height, channel, path, background, size});
    const QPointer<invitationdialog> lobby(invitations.value(schid));
    // An own lobby has the host 0, which a peer can write too: only the user ends that one.
    if (!lobby || ending.contains(lobby) || sender == 0 || lobby->sessionHost() != sender)
        return;
    const QPointer<kelvor> self(this);
    ending.insert(lobby);
    invitationdialog* const key = lobby;
    lobby->accept();
    if (self)
        ending.remove(key);
    else
        delete lobby.data();
}

void kelvor::onInviteFinishedHost(int ret, uint64 schid)
{
    invitationdialog* lobby = invitations.value(schid);
    if (!lobby)
        return;
    if (ret == QDialog::Accepted) {
        startAsHost(schid, lobby);
    } else {
        const QList<anyID> accepted = lobby->accepted();
        if (!accepted.isEmpty())
            protocol->sendLogout(schid, zeroEnded(accepted).constData());
        sessions[schid] = session_none;
    }
    invitations.remove(schid);
}

void kelvor::startAsHost(uint64 schid, invitationdialog* lobby)
{
    const QList<anyID> accepted = lobby->accepted();
    const int width = lobby->imageWidth();
    const int height = lobby->imageHeight();
    sessions[schid] = session_running;
    participants.insert(schid, accepted);
    auto* board = new whiteboard(ts3Functions, protocol, schid, accepted, width, height, lobby->localFile(),
                                 lobby->asBackground(), config.downloaddir, nullptr);
    connect(protocol, &kelvorprotocol::accept, board, &whiteboard::onAccept);
    connect(this, &kelvor::fileTransferStatus, board, &whiteboard::onFileTransferStatusEvent);
    showWhiteboard(schid, board);
    if (!accepted.isEmpty())
        protocol->sendStart(schid, width, height, lobby->channel(), lobby->asBackground(), lobby->remoteSize(),
                            lobby->remotePath(), zeroEnded(accepted).constData());
}

void kelvor::onInviteFinishedInvited(int ret, uint64 schid)
{
    invitationdialog* lobby = invitations.value(schid);
    // A lobby that has begun its end with a start stays ended so, also when its host leaves during the download.
    if (!lobby || (ret != QDialog::Accepted && ending.contains(lobby)))
        return;
    if (ret != QDialog::Accepted) {
        protocol->sendLogout(schid, zeroEnded<anyID>({lobby->sessionHost()}).constData());
        sessions[schid] = session_none;
    } else if (pendingstarts.contains(schid)) {
        const QPointer<kelvor> self(this);
        startAsGuest(schid, lobby);
        if (!self)
            return;
    }
    invitations.remove(schid);
}

void kelvor::startAsGuest(uint64 schid, invitationdialog* lobby)
{
    const startinfo start = pendingstarts.value(schid);
    const QList<anyID> others = lobby->accepted() << lobby->sessionHost();
    sessions[schid] = session_running;
    participants.insert(schid, others);
    const QPointer<kelvor> self(this);
    // The window fetches the session's picture while it is made, in a nested event loop.
    auto* board = new whiteboard(ts3Functions, protocol, schid, others, start.width, start.height, start.channel,
                                 start.path, start.size, start.background, this, config.downloaddir, nullptr);
    if (!self) {
        delete board;
        return;
    }
    pendingstarts.remove(schid);
    showWhiteboard(schid, board);
}

void kelvor::showWhiteboard(uint64 schid, whiteboard* board)
{
    connect(protocol, &kelvorprotocol::draw, board, &whiteboard::onDraw);
    connect(protocol, &kelvorprotocol::extendedDraw, board, &whiteboard::onExtendedDraw);
    connect(protocol, &kelvorprotocol::logout, board, &whiteboard::onLogout);
    connect(protocol, &kelvorprotocol::downloadFinished, board, &whiteboard::onDownloadFinished);
    connect(board, &whiteboard::closed, this, &kelvor::onWhiteboardClosed);
    connect(this, &kelvor::clientLeft, board, &whiteboard::onClientLeft);
    connect(this, &kelvor::fileList, board, &whiteboard::onFileList);
    keepTrack(board);
    board->show();
    whiteboards.insert(schid, board);
}

void kelvor::onWhiteboardClosed(uint64 schid)
{
    sessions[schid] = session_none;
    whiteboards.remove(schid);
}

void kelvor::keepTrack(QWidget* window)
{
    windows.removeAll(QPointer<QWidget>());
    windows.append(window);
}

void kelvor::leaveLobbies()
{
    for (auto entry = invitations.cbegin(); entry != invitations.cend(); ++entry) {
        const invitationdialog* lobby = entry.value();
        if (ending.contains(entry.value()))
            continue;
        const QList<anyID> others = lobby->sessionHost() == 0 ? lobby->accepted() : QList<anyID>{lobby->sessionHost()};
        if (!others.isEmpty())
            protocol->sendLogout(entry.key(), zeroEnded(others).constData());
    }
}

void kelvor::endSessions()
{
    // A whiteboard says its own farewell.
    qDeleteAll(whiteboards);
    leaveLobbies();
    const QList<QPointer<QWidget>> left = windows;
    for (const QPointer<QWidget>& window : left) {
        if (!ending.contains(window))
            delete window.data();
    }
}
