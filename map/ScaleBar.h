#pragma once

#include "profile/ProfileParameter.h"

#include <QString>

namespace KOLT {

/// A round length (1, 2 or 5 times a power of ten) and its length on the screen.
struct ScaleBar
{
    double metres = 0.0;
    double pixels = 0.0;
    QString text;        ///< "200 m", "5 km", "500 ft", "2 NM"
    double length = 0.0; ///< in the unit
    QString unit;

    /// The text of `times` the length.
    QString multiple(int times) const
    {
        return QStringLiteral("%1 %2").arg(QString::number(length * times, 'g', 12), unit);
    }

    /// The longest bar of at most `mostPixels`: in metres or kilometres, or in feet or, from one
    /// on, nautical miles. Empty (0) unless both numbers are finite and above 0.
    static ScaleBar choose(double metresPerPixel, double mostPixels, UnitSystem system);
};

} // namespace KOLT
