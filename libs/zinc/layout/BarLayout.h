#pragma once

#include "libs/zinc/layout/Properties.h"

namespace Zinc2D {

/// Draws a vertical or horizontal bar with its ranges, marks and pointers at the current values.
void layoutBar(const Properties& element, Canvas& canvas);

} // namespace Zinc2D
