#include "nestedplayer.h"

#include "must.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>

namespace {

constexpr QEvent::Type stepEvent = QEvent::User;

// More modal windows cannot be on top of each other: one a connection and what that one opens.
constexpr int mostDismissals = 100;

} // namespace

nestedplayer::nestedplayer() { qApp->installEventFilter(this); }

void nestedplayer::play(const std::function<bool()>& next)
{
    nextAction = next;
    dismissals = 0;
    postStep();
    loop.exec();
    nextAction = nullptr;
    windows.removeAll(QPointer<QWidget>());
    must(!QApplication::activeModalWidget(), "a modal window outlives the call that ran it");
}

bool nestedplayer::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && watched->isWidgetType()) {
        auto* widget = static_cast<QWidget*>(watched);
        if (widget->isWindow() && !windows.contains(widget))
            windows.append(widget);
        if (widget->isWindow() && widget->isModal())
            postStep();
    }
    return false;
}

// A posted event and no timer: the order in which things happen does not depend on the machine.
void nestedplayer::postStep()
{
    if (stepPosted || !nextAction)
        return;
    stepPosted = true;
    QCoreApplication::postEvent(this, new QEvent(stepEvent));
}

bool nestedplayer::event(QEvent* event)
{
    if (event->type() != stepEvent)
        return QObject::event(event);
    stepPosted = false;
    // An action is on the stack but no modal window is open: the loop of one is about to be left, and the event that
    // plays that action goes on.
    if (depth == 0 || QApplication::activeModalWidget())
        step();
    return true;
}

void nestedplayer::step()
{
    const bool outer = nested;
    nested = QApplication::activeModalWidget() != nullptr;
    ++depth;
    const bool played = nextAction();
    --depth;
    nested = outer;
    if (played) {
        dismissals = 0;
        postStep();
    } else if (QApplication::activeModalWidget()) {
        dismiss();
        postStep();
    } else if (depth == 0) {
        // Closed windows go when control is back here, before the loop is left.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        loop.exit();
    }
}

void nestedplayer::dismiss()
{
    must(++dismissals < mostDismissals, "a modal window does not close");
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
}
