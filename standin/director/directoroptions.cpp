#include "directoroptions.h"

#include "standin/common/programoptions.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr int mostPlayers = 99;

void declare(programoptions* parser)
{
    parser->add(
        QStringLiteral("plugin"),
        QStringLiteral("Library of the plugin that the clients load. Given repeatedly, the clients take them in "
                       "turn."),
        QStringLiteral("FILE"));
    parser->add(QStringLiteral("players"),
                QStringLiteral("How many people (default 2), where the script leaves it open and needs no more."),
                QStringLiteral("N"));
    parser->add(QStringLiteral("script"),
                QStringLiteral("Play this script: a file, or one of %1. May be given repeatedly; without it, all of "
                               "these are played.")
                    .arg(ownScripts().join(QStringLiteral(", "))),
                QStringLiteral("SCRIPT"));
    parser->add(QStringLiteral("screenshots"), QStringLiteral("Put pictures of the windows there."),
                QStringLiteral("DIR"));
    parser->add(QStringLiteral("interactive"),
                QStringLiteral("Open the windows side by side for people to play with, and end when all are closed."));
}

} // namespace

directoroptions readDirectorOptions(programoptions* parser, const QStringList& arguments, const QString& ownDirectory)
{
    directoroptions options;
    declare(parser);
    if (!parser->parse(arguments))
        return options;
    options.props.programs = ownDirectory;
    options.props.plugins = parser->texts(QStringLiteral("plugin"));
    options.scripts = parser->texts(QStringLiteral("script"));
    options.interactive = parser->isSet(QStringLiteral("interactive"));
    if (parser->isSet(QStringLiteral("players")))
        options.players = parser->number(QStringLiteral("players"), 1, mostPlayers);
    options.screenshots = parser->text(QStringLiteral("screenshots"));
    if (options.props.plugins.isEmpty())
        parser->fail(QStringLiteral("Option --plugin is needed: the library that the clients load."));
    for (const QString& plugin : qAsConst(options.props.plugins)) {
        if (!QFileInfo(plugin).isFile())
            parser->fail(QStringLiteral("There is no plugin '%1'.").arg(plugin));
    }
    for (const QString& script : qAsConst(options.scripts)) {
        if (scriptText(script).isNull())
            parser->fail(QStringLiteral("There is no script '%1'.").arg(script));
    }
    if (!options.screenshots.isEmpty() && !parser->failed()) {
        options.screenshots = QDir(options.screenshots).absolutePath();
        if (!QDir().mkpath(options.screenshots))
            parser->fail(QStringLiteral("Cannot write into '%1'.").arg(options.screenshots));
    }
    return options;
}

QStringList ownScripts()
{
    return {QStringLiteral("road"),  QStringLiteral("tools"), QStringLiteral("picture"),
            QStringLiteral("lobby"), QStringLiteral("guide"), QStringLiteral("hand")};
}

QString scriptText(const QString& nameOrFile)
{
    QFile file(ownScripts().contains(nameOrFile) ? QStringLiteral(":/scripts/%1.play").arg(nameOrFile) : nameOrFile);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}
