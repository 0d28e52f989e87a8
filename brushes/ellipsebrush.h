#pragma once

#include "shapebrush.h"

/// The outline of an ellipse, or of a circle when Shift is held.
class ellipsebrush : public shapebrush {
public:
    ellipsebrush();
};
