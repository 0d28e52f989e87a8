#pragma once

#include "shapebrush.h"

/// The outline of a rectangle, or of a square when Shift is held.
class rectbrush : public shapebrush {
public:
    rectbrush();
};
