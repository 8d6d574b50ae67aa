#pragma once

#include "libs/tusk/math/Geodetic.h"
#include "map/TrackRuns.h"

#include <span>
#include <vector>

namespace KOLT {

/// For each point of a track the largest tolerance, in metres, at which it must be kept: a line
/// through the points with more than a tolerance passes every point within that tolerance.
///
/// This is the Douglas-Peucker algorithm for all tolerances at once. It runs on pieces of 512
/// points, whose ends are always kept, so that 144,000 points take at most 37 million steps
/// whatever their shape. Ends of runs have an infinite tolerance, points outside of runs 0.
std::vector<float> simplificationTolerances(std::span<const TUSK::Geodetic::Vector> places,
                                            std::span<const TrackRun> runs);

} // namespace KOLT
