#pragma once

#include "libs/zinc/layout/Properties.h"

namespace Zinc2D {

/// Draws lamps and annunciators as it is now.
void layoutLamp(const Properties& element, Canvas& canvas);
void layoutAnnunciator(const Properties& element, Canvas& canvas);

} // namespace Zinc2D
