#pragma once

#include "libs/tusk/math/Geodetic.h"
#include "map/TrackRuns.h"
#include "map/ValueScale.h"

#include <cstdint>
#include <span>
#include <vector>

namespace KOLT {

/// A part of a run that is drawn in one colour: from the end of the part before to `last`.
struct TrackPart
{
    std::size_t last = 0;
    std::uint8_t color = 0;
};

/// The colour step of each point's value (ValueScale), and how a line is coloured by them.
class TrackColorSteps
{
public:
    static constexpr std::uint8_t none = 255; ///< the step of points without a value

    TrackColorSteps() = default;
    TrackColorSteps(std::span<const float> values, const ValueScale& scale);

    bool isEmpty() const { return m_steps.empty(); }

    /// Cuts a run where the step changes. A line between two points has the step of the later one.
    /// Where steps change within less than `shortest` metres along the track, the line keeps one
    /// step for at least that length: that of the value farthest from the median of all values, so
    /// that a spike stays visible. `places`: of all points. O(points).
    std::vector<TrackPart> partsOf(const TrackRun& run,
                                   std::span<const TUSK::Geodetic::Vector> places,
                                   double shortest) const;

private:
    std::uint8_t extreme(std::size_t first, std::size_t last) const;

    std::vector<std::uint8_t> m_steps;
    std::vector<float> m_deviations; ///< from the median; negative without a value
};

} // namespace KOLT
