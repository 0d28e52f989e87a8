#include "stage.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cmath>

namespace {

constexpr int titleBar = 30; // pixels that a window manager may put above a window
constexpr int border = 6;
const QSize unknownScreen(1366, 768);
const QSize largestClient(460, 560); // leaves the rest of a place to the plugin's windows

// A name that no other stage on this machine has.
QString nextServerName()
{
    static int number = 0;
    return QStringLiteral("paint-town-%1-%2").arg(QCoreApplication::applicationPid()).arg(++number);
}

} // namespace

stage::stage(const stageprops& props, QObject* parent)
    : QObject(parent)
    , props(props)
    , serverName(nextServerName())
{
}

stage::~stage()
{
    // Clients first: without a server they would complain.
    voiceClients.clear();
    voiceServer.reset();
}

bool stage::startServer(QString* error)
{
    const QStringList arguments{QStringLiteral("--name"),  serverName,
                                QStringLiteral("--title"), props.serverTitle,
                                QStringLiteral("--store"), work.filePath(QStringLiteral("store")),
                                QStringLiteral("--play"),  QStringLiteral("--samples")};
    voiceServer = std::make_unique<playedprocess>(QStringLiteral("server"),
                                                  props.programs + QStringLiteral("/voiceserver"), arguments);
    if (voiceServer->nextLine(playedprocess::startTime))
        return true;
    *error = QStringLiteral("The server does not start.");
    return false;
}

bool stage::startClient(const scriptplayer& player, const QRect& geometry, QString* error)
{
    const QString config = configFor(player, error);
    if (config.isEmpty())
        return false;
    QStringList arguments{QStringLiteral("--server"),  serverName,     QStringLiteral("--name"),     player.name,
                          QStringLiteral("--channel"), player.channel, QStringLiteral("--platform"), player.platform,
                          QStringLiteral("--config"),  config,         QStringLiteral("--play")};
    if (!geometry.isNull()) {
        const QSize size = geometry.size().boundedTo(largestClient);
        const QStringList numbers{QString::number(geometry.x()), QString::number(geometry.y()),
                                  QString::number(size.width()), QString::number(size.height())};
        arguments += {QStringLiteral("--geometry"), numbers.join(QLatin1Char(','))};
    }
    if (player.hasPlugin)
        arguments += {QStringLiteral("--plugin"), props.plugins.at(int(voiceClients.size()) % props.plugins.size())};
    if (player.away)
        arguments.append(QStringLiteral("--away"));
    // On the list before it is waited for, so that an interruption reaches it.
    voiceClients.push_back(
        std::make_unique<playedprocess>(player.name, props.programs + QStringLiteral("/voiceclient"), arguments));
    playedprocess* const client = voiceClients.back().get();
    connect(client, &playedprocess::finished, this, &stage::clientEnded);
    if (interrupted)
        client->interrupt();
    if (client->ask(QStringLiteral("wait connected")))
        return true;
    *error = QStringLiteral("%1 does not get onto the stage: %2.").arg(player.name, client->problem());
    return false;
}

bool stage::endAll(QString* error)
{
    for (const auto& client : voiceClients) {
        const int status = client->end();
        if (status != 0 && error->isEmpty())
            *error = QStringLiteral("%1 ended with status %2.").arg(client->name()).arg(status);
    }
    if (voiceServer && voiceServer->end() != 0 && error->isEmpty())
        *error = QStringLiteral("The server did not end well.");
    return error->isEmpty();
}

void stage::interrupt()
{
    interrupted = true;
    if (voiceServer)
        voiceServer->interrupt();
    for (const auto& client : voiceClients)
        client->interrupt();
}

playedprocess* stage::client(const QString& name) const
{
    for (const auto& one : voiceClients) {
        if (one->name() == name)
            return one.get();
    }
    return nullptr;
}

QRect stage::placeFor(int index, int count)
{
    if (screen.isEmpty() && !voiceClients.empty()) {
        const QStringList size =
            voiceClients.front()->ask(QStringLiteral("screen")).value_or(QString()).split(QLatin1Char(' '));
        screen = QSize(size.value(0).toInt(), size.value(1).toInt());
    }
    const QSize whole = screen.isEmpty() ? unknownScreen : screen;
    const int columns = count <= 2 ? count : int(std::ceil(std::sqrt(double(count))));
    const int rows = (count + columns - 1) / columns;
    const int width = whole.width() / columns;
    const int height = whole.height() / rows;
    return QRect((index % columns) * width + border, (index / columns) * height + titleBar, width - 2 * border,
                 height - titleBar - border);
}

QString stage::configFor(const scriptplayer& player, QString* error) const
{
    const QString directory = QStringLiteral("%1/%2").arg(work.path(), player.name);
    QFile settings(directory + QStringLiteral("/kelvor.conf"));
    if (!QDir().mkpath(directory)) {
        *error = QStringLiteral("Cannot write into '%1'.").arg(work.path());
        return QString();
    }
    if (!player.settings.isEmpty() && settings.open(QIODevice::WriteOnly))
        settings.write("[General]\n" + player.settings.join(QLatin1Char('\n')).toUtf8() + '\n');
    return directory;
}
