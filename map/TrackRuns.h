#pragma once

#include "record/Track.h"
#include "record/TrackGaps.h"

#include <cstddef>
#include <span>
#include <vector>

namespace KOLT {

/// Points first .. last of a track that are joined by a line.
struct TrackRun
{
    std::size_t first = 0;
    std::size_t last = 0;
};

/// The runs of two points or more between the gaps of a track.
std::vector<TrackRun> runsOf(std::span<const TrackPoint> track, std::span<const TrackGap> gaps);

} // namespace KOLT
