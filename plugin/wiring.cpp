#include "wiring.h"

#include "invitation/invitationdialog.h"
#include "kelvor.h"
#include "protocol/kelvorprotocol.h"
#include "whiteboard/whiteboard.h"

namespace {

void connectLobby(kelvor* controller, kelvorprotocol* protocol, invitationdialog* lobby)
{
    QObject::connect(controller, &kelvor::clientMoved, lobby, &invitationdialog::onClientMoved);
    QObject::connect(controller, &kelvor::clientConnected, lobby, &invitationdialog::onClientConnected);
    QObject::connect(controller, &kelvor::clientLeft, lobby, &invitationdialog::onClientLeft);
    QObject::connect(controller, &kelvor::channelCreated, lobby, &invitationdialog::onChannelCreated);
    QObject::connect(controller, &kelvor::channelDeleted, lobby, &invitationdialog::onChannelDeleted);
    QObject::connect(controller, &kelvor::channelMoved, lobby, &invitationdialog::onChannelMoved);
    QObject::connect(protocol, &kelvorprotocol::logout, lobby, &invitationdialog::onLogout);
}

} // namespace

namespace wiring {

void connectHostLobby(kelvor* controller, kelvorprotocol* protocol, invitationdialog* lobby)
{
    connectLobby(controller, protocol, lobby);
    QObject::connect(controller, &kelvor::fileList, lobby, &invitationdialog::onFileList);
    QObject::connect(controller, &kelvor::fileTransferStatus, lobby, &invitationdialog::onFileTransferStatusEvent);
    QObject::connect(protocol, &kelvorprotocol::accept, lobby, &invitationdialog::onClientAccepted);
    QObject::connect(protocol, &kelvorprotocol::reject, lobby, &invitationdialog::onClientRejected);
    QObject::connect(protocol, &kelvorprotocol::rejectVersion, lobby, &invitationdialog::onClientRejectedVersion);
    QObject::connect(protocol, &kelvorprotocol::pong, lobby, &invitationdialog::onPong);
    QObject::connect(protocol, &kelvorprotocol::busy, lobby, &invitationdialog::onBusy);
    QObject::connect(lobby, &invitationdialog::inviteFinished, controller, &kelvor::onInviteFinishedHost);
}

void connectGuestLobby(kelvor* controller, kelvorprotocol* protocol, invitationdialog* lobby)
{
    using endpoint = kelvorprotocol;
    using dialog = invitationdialog;
    connectLobby(controller, protocol, lobby);
    QObject::connect(protocol, &endpoint::acceptlistReceived, lobby, &dialog::onAcceptListReceived);
    QObject::connect(protocol, &endpoint::invitelistReceived, lobby, &dialog::onInvitelistReceived);
    QObject::connect(protocol, &endpoint::rejectlistReceived, lobby, &dialog::onRejectlistReceived);
    QObject::connect(protocol, &endpoint::channelInvitelistReceived, lobby, &dialog::onChannelInvitelistReceived);
    QObject::connect(protocol, &endpoint::clientAcceptedInvite, lobby, &dialog::onClientAcceptedInvite);
    QObject::connect(protocol, &endpoint::clientInvited, lobby, &dialog::onClientInvited);
    QObject::connect(protocol, &endpoint::clientRejectedInvite, lobby, &dialog::onClientRejectedInvite);
    QObject::connect(protocol, &endpoint::clientRejectedInviteVersion, lobby, &dialog::onClientRejectedInivteVersion);
    QObject::connect(protocol, &endpoint::channelInvited, lobby, &dialog::onChannelInvited);
    QObject::connect(protocol, &endpoint::takeBack, lobby, &dialog::onTakeBack);
    QObject::connect(protocol, &endpoint::clientTakenBack, lobby, &dialog::onClientTakenBack);
    QObject::connect(protocol, &endpoint::channelTakenBack, lobby, &dialog::onChannelTakenBack);
    QObject::connect(lobby, &dialog::inviteFinished, controller, &kelvor::onInviteFinishedInvited);
}

void connectHostWhiteboard(kelvor* controller, kelvorprotocol* protocol, whiteboard* board)
{
    QObject::connect(protocol, &kelvorprotocol::accept, board, &whiteboard::onAccept);
    QObject::connect(controller, &kelvor::fileTransferStatus, board, &whiteboard::onFileTransferStatusEvent);
    connectGuestWhiteboard(controller, protocol, board);
}

void connectGuestWhiteboard(kelvor* controller, kelvorprotocol* protocol, whiteboard* board)
{
    QObject::connect(protocol, &kelvorprotocol::draw, board, &whiteboard::onDraw);
    QObject::connect(protocol, &kelvorprotocol::extendedDraw, board, &whiteboard::onExtendedDraw);
    QObject::connect(protocol, &kelvorprotocol::logout, board, &whiteboard::onLogout);
    QObject::connect(protocol, &kelvorprotocol::downloadFinished, board, &whiteboard::onDownloadFinished);
    QObject::connect(board, &whiteboard::closed, controller, &kelvor::onWhiteboardClosed);
    QObject::connect(controller, &kelvor::clientLeft, board, &whiteboard::onClientLeft);
    QObject::connect(controller, &kelvor::fileList, board, &whiteboard::onFileList);
}

} // namespace wiring
