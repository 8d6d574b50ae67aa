#pragma once

#include "libs/zinc/Properties.h"

namespace Zinc2D {

/// Draws one element as it is now; groups have no look of their own. Nothing is drawn where a
/// place or size has no value at the moment.
void layoutElement(const Properties& element, Canvas& canvas);

void layoutText(const Properties& element, Canvas& canvas);
void layoutGauge(const Properties& element, Canvas& canvas);
void layoutBar(const Properties& element, Canvas& canvas);
void layoutLamp(const Properties& element, Canvas& canvas);
void layoutAnnunciator(const Properties& element, Canvas& canvas);
void layoutTape(const Properties& element, Canvas& canvas);

} // namespace Zinc2D
