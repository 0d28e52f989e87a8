#include "clientoptions.h"
#include "voiceclient.h"

#include "standin/common/endsignals.h"
#include "standin/common/programoptions.h"
#include "standin/player/clientplayer.h"

#include <QApplication>

namespace {

// Read before there is a connection to a display: whoever only asks for help, or mistyped, needs none. The toolkit
// would also take --name and --geometry for itself.
clientoptions readOptions(int argc, char* argv[], QString* problem)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    int ownName = 1;
    const QCoreApplication early(ownName, argv);
    programoptions parser(QStringLiteral("A stand-in for the voice client: shows a server's channels and loads a "
                                         "plugin through its C interface."));
    const clientoptions options = readClientOptions(&parser, arguments);
    *problem = parser.error();
    return options;
}

bool hasDisplay()
{
    return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")
        || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication::setApplicationName(QStringLiteral("voiceclient"));
    QString problem;
    const clientoptions options = readOptions(argc, argv, &problem);
    if (!problem.isEmpty())
        return reportFailure(problem);
    if (!hasDisplay())
        return reportFailure(QStringLiteral("There is no display to show a window on."));

    int ownName = 1;
    QApplication application(ownName, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    // What plays the client cannot look into a dialog of the desktop's own.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs, options.played);
    voiceclient client(options);
    if (!client.start(&problem))
        return reportFailure(problem);
    const endsignals signalsCaught;
    QObject::connect(&signalsCaught, &endsignals::caught, &client, [&client] { client.end(0); });
    if (options.played)
        new clientplayer(&client);
    return client.finish(QApplication::exec());
}
