#pragma once

#include "libs/zinc/layout/Properties.h"

namespace Zinc2D {

/// Draws a moving tape at the current values.
void layoutTape(const Properties& element, Canvas& canvas);

} // namespace Zinc2D
