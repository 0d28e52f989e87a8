#pragma once

#include <QRect>
#include <QString>
#include <QStringList>

class programoptions;

/// What a voice client is started with.
struct clientoptions {
    QStringList servers; ///< one connection each; a name may stand twice
    QString nickname;
    QString channel; ///< to enter at first, empty for the server's first
    QString platform;
    QString plugin; ///< file of the library, empty for what is installed
    int apiVersion = 0; ///< of the plugins that are taken, 0 for all that the client speaks
    QString config; ///< the client's directory, ending in a separator
    QRect geometry; ///< of the window, null to leave it to the window manager
    bool away = false;
    bool played = false; ///< commands on standard input
};

/// Reads the command line; what is wrong with it stands in the parser's error().
clientoptions readClientOptions(programoptions* parser, const QStringList& arguments);

/// Reads "x,y,width,height"; a null rectangle for anything else.
QRect readGeometry(const QString& text);
