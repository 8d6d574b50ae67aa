#pragma once

#include "libs/zinc/layout/Properties.h"

namespace Zinc2D {

/// Draws a bar, upright or level, with ranges, marks and pointers as it is now.
void layoutBar(const Properties& element, Canvas& canvas);

} // namespace Zinc2D
