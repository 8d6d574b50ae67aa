#pragma once

#include "profile/ProfileParameter.h"

#include <QString>

namespace KOLT {

/// A round length, 1, 2 or 5 times a power of ten, and how long it is drawn.
struct ScaleBar
{
    double metres = 0.0;
    double pixels = 0.0;
    QString text; ///< "200 m", "5 km", "500 ft", "2 NM"

    /// The longest that fits into so many pixels: metres and kilometres, or feet and, from one on,
    /// nautical miles. Nothing (0) for a scale that is none.
    static ScaleBar choose(double metresPerPixel, double mostPixels, UnitSystem system);
};

} // namespace KOLT
