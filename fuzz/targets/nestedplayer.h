#pragma once

#include <QEventLoop>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>

/// Plays everything around the plugin: carries out one action after the other in an event loop, as a voice client does,
/// and goes on with them inside the loop of whatever modal window an action opens, for what happens to a client does
/// not wait until a box is answered. No clock is involved, so the same actions give the same run. One lives at a time.
class nestedplayer : public QObject {
    Q_OBJECT

public:
    nestedplayer();

    /// next carries out one action and returns false when there is none left. Modal windows that are open then are
    /// rejected, the topmost first; closed windows are gone on return.
    void play(const std::function<bool()>& next);

    /// Whether the action is, or was, played while a modal window was open.
    bool isNested() const { return nested; }

    /// The visible windows of a class in the order in which they came up.
    template <typename Window> QList<Window*> shown() const
    {
        QList<Window*> found;
        for (const QPointer<QWidget>& window : windows) {
            if (auto* wanted = qobject_cast<Window*>(window.data()); wanted && wanted->isVisible())
                found.append(wanted);
        }
        return found;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;

private:
    void postStep();
    void step();
    void dismiss();

    std::function<bool()> nextAction;
    QEventLoop loop;
    QList<QPointer<QWidget>> windows;
    int depth = 0; ///< actions that are being carried out
    bool nested = false;
    bool stepPosted = false;
    int dismissals = 0; ///< since the last action
};
