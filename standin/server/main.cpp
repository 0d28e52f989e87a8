#include "samplepictures.h"
#include "serveroptions.h"
#include "serverplayer.h"
#include "voiceserver.h"

#include "standin/common/endsignals.h"
#include "standin/common/linereader.h"
#include "standin/common/programoptions.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <optional>

namespace {

void playByLines(voiceserver* server, QCoreApplication* application)
{
    auto* const player = new serverplayer(server);
    auto* const input = new linereader(server);
    QObject::connect(input, &linereader::lineRead, player,
                     [player](const QByteArray& line) { linereader::writeLine(player->answer(line)); });
    QObject::connect(input, &linereader::closed, application, &QCoreApplication::quit);
    QObject::connect(player, &serverplayer::quitWanted, application, &QCoreApplication::quit, Qt::QueuedConnection);
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("voiceserver"));
    programoptions parser(QStringLiteral("A stand-in for a voice server: channels, clients, files, and the relay of "
                                         "plugin commands, over a local socket."));
    const serveroptions options = readServerOptions(&parser, QCoreApplication::arguments());
    if (parser.failed())
        return reportFailure(parser.error());

    std::optional<QTemporaryDir> passing;
    if (options.store.isEmpty())
        passing.emplace();
    const QString directory = passing ? passing->path() : options.store;
    voiceserver server(options, directory);
    if (!server.files().isUsable())
        return reportFailure(QStringLiteral("Cannot write into the store '%1'.").arg(directory));
    QString problem;
    if (!server.listen(&problem))
        return reportFailure(problem);
    addDefaultChannels(&server);
    if (options.samples)
        addSamplePictures(server);

    const endsignals signalsCaught;
    QObject::connect(&signalsCaught, &endsignals::caught, &application, &QCoreApplication::quit);
    if (options.played)
        playByLines(&server, &application);
    linereader::writeLine("ready " + options.name.toUtf8());
    return QCoreApplication::exec();
}
