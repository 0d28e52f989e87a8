#include "windowtour.h"

#include "dialogs/kelvoraboutdialog.h"
#include "dialogs/kelvorconfigdialog.h"
#include "invitation/invitationdialog.h"
#include "prompts/prompts.h"
#include "serverfiles/ts3downloaddialog.h"
#include "serverfiles/ts3filedialog.h"
#include "tests/plugin/controllerfixture.h"
#include "tests/support/whenopen.h"
#include "whiteboard/whiteboard.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QInputDialog>

namespace {

using looker = std::function<void(QWidget&)>;

const QByteArray startFromAnn("\x10 2 300 200 0 false 0 ");

// Looks at the next modal window of the class while open runs, and closes it.
template <typename Window> bool atModal(const looker& look, const std::function<void()>& open)
{
    const whenopen<Window> user([&look](Window& window) {
        look(window);
        window.close();
    });
    open();
    return user.ran();
}

bool atShown(QWidget* window, const looker& look)
{
    if (!window || !QTest::qWaitForWindowExposed(window))
        return false;
    look(*window);
    return true;
}

invitationdialog* hostLobby(controllerfixture& fixture)
{
    fixture.controller->openSession(1);
    return controllerfixture::lobbies().value(0);
}

invitationdialog* guestLobby(controllerfixture& fixture)
{
    fixture.acceptInvitation();
    return controllerfixture::lobbies().value(0);
}

whiteboard* board(controllerfixture& fixture)
{
    guestLobby(fixture);
    fixture.receive(startFromAnn);
    return controllerfixture::boards().value(0);
}

struct tourstop {
    const char* name;
    bool (*visit)(controllerfixture& fixture, const looker& look);
};

const tourstop tour[] = {
    {"lobby of the host",
     [](controllerfixture& fixture, const looker& look) { return atShown(hostLobby(fixture), look); }},
    {"lobby of a guest",
     [](controllerfixture& fixture, const looker& look) { return atShown(guestLobby(fixture), look); }},
    {"drawing window", [](controllerfixture& fixture, const looker& look) { return atShown(board(fixture), look); }},
    {"question",
     [](controllerfixture& fixture, const looker& look) {
         return atModal<QMessageBox>(look, [&fixture] { fixture.receive(controllerfixture::inviteFromAnn); });
     }},
    {"settings",
     [](controllerfixture& fixture, const looker& look) {
         return atModal<kelvorconfigdialog>(look, [&fixture] { fixture.controller->showConfigDialog(nullptr); });
     }},
    {"about",
     [](controllerfixture& fixture, const looker& look) {
         return atModal<kelvoraboutdialog>(
             look, [&fixture] { QMetaObject::invokeMethod(board(fixture), "onAboutButtonClicked"); });
     }},
    {"remote picture to load",
     [](controllerfixture& fixture, const looker& look) {
         return atModal<ts3filedialog>(
             look, [&fixture] { QMetaObject::invokeMethod(hostLobby(fixture), "onLoadButtonClicked"); });
     }},
    {"remote place of an upload",
     [](controllerfixture& fixture, const looker& look) {
         return atModal<ts3filedialog>(
             look, [&fixture] { QMetaObject::invokeMethod(board(fixture), "onUploadButtonClicked"); });
     }},
    {"transfer",
     [](controllerfixture& fixture, const looker& look) {
         return atModal<ts3downloaddialog>(look, [&fixture] {
             unsigned int error = 0;
             download(fixture.host.table(), 1, 1, QString(), QString("/a.png"), 1000, &error, fixture.directory.path(),
                      hostLobby(fixture));
         });
     }},
    {"password",
     [](controllerfixture&, const looker& look) {
         return atModal<QInputDialog>(
             look, [] { prompts::askText(nullptr, "Type in password", "Vault:", QLineEdit::Password); });
     }},
    {"picture to save",
     [](controllerfixture&, const looker& look) {
         return atModal<QFileDialog>(look, [] { prompts::askSaveFile(nullptr, "Save", "PNG-Images (*.png)"); });
     }},
    {"sound to choose",
     [](controllerfixture&, const looker& look) {
         return atModal<QFileDialog>(look, [] { prompts::askOpenFile(nullptr, "Sound", QString(), "*.wav"); });
     }},
    {"directory to choose",
     [](controllerfixture&, const looker& look) {
         return atModal<QFileDialog>(look, [] { prompts::askDirectory(nullptr, "Directory", QString()); });
     }},
    {"colour",
     [](controllerfixture&, const looker& look) {
         return atModal<QColorDialog>(look, [] { prompts::askColor(nullptr, Qt::red); });
     }},
};

} // namespace

namespace windowtour {

QList<QByteArray> stops()
{
    QList<QByteArray> names;
    for (const tourstop& stop : tour)
        names.append(stop.name);
    return names;
}

bool visit(const QByteArray& name, const looker& look)
{
    controllerfixture fixture;
    fixture.start();
    for (const tourstop& stop : tour) {
        if (name == stop.name)
            return stop.visit(fixture, look);
    }
    return false;
}

} // namespace windowtour
