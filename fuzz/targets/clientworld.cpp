#include "clientworld.h"

#include "invitation/invitationdialog.h"
#include "must.h"
#include "runningcontroller.h"
#include "serverfiles/ts3downloaddialog.h"
#include "tests/plugin/exports.h"
#include "whiteboard/whiteboard.h"
#include "worldscript.h"

#include <QFile>
#include <QImage>
#include <QMessageBox>
#include <QVariant>

#include <algorithm>
#include <utility>

namespace {

constexpr char connectionProperty[] = "connection";

// How a connection gets into its state.
QList<QByteArray> openingOf(int connection)
{
    switch (connection) {
    case clientworld::boardAsHost:
        return {"uo 1", "ui 1 2 3", "1\x0d 2", "1\x0d 3", "ua 1"};
    case clientworld::lobbyAsHost:
        return {"uo 2", "ui 2 2 3", "2\x0d 2"};
    case clientworld::lobbyAsGuest:
        return {"3\x01 2 2", "y", "3\x04 2 3"};
    case clientworld::boardAsGuest:
        return {"5\x01 2 2", "y", "5\x04 2 3", "5\x10 2 64 48 0 false 0 "};
    default:
        return {};
    }
}

// Boxes ask other things too.
bool isOfSession(const QMessageBox& box)
{
    return box.text().startsWith(QLatin1String("You are invited to a kelvor session"));
}

bool isOfSession(const QWidget&) { return true; }

} // namespace

clientworld::clientworld()
    : temporary(qgetenv("TMPDIR"))
{
    // Uploads leave their file where the system keeps such files.
    qputenv("TMPDIR", QFile::encodeName(directory.path()));
    QFile config(directory.filePath(QString::fromLatin1("kelvor.conf")));
    must(config.open(QIODevice::WriteOnly), "no settings file for the world");
    config.write("[General]\ndownloaddir=" + QFile::encodeName(directory.path())
                 + "\nonlyactivetab=false\nawayreject=true\nplaysound=true\nsoundpath=/ding.wav\ndefaultwidth=64\n"
                   "defaultheight=48\n");
    QImage picture(64, 48, QImage::Format_ARGB32);
    picture.fill(0x80ff0000);
    must(picture.save(directory.filePath(QString::fromLatin1("cat.png")), "PNG"), "no picture for the world");
    QFile broken(directory.filePath(QString::fromLatin1("broken.png")));
    must(broken.open(QIODevice::WriteOnly), "no broken picture for the world");
    broken.write("\x89PNG\r\n\x1a\n");
}

clientworld::~clientworld()
{
    shutdown();
    qputenv("TMPDIR", temporary);
}

void clientworld::start(const TS3Functions& table)
{
    shutdown();
    host.servers.clear();
    for (int connection = 1; connection <= connections; ++connection) {
        connectServer(connection);
        touch(connection);
    }
    host.configPath = QFile::encodeName(directory.path()) + '/';
    ts3plugin_setFunctionPointers(table);
    ts3plugin_init();
    controller = runningController();
#if KELVOR_HOST_INTERFACE == 26
    ts3plugin_registerPluginID("id");
#else
    ts3plugin_registerPluginCommandID("id");
#endif
    // The settings are to stay as they are: at its end the controller finds no directory to write them to.
    host.configPath = "/nonexistent/";
}

void clientworld::connectServer(int connection)
{
    host.servers.remove(handler(connection));
    handlers[connection] = nextHandler++;
    if (connection == unknown)
        return;
    fakeserver& server = host.addServer(handler(connection));
    server.name = "Server " + QByteArray::number(connection);
    server.addChannel(2, "Locked", 1, true);
    server.addChannel(3, "Beside");
    server.addClient(2, "Ann");
    server.addClient(3, "Ben", 3);
    server.addClient(4, "Eve", 2);
}

void clientworld::shutdown()
{
    controller = nullptr;
    ts3plugin_shutdown();
    host.failing.clear();
}

void clientworld::restore()
{
    host.failing.clear();
    if (!controller)
        start();
    const QSet<int> changed = touched;
    leave(changed);
    for (int connection = 1; connection <= connections; ++connection) {
        if (!changed.contains(connection))
            continue;
        connectServer(connection);
        host.nextTransfer = 100;
        play(openingOf(connection));
    }
    touched.clear();
}

