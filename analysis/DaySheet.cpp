#include "analysis/DaySheet.h"

#include "analysis/MomentText.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace KOLT {

namespace {

using Column = DaySheet::Column;
using Row = DaySheet::Row;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::DaySheet)
};

/// Of these, one is touched by all that touches the samples of a flight.
constexpr Figures window = Figure::End | Figure::MaxGroundSpeed;

/// The take-off is sound on the counter, but its date is not: then neither is the landing's.
constexpr Figures clockAlone = 1U << 31;

/// A column is marked where one of these figures is.
constexpr std::array<Figures, DaySheet::columnCount> columnFigures{
    Figure::DateTime,
    0,
    0,
    Figure::DateTime | Figure::TakeOff,
    Figure::Landing | clockAlone,
    Figure::TakeOff | Figure::Landing,
    Figure::MaxAltitude,
    Figure::AltitudeGain,
    Figure::ClimbRate,
    Figure::Fuel,
    Figure::TakeOffDistance,
    window,
    window,
    window,
};

constexpr std::array episodeColumns{DaySheet::Limits, DaySheet::Warnings, DaySheet::Lamps};

QString dateText(const QDate& date)
{
    return date.isValid() ? date.toString(QStringLiteral("dd.MM.yyyy")) : Text::tr("Unknown Date");
}

QString litres(double fuel)
{
    const QString text = figureText(fuel, 2, {});
    return text == QLatin1String("-0.00") ? text.mid(1) : text;
}

Row emptyRow(DaySheet::Kind kind, std::size_t cycle, const QDate& date)
{
    Row row{.kind = kind, .cycle = cycle, .cells = {}};
    row.cells.resize(DaySheet::columnCount);
    row.cells[DaySheet::Date] = dateText(date);
    return row;
}

void setEpisodes(Row& row, const EpisodeCounts& counts)
{
    const std::array all{counts.limits, counts.warnings, counts.lamps};
    for (std::size_t i = 0; i < all.size(); ++i) {
        row.cells[episodeColumns[i]] = QString::number(all[i].episodes);
        row.crossings[i] = all[i].crossings;
    }
}

Row flightRow(const FlightLine& line, std::size_t cycle, std::size_t index)
{
    Row row = emptyRow(DaySheet::Kind::Flight, cycle, line.takeOff.date());
    row.flight = index;
    row.cells[DaySheet::FlightNumber] = QString::number(line.number);
    row.cells[DaySheet::TakeOff] = timeOfDayText(line.takeOff, line.takeOffSeconds);
    row.cells[DaySheet::Landing] = timeOfDayText(line.landing, line.landingSeconds);
    row.cells[DaySheet::FlightTime] = durationText(line.flightSeconds());
    row.cells[DaySheet::MaxAltitude] = figureText(line.maxAltitude, 0, {});
    row.cells[DaySheet::Gain] = figureText(line.climb, 0, {});
    row.cells[DaySheet::Climb] = figureText(line.climbRate, 1, {});
    row.cells[DaySheet::Fuel] = litres(line.fuel);
    row.cells[DaySheet::TakeOffDistance] = figureText(line.takeOffDistance, 0, {});
    setEpisodes(row, line.counts);
    return row;
}

Row outsideRow(const SheetCycle& cycle, std::size_t index)
{
    Row row = emptyRow(DaySheet::Kind::Outside, index, cycle.dateTime.date());
    row.cells[DaySheet::FlightNumber] = Text::tr("Outside flights");
    row.cells[DaySheet::Fuel] = litres(cycle.log.outsideFuel());
    setEpisodes(row, cycle.log.outside);
    return row;
}

void addNote(Row& row, Column column, int note)
{
    std::vector<int>& notes = row.notes[column];
    const auto place = std::ranges::lower_bound(notes, note);
    if (place == notes.end() || *place != note)
        notes.insert(place, note);
}

/// Whether a finding says something about what lies in no flight.
bool touchesOutside(const TrustFinding& finding, const FlightLog& log)
{
    if (trustSeverity(finding.kind) == TrustSeverity::Note)
        return false;
    return finding.marks.empty() || !finding.from || !finding.to ||
           std::ranges::none_of(log.lines, [&](const FlightLine& line) {
               return line.startSeconds <= *finding.from && *finding.to <= line.endSeconds;
           });
}

void markOutside(Row& row, const TrustFinding& finding, int note)
{
    if (finding.kind == TrustKind::LateClock) {
        addNote(row, DaySheet::Date, note);
        return;
    }
    addNote(row, DaySheet::Fuel, note);
    for (const Column column : episodeColumns)
        addNote(row, column, note);
}

void markFlight(Row& row, Figures figures, int note)
{
    if ((figures & Figure::DateTime) != 0 && (figures & Figure::TakeOff) == 0)
        figures |= clockAlone;
    for (std::size_t i = 0; i < columnFigures.size(); ++i) {
        if ((columnFigures[i] & figures) != 0)
            addNote(row, static_cast<Column>(i), note);
    }
}

