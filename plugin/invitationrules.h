#pragma once

#include "hostapi/ts3functions.h"

#include <QString>

struct settings;

/// What happens to an invitation before the user sees it. What fails in here is told in the current tab, and the
/// invitation goes on.
namespace invitationrules {

/// Whether the settings turn an invitation on the connection away without a question.
bool turnAway(const TS3Functions& functions, const settings& config, uint64 schid);

void playSound(const TS3Functions& functions, const settings& config, uint64 schid);

/// What the user is asked. A name that cannot be read is replaced by a fixed word.
QString question(const TS3Functions& functions, uint64 schid, anyID sender);

} // namespace invitationrules
