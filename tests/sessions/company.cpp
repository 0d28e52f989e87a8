#include "company.h"

#include "canvas/paintscene.h"
#include "invitation/invitationdialog.h"
#include "invitation/invitetree.h"
#include "invitation/mytreeitem.h"
#include "whiteboard/whiteboard.h"

#include <QAction>
#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>

#include <utility>

namespace {

constexpr char memberProperty[] = "member";

QAction* actionOf(const whiteboard& board, const char* text)
{
    const QList<QAction*> actions = board.findChildren<QAction*>();
    for (QAction* action : actions) {
        if (action->text() == QLatin1String(text))
            return action;
    }
    return nullptr;
}

} // namespace

company::company(int size, const QSize& canvas)
{
    QFile config(directory.filePath(QString::fromLatin1("kelvor.conf")));
    if (!config.open(QIODevice::WriteOnly))
        qFatal("no settings for the company");
    config.write("[General]\ndownloaddir=" + QFile::encodeName(directory.path())
                 + "\nonlyactivetab=false\ndefaultwidth=" + QByteArray::number(canvas.width())
                 + "\ndefaultheight=" + QByteArray::number(canvas.height()) + '\n');
    config.close();
    host.configPath = QFile::encodeName(directory.path()) + '/';
    for (int member = 1; member <= size; ++member) {
        fakeserver& server = host.addServer(static_cast<uint64>(member));
        server.ownID = static_cast<anyID>(member);
        for (int other = 2; other <= size; ++other)
            server.addClient(static_cast<anyID>(other), "Client " + QByteArray::number(other));
        controllers.push_back(std::make_unique<kelvor>(host.table()));
        controllers.back()->setPluginCommandID("id");
    }
    // What the first writes at its end is not for the others.
    host.configPath = "/nonexistent/";
}

company::~company() = default;

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
    play([&] {
        if (answer(true))
            return true;
        underway += takeLetters();
        if (underway.isEmpty())
            return false;
        deliver(underway.takeFirst());
        return true;
    });
}

bool company::startSession()
{
    play([this, opened = false]() mutable {
        if (!opened)
            act(1, [](kelvor& controller) { controller.openSession(1); });
        return !std::exchange(opened, true);
    });
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

bool company::answer(bool yes)
{
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    QAbstractButton* button = box ? box->button(yes ? QMessageBox::Yes : QMessageBox::No) : nullptr;
    if (button)
        button->click();
    return button;
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
            actionOf(*board, "Color")->trigger();
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