QString noteText(const SheetCycle& cycle, const TrustFinding& finding)
{
    const auto timeText = [&](const std::optional<double>& seconds) {
        return seconds ? timeOfDayText(momentOf(cycle.dateTime, *seconds), *seconds)
                       : QStringLiteral("?");
    };
    QString title = trustKindTitle(finding.kind);
    if (cycle.number)
        title = Text::tr("Cycle %1, %2").arg(*cycle.number).arg(title);
    if (finding.from || finding.to)
        title = Text::tr("%1 (%2 to %3)").arg(title, timeText(finding.from), timeText(finding.to));
    return QStringLiteral("%1: %2").arg(title, finding.text);
}

} // namespace

/// Makes the rows of cycles that are in order.
class DaySheet::Builder
{
public:
    explicit Builder(DaySheet& sheet)
        : m_sheet(sheet)
    {
    }

    void build()
    {
        const std::vector<SheetCycle>& cycles = m_sheet.m_cycles;
        Sum all;
        Sum day;
        int days = 0;
        for (std::size_t i = 0; i < cycles.size(); ++i) {
            const std::size_t first = m_sheet.m_rows.size();
            addCycle(i);
            for (std::size_t row = first; row < m_sheet.m_rows.size(); ++row) {
                day.addNotes(m_sheet.m_rows[row]);
                all.addNotes(m_sheet.m_rows[row]);
            }
            day.add(cycles[i].log);
            all.add(cycles[i].log);
            const QDate date = cycles[i].dateTime.date();
            if (i + 1 < cycles.size() && cycles[i + 1].dateTime.date() == date)
                continue;
            addSum(Text::tr("Sum %1").arg(dateText(date)), day);
            day = {};
            ++days;
        }
        if (days > 1)
            addSum(Text::tr("Total"), all);
    }

private:
    struct Sum
    {
        FlightTotals flights;
        double fuel = 0.0; ///< outside flights too
        EpisodeCounts episodes;
        Row marks;

        void add(const FlightLog& log)
        {
            for (const FlightLine& line : log.lines) {
                flights.add(line);
                episodes.add(line.counts);
            }
            fuel += log.fuel;
            episodes.add(log.outside);
        }

        void addNotes(const Row& row)
        {
            for (const Column column : {FlightTime, Fuel, Limits, Warnings, Lamps}) {
                for (const int note : row.notes[column])
                    addNote(marks, column, note);
            }
        }
    };

    void addCycle(std::size_t index)
    {
        const SheetCycle& cycle = m_sheet.m_cycles[index];
        std::vector<Row> rows;
        for (std::size_t i = 0; i < cycle.log.lines.size(); ++i)
            rows.push_back(flightRow(cycle.log.lines[i], index, i));
        rows.push_back(outsideRow(cycle, index));
        for (Row& row : rows) {
            if (cycle.number)
                row.cells[Cycle] = QString::number(*cycle.number);
        }
        for (const TrustFinding& finding : cycle.findings)
            mark(rows, cycle, finding);
        m_sheet.m_rows.insert(m_sheet.m_rows.end(), rows.begin(), rows.end());
    }

    void mark(std::vector<Row>& rows, const SheetCycle& cycle, const TrustFinding& finding)
    {
        const bool isOutside = touchesOutside(finding, cycle.log);
        if (finding.marks.empty() && !isOutside)
            return;
        m_sheet.m_notes << noteText(cycle, finding);
        const auto note = static_cast<int>(m_sheet.m_notes.size());
        if (finding.kind == TrustKind::OtherEngine) { // its limits are in doubt, in all rows
            for (Row& row : rows) {
                for (const Column column : episodeColumns)
                    addNote(row, column, note);
            }
            return;
        }
        for (const FlightMark& touched : finding.marks)
            markFlight(rows[touched.flight], touched.figures, note);
        if (isOutside)
            markOutside(rows.back(), finding, note);
    }

    void addSum(const QString& label, const Sum& sum)
    {
        Row row = sum.marks;
        row.kind = Kind::Sum;
        row.cells.resize(columnCount);
        row.cells[Date] = label;
        row.cells[TakeOff] = Text::tr("%n flight(s)", nullptr, sum.flights.flights);
        row.cells[FlightTime] = durationText(sum.flights.seconds);
        row.cells[Fuel] = litres(sum.fuel);
        setEpisodes(row, sum.episodes);
        m_sheet.m_rows.push_back(std::move(row));
    }

    DaySheet& m_sheet;
};

DaySheet::DaySheet(std::vector<SheetCycle> cycles)
    : m_cycles(std::move(cycles))
{
    // An invalid date compares as less than any other, but belongs at the end.
    std::ranges::stable_sort(m_cycles, [](const SheetCycle& a, const SheetCycle& b) {
        if (a.dateTime.isValid() != b.dateTime.isValid())
            return a.dateTime.isValid();
        return a.dateTime.isValid() && a.dateTime < b.dateTime;
    });
    Builder(*this).build();
}

} // namespace KOLT
