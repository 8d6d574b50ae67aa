#pragma once

#include "analysis/FlightLog.h"

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
        QStringList cells; ///< as many as there are headings
    };

    static QStringList headings();

    explicit DaySheet(std::vector<FlightLine> lines);

    const std::vector<Row>& rows() const { return m_rows; }

    bool isEmpty() const { return m_rows.empty(); }

    /// A page with the title and the table, for printing.
    QString toHtml(const QString& title) const;

    /// With a line of headings; the sums are left out, as spreadsheets make their own.
    QString toCsv(QChar separator) const;

private:
    std::vector<Row> m_rows;
};

} // namespace KOLT
