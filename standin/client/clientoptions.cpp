#include "clientoptions.h"

#include "hostflavour.h"

#include "standin/common/programoptions.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace {

// The plugin gives the host 256 bytes for a directory, and puts names of its own behind it.
constexpr int longestDirectory = 200;

void declare(programoptions* parser)
{
    parser->add(QStringLiteral("server"),
                QStringLiteral("Connect to the server of this name; may be given repeatedly."), QStringLiteral("NAME"),
                QStringLiteral("paint-town"));
    parser->add(QStringLiteral("name"), QStringLiteral("Nickname."), QStringLiteral("NAME"), QStringLiteral("Painter"));
    parser->add(QStringLiteral("channel"), QStringLiteral("Channel to enter at first."), QStringLiteral("NAME"));
    parser->add(QStringLiteral("platform"), QStringLiteral("Platform that others see."), QStringLiteral("TEXT"),
                QStringLiteral("Linux"));
    parser->add(QStringLiteral("plugin"),
                QStringLiteral("Library of the plugin to load; without it, what is installed in the folder plugins of "
                               "the configuration directory."),
                QStringLiteral("FILE"));
    parser->add(QStringLiteral("interface"),
                QStringLiteral("Load plugins of this version of the plugin interface alone, 8 or 26, as a real client "
                               "does (default both)."),
                QStringLiteral("VERSION"));
    parser->add(QStringLiteral("config"),
                QStringLiteral("Configuration directory: settings, downloads, installed plugins."),
                QStringLiteral("DIR"));
    parser->add(QStringLiteral("geometry"), QStringLiteral("Place and size of the window."),
                QStringLiteral("X,Y,WIDTH,HEIGHT"));
    parser->add(QStringLiteral("away"), QStringLiteral("Be away from the start."));
    parser->add(QStringLiteral("play"), QStringLiteral("Take commands from standard input; its end ends the client."));
}

QString configDirectory(programoptions* parser, const QString& nickname)
{
    QString directory = parser->text(QStringLiteral("config"));
    if (directory.isEmpty()) {
        QString folder = nickname;
        folder.replace(QLatin1Char('/'), QLatin1Char('_'));
        directory = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
            + QStringLiteral("/kelvor-standin/") + folder;
    }
    directory = QDir(directory).absolutePath() + QLatin1Char('/');
    if (QFile::encodeName(directory).size() > longestDirectory)
        parser->fail(QStringLiteral("The directory '%1' is too long a name for plugins.").arg(directory));
    else if (!QDir().mkpath(directory + QStringLiteral("plugins")))
        parser->fail(QStringLiteral("Cannot write into the directory '%1'.").arg(directory));
    return directory;
}

} // namespace

clientoptions readClientOptions(programoptions* parser, const QStringList& arguments)
{
    clientoptions options;
    declare(parser);
    if (!parser->parse(arguments))
        return options;
    options.servers = parser->texts(QStringLiteral("server"));
    options.nickname = parser->text(QStringLiteral("name"));
    options.channel = parser->text(QStringLiteral("channel"));
    options.platform = parser->text(QStringLiteral("platform"));
    options.plugin = parser->text(QStringLiteral("plugin"));
    options.away = parser->isSet(QStringLiteral("away"));
    options.played = parser->isSet(QStringLiteral("play"));
    if (options.nickname.isEmpty())
        parser->fail(QStringLiteral("Option --name needs a name."));
    const QString version = parser->text(QStringLiteral("interface"));
    options.apiVersion = version.toInt();
    if (!version.isEmpty() && !flavourFor(options.apiVersion))
        parser->fail(QStringLiteral("Option --interface takes 8 or 26, not '%1'.").arg(version));
    const QString place = parser->text(QStringLiteral("geometry"));
    options.geometry = readGeometry(place);
    if (!place.isEmpty() && options.geometry.isNull())
        parser->fail(QStringLiteral("Option --geometry takes X,Y,WIDTH,HEIGHT, not '%1'.").arg(place));
    if (!parser->failed())
        options.config = configDirectory(parser, options.nickname);
    return options;
}

QRect readGeometry(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    int numbers[4] = {0, 0, 0, 0};
    if (parts.size() != 4)
        return QRect();
    for (int i = 0; i < 4; ++i) {
        bool readable = false;
        numbers[i] = parts.at(i).toInt(&readable);
        if (!readable || (i >= 2 && numbers[i] <= 0))
            return QRect();
    }
    return QRect(numbers[0], numbers[1], numbers[2], numbers[3]);
}
