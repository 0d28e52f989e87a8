#pragma once

#include <cstddef>
#include <cstdint>

// The values and plain types of the voice client's plugin interface. The numbers are the client's own and the same in
// interface versions 8 and 26; nothing here may be renumbered.

using anyID = std::uint16_t; ///< a client, or a file transfer; 0 is none and ends a list
using uint64 = std::uint64_t; ///< a server connection, a channel, a size in bytes or seconds since 1970

struct TS3_VECTOR;
struct PluginBookmarkList;
enum LogLevel : unsigned int;
enum PluginItemType : unsigned int;
enum PluginGuiProfile : unsigned int;
enum PluginConnectTab : unsigned int;

enum PluginMessageTarget : unsigned int { PLUGIN_MESSAGE_TARGET_SERVER = 0, PLUGIN_MESSAGE_TARGET_CHANNEL = 1 };

enum ClientProperties : unsigned int { CLIENT_NICKNAME = 1, CLIENT_PLATFORM = 3, CLIENT_AWAY = 38 };
enum ChannelProperties : unsigned int { CHANNEL_NAME = 0, CHANNEL_ORDER = 8, CHANNEL_FLAG_PASSWORD = 12 };
enum VirtualServerProperties : unsigned int { VIRTUALSERVER_NAME = 1 };

enum Visibility : int { ENTER_VISIBILITY = 0, RETAIN_VISIBILITY = 1, LEAVE_VISIBILITY = 2 };

enum ConnectStatus : int {
    STATUS_DISCONNECTED = 0,
    STATUS_CONNECTING = 1,
    STATUS_CONNECTED = 2,
    STATUS_CONNECTION_ESTABLISHING = 3,
    STATUS_CONNECTION_ESTABLISHED = 4,
};

enum PluginTargetMode : int {
    PluginCommandTarget_CURRENT_CHANNEL = 0,
    PluginCommandTarget_SERVER = 1,
    PluginCommandTarget_CLIENT = 2,
    PluginCommandTarget_CURRENT_CHANNEL_SUBSCRIBED_CLIENTS = 3,
};

enum PluginConfigureOffer : int {
    PLUGIN_OFFERS_NO_CONFIGURE = 0,
    PLUGIN_OFFERS_CONFIGURE_NEW_THREAD = 1,
    PLUGIN_OFFERS_CONFIGURE_QT_THREAD = 2,
};

enum FileListType : int { FileListType_Directory = 0, FileListType_File = 1 };

enum HostError : unsigned int {
    ERROR_ok = 0x0000,
    ERROR_undefined = 0x0001,
    ERROR_not_implemented = 0x0002,
    ERROR_client_invalid_id = 0x0200,
    ERROR_client_is_flooding = 0x020c,
    ERROR_channel_invalid_id = 0x0300,
    ERROR_channel_invalid_password = 0x030d,
    ERROR_parameter_invalid = 0x0602,
    ERROR_connection_lost = 0x0701,
    ERROR_not_connected = 0x0702,
    ERROR_file_invalid_name = 0x0800,
    ERROR_file_already_exists = 0x0802,
    ERROR_file_not_found = 0x0803,
    ERROR_file_transfer_complete = 0x0811,
    ERROR_file_transfer_canceled = 0x0812,
    ERROR_file_transfer_interrupted = 0x0813,
};

/// The longest plugin command that the client takes, in bytes, the terminating NUL not counted.
constexpr std::size_t longestPluginCommand = 8192;
