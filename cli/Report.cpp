#include "cli/Report.h"

#include "analysis/CardOverview.h"
#include "analysis/OverviewTable.h"
#include "cli/Arguments.h"
#include "cli/EngineReportVerb.h"
#include "cli/Recording.h"
#include "cli/ReportLedger.h"
#include "cli/Trust.h"
#include "profile/ProfileLine.h"
#include "record/CardFiles.h"
#include "record/ClockOffset.h"
#include "record/VariantFit.h"

#include <array>

namespace KOLT::Cli {

namespace {

struct Column
{
    const char* title;
    int width;
    Figures figures; ///< what is shown is doubtful where one of them is
};

/// Of these, one is touched by all that touches the samples of a flight.
constexpr Figures window = Figure::End | Figure::MaxGroundSpeed;

/// The take-off is sound on the counter, but its date is not: then neither is the landing's.
constexpr Figures clockAlone = 1U << 31;

constexpr std::array columns{
    Column{"Flight", 6, 0},
    Column{"Take-off", 9, Figure::DateTime | Figure::TakeOff},
    Column{"Landing", 9, Figure::Landing | clockAlone},
    Column{"Time", 9, Figure::TakeOff | Figure::Landing},
    Column{"Max alt", 9, Figure::MaxAltitude},
    Column{"Gain", 8, Figure::AltitudeGain},
    Column{"Climb", 9, Figure::ClimbRate},
    Column{"Fuel", 8, Figure::Fuel},
    Column{"T/O dist", 9, Figure::TakeOffDistance},
    Column{"15 m", 8, Figure::TakeOffDistance15m},
    Column{"Exceeded", 28, window},
};

constexpr qsizetype fuelColumn = 7;

QString figure(double value, int decimals, const char* unit)
{
    return figureText(value, decimals, QLatin1String(unit));
}

/// Each figure is followed by a blank, or by the mark of a finding that touches it.
QByteArray row(const QStringList& cells, Figures marked = 0)
{
    QString line;
    for (std::size_t i = 0; i < columns.size(); ++i)
        line +=
            cells[static_cast<qsizetype>(i)].rightJustified(columns[i].width + (i == 0 ? 1 : 0)) +
            QLatin1Char((columns[i].figures & marked) != 0 ? '*' : ' ');
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    return line.toUtf8() + "\n";
}

QByteArray headings()
{
    QStringList titles;
    for (const Column& column : columns)
        titles << QLatin1String(column.title);
    return row(titles);
}

QByteArray totalsLine(const char* label, const FlightTotals& totals)
{
    return QStringLiteral(
               "%1: %2 flights, %3 in the air, %4 fuel, limits or warnings exceeded: %5\n")
        .arg(QLatin1String(label))
        .arg(totals.flights)
        .arg(durationText(totals.seconds), figure(totals.fuel, 1, "l"))
        .arg(episodeCellText(totals.episodes, totals.exceedances))
        .toUtf8();
}

QByteArray flightRow(const FlightLine& line, Figures marked)
{
    if ((marked & Figure::DateTime) != 0 && (marked & Figure::TakeOff) == 0)
        marked |= clockAlone;
    return row({QString::number(line.number), timeOfDayText(line.takeOff, line.takeOffSeconds),
                timeOfDayText(line.landing, line.landingSeconds),
                durationText(line.flightSeconds()), figure(line.maxAltitude, 0, "m"),
                figure(line.climb, 0, "m"), figure(line.climbRate, 1, "m/s"),
                figure(line.fuel, 2, "l"), figure(line.takeOffDistance, 0, "m"),
                figure(line.takeOffDistance15m, 0, "m"),
                episodeCellText(line.episodes, line.exceedances)},
               marked);
}

/// What lies in no flight, in the columns of fuel and exceedances.
QByteArray outsideRow(const CycleOverview& cycle)
{
    QStringList cells;
    for (const Column& column : columns)
        cells << QString(column.width, QLatin1Char(' '));
    cells[fuelColumn] = figure(cycle.outsideFuel(), 2, "l");
    cells[cells.size() - 1] = episodeCellText(cycle.outsideEpisodes, cycle.outsideCrossings);
    QByteArray line = row(cells);
    const QByteArray label = " Outside flights";
    return line.replace(0, label.size(), label);
}

/// Flights, and what lies outside of them.
FlightTotals wholeOf(const CycleOverview& cycle)
{
    FlightTotals totals = cycle.totals;
    totals.fuel = cycle.fuel;
    totals.exceedances = cycle.crossings;
    totals.episodes = cycle.episodes;
    return totals;
}

struct TableColumn
{
    OverviewTable::Column column;
    const char* title;
    int width;
};

/// The overview's columns in the words of the terminal; the worst exceedance is last, as it is
/// text.
constexpr std::array tableColumns{
    TableColumn{OverviewTable::Name, "Cycle", -17},
    TableColumn{OverviewTable::Time, "Time", 9},
    TableColumn{OverviewTable::Run, "Run", 9},
    TableColumn{OverviewTable::Flights, "Flights", 7},
    TableColumn{OverviewTable::Air, "In the air", 10},
    TableColumn{OverviewTable::Altitude, "Max alt m", 9},
    TableColumn{OverviewTable::Fuel, "Fuel l", 8},
    TableColumn{OverviewTable::FlightFuel, "In flights", 10},
    TableColumn{OverviewTable::Exceeded, "Exceeded", 28},
    TableColumn{OverviewTable::Lamps, "Lamps", 5},
    TableColumn{OverviewTable::Trust, "Recording", 9},
    TableColumn{OverviewTable::Worst, " Worst", -1},
};

QByteArray tableRow(const QString& indent, const QStringList& cells)
{
    QString line;
    for (const TableColumn& column : tableColumns) {
        const QString cell = (column.column == OverviewTable::Name ? indent : QString()) +
                             cells[static_cast<qsizetype>(column.column)];
        line += QLatin1Char(' ') + (column.width < 0 ? cell.leftJustified(-column.width)
                                                     : cell.rightJustified(column.width));
    }
    while (line.endsWith(QLatin1Char(' ')))
        line.chop(1);
    return line.toUtf8() + '\n';
}

/// The table that the window shows of an open folder.
void reportOverview(const Profile& profile, const CardOverview& card)
{
    QStringList titles;
    for (const TableColumn& column : tableColumns)
        titles << QLatin1String(column.title);
    writeOutput("\n" + tableRow({}, titles));
    const OverviewTable table(profile, card);
    for (const OverviewTable::Row& line : table.rows()) {
        const int depth = line.kind == OverviewTable::Kind::Day     ? 0
                          : line.kind == OverviewTable::Kind::Cycle ? 1
                                                                    : 2;
        QStringList cells = line.cells;
        if (!cells[OverviewTable::Worst].isEmpty())
            cells[OverviewTable::Worst].prepend(QLatin1Char(' '));
        writeOutput(tableRow(QString(2 * depth, QLatin1Char(' ')), cells));
    }
    writeOutput(tableRow({}, table.total().cells));
}

/// Prints a cycle with its flights and what is to be said about its recording.
void reportCycle(const CycleOverview& cycle, const RecordingTrust& trust)
{
    const QString date = cycle.dateTime.isValid()
                             ? cycle.dateTime.toString(QStringLiteral("dd.MM.yyyy hh:mm:ss"))
                             : QStringLiteral("Unknown Date");
    writeOutput(QStringLiteral("\n%1  %2  %3  %4 files\n")
                    .arg(cycle.name, date, durationText(cycle.runSeconds))
                    .arg(cycle.fileCount)
                    .toUtf8());
    for (const QString& name : cycle.unreadFiles)
        writeOutput(" " + name.toUtf8() + " could not be read: what follows lacks it\n");
    if (!cycle.flights.empty())
        writeOutput(headings());
    for (const FlightOverview& flight : cycle.flights)
        writeOutput(
            flightRow(flight.line, trust.marked[static_cast<std::size_t>(flight.line.number) - 1]));
    writeOutput(outsideRow(cycle));
    writeOutput(totalsLine(" Sum", wholeOf(cycle)));
    writeOutput(trustLines(trust.findings));
}

QStringList enginesOf(const CardContainer& card)
{
    QStringList engines;
    const CardFiles files(card);
    for (const FileFacts& file : files.all()) {
        if (!file.info.engineSerial.isEmpty() && !engines.contains(file.info.engineSerial))
            engines << file.info.engineSerial;
    }
    return engines;
}

} // namespace

QString report(const Arguments& arguments)
{
    Recording recording(arguments);
    QString error = recording.openProfile();
    if (error.isEmpty())
        error = recording.openFolder();
    ReportLedger ledger;
    if (error.isEmpty())
        error = ledger.open(arguments);
    if (!error.isEmpty())
        return error;
    if (!arguments.pdf.isEmpty() || arguments.asJson)
        return engineReport(arguments, recording, ledger);
    const CardContainer& card = recording.card();
    writeOutput(QStringLiteral("%1: %2 record files, %3 engine cycles\n")
                    .arg(card.folder(), QString::number(card.files().size()),
                         QString::number(card.cycles().size()))
                    .toUtf8());
    for (const QString& line : {profileLine(recording.profile()), clockLine(card.clockOffset())})
        writeOutput(line.toUtf8() + '\n');
    CardOverview overview(recording.profile(), card, CardOverview::Trust::Wanted);
    while (overview.step()) {
    }
    if (!overview.cycles().empty())
        reportOverview(recording.profile(), overview);
    FlightTotals all;
    std::vector<QString> unread;
    QStringList variantNotes;
    for (const auto& [number, listed] : card.cycles()) {
        const CycleOverview& cycle = *overview.cycle(number);
        unread.insert(unread.end(), cycle.unreadFiles.begin(), cycle.unreadFiles.end());
        reportCycle(cycle, *cycle.trust);
        // Of all cycles the same is told once.
        if (const QString note = variantFit(recording.profile(), cycle.engine).text();
            !note.isEmpty() && !variantNotes.contains(note))
            variantNotes << note;
        all.add(wholeOf(cycle));
    }
    writeOutput("\n" + totalsLine("Total", all));
    for (const QString& note : variantNotes)
        writeOutput(note.toUtf8() + '\n');
    error = ledger.read(enginesOf(card), QDate::currentDate());
    if (!error.isEmpty())
        return error;
    writeOutput(ledger.text());
    error = finishOutput();
    return error.isEmpty() ? unreadError(unread) : error;
}

} // namespace KOLT::Cli
