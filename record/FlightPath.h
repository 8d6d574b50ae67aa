#pragma once

#include "record/DataSet.h"

#include <optional>
#include <span>
#include <vector>

namespace KOLT {

/// Whether the point comes from recorded positions: it is not in a gap, and its coordinates are
/// valid (damaged positions may be any number).
bool isRecorded(const TrackPoint& point);

/// The track from the first position on; earlier points only repeat that position.
std::span<const TrackPoint> recordedTrack(const DataSet& dataSet);

/// A stretch of the flight path that exports write as one unit.
struct PathSection
{
    enum class Kind {
        Whole,  ///< the entire recording, if no flight was found
        Flight, ///< including 30 s before take-off and after landing
        Ground  ///< before, between or after flights
    };

    Kind kind = Kind::Whole;
    std::size_t flight = 0; ///< index in the data set; only for Kind::Flight
    double from = 0.0;      ///< seconds on the unit's counter
    double to = 0.0;
    std::span<const TrackPoint> points; ///< within [from, to]; may be empty
};

/// The sections of a data set by ascending time, without gaps or overlaps. A loaded flight is one
/// section; otherwise flights alternate with ground sections. Between flights less than a minute
/// apart the boundary is halfway between landing and take-off. The points belong to the data set.
std::vector<PathSection> pathSections(const DataSet& dataSet);

/// Index of the section that contains the time. `sections` must not be empty.
std::size_t sectionAt(std::span<const PathSection> sections, double seconds);

/// Splits the points into runs that may be drawn as lines: at missing grid points, at points that
/// were not recorded (which are left out), and at the antimeridian.
std::vector<std::span<const TrackPoint>> pathPieces(std::span<const TrackPoint> points);

/// The position at a time, interpolated between its neighbours. None if the nearest recorded point
/// is more than half a second away.
std::optional<TrackPoint> placeAt(std::span<const TrackPoint> track, double seconds);

/// Whether the data set has any recorded position.
bool hasPath(const DataSet& dataSet);

/// The first known altitude in metres, if any.
std::optional<double> firstAltitude(const DataSet& dataSet);

} // namespace KOLT
