#include "errortexts.h"

#include "hostapi/hosttypes.h"

QString errorWords(unsigned int error)
{
    switch (error) {
    case ERROR_ok:
        return QStringLiteral("ok");
    case ERROR_undefined:
        return QStringLiteral("undefined error");
    case ERROR_not_implemented:
        return QStringLiteral("not implemented");
    case ERROR_client_invalid_id:
        return QStringLiteral("invalid client id");
    case ERROR_client_is_flooding:
        return QStringLiteral("client is flooding");
    case ERROR_channel_invalid_id:
        return QStringLiteral("invalid channel id");
    case ERROR_channel_invalid_password:
        return QStringLiteral("invalid channel password");
    case ERROR_parameter_invalid:
        return QStringLiteral("invalid parameter");
    case ERROR_connection_lost:
        return QStringLiteral("connection lost");
    case ERROR_not_connected:
        return QStringLiteral("not connected");
    case ERROR_file_invalid_name:
        return QStringLiteral("invalid file name");
    case ERROR_file_already_exists:
        return QStringLiteral("file already exists");
    case ERROR_file_not_found:
        return QStringLiteral("file not found");
    case ERROR_file_transfer_complete:
        return QStringLiteral("file transfer complete");
    case ERROR_file_transfer_canceled:
        return QStringLiteral("file transfer canceled");
    case ERROR_file_transfer_interrupted:
        return QStringLiteral("file transfer connection interrupted");
    default:
        return QString();
    }
}
