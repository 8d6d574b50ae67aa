#pragma once

#include "libs/tusk/math/Geodetic.h"
#include "map/ValueScale.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace KOLT {

/// Points first .. last of a track that are joined by a line.
struct TrackRun
{
    std::size_t first = 0;
    std::size_t last = 0;
};

/// A part of a run that is drawn in one colour: from the end of the part before to `last`.
struct TrackPart
{
    std::size_t last = 0;
    std::uint8_t color = 0;
};

/// The class of 16 that each point's value falls into, and how a line is coloured by them.
class TrackClasses
{
public:
    static constexpr std::uint8_t none = 255; ///< the class of points without a value

    TrackClasses() = default;
    TrackClasses(std::span<const float> values, const ValueScale& scale);

    bool isEmpty() const { return m_classes.empty(); }

    /// Cuts a run where the class changes. A line between two points has the class of the later
    /// one. Where classes change within less than `shortest` metres along the track, the line keeps
    /// one class for at least that length: that of the value farthest from the median of all
    /// values, so that a spike stays visible. `places`: of all points. O(points).
    std::vector<TrackPart> partsOf(const TrackRun& run,
                                   std::span<const TUSK::Geodetic::Vector> places,
                                   double shortest) const;

private:
    std::uint8_t extreme(std::size_t first, std::size_t last) const;

    std::vector<std::uint8_t> m_classes;
    std::vector<float> m_deviations; ///< from the median; negative without a value
};

} // namespace KOLT
