#include "directoroptions.h"
#include "openhouse.h"
#include "performance.h"

#include "standin/common/endsignals.h"
#include "standin/common/programoptions.h"

#include <QCoreApplication>
#include <QTextStream>

#include <cstdio>

namespace {

void say(const QString& text)
{
    QTextStream(stdout) << text;
    std::fflush(stdout);
}

bool playScript(const QString& name, const directoroptions& options, const endsignals& signalsCaught, QString* error)
{
    const std::optional<playscript> script = readScript(scriptText(name), options.players, error);
    if (!script)
        return false;
    say(QStringLiteral("%1\n").arg(script->title.isEmpty() ? name : script->title));
    stage boards(options.props);
    QObject::connect(&signalsCaught, &endsignals::caught, &boards, &stage::interrupt);
    const QString shots = options.screenshots.isEmpty() ? boards.workDirectory() : options.screenshots;
    performance show(*script, &boards, shots);
    const bool played = show.play();
    say(show.score().print());
    if (!played)
        *error = show.problem();
    const bool ended = boards.endAll(error);
    return played && ended;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("director"));
    programoptions parser(
        QStringLiteral("Brings a voice server and some voice clients with the plugin onto the screen, "
                       "and lets people or a script play them."));
    const directoroptions options =
        readDirectorOptions(&parser, QCoreApplication::arguments(), QCoreApplication::applicationDirPath());
    if (parser.failed())
        return reportFailure(parser.error());

    QString problem;
    if (options.interactive)
        return keepOpenHouse(options, &problem) ? 0 : reportFailure(problem);
    const endsignals signalsCaught;
    const QStringList scripts = options.scripts.isEmpty() ? ownScripts() : options.scripts;
    for (const QString& script : scripts) {
        if (!playScript(script, options, signalsCaught, &problem))
            return reportFailure(QStringLiteral("%1: %2").arg(script, problem));
    }
    say(QStringLiteral("All scripts ran to their end.\n"));
    if (!options.screenshots.isEmpty())
        say(QStringLiteral("Pictures: %1\n").arg(options.screenshots));
    return 0;
}
