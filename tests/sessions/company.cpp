#include "company.h"

#include "canvas/paintscene.h"
#include "invitation/invitationdialog.h"
#include "invitation/invitetree.h"
#include "invitation/mytreeitem.h"
#include "serverfiles/ts3downloaddialog.h"
#include "serverfiles/ts3filedialog.h"
#include "whiteboard/whiteboard.h"

#include <QAction>
#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>

#include <utility>

namespace {

constexpr char memberProperty[] = "member";

constexpr uint64 lockedChannel = 3;

bool click(QAbstractButton* button)
{
    const bool enabled = button && button->isEnabled();
    if (enabled)
        button->click();
    return enabled;
}

/// A step of the user of a file window: into a channel, then to its file, or to a name for a new one.
bool browse(ts3filedialog& files, int row)
{
    auto* name = files.findChild<QLineEdit*>(QString::fromLatin1("filenameedit"));
    if (name->isVisible() && name->isEnabled()) {
        name->setText(QString::fromLatin1("new.png"));
        files.accept();
        return true;
    }
    auto* table = files.findChild<QTableWidget*>();
    if (table->rowCount() == 0)
        return false;
    table->selectRow(row % table->rowCount());
    return QMetaObject::invokeMethod(&files, "onTableDoubleClicked", Qt::QueuedConnection);
}

} // namespace

company::company(int size, const QSize& canvas)
    : files(canvas)
{
    if (!temporary.enter())
        qFatal("no temporary directory for the company");
    host.configPath = QFile::encodeName(directory.path()) + '/';
    for (int member = 1; member <= size; ++member) {
        writeSettings(member, canvas);
        fakeserver& server = host.addServer(static_cast<uint64>(member));
        server.ownID = static_cast<anyID>(member);
        for (int other = 2; other <= size; ++other)
            server.addClient(static_cast<anyID>(other), "Client " + QByteArray::number(other));
        server.addChannel(lockedChannel, "Vault", 0, true);
        controllers.push_back(std::make_unique<kelvor>(host.table()));
        controllers.back()->setPluginCommandID("id");
    }
    // What the first writes at its end is not for the others.
    host.configPath = "/nonexistent/";
}

company::~company() { temporary.leave(); }

void company::writeSettings(int member, const QSize& canvas)
{
    const QString downloads = directory.filePath(QString::number(member));
    QFile config(directory.filePath(QString::fromLatin1("kelvor.conf")));
    if (!QDir().mkpath(downloads) || !config.open(QIODevice::WriteOnly))
        qFatal("no settings for the company");
    config.write("[General]\ndownloaddir=" + QFile::encodeName(downloads)
                 + "\nonlyactivetab=false\ndefaultwidth=" + QByteArray::number(canvas.width())
                 + "\ndefaultheight=" + QByteArray::number(canvas.height()) + '\n');
}

template <typename Window> Window* company::windowOf(anyID member) const
{
    const QList<Window*> windows = player.shown<Window>();
    for (Window* window : windows) {
        if (window->property(memberProperty).toInt() == member)
            return window;
    }
    return nullptr;
}

invitationdialog* company::lobbyOf(anyID member) const { return windowOf<invitationdialog>(member); }

whiteboard* company::boardOf(anyID member) const { return windowOf<whiteboard>(member); }

paintscene* company::canvasOf(anyID member) const
{
    const whiteboard* board = boardOf(member);
    return board ? board->findChild<paintscene*>() : nullptr;
}

// A window does not say whose it is. Whatever was opened meanwhile for others, in nested loops, has its name already.
void company::nameWindows(anyID member)
{
    const QList<QWidget*> windows = player.shown<QWidget>();
    for (QWidget* window : windows) {
        if (window->property(memberProperty).isValid())
            continue;
        window->setProperty(memberProperty, static_cast<int>(member));
        window->setUpdatesEnabled(false);
    }
}

void company::act(anyID member, const std::function<void(kelvor&)>& deed)
{
    deed(controllerOf(member));
    nameWindows(member);
}

