#pragma once

#include "libs/tusk/math/Geodetic.h"
#include "map/TrackClasses.h"

#include <span>
#include <vector>

namespace KOLT {

/// For each point of a track the largest tolerance, in metres, at which it must be kept. The line
/// through the points whose weight exceeds a tolerance then passes every point within that
/// tolerance. This is the Douglas-Peucker algorithm for all tolerances at once. It runs on pieces
/// of 512 points, whose ends are always kept, so that 144,000 points take at most 37 million steps
/// whatever their shape. Ends of runs have infinite weight, points outside of runs weight 0.
std::vector<float> trackWeights(std::span<const TUSK::Geodetic::Vector> places,
                                std::span<const TrackRun> runs);

} // namespace KOLT
