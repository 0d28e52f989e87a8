#pragma once

#include <QtGlobal>

/// Ends the process with a line when something does not hold that no foreign byte may break. Under a fuzzer that is a
/// finding with its input beside it, in a test a failure with its name.
inline void must(bool holds, const char* what)
{
    if (!holds)
        qFatal("unsound: %s", what);
}
