#pragma once

#include "libs/tusk/math/Geodetic.h"
#include "map/TrackClasses.h"

#include <span>
#include <vector>

namespace KOLT {

/// For each point of a track the tolerance in metres up to which it must be kept, so that the line
/// through the points kept passes every point at no more than the tolerance: the points of weight
/// above it. This is the way of Douglas and Peucker for all tolerances at once, on pieces of 512
/// points, whose ends are always kept: however the points lie, 144,000 of them take no more than 37
/// million looks. Ends of runs weigh infinitely, points beside the runs nothing.
std::vector<float> trackWeights(std::span<const TUSK::Geodetic::Vector> places,
                                std::span<const TrackRun> runs);

} // namespace KOLT
