#pragma once

#include "analysis/ListSettings.h"
#include "analysis/SheetCycle.h"

#include <QStringList>

#include <array>
#include <optional>
#include <vector>

namespace KOLT {

/// A table of the flights of one or more days: a row per flight, below those of a cycle one for
/// what lies outside of them, a sum per day and a total. Figures are metric, with their units in
/// the headings. Days are those on which the cycles began; cycles without a date come last.
///
/// Figures that a finding about the recording touches have a mark, such as "[1]", that stands for
/// one of the notes below the table.
class DaySheet
{
public:
    enum class Kind { Flight, Outside, Sum };

    /// Left to right; Cycle is shown only where there are several.
    enum Column {
        Date,
        Cycle,
        FlightNumber,
        TakeOff,
        Landing,
        FlightTime,
        MaxAltitude,
        Gain,
        Climb,
        Fuel,
        TakeOffDistance,
        Limits,
        Warnings,
        Lamps,
        columnCount
    };

    struct Row
    {
        Kind kind = Kind::Flight;
        std::size_t cycle = 0;               ///< index of its cycle; of all but sums
        std::optional<std::size_t> flight{}; ///< index in the cycle
        QStringList cells;                   ///< one for each Column, without marks
        /// The crossings of the episodes that Limits, Warnings and Lamps count.
        std::array<std::size_t, 3> crossings{};
        /// For each Column the numbers of its notes, ascending.
        std::vector<std::vector<int>> notes = std::vector<std::vector<int>>(columnCount);

        /// The cell with its crossings, as "1 (8)", and its mark.
        QString text(Column column) const;
        /// How many columns the text extends over, as those behind it are empty: 1 for most.
        int span(Column column, const std::vector<Column>& columns) const;
    };

    /// What stands above the table.
    struct Head
    {
        QString title;
        QString profile; ///< which profile the limits come from, in a line
        QString clock;   ///< how dates and times came about, in a line
        QString remark;  ///< may be empty
    };

    explicit DaySheet(std::vector<SheetCycle> cycles = {});

    bool isEmpty() const { return m_rows.empty(); }

    const std::vector<SheetCycle>& cycles() const { return m_cycles; }

    const std::vector<Row>& rows() const { return m_rows; }

    std::vector<Column> columns() const;
    static QString heading(Column column);

    /// Sentences about the marked figures; the first has the number 1.
    const QStringList& notes() const { return m_notes; }

    /// Which engines and units recorded the flights; empty where the recording does not say.
    QString unitLine() const;

    /// How flight times and episodes are to be understood.
    static QString explanation();

    /// "2024-05-18", or "2024-05-16_2024-05-18" for several days; empty without a date.
    QString isoDates() const;

    /// For printing.
    QString toHtml(const Head& head) const;

    /// A line of headings and one per row but sums, as a spreadsheet makes its own. Columns behind
    /// those of the table have what stands around it: the row's times on the counter, serial
    /// numbers, profile, clock and notes. Figures have no marks.
    QString toCsv(const Head& head, const ListSettings& settings) const;

private:
    class Builder;

    QStringList csvFacts(const Row& row, const Head& head, const ListSettings& settings) const;
    QString csvNotes(const Row& row) const;

    std::vector<SheetCycle> m_cycles;
    std::vector<Row> m_rows;
    QStringList m_notes;
};

} // namespace KOLT
