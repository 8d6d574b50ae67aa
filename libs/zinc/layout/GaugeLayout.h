#pragma once

#include "libs/zinc/layout/Properties.h"

namespace Zinc2D {

/// Draws a round gauge at the current values.
void layoutGauge(const Properties& element, Canvas& canvas);

} // namespace Zinc2D
