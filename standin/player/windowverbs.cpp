// Commands about windows as a whole, and what stands in any of them: buttons, actions, edits, pictures of the screen.
#include "playverb.h"
#include "screenshot.h"
#include "windowfinder.h"

#include "standin/client/clientoptions.h"

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QMetaObject>
#include <QPointer>

namespace {

// "... in WINDOW" at the end of a command names the window; without it, it is the one in front.
QString takeWindow(QStringList* words)
{
    const int at = words->lastIndexOf(QStringLiteral("in"));
    if (at < 1 || at != words->size() - 2)
        return QStringLiteral("any");
    const QString wanted = words->at(at + 1);
    *words = words->mid(0, at);
    return wanted;
}

// click NAME [in WINDOW]
playoutcome click(playrequest& request)
{
    QStringList words = request.words;
    QWidget* const window = windowfinder::window(takeWindow(&words));
    const QString wanted = words.join(QLatin1Char(' '));
    if (!window)
        return playWaiting(QStringLiteral("no such window"));
    if (QWidget* const button = windowfinder::button(window, wanted)) {
        QMetaObject::invokeMethod(button, "click", Qt::QueuedConnection);
        return playActed();
    }
    if (QAction* const action = windowfinder::action(window, wanted)) {
        QMetaObject::invokeMethod(action, "trigger", Qt::QueuedConnection);
        return playActed();
    }
    return playWaiting(QStringLiteral("nothing to click is called '%1'").arg(wanted));
}

// fill NAME TEXT [in WINDOW]: the text of an edit by its object name.
playoutcome fill(playrequest& request)
{
    QStringList words = request.words;
    QWidget* const window = windowfinder::window(takeWindow(&words));
    auto* const edit = window ? window->findChild<QLineEdit*>(words.value(0)) : nullptr;
    if (!edit || !edit->isEnabled())
        return playWaiting(QStringLiteral("no edit is called '%1'").arg(words.value(0)));
    const QString text = QStringList(words.mid(1)).join(QLatin1Char(' '));
    QMetaObject::invokeMethod(edit, "setText", Qt::QueuedConnection, Q_ARG(QString, text));
    return playActed();
}

// check NAME on|off [in WINDOW]
playoutcome check(playrequest& request)
{
    QStringList words = request.words;
    QWidget* const window = windowfinder::window(takeWindow(&words));
    const QString state = words.isEmpty() ? QString() : words.takeLast();
    auto* const box =
        window ? qobject_cast<QAbstractButton*>(windowfinder::button(window, words.join(QLatin1Char(' ')))) : nullptr;
    if (!box)
        return playWaiting(QStringLiteral("no box is called '%1'").arg(words.join(QLatin1Char(' '))));
    if (box->isChecked() != (state == QLatin1String("on")))
        QMetaObject::invokeMethod(box, "click", Qt::QueuedConnection);
    return playActed();
}

playoutcome withWindow(const QString& wanted, const char* slot)
{
    QWidget* const window = windowfinder::window(wanted);
    if (!window)
        return playWaiting(QStringLiteral("no window '%1'").arg(wanted));
    QMetaObject::invokeMethod(window, slot, Qt::QueuedConnection);
    return playActed();
}

// place WINDOW X,Y,WIDTH,HEIGHT: of the window's inside.
playoutcome place(playrequest& request)
{
    const QRect geometry = readGeometry(request.word(1));
    if (geometry.isNull())
        return playFailed(QStringLiteral("'%1' is no place").arg(request.word(1)));
    QWidget* const window = windowfinder::window(request.word(0));
    if (!window)
        return playWaiting(QStringLiteral("no window '%1'").arg(request.word(0)));
    window->setGeometry(geometry);
    return playActed();
}

playoutcome screenSize(playrequest&)
{
    const QSize size = screenshot::screenSize();
    return playDone(QStringLiteral("%1 %2").arg(size.width()).arg(size.height()));
}

// shot FILE [WINDOW | screen [X,Y,WIDTH,HEIGHT]]: as it stands on the screen. The window is brought to the front, and
// the picture is taken once it has stood still for a while, since the window system frames and paints windows in its
// own time.
playoutcome shot(playrequest& request)
{
    constexpr int stillFor = 8; // tries in a row
    const QString wanted = request.words.size() > 1 ? request.rest(1) : QStringLiteral("any");
    const bool ofScreen = request.word(1) == QLatin1String("screen");
    const QRect part = readGeometry(request.word(2));
    if (ofScreen && request.words.size() > 2 && part.isNull())
        return playFailed(QStringLiteral("'%1' is no part of the screen").arg(request.word(2)));
    QWidget* const window = ofScreen ? nullptr : windowfinder::window(wanted);
    if (!ofScreen && !window)
        return playWaiting(QStringLiteral("no window '%1'").arg(wanted));
    if (request.phase == 0) {
        if (window && screenshot::canReadScreen())
            QMetaObject::invokeMethod(window, "raise", Qt::QueuedConnection);
        return playAgain();
    }
    const QImage now = ofScreen ? screenshot::ofScreen(part) : screenshot::ofWindow(window);
    const QString looks = QString::number(
        qHash(QByteArray::fromRawData(reinterpret_cast<const char*>(now.constBits()), int(now.sizeInBytes()))));
    const bool same = request.note.section(QLatin1Char(' '), 0, 0) == looks;
    const int still = same ? request.note.section(QLatin1Char(' '), 1).toInt() + 1 : 0;
    request.note = QStringLiteral("%1 %2").arg(looks).arg(still);
    if (now.isNull() || (still < stillFor && screenshot::canReadScreen()))
        return playWaiting(QStringLiteral("the picture does not come to rest"));
    return now.save(request.word(0), "PNG") ? playDone()
                                            : playFailed(QStringLiteral("cannot write '%1'").arg(request.word(0)));
}

} // namespace

void addWindowVerbs(verbtable* verbs)
{
    verbs->insert(QStringLiteral("click"), click);
    verbs->insert(QStringLiteral("fill"), fill);
    verbs->insert(QStringLiteral("check"), check);
    verbs->insert(QStringLiteral("place"), place);
    verbs->insert(QStringLiteral("screen"), screenSize);
    verbs->insert(QStringLiteral("windows"), [](playrequest& request) {
        QStringList titles;
        const QWidgetList windows = windowfinder::windows(request.rest(0));
        for (const QWidget* window : windows)
            titles.append(window->windowTitle());
        return playDone(titles.join(QStringLiteral(" | ")));
    });
    verbs->insert(QStringLiteral("shot"), shot);
    verbs->insert(QStringLiteral("raise"), [](playrequest& request) { return withWindow(request.rest(0), "raise"); });
    verbs->insert(QStringLiteral("close"), [](playrequest& request) { return withWindow(request.rest(0), "close"); });
    verbs->insert(QStringLiteral("cancel"), [](playrequest& request) {
        return withWindow(request.words.isEmpty() ? QStringLiteral("any") : request.rest(0), "reject");
    });
}
