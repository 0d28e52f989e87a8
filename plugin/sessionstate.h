#pragma once

#include "hostapi/hosttypes.h"

#include <QString>

/// Where a server connection stands. A connection has one session at most: in any state but session_none it refuses a
/// further one.
enum sessionstate {
    session_none = 0, ///< free
    session_invited = 1, ///< the user is being asked
    session_hosting = 2, ///< the own lobby is open
    session_joining = 3, ///< waiting in the lobby of somebody else
    session_running = 4, ///< the whiteboard is open
};

/// The fields of one start message.
struct startinfo {
    int width = 0;
    int height = 0;
    uint64 channel = 0; ///< channel in whose file store the picture lies, 0 for a blank picture
    QString path;
    bool background = false;
    uint64 size = 0; ///< of the picture file, in bytes
};
