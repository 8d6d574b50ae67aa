#include "analysis/EventFinder.h"
#include "cli/Arguments.h"
#include "cli/Recording.h"
#include "cli/Verbs.h"

#include <QTime>

#include <algorithm>
#include <array>
#include <cmath>

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

/// Sums over several flights.
struct Totals
{
    int flights = 0;
    double seconds = 0.0;
    double fuel = 0.0;
    std::size_t exceedances = 0;

    void add(const Totals& other)
    {
        flights += other.flights;
        seconds += other.seconds;
        fuel += other.fuel;
        exceedances += other.exceedances;
    }
};

/// Hours may exceed a day.
QString duration(double seconds)
{
    const auto whole = static_cast<qint64>(std::max(0.0, seconds));
    return QStringLiteral("%1:%2:%3")
        .arg(whole / 3600, 2, 10, QLatin1Char('0'))
        .arg(whole / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(whole % 60, 2, 10, QLatin1Char('0'));
}

/// The clock where the recording has one, the unit's counter otherwise.
QString clock(const DataSet& dataSet, double seconds)
{
    if (!dataSet.dateTime.isValid())
        return duration(seconds);
    return dataSet.dateTime.addMSecs(static_cast<qint64>(seconds * 1000.0))
        .toString(QStringLiteral("hh:mm:ss"));
}

QString number(double value, int decimals, const char* unit)
{
    if (!std::isfinite(value))
        return QStringLiteral("-");
    return QString::number(value, 'f', decimals) + QLatin1String(unit);
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

QByteArray totalsLine(const char* label, const Totals& totals)
{
    return QStringLiteral(
               "%1: %2 flights, %3 in the air, %4 fuel, %5 limits or warnings exceeded\n")
        .arg(QLatin1String(label))
        .arg(totals.flights)
        .arg(duration(totals.seconds), number(totals.fuel, 1, " l"))
        .arg(totals.exceedances)
        .toUtf8();
}

QByteArray flightRow(const DataSet& dataSet, std::size_t index, std::size_t exceedances)
{
    const Flight& flight = dataSet.flights[index];
    return row({QString::number(index + 1), clock(dataSet, flight.takeOffSeconds),
                clock(dataSet, flight.landingSeconds),
                duration(flight.landingSeconds - flight.takeOffSeconds),
                number(flight.maxAltitude, 0, " m"), number(flight.altitudeGain, 0, " m"),
                number(flight.climbRate, 1, " m/s"), number(flight.fuel, 2, " l"),
                number(flight.takeOffDistance, 0, " m"), number(flight.takeOffDistance15m, 0, " m"),
                QString::number(exceedances)});
}

/// Prints the flights of the loaded cycle.
Totals reportFlights(const Profile& profile, const DataSet& dataSet)
{
    const std::vector<Event> events = findEvents(profile, dataSet, EventScope::AllParameters);
    Totals totals;
    totals.exceedances = events.size();
    if (!dataSet.flights.empty())
        writeOutput(headings());
    for (std::size_t i = 0; i < dataSet.flights.size(); ++i) {
        const Flight& flight = dataSet.flights[i];
        const auto inFlight = std::ranges::count_if(events, [&](const Event& event) {
            return event.seconds >= flight.startSeconds && event.seconds <= flight.endSeconds;
        });
        writeOutput(flightRow(dataSet, i, static_cast<std::size_t>(inFlight)));
        ++totals.flights;
        totals.seconds += flight.landingSeconds - flight.takeOffSeconds;
        totals.fuel += flight.fuel;
    }
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
    Totals all;
    for (const auto& [cycleNumber, cycle] : card.cycles()) {
        const QString date = cycle.dateTime.isValid()
                                 ? cycle.dateTime.toString(QStringLiteral("dd.MM.yyyy hh:mm:ss"))
                                 : QStringLiteral("Unknown Date");
        writeOutput(QStringLiteral("\n%1  %2  %3  %4 files\n")
                        .arg(cycle.name, date, duration(cycle.durationSeconds()))
                        .arg(cycle.fileNames.size())
                        .toUtf8());
        card.loadCycle(cycleNumber);
        for (const QString& name : card.dataSet()->unreadFiles)
            writeOutput(" " + name.toUtf8() + " could not be read: what follows lacks it\n");
        const Totals totals = reportFlights(recording.profile(), *card.dataSet());
        writeOutput(totalsLine(" Sum", totals));
        all.add(totals);
    }
    writeOutput("\n" + totalsLine("Total", all));
    return finishOutput();
}

} // namespace KOLT::Cli
