#pragma once

#include <QByteArray>
#include <QPainter>

#include <optional>

namespace KOLT {

/// The view box of a drawing; none if this is no SVG.
std::optional<QRectF> svgViewBox(const QByteArray& svg);

/// Draws what the program's own icons use of SVG: paths without quadratic curves, rectangles,
/// circles and groups, with fill, stroke, "translate" and "scale". The view box is stretched to the
/// target. False for a file with anything else.
bool drawSvg(const QByteArray& svg, QPainter& painter, const QRectF& target);

} // namespace KOLT
