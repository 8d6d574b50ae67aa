#include "cli/Report.h"

#include "analysis/FlightLog.h"
#include "cli/Arguments.h"
#include "cli/Recording.h"

#include <array>

namespace KOLT::Cli {

namespace {

struct Column
{
    const char* title;
    int width;
};

constexpr std::array columns{
    Column{"Flight", 6},   Column{"Take-off", 9}, Column{"Landing", 9},  Column{"Time", 9},
    Column{"Max alt", 9},  Column{"Gain", 8},     Column{"Climb", 9},    Column{"Fuel", 8},
    Column{"T/O dist", 9}, Column{"15 m", 8},     Column{"Exceeded", 9},
};

/// The time of day; the unit's counter where the recording has no date.
QString clock(const QDateTime& dateTime, double seconds)
{
    return dateTime.isValid() ? dateTime.toString(QStringLiteral("hh:mm:ss"))
                              : durationText(seconds);
}

QString figure(double value, int decimals, const char* unit)
{
    return figureText(value, decimals, QLatin1String(unit));
}

QByteArray row(const QStringList& cells)
{
    QString line;
    for (std::size_t i = 0; i < columns.size(); ++i)
        line +=
            QStringLiteral(" ") + cells[static_cast<qsizetype>(i)].rightJustified(columns[i].width);
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
               "%1: %2 flights, %3 in the air, %4 fuel, %5 limits or warnings exceeded\n")
        .arg(QLatin1String(label))
        .arg(totals.flights)
        .arg(durationText(totals.seconds), figure(totals.fuel, 1, "l"))
        .arg(totals.exceedances)
        .toUtf8();
}

QByteArray flightRow(const FlightLine& line)
{
    return row({QString::number(line.number), clock(line.takeOff, line.takeOffSeconds),
                clock(line.landing, line.landingSeconds), durationText(line.flightSeconds()),
                figure(line.maxAltitude, 0, "m"), figure(line.climb, 0, "m"),
                figure(line.climbRate, 1, "m/s"), figure(line.fuel, 2, "l"),
                figure(line.takeOffDistance, 0, "m"), figure(line.takeOffDistance15m, 0, "m"),
                QString::number(line.exceedances)});
}

/// Prints the flights of the loaded cycle.
FlightTotals reportFlights(const Profile& profile, const DataSet& dataSet)
{
    const FlightLog log = flightLog(profile, dataSet);
    FlightTotals totals;
    if (!log.lines.empty())
        writeOutput(headings());
    for (const FlightLine& line : log.lines) {
        writeOutput(flightRow(line));
        totals.add(line);
    }
    totals.exceedances = log.exceedances; // including those outside flights
    return totals;
}

} // namespace

QString report(const Arguments& arguments)
{
    Recording recording(arguments);
    QString error = recording.openProfile();
    if (error.isEmpty())
        error = recording.openFolder();
    if (!error.isEmpty())
        return error;
    CardContainer& card = recording.card();
    writeOutput(QStringLiteral("%1: %2 record files, %3 engine cycles\n")
                    .arg(card.folder(), QString::number(card.files().size()),
                         QString::number(card.cycles().size()))
                    .toUtf8());
    FlightTotals all;
    std::vector<QString> unread;
    for (const auto& [cycleNumber, cycle] : card.cycles()) {
        const QString date = cycle.dateTime.isValid()
                                 ? cycle.dateTime.toString(QStringLiteral("dd.MM.yyyy hh:mm:ss"))
                                 : QStringLiteral("Unknown Date");
        writeOutput(QStringLiteral("\n%1  %2  %3  %4 files\n")
                        .arg(cycle.name, date, durationText(cycle.durationSeconds()))
                        .arg(cycle.fileNames.size())
                        .toUtf8());
        card.loadCycle(cycleNumber);
        const std::vector<QString>& unreadHere = card.dataSet()->unreadFiles;
        unread.insert(unread.end(), unreadHere.begin(), unreadHere.end());
        for (const QString& name : unreadHere)
            writeOutput(" " + name.toUtf8() + " could not be read: what follows lacks it\n");
        const FlightTotals totals = reportFlights(recording.profile(), *card.dataSet());
        writeOutput(totalsLine(" Sum", totals));
        all.add(totals);
    }
    writeOutput("\n" + totalsLine("Total", all));
    error = finishOutput();
    return error.isEmpty() ? unreadError(unread) : error;
}

} // namespace KOLT::Cli
