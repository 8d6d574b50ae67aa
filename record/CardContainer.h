#pragma once

#include "record/Cycle.h"
#include "record/DataSet.h"
#include "record/RecordFile.h"

#include <QString>

#include <functional>
#include <list>
#include <map>
#include <memory>
#include <optional>

namespace KOLT {

class Profile;

/// A folder of record files: the unit's memory card or a copy of it.
///
/// Lists the files with their headers and cycles, and loads a selection of them as the current data
/// set. While the container exists, base/WriteGuard refuses writes below the folder. The profile
/// must outlive the container and be loaded before data sets are, as flights and track need its
/// roles.
class CardContainer
{
public:
    /// Percent of the work done, 0..100.
    using Progress = std::function<void(int percent)>;

    explicit CardContainer(const Profile& profile)
        : m_profile(profile)
    {
    }

    /// Lists the folder's record files (suffix "CAN", "can" or "xcb"). False if there is no such
    /// folder; nothing changes then. A file that cannot be read is listed with an empty header.
    /// Reports 0 per file and 100 at the end.
    bool readContainer(const QString& folder, const Progress& progress = {});

    /// What is added to the unit's clock, in minutes, from -14 h to +14 h. Moves all dates at once,
    /// of files, cycles, flights and the data set; times on the counter stay.
    void setClockOffset(int minutes);

    int clockOffset() const { return m_clockOffset; }

    /// Whether at least one of the files can be opened and read. Loading replaces the data set in
    /// any case, so callers that want to keep it when the card was removed check this first.
    bool canReadAny(const std::list<QString>& paths) const;

    /// Loads a data set in place of the current one. Files are read in the given order: start and
    /// date-time come from the first, the stop from the last. A file that is not listed or cannot
    /// be read contributes no samples and is named in unreadFiles.
    bool loadFiles(const std::list<QString>& paths, const Progress& progress = {});
    /// False if there is no such cycle; the current data set is kept then.
    bool loadCycle(int number, const Progress& progress = {});
    /// As loadCycle(); also false if the cycle has no such flight, and the whole cycle is loaded
    /// then.
    bool loadFlight(int number, std::size_t flightIndex, const Progress& progress = {});

    /// A data set like that of loadFlight(), copied from the current one, which must be a whole
    /// cycle. Saves reading the files again for each flight.
    std::unique_ptr<DataSet> copyOfFlight(std::size_t flightIndex) const;

    /// Recomputes flights and track of the current data set, for use after a change of the profile.
    /// Of a single flight only the track. flightsOf(cycleNumber) follows.
    void reanalyse(std::optional<int> cycleNumber);

    const QString& folder() const { return m_folder; }

    const std::map<QString, RecordFile>& files() const { return m_files; }

    const std::map<int, Cycle>& cycles() const { return m_cycles; }

    /// The flights found when the cycle, or a flight of it, was last loaded; none before that.
    const std::vector<Flight>& flightsOf(int number) const;

    /// Valid until the next load; null before the first.
    const DataSet* dataSet() const { return m_dataSet.get(); }

private:
    void repairDates();
    std::unique_ptr<DataSet> read(const std::list<QString>& paths, const Progress& progress);
    std::list<QString> pathsOf(const Cycle& cycle) const;
    void findTrack(DataSet& dataSet) const;

    const Profile& m_profile;
    QString m_folder;
    std::shared_ptr<const void> m_protection;     ///< keeps the folder write-protected
    std::map<QString, RecordFile> m_files;        ///< by file name
    std::map<int, Cycle> m_cycles;                ///< by number
    std::map<int, std::vector<Flight>> m_flights; ///< by cycle number
    std::unique_ptr<DataSet> m_dataSet;
    int m_clockOffset = 0; ///< minutes
};

} // namespace KOLT
