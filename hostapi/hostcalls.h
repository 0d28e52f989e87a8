#pragma once

#include "ts3functions.h"

#include <QList>
#include <QString>

#include <optional>

/// Calls to the voice client that hand out memory or differ between its interface versions. Texts about people,
/// channels and servers are UTF-8; whatever the client handed out is given back before these functions return. An empty
/// optional means that the client reported an error.
namespace hostcalls {

/// Length of the buffers into which the client writes a directory, the NUL included.
constexpr std::size_t pathLength = 256;

std::optional<QString> serverName(const TS3Functions& functions, uint64 schid);
std::optional<QString> clientText(const TS3Functions& functions, uint64 schid, anyID client, ClientProperties property);
std::optional<QString> channelName(const TS3Functions& functions, uint64 schid, uint64 channel);

/// Whether the channel asks for a password; false as well when the client cannot tell.
bool channelHasPassword(const TS3Functions& functions, uint64 schid, uint64 channel);

/// The client's words for an error code, an empty text when it has none.
QString errorText(const TS3Functions& functions, unsigned int error);

std::optional<anyID> ownClientID(const TS3Functions& functions, uint64 schid);
/// All clients in view of the connection in the client's order, without the terminating 0.
std::optional<QList<anyID>> clients(const TS3Functions& functions, uint64 schid);
/// All channels of the connection in the client's order, without the terminating 0.
std::optional<QList<uint64>> channels(const TS3Functions& functions, uint64 schid);

/// Directories of the client, as it gives them: they end in a separator.
QString configPath(const TS3Functions& functions);
QString pluginPath(const TS3Functions& functions);

/// Prints a line in the active tab, as single bytes.
void printToCurrentTab(const TS3Functions& functions, const QString& text);

/// Relays a command to the listed clients; targets is ended by 0, pluginID is the id that the client gave.
void sendToClients(const TS3Functions& functions, uint64 schid, const char* pluginID, const char* command,
                   const anyID* targets);

} // namespace hostcalls
