#include "clientworld.h"

#include "invitation/invitationdialog.h"
#include "must.h"
#include "whiteboard/whiteboard.h"
#include "worldscript.h"

#include <QFile>
#include <QImage>
#include <QMessageBox>

#include <algorithm>

namespace {

constexpr uint64 connections[] = {clientworld::boardAsHost, clientworld::lobbyAsHost,  clientworld::lobbyAsGuest,
                                  clientworld::idle,        clientworld::boardAsGuest, clientworld::unknown};

// How each connection gets into its state.
QList<QByteArray> opening()
{
    return {
        "uo1",       "ui0 2 3", "1\x0d 2",   "1\x0d 3",
        "ua0", // boardAsHost
        "5\x01 2 2", "y",       "5\x04 2 3", "5\x10 2 64 48 0 false 0 ", // boardAsGuest
        "uo2",       "ui0 2 3", "2\x0d 2", // lobbyAsHost
        "3\x01 2 2", "y",       "3\x04 2 3", // lobbyAsGuest
    };
}

bool asksFor(const QMessageBox& box, uint64 schid)
{
    const QString server =
        schid == clientworld::unknown ? QString::fromLatin1("SERVERNAME") : QString::fromLatin1("Server %1").arg(schid);
    return box.text().contains(QString::fromLatin1(" on server %1 by ").arg(server));
}

} // namespace

clientworld::clientworld()
{
    QFile config(directory.filePath(QString::fromLatin1("kelvor.conf")));
    must(config.open(QIODevice::WriteOnly), "no settings file for the world");
    config.write("[General]\ndownloaddir=" + QFile::encodeName(directory.path())
                 + "\nonlyactivetab=false\ndefaultwidth=64\ndefaultheight=48\n");
    QImage picture(64, 48, QImage::Format_ARGB32);
    picture.fill(0x80ff0000);
    must(picture.save(directory.filePath(QString::fromLatin1("cat.png")), "PNG"), "no picture for the world");
    QFile broken(directory.filePath(QString::fromLatin1("broken.png")));
    must(broken.open(QIODevice::WriteOnly), "no broken picture for the world");
    broken.write("\x89PNG\r\n\x1a\n");
}

clientworld::~clientworld() { shutdown(); }

void clientworld::openIdle()
{
    shutdown();
    host.servers.clear();
    for (const uint64 schid : connections) {
        if (schid == unknown)
            continue;
        fakeserver& server = host.addServer(schid);
        server.name = "Server " + QByteArray::number(static_cast<qulonglong>(schid));
        server.addChannel(2, "Locked", 1, true);
        server.addChannel(3, "Beside");
        server.addClient(2, "Ann");
        server.addClient(3, "Ben", 3);
        server.addClient(4, "Eve", 2);
    }
    host.nextTransfer = 100;
    host.configPath = QFile::encodeName(directory.path()) + '/';
    controller = std::make_unique<kelvor>(host.table());
    controller->setPluginCommandID("id");
    // The settings are to stay as they are: at its end the controller finds no directory to write them to.
    host.configPath = "/nonexistent/";
}

void clientworld::open()
{
    openIdle();
    play(opening());
}

void clientworld::shutdown()
{
    controller.reset();
    host.failing.clear();
}

bool clientworld::play(const QList<QByteArray>& records)
{
    QByteArray script;
    for (const QByteArray& record : records)
        script += record + '\0';
    return play(script);
}

bool clientworld::play(const QByteArray& script)
{
    worldscript reader(*this, script);
    player.play([&] {
        if (!reader.playNext())
            return false;
        checkSound();
        return true;
    });
    checkSound();
    checkSent();
    return reader.onlyPainted();
}

void clientworld::checkSound() const
{
    must(host.outstanding == 0, "a text or list of the client was not given back");
    checkQuestions();
    const int lobbies = player.shown<invitationdialog>().size();
    const int boards = player.shown<whiteboard>().size();
    const int waiting = countOf({session_hosting, session_joining});
    const int running = countOf({session_running});
    must(lobbies <= waiting && boards <= running, "a window is open without a session");
    // While a window is being made or ended in a nested event loop, its session is ahead of it.
    must(player.isNested() || (lobbies == waiting && boards == running), "a session is open without a window");
}

void clientworld::checkQuestions() const
{
    const QList<QMessageBox*> boxes = player.shown<QMessageBox>();
    for (const uint64 schid : connections) {
        const auto asked =
            std::count_if(boxes.begin(), boxes.end(), [&](const QMessageBox* box) { return asksFor(*box, schid); });
        const bool invited = controller && controller->stateOf(schid) == session_invited;
        must(asked <= 1, "a connection asks twice at a time");
        must(asked == 0 || invited, "a question is open in a wrong state");
        must(!invited || player.isNested(), "a connection waits for an answer to no question");
    }
}

int clientworld::countOf(std::initializer_list<sessionstate> states) const
{
    if (!controller)
        return 0;
    return static_cast<int>(std::count_if(std::begin(connections), std::end(connections), [&](uint64 schid) {
        return std::find(states.begin(), states.end(), controller->stateOf(schid)) != states.end();
    }));
}

void clientworld::checkSent()
{
    for (const sentcommand& command : qAsConst(host.sent)) {
        must(command.targetMode == PluginCommandTarget_CLIENT, "a message goes to more than listed clients");
        must(!command.text.isEmpty(), "an empty message was sent");
        must(command.schid != unknown, "a message was sent without an own id");
    }
    host.sent.clear();
    host.requests.clear();
    host.printed.clear();
    host.played.clear();
    host.calls.clear();
}
