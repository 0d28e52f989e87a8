#pragma once

#include "stage.h"

#include <QStringList>

class programoptions;

/// What the director is asked to do.
struct directoroptions {
    stageprops props;
    QStringList scripts; ///< names of the director's own, or files; empty for all of its own
    QString screenshots; ///< directory, empty to keep none
    int players = 0; ///< 0 for the script's own number
    bool interactive = false;
};

directoroptions readDirectorOptions(programoptions* parser, const QStringList& arguments, const QString& ownDirectory);

/// The names of the scripts that the director brings along, in the order in which they are played.
QStringList ownScripts();
/// The text of a script by name or file; null when there is none.
QString scriptText(const QString& nameOrFile);
