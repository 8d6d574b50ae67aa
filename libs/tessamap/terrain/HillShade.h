#pragma once

#include <QImage>

#include <array>
#include <span>

namespace Tessa {

/// How terrain is lit.
struct Shading
{
    /// The direction in which light travels: east, north and up. (1, -1, -1) is light from the
    /// north-west and above. Its length does not matter; a zero vector means straight down.
    std::array<float, 3> light{1.0f, -1.0f, -1.0f};
    double contrast = 1.0;
    double brightness = 1.0; ///< of flat ground, 0 to 2
    double factor = 0.5;     ///< exaggeration of heights

    friend bool operator==(const Shading&, const Shading&) = default;
};

/// The unit vector towards the light source: opposite to its direction of travel.
std::array<double, 3> towardsLight(const std::array<float, 3>& light);

/// The shade of a square of ground, n by n pixels of Format_Grayscale8, by which a picture is
/// multiplied: 0 makes it black, 128 leaves it unchanged, 255 makes it twice as bright.
///
/// `cellMetres` has the distance between samples for each of the n rows. `heights` has n + 2 rows
/// of n + 2 samples, from north to south, so that each pixel has neighbours; NaN where missing.
/// With the neighbours
///
///     a b c
///     d e f        north on top
///     g h i
///
/// the slopes by Horn's method are p = F((c + 2f + i) - (a + 2d + g)) / 8m eastwards and
/// q = F((a + 2b + c) - (g + 2h + i)) / 8m northwards; with the unit vector l towards the light,
/// L = max(0, (-p lx - q ly + lz) / sqrt(1 + p^2 + q^2)), and the shade is
/// clamp(brightness + contrast (L - lz), 0, 2), or 1 where a neighbour is missing. A null image
/// when the sizes do not match.
QImage hillShade(std::span<const float> heights, std::span<const double> cellMetres,
                 const Shading& shading);

} // namespace Tessa
