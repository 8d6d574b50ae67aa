#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"
#include "record/TimeOrdered.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace KOLT {

/// The rows and cells of the data table, as samples.
///
/// There is a row for each tenth of a second in which any of the columns' parameters has a sample.
/// A cell is the parameter's latest sample up to the end of the tenth, or up to a given moment in
/// it. The table is built in one pass over the series; a cell costs a binary search. Data set and
/// profile must outlive the table and must not change.
class TimeTable
{
public:
    struct Cell
    {
        const StoredSample* sample = nullptr; ///< null before the parameter's first sample
        bool isFresh = false; ///< the sample is from this row, not from an earlier one
    };

    TimeTable() = default;
    TimeTable(const DataSet& dataSet, std::vector<const ProfileParameter*> columns);

    std::size_t rowCount() const { return m_keys.size(); }

    const std::vector<const ProfileParameter*>& columns() const { return m_columns; }

    /// The row's time: seconds on the counter, a multiple of 0.1.
    double seconds(std::size_t row) const { return static_cast<double>(m_keys[row]) / 10.0; }

    /// The row of the latest sample at or before the time; the first row if there is none.
    std::size_t rowAt(double seconds) const;

    /// The time of the latest sample in the row, when the row is complete.
    double lastSeconds(std::size_t row) const;

    Cell cell(std::size_t row, std::size_t column) const;

    /// The cell as of a moment in the row: its latest sample at or before `seconds`, for which
    /// rowAt() gives `row`.
    Cell cellAt(double seconds, std::size_t row, std::size_t column) const;

    /// The nearest row after (or before) `row` whose text in the column differs from the one in
    /// `row`. Costs one numeric decoding per sample on the way, and a text where the number
    /// differs.
    std::optional<std::size_t> nextChange(const Profile& profile, std::size_t row,
                                          std::size_t column) const;
    std::optional<std::size_t> previousChange(const Profile& profile, std::size_t row,
                                              std::size_t column) const;

private:
    std::size_t rowOf(std::int64_t key) const;
    /// The last of the first `count` samples, seen from a row.
    Cell lastOf(const TimeOrdered& timeline, std::size_t count, std::size_t row) const;

    std::vector<const ProfileParameter*> m_columns;
    std::vector<std::size_t> m_timelineOf; ///< by column; parameters of one message share one
    std::vector<TimeOrdered> m_timelines;
    std::vector<std::int64_t> m_keys; ///< tenths, ascending
};

} // namespace KOLT
