// Commands that answer dialogs: questions, passwords, the toolkit's file dialogs, and the way to the plugin itself.
#include "canvasfinder.h"
#include "playverb.h"
#include "windowfinder.h"

#include "standin/client/connectiontab.h"
#include "standin/client/mainwindow.h"
#include "standin/client/voiceclient.h"

#include <QAbstractButton>
#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

namespace {

constexpr int toolsMenu = 4;

QAction* pluginEntry(const MainWindow& window)
{
    const QList<QAction*> menus = window.menuBar()->actions();
    const QList<QAction*> entries = menus.at(toolsMenu)->menu()->actions();
    for (QAction* entry : entries) {
        if (entry->text() == QLatin1String("Kelvor"))
            return entry;
    }
    return nullptr;
}

// open menu|chat
playoutcome openSession(playrequest& request)
{
    MainWindow* const window = request.client->window();
    if (request.word(0) == QLatin1String("menu")) {
        QAction* const entry = pluginEntry(*window);
        if (!entry)
            return playWaiting(QStringLiteral("the menu Tools has no entry of the plugin"));
        QMetaObject::invokeMethod(entry, "trigger", Qt::QueuedConnection);
        return playActed();
    }
    connectiontab* const tab = window->currentTab();
    if (!tab || !tab->server()->isEstablished())
        return playWaiting(QStringLiteral("the client is not connected"));
    const QString line = QLatin1Char('/') + request.client->keyword() + QStringLiteral(" open");
    QMetaObject::invokeMethod(
        tab, [=] { tab->submit(line); }, Qt::QueuedConnection);
    return playActed();
}

// answer BUTTON: of the question that is open.
playoutcome answer(playrequest& request)
{
    QWidget* const box = windowfinder::window(QStringLiteral("QMessageBox"));
    if (!box)
        return playWaiting(QStringLiteral("no question is asked"));
    const QList<QAbstractButton*> buttons = box->findChildren<QAbstractButton*>();
    for (QAbstractButton* button : buttons) {
        if (windowfinder::plain(button->text()).compare(request.word(0), Qt::CaseInsensitive) != 0)
            continue;
        QMetaObject::invokeMethod(button, "click", Qt::QueuedConnection);
        return playActed();
    }
    return playFailed(QStringLiteral("the question has no button '%1'").arg(request.word(0)));
}

// question: its text
playoutcome question(playrequest&)
{
    auto* const box = qobject_cast<QMessageBox*>(windowfinder::window(QStringLiteral("QMessageBox")));
    return box ? playDone(box->text()) : playWaiting(QStringLiteral("no question is asked"));
}

// password TEXT: into the prompt that is open, then OK.
playoutcome password(playrequest& request)
{
    auto* const prompt = qobject_cast<QInputDialog*>(windowfinder::window(QStringLiteral("QInputDialog")));
    if (!prompt)
        return playWaiting(QStringLiteral("no password is asked for"));
    prompt->setTextValue(request.rest(0));
    QMetaObject::invokeMethod(prompt, "accept", Qt::QueuedConnection);
    return playActed();
}

// save FILE: by the drawing window's own button and the toolkit's file dialog.
playoutcome save(playrequest& request)
{
    QWidget* const window = canvasfinder::window();
    auto* const dialog = qobject_cast<QFileDialog*>(windowfinder::window(QStringLiteral("QFileDialog")));
    if (request.phase == 0) {
        QAction* const action = window ? windowfinder::action(window, QStringLiteral("Save")) : nullptr;
        if (!action)
            return playWaiting(QStringLiteral("no canvas is open"));
        QMetaObject::invokeMethod(action, "trigger", Qt::QueuedConnection);
        return playAgain();
    }
    if (request.phase == 1) {
        auto* const name = dialog ? dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")) : nullptr;
        if (!name)
            return playWaiting(QStringLiteral("the file dialog does not come"));
        name->setText(request.rest(0));
        QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        return playAgain();
    }
    if (dialog)
        return playWaiting(QStringLiteral("the file dialog does not go"));
    return QFileInfo(request.rest(0)).size() > 0 ? playDone() : playWaiting(QStringLiteral("no file was written"));
}

} // namespace

void addDialogVerbs(verbtable* verbs)
{
    verbs->insert(QStringLiteral("open"), openSession);
    verbs->insert(QStringLiteral("answer"), answer);
    verbs->insert(QStringLiteral("question"), question);
    verbs->insert(QStringLiteral("password"), password);
    verbs->insert(QStringLiteral("save"), save);
}
