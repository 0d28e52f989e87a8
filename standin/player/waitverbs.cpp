// wait [no] CONDITION: answered as soon as it holds.
#include "canvasfinder.h"
#include "playverb.h"
#include "rowfinder.h"
#include "windowfinder.h"

#include "standin/client/connectiontab.h"
#include "standin/client/mainwindow.h"
#include "standin/client/voiceclient.h"

#include <QWidget>

namespace {

/// Whether a condition holds, and what to say while it does not.
struct verdict {
    bool holds = false;
    QString words;
};

// window WINDOW
verdict windowShown(const playrequest&, const QStringList& words)
{
    const QString wanted = words.join(QLatin1Char(' '));
    return {windowfinder::window(wanted) != nullptr, QStringLiteral("window '%1'").arg(wanted)};
}

// row TEXT [in WINDOW] [TOOL TIP]
verdict rowShown(const playrequest&, QStringList words)
{
    QString window = QStringLiteral("any");
    if (words.value(1) == QLatin1String("in")) {
        window = words.value(2);
        words = words.mid(0, 1) + words.mid(3);
    }
    const foundrow row = findRow(words.value(0), window);
    const QString tip = QStringList(words.mid(1)).join(QLatin1Char(' '));
    return {row && (tip.isEmpty() || row.toolTip().contains(tip)),
            QStringLiteral("row '%1' with '%2', which has '%3'").arg(words.value(0), tip, row.toolTip())};
}

// text TEXT in WINDOW: on a label or a status bar of it
verdict textShown(const playrequest&, const QStringList& words)
{
    QWidget* const window = windowfinder::window(words.value(2));
    const QString wanted = words.value(0);
    return {window && windowfinder::texts(window).join(QLatin1Char('\n')).contains(wanted),
            QStringLiteral("text '%1'").arg(wanted)};
}

// pixel X,Y COLOUR
verdict pixelShown(const playrequest&, const QStringList& words)
{
    QWidget* const canvas = canvasfinder::canvas();
    const QPoint point(words.value(0).section(QLatin1Char(','), 0, 0).toInt(),
                       words.value(0).section(QLatin1Char(','), 1).toInt());
    if (!canvas || !canvas->rect().contains(point))
        return {false, QStringLiteral("a canvas with that point")};
    const QString colour = canvasfinder::picture(canvas).pixelColor(point).name();
    return {colour == words.value(1),
            QStringLiteral("pixel %1, which is %2").arg(words.join(QLatin1Char(' ')), colour)};
}

// received|sent KIND COUNT: at least so many plugin commands of the kind
verdict counted(const playrequest& request, const QStringList& words)
{
    const trafficcount& traffic = request.client->host().traffic;
    const int kind = words.value(1).toInt();
    const int count = words.value(0) == QLatin1String("sent") ? traffic.sentOf(kind) : traffic.receivedOf(kind);
    return {count >= words.value(2).toInt(),
            QStringLiteral("%1 of kind %2: %3 of %4").arg(words.value(0)).arg(kind).arg(count).arg(words.value(2))};
}

// line TEXT: in the talk of the current tab
verdict lineShown(const playrequest& request, const QStringList& words)
{
    const QString wanted = words.join(QLatin1Char(' '));
    const connectiontab* const tab = request.client->window()->currentTab();
    return {tab && !tab->lines().filter(wanted).isEmpty(), QStringLiteral("line '%1'").arg(wanted)};
}

// client NICKNAME: on the server of the current tab
verdict clientThere(const playrequest& request, const QStringList& words)
{
    const QString wanted = words.join(QLatin1Char(' '));
    const connectiontab* const tab = request.client->window()->currentTab();
    return {tab && tab->server()->voices().clientNamed(wanted) != 0, QStringLiteral("client '%1'").arg(wanted)};
}

verdict connected(const playrequest& request, const QStringList&)
{
    return {request.client->isConnected(), QStringLiteral("connection")};
}

verdict pluginRunning(const playrequest& request, const QStringList&)
{
    return {request.client->plugin().isRunning(), QStringLiteral("plugin")};
}

playoutcome wait(playrequest& request)
{
    using condition = verdict (*)(const playrequest&, const QStringList&);
    static const QHash<QString, condition> conditions = {
        {QStringLiteral("window"), windowShown},
        {QStringLiteral("row"),
         [](const playrequest& asked, const QStringList& words) { return rowShown(asked, words); }},
        {QStringLiteral("pixel"), pixelShown},
        {QStringLiteral("text"), textShown},
        {QStringLiteral("line"), lineShown},
        {QStringLiteral("client"), clientThere},
        {QStringLiteral("connected"), connected},
        {QStringLiteral("plugin"), pluginRunning},
    };
    QStringList words = request.words;
    const bool negated = words.value(0) == QLatin1String("no");
    if (negated)
        words.removeFirst();
    const QString name = words.value(0);
    verdict found;
    if (name == QLatin1String("received") || name == QLatin1String("sent"))
        found = counted(request, words);
    else if (conditions.contains(name))
        found = conditions.value(name)(request, words.mid(1));
    else
        return playFailed(QStringLiteral("unknown condition '%1'").arg(name));
    if (found.holds != negated)
        return playDone();
    return playWaiting((negated ? QStringLiteral("no ") : QString()) + found.words);
}

} // namespace

void addWaitVerbs(verbtable* verbs) { verbs->insert(QStringLiteral("wait"), wait); }
