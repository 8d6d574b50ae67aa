#pragma once

#include "libs/zinc/layout/DrawList.h"

#include <span>

/// Moves axis-parallel shapes to the boundaries of pixels, where their edges are sharp.
namespace Zinc2D {

/// Moves a rectangle to whole pixels, at least one wide and high. False, and nothing is moved, for
/// any other shape.
bool snapRectangle(std::span<QPointF> points);

/// Moves the outline of a rectangle, or a line, so that the edges of its stroke are on the
/// boundaries of pixels; other shapes are not moved. Returns the width of the stroke.
double snapStroke(std::span<QPointF> points, double width, Path path);

} // namespace Zinc2D
