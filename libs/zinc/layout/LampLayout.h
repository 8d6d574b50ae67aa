#pragma once

#include "libs/zinc/layout/Properties.h"

namespace Zinc2D {

/// Draw lamps and annunciators in their current state.
void layoutLamp(const Properties& element, Canvas& canvas);
void layoutAnnunciator(const Properties& element, Canvas& canvas);

} // namespace Zinc2D
