// Commands about what the drawing window paints with: tool, colour, thickness. All go through its own widgets.
#include "canvasfinder.h"
#include "playverb.h"
#include "windowfinder.h"

#include <QAbstractButton>
#include <QAction>
#include <QColorDialog>
#include <QDoubleSpinBox>
#include <QToolButton>

#include <cmath>

namespace {

// tool NAME: the beginning of the button's tool tip; "none" switches off whatever is on.
playoutcome tool(playrequest& request)
{
    QWidget* const window = canvasfinder::window();
    if (!window)
        return playWaiting(QStringLiteral("no canvas is open"));
    const bool none = request.word(0) == QLatin1String("none");
    bool found = none;
    const QList<QToolButton*> buttons = window->findChildren<QToolButton*>();
    for (QToolButton* button : buttons) {
        if (!button->isCheckable())
            continue;
        const bool fits = !none && button->toolTip().startsWith(request.word(0), Qt::CaseInsensitive);
        found = found || fits;
        if (fits != button->isChecked() && (fits || none))
            QMetaObject::invokeMethod(button, "click", Qt::QueuedConnection);
    }
    return found ? playActed() : playFailed(QStringLiteral("no tool is called '%1'").arg(request.word(0)));
}

// colour #RRGGBB: through the window's colour dialog.
playoutcome colour(playrequest& request)
{
    const QColor wanted(request.word(0));
    QWidget* const window = canvasfinder::window();
    if (!wanted.isValid())
        return playFailed(QStringLiteral("'%1' is no colour").arg(request.word(0)));
    if (!window)
        return playWaiting(QStringLiteral("no canvas is open"));
    auto* const dialog = qobject_cast<QColorDialog*>(windowfinder::window(QStringLiteral("QColorDialog")));
    if (request.phase == 0) {
        QAction* const action = windowfinder::action(window, QStringLiteral("Color"));
        if (!action)
            return playFailed(QStringLiteral("the window has no button for the colour"));
        QMetaObject::invokeMethod(action, "trigger", Qt::QueuedConnection);
        return playAgain();
    }
    if (request.phase == 1) {
        if (!dialog)
            return playWaiting(QStringLiteral("the colour dialog does not come"));
        dialog->setCurrentColor(wanted);
        QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        return playAgain();
    }
    return dialog ? playWaiting(QStringLiteral("the colour dialog does not go")) : playDone();
}

// thickness NUMBER
playoutcome thickness(playrequest& request)
{
    bool readable = false;
    const double wanted = request.word(0).toDouble(&readable);
    QWidget* const window = canvasfinder::window();
    auto* const spin = window ? window->findChild<QDoubleSpinBox*>() : nullptr;
    if (!spin)
        return playWaiting(QStringLiteral("no canvas is open"));
    if (!readable || !std::isfinite(wanted) || wanted < spin->minimum() || wanted > spin->maximum())
        return playFailed(QStringLiteral("'%1' is no thickness").arg(request.word(0)));
    QMetaObject::invokeMethod(spin, "setValue", Qt::QueuedConnection, Q_ARG(double, wanted));
    return playActed();
}

} // namespace

void addPaintVerbs(verbtable* verbs)
{
    verbs->insert(QStringLiteral("tool"), tool);
    verbs->insert(QStringLiteral("colour"), colour);
    verbs->insert(QStringLiteral("thickness"), thickness);
}
