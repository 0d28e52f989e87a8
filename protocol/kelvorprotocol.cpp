#include "kelvorprotocol.h"

#include "hostapi/hostcalls.h"

kelvorprotocol::kelvorprotocol(const TS3Functions& functions)
    : functions(functions)
{
}

kelvorprotocol::~kelvorprotocol() = default;

void kelvorprotocol::setPong(bool answer) { answersPing = answer; }

void kelvorprotocol::setPluginCommandID(const char* id) { pluginID.reset(qstrdup(id)); }

void kelvorprotocol::sendTestMessage()
{
    const anyID targets[] = {123, 0};
    hostcalls::sendToClients(functions, 1, pluginID.get(), "Hallo", targets);
}
