#pragma once

#include <QImage>

#include <array>
#include <span>

namespace Tessa {

/// How terrain is lit.
struct Shading
{
    /// The way the light goes: east, north and up. (1, -1, -1) comes from the north-west and above.
    /// Its length does not matter; one without length shines straight down.
    std::array<float, 3> light{1.0f, -1.0f, -1.0f};
    double contrast = 1.0;
    double brightness = 1.0; ///< of flat ground, 0 to 2
    double factor = 0.5;     ///< by which heights are exaggerated

    friend bool operator==(const Shading&, const Shading&) = default;
};

/// The unit vector towards the light, that is against the way it goes.
std::array<double, 3> towardsLight(const std::array<float, 3>& light);

/// The shade of a square of ground, Format_Grayscale8: 0 black, 128 leaves a picture as it is that
/// is multiplied with it, 255 is twice as bright.
///
/// `cellMetres` has the distance between samples for each of its n rows; `heights` has n + 2 rows
/// of n + 2, one around the square, from north to south, NaN where missing. With the neighbours
///
///     a b c
///     d e f        north on top
///     g h i
///
/// the slopes after Horn are p = F((c + 2f + i) - (a + 2d + g)) / 8m eastwards and
/// q = F((a + 2b + c) - (g + 2h + i)) / 8m northwards; with the unit vector l towards the light,
/// L = max(0, (-p lx - q ly + lz) / sqrt(1 + p^2 + q^2)), and the shade is
/// clamp(brightness + contrast (L - lz), 0, 2). Where a neighbour is missing it is 1. Null when the
/// sizes do not fit.
QImage hillShade(std::span<const float> heights, std::span<const double> cellMetres,
                 const Shading& shading);

} // namespace Tessa
