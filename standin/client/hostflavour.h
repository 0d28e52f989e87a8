#pragma once

#include "hostapi/hosttypes.h"

#include <QFunctionPointer>

/// Who sent a plugin command, as the server says.
struct commandinvoker {
    anyID id = 0;
    const char* name = "";
    const char* identity = "";
};

/// One version of the plugin interface: all that differs between versions for the client that loads a plugin.
struct hostflavour {
    int apiVersion;
    const char* registerSymbol; ///< the export that takes the plugin's id
    void (*offerTable)(QFunctionPointer setFunctionPointers);
    void (*deliverCommand)(QFunctionPointer onPluginCommandEvent, uint64 schid, const char* plugin, const char* command,
                           const commandinvoker& invoker);
};

const hostflavour& hostflavour8();
const hostflavour& hostflavour26();

/// The flavour for a plugin's version, null when the client does not speak it.
const hostflavour* flavourFor(int apiVersion);
