#pragma once

#include <QByteArray>

/// What the endpoint is to do with one command, told as calltext: the signal that it emits, or the message that it
/// sends with its one target, such as sendPong(34); an empty text for a command that is dropped. Reads by
/// literalwire.h.
QByteArray literalDispatch(const char* command, bool pong);
