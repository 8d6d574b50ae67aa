#pragma once

namespace KOLT {

/// Turns positions from the unit's degrees-and-minutes form into degrees and rejects jumps.
///
/// One filter serves one pass over a recording and starts fresh with it. The first five accepted
/// positions of an axis pass as they are (zeros, sent without a fix, do not count); after them a
/// position more than 10 km away from the last is replaced by the last. The limit in longitude
/// grows with the last accepted latitude, so a pass that needs both axes filters latitude first.
class PositionFilter
{
public:
    /// Degrees of a number in the form DDDMM.mmmm, such as 48.5 for 4830.0.
    static double degrees(double value);

    /// Both take and return degrees.
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
