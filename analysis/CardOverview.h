#pragma once

#include "analysis/CycleOverview.h"
#include "analysis/CycleScan.h"
#include "record/CardFiles.h"

#include <QDate>

#include <memory>
#include <optional>
#include <vector>

namespace KOLT {

class CardContainer;

/// The cycles of one day, by the dates of the cycles.
struct DayOverview
{
    QDate date;                      ///< invalid where the recording has no date
    std::vector<std::size_t> cycles; ///< indices of the card's cycles, ascending in time
    FlightTotals totals;             ///< of the flights; exceedances outside of them are added
    double runSeconds = 0.0;
    double fuel = 0.0; ///< of the whole runs
    double maxAltitude = 0.0;
    std::size_t lamps = 0;
    bool isComplete = false; ///< all cycles are
};

/// The overview of an open folder: its cycles by day, newest day first. All rows are there from the
/// start with what the headers say; step() completes one after the other, and then finds out how
/// far each recording can be believed, which takes the files to be read once more.
///
/// It has its own list of the files and at most one cycle in memory. Profile and card must outlive
/// it; after another load of the profile make a new one.
class CardOverview
{
public:
    enum class Trust { Ignored, Wanted };

    CardOverview(const Profile& profile, const CardContainer& card, Trust trust);

    /// Does the next piece of work, of some milliseconds; false if all is known.
    bool step();

    /// Whether all rows have their figures.
    bool isComplete() const { return m_completed == m_cycles.size(); }

    /// Whether trust is known as well, if it is wanted.
    bool isDone() const { return isComplete() && m_trusted == m_cycles.size(); }

    /// The rows that are complete are the first ones.
    std::size_t completedCount() const { return m_completed; }

    const std::vector<CycleOverview>& cycles() const { return m_cycles; }

    /// The first rows have their trust.
    std::size_t trustedCount() const { return m_trusted; }

    /// Null if there is no such cycle.
    const CycleOverview* cycle(int number) const;

    std::vector<DayOverview> days() const;

    /// Of the whole card, as far as it is known.
    DayOverview totals() const;

    /// The part of the bytes that have been read, 0..100.
    int percent() const;

private:
    static void add(DayOverview& sum, const CycleOverview& cycle);

    void stepTrust();

    const Profile& m_profile;
    const CardContainer& m_card;
    std::vector<CycleOverview> m_cycles;
    std::vector<std::vector<RecordFile>> m_files; ///< by row
    std::vector<qint64> m_bytes;                  ///< by row
    std::size_t m_completed = 0;
    std::unique_ptr<CycleScan> m_scan; ///< of the first row that is not complete
    std::size_t m_trusted = 0;
    std::optional<CardFiles> m_cardFiles; ///< for trust
    std::unique_ptr<DataSet> m_dataSet;   ///< of the first row without trust, while it is read
};

} // namespace KOLT
