// Commands that move the X server's own pointer and press its own keys: what they show holds for a person as well,
// since focus, grabs and the window manager have their say. They need xdotool.
#include "canvasfinder.h"
#include "playverb.h"
#include "rowfinder.h"
#include "windowfinder.h"

#include "standin/client/mainwindow.h"
#include "standin/client/voiceclient.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QProcess>

namespace {

const QString processName = QStringLiteral("pointer");

/// Points to go to, on the screen, and the window that they lie in.
struct pointertarget {
    QWidget* window = nullptr;
    QVector<QPoint> points;
};

void aim(pointertarget* target, const QWidget* widget, const QPoint& point)
{
    // The X server counts the screen's pixels, the toolkit its own when it scales.
    target->points.append((QPointF(widget->mapToGlobal(point)) * widget->devicePixelRatioF()).toPoint());
}

// canvas X,Y ...
pointertarget onCanvas(const QStringList& words)
{
    pointertarget target;
    target.window = canvasfinder::window();
    if (const QWidget* const canvas = canvasfinder::canvas()) {
        for (const QString& word : words)
            aim(&target, canvas,
                QPoint(word.section(QLatin1Char(','), 0, 0).toInt(), word.section(QLatin1Char(','), 1).toInt()));
    }
    return target;
}

// button NAME in WINDOW
pointertarget onButton(const QStringList& words)
{
    pointertarget target;
    target.window = windowfinder::window(words.value(2));
    const QWidget* const button = target.window ? windowfinder::button(target.window, words.value(0)) : nullptr;
    if (button)
        aim(&target, button, button->rect().center());
    return target;
}

// row TEXT in WINDOW
pointertarget onRow(const QStringList& words)
{
    pointertarget target;
    target.window = windowfinder::window(words.value(2));
    if (const foundrow row = findRow(words.value(0), words.value(2)))
        aim(&target, row.view->viewport(), row.view->visualRect(row.index).center());
    return target;
}

void aimAtEntry(pointertarget* target, const QWidget* bar, const QString& text, const QList<QAction*>& actions)
{
    for (QAction* action : actions) {
        if (windowfinder::plain(action->text()) != text)
            continue;
        const auto* const menu = qobject_cast<const QMenu*>(bar);
        const QRect place =
            menu ? menu->actionGeometry(action) : qobject_cast<const QMenuBar*>(bar)->actionGeometry(action);
        aim(target, bar, place.center());
    }
}

// menu TEXT: of the bar, or of the menu that is open
pointertarget onMenu(const playrequest& request, const QStringList& words)
{
    pointertarget target;
    if (auto* const open = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
        // An open menu holds the pointer; the window behind it must not be brought to the front.
        aimAtEntry(&target, open, words.value(0), open->actions());
        return target;
    }
    MainWindow* const window = request.client->window();
    target.window = window;
    aimAtEntry(&target, window->menuBar(), words.value(0), window->menuBar()->actions());
    return target;
}

pointertarget find(const playrequest& request)
{
    const QString kind = request.word(1);
    const QStringList words = request.words.mid(2);
    if (kind == QLatin1String("canvas"))
        return onCanvas(words);
    if (kind == QLatin1String("button"))
        return onButton(words);
    if (kind == QLatin1String("row"))
        return onRow(words);
    return kind == QLatin1String("menu") ? onMenu(request, words) : pointertarget();
}

// The tool's own words for an action at these points.
QStringList toolWords(const QString& action, const pointertarget& target)
{
    QStringList words;
    if (target.window)
        words << QStringLiteral("windowactivate") << QStringLiteral("--sync")
              << QString::number(target.window->effectiveWinId());
    for (int i = 0; i < target.points.size(); ++i) {
        words << QStringLiteral("mousemove") << QStringLiteral("--sync") << QString::number(target.points.at(i).x())
              << QString::number(target.points.at(i).y());
        if (i == 0 && action == QLatin1String("drag"))
            words << QStringLiteral("mousedown") << QStringLiteral("1");
    }
    if (action == QLatin1String("drag"))
        words << QStringLiteral("mouseup") << QStringLiteral("1");
    else if (action == QLatin1String("click"))
        words << QStringLiteral("click") << QStringLiteral("1");
    else if (action == QLatin1String("double"))
        words << QStringLiteral("click") << QStringLiteral("--repeat") << QStringLiteral("2") << QStringLiteral("1");
    return words;
}

playoutcome startTool(const playrequest& request, const QStringList& words)
{
    auto* const process = new QProcess(request.client);
    process->setObjectName(processName);
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->start(QStringLiteral("xdotool"), words);
    return playAgain();
}

playoutcome awaitTool(const playrequest& request)
{
    auto* const process = request.client->findChild<QProcess*>(processName);
    if (process->state() != QProcess::NotRunning)
        return playWaiting(QStringLiteral("xdotool does not end"));
    const bool failed = process->error() == QProcess::FailedToStart || process->exitCode() != 0;
    delete process;
    return failed ? playFailed(QStringLiteral("xdotool failed")) : playActed();
}

// pointer click|double|drag|move canvas X,Y ...|button NAME in WINDOW|row TEXT in WINDOW|menu TEXT
// pointer type TEXT, pointer key NAME
playoutcome pointer(playrequest& request)
{
    if (request.phase > 0)
        return awaitTool(request);
    const QString action = request.word(0);
    if (action == QLatin1String("type"))
        return startTool(request,
                         {QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("10"), request.rest(1)});
    if (action == QLatin1String("key"))
        return startTool(request, {QStringLiteral("key"), request.word(1)});
    const pointertarget target = find(request);
    if (target.points.isEmpty())
        return playWaiting(QStringLiteral("nothing to point at: %1").arg(request.rest(1)));
    return startTool(request, toolWords(action, target));
}

} // namespace

void addPointerVerbs(verbtable* verbs) { verbs->insert(QStringLiteral("pointer"), pointer); }
