#pragma once

namespace KOLT {

/// Converts positions from the unit's degrees-and-minutes form to degrees, and rejects jumps.
///
/// Use a new filter for each pass over a recording. The first five positions of an axis pass
/// unchanged (zeros, which the unit sends without a fix, do not count); after that, a position more
/// than 10 km from the last accepted one is replaced by it. The limit in longitude depends on the
/// last accepted latitude, so a pass that needs both axes must filter latitude first.
class PositionFilter
{
public:
    /// Converts DDDMM.mmmm to degrees: 4830.0 gives 48.5.
    static double degrees(double value);

    /// The accepted value for the next position of the axis, in degrees.
    double latitude(double degrees);
    double longitude(double degrees);

private:
    struct Axis
    {
        double last = 0.0;
        int counter = 0;
    };

    static double accept(Axis& axis, double degrees, double limit);

    Axis m_latitude;
    Axis m_longitude;
};

} // namespace KOLT
