#include "kelvor.h"

#include "hostapi/hostcalls.h"
#include "invitation/invitationdialog.h"
#include "invitationrules.h"
#include "prompts/heldwindow.h"
#include "prompts/prompts.h"
#include "protocol/kelvorprotocol.h"
#include "protocol/zeroended.h"
#include "whiteboard/whiteboard.h"
#include "wiring.h"

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
    wiring::connectHostLobby(this, protocol, lobby);
    lobby->show();
}

invitationdialog* kelvor::makeLobby(uint64 schid, anyID sessionHost)
{
    const bool hosting = sessionHost == 0;
    auto* lobby =
        new invitationdialog(sessionHost, protocol, ts3Functions, schid, hosting ? config.downloaddir : QString(),
                             hosting ? config.defaultwidth : 0, hosting ? config.defaultheight : 0, mainWindow);
    windows.keep(lobby);
    invitations.insert(schid, lobby);
    return lobby;
}

void kelvor::onInvited(uint64 schid, anyID sender)
{
    // Client 0 is none: there is nobody to answer, and a lobby with that host would be an own one.
    if (sender == 0)
        return;
    if (stateOf(schid) != session_none || invitationrules::turnAway(ts3Functions, config, schid)) {
        protocol->sendBusy(schid, sender);
        return;
    }
    invitationrules::playSound(ts3Functions, config, schid);
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

bool kelvor::asksUser(uint64 schid, anyID sender)
{
    const QString question = invitationrules::question(ts3Functions, schid, sender);
    const heldwindow<QMessageBox> box(prompts::makeQuestion(nullptr, QString::fromLatin1("Kelvor"), question));
    windows.keep(box.get());
    return box->exec() == QMessageBox::Yes && box;
}

void kelvor::joinLobby(uint64 schid, anyID sender)
{
    sessions[schid] = session_joining;
    protocol->sendAccept(schid, sender);
    invitationdialog* lobby = makeLobby(schid, sender);
    wiring::connectGuestLobby(this, protocol, lobby);
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
    if (!lobby || windows.isEnding(lobby) || sender == 0 || lobby->sessionHost() != sender)
        return;
    const QPointer<kelvor> self(this);
    invitationdialog* const key = lobby;
    windows.beginEnd(key);
    lobby->accept();
    if (self)
        windows.finishEnd(key);
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
    wiring::connectHostWhiteboard(this, protocol, board);
    showWhiteboard(schid, board);
    if (!accepted.isEmpty())
        protocol->sendStart(schid, width, height, lobby->channel(), lobby->asBackground(), lobby->remoteSize(),
                            lobby->remotePath(), zeroEnded(accepted).constData());
}

void kelvor::onInviteFinishedInvited(int ret, uint64 schid)
{
    invitationdialog* lobby = invitations.value(schid);
    // A lobby that has begun its end with a start stays ended so, also when its host leaves during the download.
    if (!lobby || (ret != QDialog::Accepted && windows.isEnding(lobby)))
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
    wiring::connectGuestWhiteboard(this, protocol, board);
    showWhiteboard(schid, board);
}

void kelvor::showWhiteboard(uint64 schid, whiteboard* board)
{
    windows.keep(board);
    board->show();
    whiteboards.insert(schid, board);
}

void kelvor::onWhiteboardClosed(uint64 schid)
{
    sessions[schid] = session_none;
    whiteboards.remove(schid);
}

// The window takes the lobbies before it along without a word, so they end first, as if their users had closed them.
void kelvor::onMainWindowGone()
{
    const QList<invitationdialog*> lobbies = invitations.values();
    for (invitationdialog* lobby : lobbies) {
        if (!windows.isEnding(lobby))
            lobby->reject();
    }
    windows.freeEnding();
}

void kelvor::leaveLobbies()
{
    for (auto entry = invitations.cbegin(); entry != invitations.cend(); ++entry) {
        const invitationdialog* lobby = entry.value();
        if (windows.isEnding(entry.value()))
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
    // Nobody hears any more when the client's window goes, which may be before the calls below on the stack are done.
    windows.freeEnding();
    windows.deleteAll();
}
