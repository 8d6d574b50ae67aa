#pragma once

#include "record/DataSet.h"

#include <optional>
#include <span>
#include <vector>

namespace KOLT {

/// Whether the aircraft was there: not where no position was recorded for more than 10 s, nor
/// nowhere on Earth, as damaged positions can be anything.
bool isRecorded(const TrackPoint& point);

/// The track from the first position on. Before, nobody knows where the aircraft was.
std::span<const TrackPoint> recordedTrack(const DataSet& dataSet);

/// A stretch of the flight path that exports keep together.
struct PathSection
{
    enum class Kind {
        Whole,  ///< all of a recording in which no flight was found
        Flight, ///< with the 30 s before take-off and after landing
        Ground  ///< what lies between the flights
    };

    Kind kind = Kind::Whole;
    std::size_t flight = 0; ///< index in the data set; of flights only
    double from = 0.0;      ///< seconds on the unit's counter
    double to = 0.0;
    std::span<const TrackPoint> points; ///< within [from, to]; may be empty
};

/// The sections of a data set by ascending time, without gaps between them: a loaded flight is one,
/// otherwise flights and ground take turns. Where flights follow each other within a minute, the
/// border lies halfway between landing and take-off; on damaged recordings, sections never overlap.
/// The points belong to the data set.
std::vector<PathSection> pathSections(const DataSet& dataSet);

/// The section that a time belongs to. There must be one.
std::size_t sectionAt(std::span<const PathSection> sections, double seconds);

/// Runs of points that may be joined by lines: no gap in the grid, no step over the antimeridian.
/// Points that were not recorded belong to none.
std::vector<std::span<const TrackPoint>> pathPieces(std::span<const TrackPoint> points);

/// The place at a time, between the points around it; none more than half a second away from those
/// that were recorded.
std::optional<TrackPoint> placeAt(std::span<const TrackPoint> track, double seconds);

/// Whether there is anything of a path to export.
bool hasPath(const DataSet& dataSet);

/// The first altitude that was recorded, metres; nothing where none was.
std::optional<double> firstAltitude(const DataSet& dataSet);

} // namespace KOLT
