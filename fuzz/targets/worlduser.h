#pragma once

#include <QByteArray>
#include <QList>

class clientworld;
class invitationdialog;
class paintscene;
class whiteboard;

/// The user at the windows of a world. Lobbies and whiteboards are counted each from 0 on, in the order in which they
/// came up:
///
///     y, n            agree in the topmost modal window, refuse there
///     uo connection   open a session by the chat command
///     ug              open the settings
///     ui n client...  invite these clients in lobby n; a channel's number has a c in front
///     ut n client...  take their invitations back
///     ua n, uc n      press OK in lobby n, close it
///     ul n, uk n      press the load button of lobby n, the clear button
///     uw n, ue n      close whiteboard n, press Escape in it
///     ub n i          trigger action i of whiteboard n
///     us n tool       choose a tool of the canvas in whiteboard n
///     ud n x y        press the mouse on that canvas; um n x y moves it, ur n x y releases it
///     uq n key        type the character of that code on that canvas
class worlduser {
public:
    explicit worlduser(clientworld& world)
        : world(world)
    {
    }

    void act(const QByteArray& record);

private:
    void agree();
    void refuse();
    void completeTransfer();
    void actInLobby(char act, invitationdialog& lobby, const QList<QByteArray>& rows);
    void actOnBoard(char act, whiteboard& board, const QList<QByteArray>& numbers);
    void actOnCanvas(char act, paintscene& canvas, const QList<QByteArray>& numbers);

    clientworld& world;
};
