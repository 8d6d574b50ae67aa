#pragma once

#include "analysis/FlightLog.h"
#include "analysis/ListSettings.h"

#include <QStringList>

#include <vector>

namespace KOLT {

/// The flights of one or more days as a sheet: a line for each flight, a sum for each day and one
/// for all. Metric units, which stand in the headings. Flights without a date come last.
class DaySheet
{
public:
    struct Row
    {
        bool isSum = false;
        QStringList cells;    ///< as many as there are headings
        QStringList counters; ///< of a flight: take-off and landing on the unit's counter
    };

    static QStringList headings();

    explicit DaySheet(std::vector<FlightLine> lines);

    const std::vector<Row>& rows() const { return m_rows; }

    bool isEmpty() const { return m_rows.empty(); }

    /// What the figures mean, in a sentence.
    static QString explanation();

    /// A page with title, explanation, a remark if there is one, and the table, for printing.
    QString toHtml(const QString& title, const QString& remark = {}) const;

    /// With a line of headings; the sums are left out, as spreadsheets make their own. Take-off and
    /// landing stand once more at the end, on the unit's counter.
    QString toCsv(const ListSettings& settings) const;

private:
    std::vector<Row> m_rows;
};

} // namespace KOLT
