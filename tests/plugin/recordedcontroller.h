#pragma once

#include "hostapi/ts3functions.h"

#include <QByteArray>
#include <QList>

/// A controller that writes down what the exported functions ask of it, instead of the real one: the same class, so
/// that a test links the exports with it and looks at each call.
namespace recordedcontroller {

/// Takes the calls and signals since the last time, as calltext.
QList<QByteArray> takeCalls();

extern int living; ///< controllers that were made and not yet deleted
extern bool handlesCommands; ///< what handleCommand answers
extern TS3Functions table; ///< of the last controller

} // namespace recordedcontroller
