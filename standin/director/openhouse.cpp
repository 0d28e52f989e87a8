#include "openhouse.h"

#include "directoroptions.h"
#include "stage.h"

#include "standin/common/endsignals.h"

#include <QEventLoop>
#include <QTextStream>

namespace {

bool anyRunning(const stage& boards)
{
    for (const auto& client : boards.clients()) {
        if (client->isRunning())
            return true;
    }
    return false;
}

} // namespace

bool keepOpenHouse(const directoroptions& options, QString* error)
{
    // The script of an open house is its list of players alone.
    const int count = options.players > 0 ? options.players : 2;
    const std::optional<playscript> guests = readScript(QStringLiteral("players %1").arg(count), 0, error);
    stage boards(options.props);
    QEventLoop loop;
    bool interrupted = false;
    const endsignals signalsCaught;
    QObject::connect(&signalsCaught, &endsignals::caught, &loop, [&] {
        interrupted = true;
        boards.interrupt();
        loop.quit();
    });
    if (!guests || !boards.startServer(error))
        return interrupted;
    for (int i = 0; i < guests->players.size(); ++i) {
        if (!boards.startClient(guests->players.at(i), boards.placeFor(i, guests->players.size()), error))
            return interrupted;
    }
    QTextStream(stdout) << "The windows are open. Menu Tools, Kelvor, or type /kelvor open; close all windows or press "
                           "Ctrl+C to end.\n"
                        << Qt::flush;
    QObject::connect(&boards, &stage::clientEnded, &loop, [&] {
        if (!anyRunning(boards))
            loop.quit();
    });
    if (!interrupted && anyRunning(boards))
        loop.exec();
    return boards.endAll(error);
}
