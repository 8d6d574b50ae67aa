#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"
#include "record/TimeOrdered.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace KOLT {

/// The rows and cells of the data table, without making any text.
///
/// One row stands for each tenth of a second in which any of the chosen parameters has a sample.
/// Where a parameter has several samples in one tenth, the latest of them is shown; the row of the
/// current moment can be asked for as it was at that moment. The index is built in one pass over
/// the series; a cell costs a search by halving. Data set and profile must outlive the table and
/// stay as they are.
class TimeTable
{
public:
    struct Cell
    {
        const StoredSample* sample = nullptr; ///< null before the parameter's first sample
        bool isFresh = false; ///< the sample lies in this row, not in an earlier one
    };

    TimeTable() = default;
    TimeTable(const DataSet& dataSet, std::vector<const ProfileParameter*> columns);

    std::size_t rowCount() const { return m_keys.size(); }

    const std::vector<const ProfileParameter*>& columns() const { return m_columns; }

    /// The row's time on the unit's counter, in seconds to a tenth.
    double seconds(std::size_t row) const { return static_cast<double>(m_keys[row]) / 10.0; }

    /// The row of the latest sample at or before the time; the first row when there is none.
    std::size_t rowAt(double seconds) const;

    /// The moment at which all of the row is known: its latest sample, in seconds.
    double lastSeconds(std::size_t row) const;

    Cell cell(std::size_t row, std::size_t column) const;

    /// The latest sample at or before a time that rowAt() finds in the row.
    Cell cellAt(double seconds, std::size_t row, std::size_t column) const;

    /// The next row after `row` (or before it) in which the column's text differs from the one in
    /// `row`; none when it stays as it is. Costs one numeric decoding per sample on the way, and a
    /// text where the number differs.
    std::optional<std::size_t> nextChange(const Profile& profile, std::size_t row,
                                          std::size_t column) const;
    std::optional<std::size_t> previousChange(const Profile& profile, std::size_t row,
                                              std::size_t column) const;

private:
    std::size_t rowOf(std::int64_t key) const;

    std::vector<const ProfileParameter*> m_columns;
    std::vector<std::size_t> m_timelineOf; ///< by column; parameters of one message share one
    std::vector<TimeOrdered> m_timelines;
    std::vector<std::int64_t> m_keys; ///< tenths, ascending
};

} // namespace KOLT
