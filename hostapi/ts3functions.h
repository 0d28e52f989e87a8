#pragma once

// The table of the interface version that the library is built for. Code above this folder names TS3Functions and the
// calls of hostcalls.h only, and never learns which version that is.
#ifndef KELVOR_HOST_INTERFACE
#error "KELVOR_HOST_INTERFACE must be 8 or 26; the build sets it"
#elif KELVOR_HOST_INTERFACE == 8
#include "ts3functions_v8.h"
#elif KELVOR_HOST_INTERFACE == 26
#include "ts3functions_v26.h"
#else
#error "this host interface version is not known"
#endif
