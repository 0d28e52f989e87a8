// Commands about rows of trees and tables: selecting, double clicks, the context menu.
#include "playverb.h"
#include "rowfinder.h"
#include "windowfinder.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>

namespace {

// row TEXT [in WINDOW] ACTION...: takes the window out of the words.
QString windowOf(QStringList* words)
{
    const int at = words->indexOf(QStringLiteral("in"));
    if (at != 1 || words->size() < 3)
        return QStringLiteral("any");
    const QString wanted = words->at(2);
    words->removeAt(2);
    words->removeAt(1);
    return wanted;
}

void postClick(const foundrow& row, QEvent::Type press)
{
    QWidget* const viewport = row.view->viewport();
    const QPoint point = row.view->visualRect(row.index).center();
    for (const QEvent::Type type : {press, QEvent::MouseButtonRelease}) {
        const Qt::MouseButtons down = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QApplication::postEvent(viewport,
                                new QMouseEvent(type, point, viewport->mapTo(viewport->window(), point),
                                                viewport->mapToGlobal(point), Qt::LeftButton, down, Qt::NoModifier));
    }
}

// A person's double click is a click first, which selects the row.
playoutcome doubleClick(const foundrow& row)
{
    postClick(row, QEvent::MouseButtonPress);
    postClick(row, QEvent::MouseButtonDblClick);
    return playActed();
}

playoutcome openMenu(const foundrow& row)
{
    const QPoint point = row.view->visualRect(row.index).center();
    QMetaObject::invokeMethod(row.view, "customContextMenuRequested", Qt::QueuedConnection, Q_ARG(QPoint, point));
    return playAgain();
}

playoutcome chooseEntry(const QString& entry)
{
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        return playWaiting(QStringLiteral("no menu opens"));
    const QList<QAction*> actions = menu->actions();
    for (QAction* action : actions) {
        if (windowfinder::plain(action->text()) != entry)
            continue;
        QMetaObject::invokeMethod(menu, "close", Qt::QueuedConnection);
        if (!action->isEnabled())
            return playFailed(QStringLiteral("the entry '%1' is disabled").arg(entry));
        QMetaObject::invokeMethod(action, "trigger", Qt::QueuedConnection);
        return playActed();
    }
    return playFailed(QStringLiteral("the menu has no entry '%1'").arg(entry));
}

// row TEXT [in WINDOW] select|double|tip|menu ENTRY
playoutcome row(playrequest& request)
{
    QStringList words = request.words;
    const QString window = windowOf(&words);
    const QString action = words.value(1);
    if (action == QLatin1String("menu") && request.phase == 2)
        return chooseEntry(QStringList(words.mid(2)).join(QLatin1Char(' ')));
    const foundrow found = findRow(words.value(0), window);
    if (!found)
        return playWaiting(QStringLiteral("no row '%1'").arg(words.value(0)));
    if (action == QLatin1String("tip"))
        return playDone(found.toolTip());
    if (request.phase == 0) {
        found.view->scrollTo(found.index);
        if (action == QLatin1String("double"))
            return doubleClick(found);
        postClick(found, QEvent::MouseButtonPress);
        return action == QLatin1String("menu") ? playAgain() : playActed();
    }
    return openMenu(found);
}

} // namespace

void addRowVerbs(verbtable* verbs) { verbs->insert(QStringLiteral("row"), row); }
