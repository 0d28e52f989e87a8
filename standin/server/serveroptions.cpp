#include "serveroptions.h"

#include "standin/common/programoptions.h"

namespace {

constexpr int longestPause = 60 * 1000;

void declare(programoptions* parser)
{
    parser->add(QStringLiteral("name"), QStringLiteral("Name under which clients find the server."),
                QStringLiteral("NAME"), QStringLiteral("paint-town"));
    parser->add(QStringLiteral("title"), QStringLiteral("Name of the server as people read it."),
                QStringLiteral("TEXT"), QStringLiteral("Paint Town"));
    parser->add(QStringLiteral("store"),
                QStringLiteral("Directory of the channels' files. Without it they are gone when the server ends."),
                QStringLiteral("DIR"));
    parser->add(QStringLiteral("samples"), QStringLiteral("Put a few pictures to paint on into the channels."));
    parser->add(QStringLiteral("play"), QStringLiteral("Take commands from standard input; its end ends the server."));
    parser->add(QStringLiteral("flood"), QStringLiteral("Drop the commands of clients that send too many."));
    parser->add(QStringLiteral("loss"), QStringLiteral("Lose this share of the plugin commands."),
                QStringLiteral("PERCENT"), QStringLiteral("0"));
    parser->add(QStringLiteral("double"), QStringLiteral("Deliver this share of the plugin commands twice."),
                QStringLiteral("PERCENT"), QStringLiteral("0"));
    parser->add(QStringLiteral("reorder"), QStringLiteral("Deliver this share behind the command that follows."),
                QStringLiteral("PERCENT"), QStringLiteral("0"));
    parser->add(QStringLiteral("delay"), QStringLiteral("Deliver plugin commands late."), QStringLiteral("MS"),
                QStringLiteral("0"));
    parser->add(QStringLiteral("seed"), QStringLiteral("Seed of the dice for loss, doubling and reordering."),
                QStringLiteral("NUMBER"), QStringLiteral("1"));
    parser->add(QStringLiteral("piece"), QStringLiteral("Move files in pieces of this size."), QStringLiteral("BYTES"),
                QStringLiteral("16384"));
    parser->add(QStringLiteral("pause"), QStringLiteral("Pause between two pieces of a file."), QStringLiteral("MS"),
                QStringLiteral("0"));
    parser->add(QStringLiteral("transfers"),
                QStringLiteral("What goes wrong with file transfers: none, refuse:CODE, break:BYTES, longer:BYTES or "
                               "shorter:BYTES."),
                QStringLiteral("FAULT"), QStringLiteral("none"));
}

} // namespace

serveroptions readServerOptions(programoptions* parser, const QStringList& arguments)
{
    serveroptions options;
    declare(parser);
    if (!parser->parse(arguments))
        return options;
    options.name = parser->text(QStringLiteral("name"));
    options.title = parser->text(QStringLiteral("title"));
    options.store = parser->text(QStringLiteral("store"));
    options.samples = parser->isSet(QStringLiteral("samples"));
    options.played = parser->isSet(QStringLiteral("play"));
    options.flood = parser->isSet(QStringLiteral("flood"));
    options.relay.lossPercent = parser->number(QStringLiteral("loss"), 0, 100);
    options.relay.doublePercent = parser->number(QStringLiteral("double"), 0, 100);
    options.relay.reorderPercent = parser->number(QStringLiteral("reorder"), 0, 100);
    options.relay.delay = parser->number(QStringLiteral("delay"), 0, longestPause);
    options.relay.seed = quint32(parser->number(QStringLiteral("seed"), 0, 0x7fffffff));
    options.pace.pieceSize = parser->number(QStringLiteral("piece"), 1, 1024 * 1024);
    options.pace.pause = parser->number(QStringLiteral("pause"), 0, longestPause);
    const QString fault = parser->text(QStringLiteral("transfers"));
    if (const std::optional<transferfaults> faults = readTransferFaults(fault))
        options.transfers = *faults;
    else
        parser->fail(QStringLiteral("Option --transfers does not know '%1'.").arg(fault));
    if (options.name.isEmpty())
        parser->fail(QStringLiteral("Option --name needs a name."));
    return options;
}
