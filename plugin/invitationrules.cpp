#include "invitationrules.h"

#include "hostapi/hostcalls.h"
#include "settings.h"

namespace invitationrules {

bool turnAway(const TS3Functions& functions, const settings& config, uint64 schid)
{
    if (config.onlyactivetab && schid != functions.getCurrentServerConnectionHandlerID())
        return true;
    if (!config.awayreject)
        return false;
    int away = 0;
    if (functions.getClientSelfVariableAsInt(schid, CLIENT_AWAY, &away) != ERROR_ok) {
        hostcalls::printToCurrentTab(functions, QString::fromLatin1("Error querying own away status"));
        return false;
    }
    return away == 1;
}

void playSound(const TS3Functions& functions, const settings& config, uint64 schid)
{
    if (!config.playsound || config.soundpath.isEmpty())
        return;
    const unsigned int error = functions.playWaveFile(schid, config.soundpath.toLatin1().constData());
    if (error != ERROR_ok) {
        const QString reason = hostcalls::errorText(functions, error);
        hostcalls::printToCurrentTab(functions, QString::fromLatin1("Error playing wavefile (%1)").arg(reason));
    }
}

QString question(const TS3Functions& functions, uint64 schid, anyID sender)
{
    const QString server = hostcalls::serverName(functions, schid).value_or(QString::fromLatin1("SERVERNAME"));
    const QString nickname =
        hostcalls::clientText(functions, schid, sender, CLIENT_NICKNAME).value_or(QString::fromLatin1("NICKNAME"));
    return QString::fromLatin1("You are invited to a kelvor session on server %1 by %2. Do you want to accept?")
        .arg(server)
        .arg(nickname);
}

} // namespace invitationrules
