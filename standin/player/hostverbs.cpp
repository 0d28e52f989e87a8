// Commands about the client as the plugin's host: the plugin's life, failing functions, what was counted.
#include "playverb.h"

#include "standin/client/mainwindow.h"
#include "standin/client/voiceclient.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThread>

namespace {

QString oneLine(const QJsonObject& object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QJsonObject byKind(const QMap<int, int>& counts)
{
    QJsonObject object;
    for (auto count = counts.begin(); count != counts.end(); ++count)
        object.insert(QString::number(count.key()), count.value());
    return object;
}

playoutcome counts(playrequest& request)
{
    const trafficcount& traffic = request.client->host().traffic;
    return playDone(oneLine({{QStringLiteral("sent"), byKind(traffic.sentByKind())},
                             {QStringLiteral("received"), byKind(traffic.receivedByKind())}}));
}

playoutcome status(playrequest& request)
{
    QJsonArray servers;
    for (const voiceconnection* server : request.client->host().all()) {
        servers.append(QJsonObject{{QStringLiteral("connection"), qint64(server->id())},
                                   {QStringLiteral("established"), server->isEstablished()},
                                   {QStringLiteral("ownID"), server->ownID()},
                                   {QStringLiteral("channel"), qint64(server->ownChannel())}});
    }
    QJsonArray windows;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (const QWidget* widget : widgets) {
        if (widget->isVisible())
            windows.append(QLatin1String(widget->metaObject()->className()) + QLatin1Char('/') + widget->windowTitle());
    }
    return playDone(oneLine({{QStringLiteral("servers"), servers},
                             {QStringLiteral("windows"), windows},
                             {QStringLiteral("plugin"), request.client->plugin().isRunning()},
                             {QStringLiteral("library"), request.client->plugin().file()},
                             {QStringLiteral("interface"), request.client->plugin().apiVersion()},
                             {QStringLiteral("memory"), request.client->host().memory.outstanding()},
                             {QStringLiteral("loops"), QThread::currentThread()->loopLevel()}}));
}

// fail FUNCTION error CODE|empty|null|off; fail any PERCENT [SEED]; fail none
playoutcome fail(playrequest& request)
{
    static const QHash<QString, failurekind> kinds = {
        {QStringLiteral("error"), failurekind::error},
        {QStringLiteral("empty"), failurekind::empty},
        {QStringLiteral("null"), failurekind::nothing},
        {QStringLiteral("off"), failurekind::none},
    };
    hostfailures& failures = request.client->host().failures;
    if (request.word(0) == QLatin1String("none")) {
        failures.clear();
        return playDone();
    }
    if (request.word(0) == QLatin1String("any")) {
        failures.setChance(request.word(1).toInt(), request.words.size() > 2 ? request.word(2).toUInt() : 1);
        return playDone();
    }
    if (!kinds.contains(request.word(1)))
        return playFailed(QStringLiteral("a function fails by error, empty, null or off"));
    const unsigned int code = request.words.size() > 2 ? request.word(2).toUInt(nullptr, 0) : ERROR_undefined;
    failures.set(request.word(0).toLatin1(), {kinds.value(request.word(1)), code});
    return playDone();
}

// plugin load|unload: answered when the library is mapped anew, or gone.
playoutcome plugin(playrequest& request)
{
    const bool loads = request.word(0) == QLatin1String("load");
    if (!loads && request.word(0) != QLatin1String("unload"))
        return playFailed(QStringLiteral("the plugin can be loaded and unloaded"));
    if (request.phase == 0) {
        const auto work = loads ? &voiceclient::reloadPlugin : &voiceclient::unloadPlugin;
        voiceclient* const client = request.client;
        request.note = QString::number(client->plugin().loadCount());
        QMetaObject::invokeMethod(
            client, [=] { (client->*work)(); }, Qt::QueuedConnection);
        return playAgain();
    }
    const bool renewed =
        request.client->plugin().isRunning() && QString::number(request.client->plugin().loadCount()) != request.note;
    const bool reached = loads ? renewed : !request.client->plugin().isLoaded();
    return reached ? playDone() : playWaiting(QStringLiteral("the plugin does not change"));
}

playoutcome configure(playrequest& request)
{
    voiceclient* const client = request.client;
    QMetaObject::invokeMethod(
        client, [=] { client->configurePlugin(client->window()); }, Qt::QueuedConnection);
    return playActed();
}

// quit: answered at once; the process ends with the status of the plugin's end.
playoutcome quit(playrequest& request)
{
    voiceclient* const client = request.client;
    QMetaObject::invokeMethod(
        client, [=] { client->end(0); }, Qt::QueuedConnection);
    return playDone();
}

} // namespace

void addHostVerbs(verbtable* verbs)
{
    verbs->insert(QStringLiteral("counts"), counts);
    verbs->insert(QStringLiteral("status"), status);
    verbs->insert(QStringLiteral("fail"), fail);
    verbs->insert(QStringLiteral("plugin"), plugin);
    verbs->insert(QStringLiteral("configure"), configure);
    verbs->insert(QStringLiteral("quit"), quit);
    verbs->insert(QStringLiteral("calls"), [](playrequest& request) {
        return playDone(QString::number(request.client->host().failures.calls(request.word(0).toLatin1())));
    });
}
