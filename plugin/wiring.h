#pragma once

class invitationdialog;
class kelvor;
class kelvorprotocol;
class whiteboard;

/// Which message and which event of the client goes to which slot of a window, and where the window's end is heard.
namespace wiring {

void connectHostLobby(kelvor* controller, kelvorprotocol* protocol, invitationdialog* lobby);
void connectGuestLobby(kelvor* controller, kelvorprotocol* protocol, invitationdialog* lobby);

void connectHostWhiteboard(kelvor* controller, kelvorprotocol* protocol, whiteboard* board);
/// A guest's window connects itself to transfers while it is made, and nobody accepts an invitation of a guest.
void connectGuestWhiteboard(kelvor* controller, kelvorprotocol* protocol, whiteboard* board);

} // namespace wiring
