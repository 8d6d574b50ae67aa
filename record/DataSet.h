#pragma once

#include "record/Flight.h"
#include "record/MessageMap.h"
#include "record/Track.h"

#include <QDateTime>

#include <memory>
#include <optional>
#include <vector>

namespace KOLT {

/// What is loaded for analysis: some files, a cycle, or one flight of a cycle. Times are seconds on
/// the unit's counter.
struct DataSet
{
    MessageMap messages;
    double startSeconds = 0.0;
    double stopSeconds = 0.0;
    QDateTime dateTime; ///< of the first file, taken as the clock at counter 0; may be invalid
    std::vector<QString>
        unreadFiles;             ///< names of files that could not be read, or not to their end
    std::vector<Flight> flights; ///< all flights of the files, also when only one is loaded
    std::optional<std::size_t> flightIndex; ///< the flight that is loaded, when it is one
    std::vector<TrackPoint> track;

    /// What the rooms above found in the samples and keep beside them, gone with them.
    mutable std::shared_ptr<void> findings;

    /// The flight that is loaded; null when a whole cycle or files are.
    const Flight* flight() const { return flightIndex ? &flights[*flightIndex] : nullptr; }

    /// What the messages sent last before the loaded flight, by identifier. For exports only, whose
    /// first rows would be empty without: the flight itself has no earlier samples.
    SamplesBefore before;

    /// Narrows the set to one of its flights: only its samples stay.
    void keepFlight(std::size_t index);

    /// What keepFlight() would leave, without the track, as a set of its own.
    std::unique_ptr<DataSet> copyOfFlight(std::size_t index) const;
};

} // namespace KOLT
