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
/// Lists the files with their headers and cycles, and loads a choice of them as the one current
/// data set. As long as it lives, nothing is written below the folder. Flights need the profile's
/// roles, so the profile must be loaded first; it has to outlive the container.
class CardContainer
{
public:
    /// Percent of the work done, 0..100.
    using Progress = std::function<void(int percent)>;

    explicit CardContainer(const Profile& profile)
        : m_profile(profile)
    {
    }

    /// Lists the folder's record files (suffix "CAN", "can" or "xcb"). False when there is no such
    /// folder; everything is then as before. A file that cannot be read keeps an empty header.
    /// While files are read the progress stays at 0; it becomes 100 at the end.
    bool readContainer(const QString& folder, const Progress& progress = {});

    /// Whether at least one of these files can be opened and read. Whoever wants to keep the
    /// current data set otherwise, as of a card that was pulled, asks before loading.
    bool canReadAny(const std::list<QString>& paths) const;

    /// The three ways to load a data set, which replaces the current one. Files are read in the
    /// order given: the first gives start and date-time, the last the stop. A file that is not
    /// part of the container, or cannot be read, contributes nothing.
    bool loadFiles(const std::list<QString>& paths, const Progress& progress = {});
    /// False when there is no such cycle; the current data set is then kept.
    bool loadCycle(int number, const Progress& progress = {});
    /// Without such a flight the result is false too, and the whole cycle is loaded.
    bool loadFlight(int number, std::size_t flightIndex, const Progress& progress = {});

    /// A flight of the current data set, which must be a whole cycle, as a set of its own: what
    /// loadFlight() loads, without reading the files once more for each flight.
    std::unique_ptr<DataSet> copyOfFlight(std::size_t flightIndex) const;

    /// Works out flights and track of the current data set again, as they depend on the profile;
    /// of a single flight only the track. Keeps the flights for the cycle of that number.
    void reanalyse(std::optional<int> cycleNumber);

    const QString& folder() const { return m_folder; }

    const std::map<QString, RecordFile>& files() const { return m_files; }

    const std::map<int, Cycle>& cycles() const { return m_cycles; }

    /// The flights of a cycle, as found when it was loaded last, all or one of them; none before.
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
    std::shared_ptr<const void> m_protection;     ///< nothing is written below the folder
    std::map<QString, RecordFile> m_files;        ///< by file name
    std::map<int, Cycle> m_cycles;                ///< by number
    std::map<int, std::vector<Flight>> m_flights; ///< by cycle number
    std::unique_ptr<DataSet> m_dataSet;
};

} // namespace KOLT