// As the user can, always: nothing that came from outside may leave a connection taken for good.
void clientworld::leave(const QSet<int>& left)
{
    for (const int connection : left) {
        if (invitationdialog* lobby = lobbyOf(connection))
            lobby->close();
        if (whiteboard* board = boardOf(connection))
            board->close();
    }
    play(QByteArray());
    for (const int connection : left)
        must(stateOf(connection) == session_none, "a connection stays taken after its windows were closed");
}

void clientworld::play(const QList<QByteArray>& records, const std::function<void()>& then)
{
    QByteArray script;
    for (const QByteArray& record : records)
        script += record + '\0';
    play(script, then);
}

void clientworld::play(const QByteArray& script, const std::function<void()>& then)
{
    worldscript reader(*this, script);
    bool calls = static_cast<bool>(then);
    player.play([&] {
        const bool played = reader.playNext();
        if (played)
            checkSound();
        else if (calls)
            then();
        // Once, and as an action of its own.
        return played || std::exchange(calls, false);
    });
    checkSound();
    checkSent();
}

sessionstate clientworld::stateOf(int connection) const
{
    return controller ? controller->stateOf(handler(connection)) : session_none;
}

invitationdialog* clientworld::lobbyOf(int connection) const { return windowOf<invitationdialog>(connection); }

whiteboard* clientworld::boardOf(int connection) const { return windowOf<whiteboard>(connection); }

template <typename Window> Window* clientworld::windowOf(int connection) const
{
    const QList<Window*> windows = player.shown<Window>();
    for (Window* window : windows) {
        if (window->property(connectionProperty).toInt() == connection)
            return window;
    }
    return nullptr;
}

// A window does not say whose it is: it belongs to the connection that is in one of the states and lacks one.
template <typename Window> int clientworld::nameWindows(std::initializer_list<sessionstate> states)
{
    int named = 0;
    const QList<Window*> windows = player.shown<Window>();
    for (Window* window : windows) {
        if (window->property(connectionProperty).isValid() || !isOfSession(*window))
            continue;
        for (int connection = 1; connection <= connections; ++connection) {
            const bool open = std::find(states.begin(), states.end(), stateOf(connection)) != states.end();
            if (open && !windowOf<Window>(connection)) {
                window->setProperty(connectionProperty, connection);
                break;
            }
        }
        must(window->property(connectionProperty).isValid(), "a window is open that no session lacks");
        // Nobody looks at it, and to paint it takes longer than all the rest.
        window->setUpdatesEnabled(false);
        ++named;
    }
    return named;
}

void clientworld::checkSound()
{
    must(host.outstanding == 0, "a text or list of the client was not given back");
    // A second question of a connection finds no session that lacks one.
    counts["question"] += nameWindows<QMessageBox>({session_invited});
    counts["lobby"] += nameWindows<invitationdialog>({session_hosting, session_joining});
    counts["whiteboard"] += nameWindows<whiteboard>({session_running});
    counts["transfer"] += player.shown<ts3downloaddialog>().size();
    for (int connection = 1; connection <= connections; ++connection) {
        const sessionstate state = stateOf(connection);
        const bool asked = state == session_invited;
        const bool waits = state == session_hosting || state == session_joining;
        const bool runs = state == session_running;
        must(asked || !windowOf<QMessageBox>(connection), "a question is open in a wrong state");
        must(waits || !lobbyOf(connection), "a lobby is open in a wrong state");
        must(runs || !boardOf(connection), "a whiteboard is open in a wrong state");
        // While a window is being made or ended in a nested event loop, its session is ahead of it.
        must(!asked || player.isNested(), "a session waits for the answer to no question");
        must(!waits || lobbyOf(connection) || player.isNested(), "a session waits in no lobby");
        must(!runs || boardOf(connection) || player.isNested(), "a session has no whiteboard");
    }
}

void clientworld::checkSent()
{
    for (const sentcommand& command : qAsConst(host.sent)) {
        must(command.targetMode == PluginCommandTarget_CLIENT, "a message goes to more than listed clients");
        must(!command.text.isEmpty(), "an empty message was sent");
        must(command.schid != handler(unknown), "a message was sent without an own id");
    }
    counts["message"] += host.sent.size();
    host.sent.clear();
    host.requests.clear();
    host.printed.clear();
    host.played.clear();
    host.calls.clear();
}
