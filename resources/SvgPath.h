#pragma once

#include <QPainterPath>
#include <QStringView>

#include <optional>
#include <vector>

namespace KOLT {

/// The numbers in a text that consists of numbers, blanks and commas; none for other texts.
std::optional<std::vector<double>> svgNumbers(QStringView text);

/// The outline that the attribute "d" of an SVG path describes. None for a text that is wrong, or
/// has quadratic curves.
std::optional<QPainterPath> svgPath(QStringView text);

} // namespace KOLT
