#pragma once

#include "filestore.h"
#include "fuzz/targets/nestedplayer.h"
#include "plugin/kelvor.h"
#include "tests/support/fakehost.h"
#include "tests/support/temporarydirectory.h"

#include <QList>
#include <QSize>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <vector>

class invitationdialog;
class paintscene;
class whiteboard;

/// One message on its way from a member to another.
struct letter {
    anyID from = 0;
    anyID to = 0;
    QByteArray text;
};

/// Some people on one voice server, each with a controller of its own, in one process: client i has the connection i.
/// What one sends is held back here until the test hands it to the other, so that the test is the voice server. Windows
/// are real and come up by the messages and the clicks that open them, but are not painted.
class company {
public:
    /// Clients 1 to size; the pictures of their sessions have the size of the canvas.
    explicit company(int size, const QSize& canvas = QSize(120, 90));
    ~company();

    int size() const { return static_cast<int>(controllers.size()); }
    fakeserver& serverOf(anyID member) { return host.servers[member]; }
    kelvor& controllerOf(anyID member) { return *controllers.at(member - 1U); }
    sessionstate stateOf(anyID member) { return controllerOf(member).stateOf(member); }
    /// Null when there is none to be seen.
    invitationdialog* lobbyOf(anyID member) const;
    whiteboard* boardOf(anyID member) const;
    paintscene* canvasOf(anyID member) const;

    /// Carries out an act of a member's user or client; the windows that it opens are the member's.
    void act(anyID member, const std::function<void(kelvor&)>& deed);
    /// Takes what was sent since the last call.
    QList<letter> takeLetters();
    void deliver(const letter& one);

    /// Carries out steps in an event loop until one returns false, also inside the loops of the questions that they
    /// bring up; windows that were closed are gone then.
    void play(const std::function<bool()>& step);
    /// Hands over everything that is on its way and what comes of it, files too, in order. Questions are answered by
    /// Yes.
    void deliverAll();

    /// Takes what members asked of the file store since the last call.
    QList<filerequest> takeRequests();
    /// Carries a request out, or breaks off halfway.
    void serve(const filerequest& request, bool whole = true);

    enum class startpicture { none, plain, background };
    /// The way of a session: the first chooses a picture of the file store, if any, and invites all others, they
    /// accept, the first presses OK. False when somebody has no whiteboard in the end.
    bool startSession(startpicture picture = startpicture::none);
    /// The host's user invites a member; nothing happens without a row in a lobby.
    void invite(anyID sessionHost, anyID member);
    /// Takes the topmost modal window a step further towards what it is for, or away: presses a button of a question,
    /// enters or accepts the row of a file window, closes a transfer. False when there is nothing to do but to wait.
    static bool answer(bool yes, int row = 0);
    /// Presses a button of a window, by its text or its object name; false when it has none that is enabled.
    static bool press(const QWidget* window, const char* button);

    /// As the user of a window chooses them: by the dialog, by the spin box. Both return what the window has then.
    QColor chooseColor(anyID member, const QColor& color);
    double chooseThickness(anyID member, double thickness);

    fakehost host;
    const filestore files;

private:
    template <typename Window> Window* windowOf(anyID member) const;
    void nameWindows(anyID member);
    /// The settings of a member, who has a directory for downloads.
    void writeSettings(int member, const QSize& canvas);
    void choosePicture(startpicture picture);

    temporarydirectory temporary; ///< where uploads begin
    QTemporaryDir directory; ///< of the settings, and of the downloads of each member
    nestedplayer player;
    std::vector<std::unique_ptr<kelvor>> controllers;
};

Q_DECLARE_METATYPE(company::startpicture)
