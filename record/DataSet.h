#pragma once

#include "record/Flight.h"
#include "record/MessageMap.h"
#include "record/Track.h"

#include <QDateTime>

#include <memory>
#include <optional>
#include <vector>

namespace KOLT {

/// A file of a data set, and the place of its first sample in the recording.
struct LoadedFile
{
    QString name;
    std::uint32_t firstSequence = 0;
};

/// The recording loaded for analysis: some files, a cycle, or one flight of a cycle. Times are
/// seconds on the unit's counter.
struct DataSet
{
    MessageMap messages;
    double startSeconds = 0.0;
    double stopSeconds = 0.0;
    QDateTime dateTime;            ///< clock time at counter 0, from the first file; may be invalid
    std::vector<LoadedFile> files; ///< in the order in which they were loaded
    std::vector<QString> unreadFiles; ///< names of files that were not read, or not completely
    std::vector<Flight> flights;      ///< all flights of the files, even if only one is loaded
    std::optional<std::size_t> flightIndex; ///< the loaded flight; none: all of the files
    std::vector<TrackPoint> track;

    /// A cache for results that higher layers compute from the samples; lives as long as these.
    mutable std::shared_ptr<void> findings;

    /// The loaded flight; null if a cycle or files are loaded.
    const Flight* flight() const { return flightIndex ? &flights[*flightIndex] : nullptr; }

    /// The last sample of each message before the loaded flight. For exports, whose first rows
    /// would otherwise be empty, and for the track's first altitude.
    SamplesBefore before;

    /// Drops all samples outside the flight. Leaves the track to the caller.
    void keepFlight(std::size_t index);

    /// A new data set with the result of keepFlight(), without a track.
    std::unique_ptr<DataSet> copyOfFlight(std::size_t index) const;
};

} // namespace KOLT
