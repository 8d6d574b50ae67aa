#pragma once

#include "analysis/FlightLog.h"
#include "analysis/ListSettings.h"

#include <QStringList>

#include <vector>

namespace KOLT {

/// A table of the flights of one or more days: a row per flight, a sum per day and a total. Figures
/// are metric, with their units in the headings. Flights without a date come last.
class DaySheet
{
public:
    struct Row
    {
        bool isSum = false;
        QStringList cells;      ///< one per heading
        QStringList counters{}; ///< take-off and landing in seconds on the counter; empty for a sum
    };

    static QStringList headings();

    explicit DaySheet(std::vector<FlightLine> lines);

    const std::vector<Row>& rows() const { return m_rows; }

    bool isEmpty() const { return m_rows.empty(); }

    /// One sentence that says how flight time is counted.
    static QString explanation();

    /// For printing: title, explanation, the remark unless it is empty, and the table.
    QString toHtml(const QString& title, const QString& remark = {}) const;

    /// A line of headings and one per flight. Sums are left out, as a spreadsheet makes its own.
    /// The last two columns are the row's counters.
    QString toCsv(const ListSettings& settings) const;

private:
    std::vector<Row> m_rows;
};

} // namespace KOLT
