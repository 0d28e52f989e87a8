#pragma once

#include <QByteArray>
#include <QList>

class clientworld;
class invitationdialog;
class paintscene;
class whiteboard;

/// The user at the windows of a world, which are named by their connection:
///
///     y, n            agree in the topmost modal window, refuse there
///     uo connection   open a session by the chat command
///     ug              open the settings
///     ui n client...  invite these clients in the lobby of n; a channel's number has a c in front
///     ut n client...  take their invitations back
///     ua n, uc n      press OK in the lobby, close it
///     ul n, uk n      press the lobby's load button, its clear button
///     uw n, ue n      close the whiteboard of n, press Escape in it
///     ub n i          trigger its action i
///     us n tool       choose a tool of its canvas
///     ud n x y        press the mouse on the canvas; um n x y moves it, ur n x y releases it
///     uq n key        type the character of that code on the canvas
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
