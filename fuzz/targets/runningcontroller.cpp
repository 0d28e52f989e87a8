#include "runningcontroller.h"

// The very functions that the voice client calls, with what they hide.
#include "plugin/exports.cpp"

kelvor* runningController() { return controller; }