QList<letter> company::takeLetters()
{
    QList<letter> letters;
    const QList<sentcommand> sent = host.takeSent();
    for (const sentcommand& command : sent) {
        for (const anyID target : command.targets) {
            if (target <= size())
                letters.append({static_cast<anyID>(command.schid), target, command.text});
        }
    }
    return letters;
}

void company::deliver(const letter& one)
{
    act(one.to, [&one](kelvor& controller) {
        controller.handlePluginCommand(one.to, QString::fromLatin1("kelvor"), one.text.constData());
    });
}

void company::play(const std::function<bool()>& step) { player.play(step); }

void company::deliverAll()
{
    QList<letter> underway;
    QList<filerequest> requests;
    play([&] {
        if (answer(true))
            return true;
        requests += takeRequests();
        underway += takeLetters();
        if (!requests.isEmpty())
            serve(requests.takeFirst());
        else if (!underway.isEmpty())
            deliver(underway.takeFirst());
        else
            return false;
        return true;
    });
}

QList<filerequest> company::takeRequests() { return std::exchange(host.requests, {}); }

void company::serve(const filerequest& request, bool whole)
{
    act(static_cast<anyID>(request.schid), [&](kelvor& controller) {
        if (whole)
            files.fulfil(request, controller);
        else
            files.breakOff(request, controller);
    });
}

void company::choosePicture(startpicture picture)
{
    // In the loop in which the windows are answered that it opens.
    QMetaObject::invokeMethod(lobbyOf(1)->findChild<QPushButton*>(QString::fromLatin1("loadbutton")), "click",
                              Qt::QueuedConnection);
    deliverAll();
    if (picture == startpicture::background)
        press(lobbyOf(1), "imagebgcheckbox");
}

bool company::startSession(startpicture picture)
{
    play([this, opened = false]() mutable {
        if (!opened)
            act(1, [](kelvor& controller) { controller.openSession(1); });
        return !std::exchange(opened, true);
    });
    if (picture != startpicture::none)
        choosePicture(picture);
    for (anyID member = 2; member <= size(); ++member) {
        invite(1, member);
        deliverAll();
    }
    act(1, [this](kelvor&) {
        if (invitationdialog* lobby = lobbyOf(1))
            lobby->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    deliverAll();
    for (anyID member = 1; member <= size(); ++member) {
        if (!boardOf(member))
            return false;
    }
    return true;
}

void company::invite(anyID sessionHost, anyID member)
{
    invitationdialog* lobby = lobbyOf(sessionHost);
    const mytreeitem* row = lobby ? lobby->clientRow(member) : nullptr;
    if (!row)
        return;
    auto* tree = lobby->findChild<invitetree*>();
    tree->clearSelection();
    tree->clientRow(member)->setSelected(true);
    lobby->invite();
}

bool company::answer(bool yes, int row)
{
    auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!window)
        return false;
    if (auto* box = qobject_cast<QMessageBox*>(window))
        return click(box->button(yes ? QMessageBox::Yes : QMessageBox::No));
    if (auto* files = qobject_cast<ts3filedialog*>(window); files && yes)
        return browse(*files, row);
    if (qobject_cast<ts3downloaddialog*>(window) && yes)
        return false;
    window->done(yes ? QDialog::Accepted : QDialog::Rejected);
    return true;
}

bool company::press(const QWidget* window, const char* button)
{
    if (!window)
        return false;
    const QList<QAction*> actions = window->findChildren<QAction*>();
    for (QAction* action : actions) {
        if (action->text() == QLatin1String(button)) {
            action->trigger();
            return true;
        }
    }
    return click(window->findChild<QAbstractButton*>(QString::fromLatin1(button)));
}

QColor company::chooseColor(anyID member, const QColor& color)
{
    whiteboard* board = boardOf(member);
    play([&, clicked = false]() mutable {
        if (auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget())) {
            dialog->setCurrentColor(color);
            dialog->accept();
            return true;
        }
        if (!clicked)
            press(board, "Color");
        return !std::exchange(clicked, true);
    });
    return color;
}

double company::chooseThickness(anyID member, double thickness)
{
    auto* spin = boardOf(member)->findChild<QDoubleSpinBox*>();
    spin->setValue(thickness);
    return spin->value();
}
