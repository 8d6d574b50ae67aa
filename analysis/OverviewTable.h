#pragma once

#include "analysis/CardOverview.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace KOLT {

/// The overview of a card as a table of texts: each day with its sums, below it the cycles, and
/// below each cycle its flights and what happened outside of them. Metric units, which are in the
/// headings; only the worst exceedance is in the profile's unit system.
class OverviewTable
{
public:
    enum class Kind { Day, Cycle, Flight, Outside };

    /// Columns, left to right.
    enum Column {
        Name,
        Time,
        Run,
        Flights,
        Air,
        Altitude,
        Fuel,
        FlightFuel,
        Exceeded,
        Lamps,
        Trust,
        Worst
    };

    static constexpr int columnCount = Worst + 1;

    struct Row
    {
        Kind kind = Kind::Day;
        int cycle = 0;           ///< number; of all but days
        std::size_t flight = 0;  ///< index in the cycle; of flights
        QStringList cells;       ///< one for each column
        bool isComplete = false; ///< of rows that are not, some cells are still empty
        std::optional<Exceedance> worst;
        std::optional<TrustSeverity> severity; ///< of the findings; none: nothing was found, or yet
        QString tip;                           ///< for all cells; may be empty
        QString worstTip;                      ///< the same for a single cell
        QString trustTip;
    };

    OverviewTable(const Profile& profile, const CardOverview& overview);

    static QStringList headings();

    /// What a column shows, in a sentence.
    static QStringList explanations();

    const std::vector<Row>& rows() const { return m_rows; }

    /// The sums of all days, as a row of the kind Day.
    const Row& total() const { return m_total; }

    /// The rows of one day's sums, and of one cycle: itself, its flights and what lies outside.
    static Row dayRow(const DayOverview& day);
    static std::vector<Row> cycleRows(const Profile& profile, const CycleOverview& cycle);
    static Row totalRow(const CardOverview& overview);

private:
    std::vector<Row> m_rows;
    Row m_total;
};

} // namespace KOLT
