#pragma once

#include <QColor>

namespace KOLT {

/// Contrast ratio of two opaque colours by their relative luminance, 1 to 21.
double contrastOf(const QColor& color, const QColor& other);

/// Part of the way from one colour to the other, 0 to 1.
QColor mixed(const QColor& color, const QColor& other, double part);

/// White or black, whichever is farther from the ground.
QColor oppositeOf(const QColor& ground);

/// The colour, lightened on a dark ground or darkened on a light one until it has the contrast.
QColor contrasting(const QColor& color, const QColor& ground, double least);

} // namespace KOLT
