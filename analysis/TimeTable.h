#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"

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
    /// A series in time order.
    class Timeline
    {
    public:
        explicit Timeline(const MessageSeries& series);

        std::size_t size() const { return m_series->size(); }

        const StoredSample& operator[](std::size_t index) const
        {
            return (*m_series)[m_order.empty() ? index : m_order[index]];
        }

        /// Number of samples up to the end of a tenth of a second.
        std::size_t countUpTo(std::int64_t key) const;
        /// Number of samples at or before the time.
        std::size_t countUpTo(double seconds) const;
        /// The tenths that have samples, each once, ascending.
        std::vector<std::int64_t> keys() const;

    private:
        /// Number of samples before the first that does not meet the condition.
        template <typename Condition>
        std::size_t countWhile(Condition&& holds) const;

        const MessageSeries* m_series;
        std::vector<std::uint32_t> m_order; ///< empty if the stored order ascends
    };

    std::size_t rowOf(std::int64_t key) const;

    std::vector<const ProfileParameter*> m_columns;
    std::vector<std::size_t> m_timelineOf; ///< by column; a timeline serves all of a message
    std::vector<Timeline> m_timelines;
    std::vector<std::int64_t> m_keys; ///< tenths, ascending
};

} // namespace KOLT
