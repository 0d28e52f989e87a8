#pragma once

#include "commandrelay.h"
#include "transferdesk.h"

#include <QString>
#include <QStringList>

class programoptions;

/// What a voice server is started with.
struct serveroptions {
    QString name = QStringLiteral("paint-town"); ///< of the local socket
    QString title; ///< the server's name as people read it
    QString store; ///< directory of the files, empty for a temporary one
    bool samples = false; ///< put pictures to paint on into the store
    bool played = false; ///< commands on standard input
    bool flood = false;
    relayfaults relay;
    transferpace pace;
    transferfaults transfers;
};

/// Reads the command line; what is wrong with it stands in the parser's error().
serveroptions readServerOptions(programoptions* parser, const QStringList& arguments);
