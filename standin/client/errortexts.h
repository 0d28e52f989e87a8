#pragma once

#include <QString>

/// The client's words for an error code; empty for a code that it does not know.
QString errorWords(unsigned int error);
