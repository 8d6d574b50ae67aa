#pragma once

#include "libs/zinc/layout/Properties.h"

namespace Zinc2D {

/// Draws one element at the current values; groups draw nothing themselves. Nothing is drawn while
/// a position or size is not set.
void layoutElement(const Properties& element, Canvas& canvas);

void layoutText(const Properties& element, Canvas& canvas);

} // namespace Zinc2D
