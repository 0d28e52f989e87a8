#include "hostservice.h"

#include "errortexts.h"
#include "voiceconnection.h"

#include <QFileInfo>

namespace {

hostservice* theOnly = nullptr;

QByteArray bytesOf(const char* text) { return text ? QByteArray(text) : QByteArray(); }

} // namespace

hostservice::hostservice(const QString& configDirectory, QObject* parent)
    : QObject(parent)
    , config(QFile::encodeName(configDirectory))
{
    theOnly = this;
}

hostservice::~hostservice() { theOnly = nullptr; }

hostservice& hostservice::instance() { return *theOnly; }

void hostservice::addConnection(voiceconnection* connection) { connections.append(connection); }

voiceconnection* hostservice::connection(uint64 schid) const
{
    for (voiceconnection* one : connections) {
        if (one->id() == schid)
            return one;
    }
    return nullptr;
}

unsigned int hostservice::getErrorMessage(unsigned int code, char** text)
{
    const QString words = errorWords(code);
    if (words.isEmpty())
        return ERROR_undefined;
    *text = memory.text(words.toUtf8());
    return ERROR_ok;
}

unsigned int hostservice::freeMemory(void* handedOut)
{
    if (memory.release(handedOut))
        return ERROR_ok;
    emit misused(QStringLiteral("The plugin gave back memory that it did not get from the client."));
    return ERROR_parameter_invalid;
}

unsigned int hostservice::getConnectionStatus(uint64 schid, int* result) const
{
    const voiceconnection* const server = connection(schid);
    if (!server)
        return ERROR_not_connected;
    *result = server->isEstablished() ? STATUS_CONNECTION_ESTABLISHED : STATUS_DISCONNECTED;
    return ERROR_ok;
}

void hostservice::printMessageToCurrentTab(const char* text)
{
    emit printed(currentConnection, QString::fromUtf8(bytesOf(text)));
}

unsigned int hostservice::playWaveFile(uint64 schid, const char* path)
{
    if (!connection(schid))
        return ERROR_not_connected;
    const QString file = QFile::decodeName(bytesOf(path));
    if (!QFileInfo(file).isFile())
        return ERROR_file_not_found;
    // The stand-in has no loudspeaker: the line stands for the sound.
    emit printed(schid, QStringLiteral("♪ %1").arg(QFileInfo(file).fileName()));
    return ERROR_ok;
}

void hostservice::sendPluginCommand(uint64 schid, const char* plugin, const char* command, int targetMode,
                                    const anyID* targets)
{
    voiceconnection* const server = connection(schid);
    const QByteArray text = bytesOf(command);
    if (bytesOf(plugin) != pluginID || pluginID.isEmpty())
        emit misused(QStringLiteral("The plugin sent a command under an id that it was not given."));
    else if (targetMode != PluginCommandTarget_CLIENT || !targets)
        emit misused(QStringLiteral("The stand-in relays plugin commands to listed clients only."));
    else if (text.size() > int(longestPluginCommand))
        emit misused(QStringLiteral("A plugin command of %1 bytes is too long and was not sent.").arg(text.size()));
    else if (server && server->isEstablished()) {
        QVector<quint16> listed;
        for (const anyID* target = targets; *target; ++target)
            listed.append(*target);
        traffic.countSent(text, listed.size());
        server->sendCommand(pluginName, text, listed);
    }
}
