#pragma once

#include "hostapi/ts3functions.h"

#include <QString>

/// What the plugin remembers between two runs of the client: eight values in the INI file kelvor.conf of the client's
/// configuration directory. The file is read when the controller is made and written when it ends; in between the
/// values in memory are the only truth. Nothing is checked: whatever the file holds is taken as it stands.
struct settings {
    QString downloaddir; ///< where pictures of a session are stored on download
    bool playsound = false; ///< play a wave file on an invitation
    QString soundpath; ///< the wave file
    bool awayreject = false; ///< refuse invitations while the own client is away
    bool onlyactivetab = true; ///< take invitations only on the connection of the active tab
    int defaultwidth = 640; ///< pixels, preset in the lobby of a host
    int defaultheight = 320; ///< pixels, preset in the lobby of a host
    bool pong = true; ///< answer a peer's question whether the plugin runs here
};

/// Reads the file; a key that it lacks gets its default. The default of downloaddir is the subdirectory "kelvor" of the
/// client's plugin directory, which is made if it is not there; the plugin directory itself if that cannot be done.
settings loadSettings(const TS3Functions& functions);

/// Writes all eight values. The file is replaced as a whole, so that a crash leaves the old one or the new one; a
/// failure is not reported.
void saveSettings(const TS3Functions& functions, const settings& values);
