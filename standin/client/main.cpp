#include "clientoptions.h"
#include "voiceclient.h"

#include "standin/common/endsignals.h"
#include "standin/common/programoptions.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("voiceclient"));
    QApplication::setQuitOnLastWindowClosed(false);
    programoptions parser(QStringLiteral("A stand-in for the voice client: shows a server's channels and loads a "
                                         "plugin through its C interface."));
    const clientoptions options = readClientOptions(&parser, QApplication::arguments());
    if (parser.failed())
        return reportFailure(parser.error());

    voiceclient client(options);
    QString problem;
    if (!client.start(&problem))
        return reportFailure(problem);
    const endsignals signalsCaught;
    QObject::connect(&signalsCaught, &endsignals::caught, &client, [&client] { client.end(0); });
    return client.finish(QApplication::exec());
}
