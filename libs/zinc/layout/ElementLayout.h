#pragma once

#include "libs/zinc/layout/Properties.h"

namespace Zinc2D {

/// Draws one element as it is now; groups have no look of their own. Nothing is drawn where a
/// place or size has no value at the moment.
void layoutElement(const Properties& element, Canvas& canvas);

void layoutText(const Properties& element, Canvas& canvas);

} // namespace Zinc2D
