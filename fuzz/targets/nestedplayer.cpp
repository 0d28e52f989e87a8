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
    while (nextAction()) { }
    must(!QApplication::activeModalWidget(), "a modal window outlives the call that ran it");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    nextAction = nullptr;
    windows.removeAll(QPointer<QWidget>());
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

// A posted event and no timer: it is the first thing that the window's event loop delivers, however busy the machine.
void nestedplayer::postStep()
{
    if (stepPosted)
        return;
    stepPosted = true;
    QCoreApplication::postEvent(this, new QEvent(stepEvent));
}

bool nestedplayer::event(QEvent* event)
{
    if (event->type() != stepEvent)
        return QObject::event(event);
    stepPosted = false;
    if (!QApplication::activeModalWidget())
        return true;
    ++depth;
    step();
    --depth;
    if (QApplication::activeModalWidget())
        postStep();
    return true;
}

void nestedplayer::step()
{
    if (nextAction && nextAction())
        dismissals = 0;
    else
        dismiss();
}

void nestedplayer::dismiss()
{
    must(++dismissals < mostDismissals, "a modal window does not close");
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
}
