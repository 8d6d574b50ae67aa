#pragma once

#include "library/database/CycleFigures.h"

#include <QRandomGenerator>

/// Made-up cycles for tests and benchmarks of the library's database.
namespace KOLT::Test {

/// The same for the same number. Some have no date, no flight, no engine.
inline Library::ArchivedCycle someCycle(int number, int units = 3)
{
    QRandomGenerator random(static_cast<quint32>(number) + 1);
    Library::ArchivedCycle cycle;
    cycle.unit = 1000 + static_cast<quint32>(number % units);
    cycle.engine = number % 17 == 3 ? QString() : QString("E%1").arg(cycle.unit);
    cycle.engineType = "915";
    cycle.ecuType = "EMU";
    if (number % 13 != 5)
        cycle.dateTime = QDateTime(QDate(2020, 1, 1), QTime(8, 0), Qt::UTC)
                             .addSecs(qint64{number} * 7 * 3600)
                             .addMSecs(number % 1000);
    cycle.folder = QString("%1/2020/%2 %3")
                       .arg(cycle.unit)
                       .arg(number, 6, 10, QChar('0'))
                       .arg(random.generate(), 8, 16, QChar('0'));
    for (int i = 0; i <= number % 3; ++i)
        cycle.files.push_back({QString("REC%1.CAN").arg(number * 3 + i, 5, 10, QChar('0')),
                               QString("%1").arg(random.generate64(), 64, 16, QChar('0')),
                               static_cast<qint64>(random.bounded(5'000'000))});
    return cycle;
}

inline Library::CycleFigures someFigures(int number, int flights = -1, int quantities = 6)
{
    QRandomGenerator random(static_cast<quint32>(number) + 100'000);
    const auto real = [&](double most) { return random.bounded(most); };
    Library::CycleFigures figures;
    figures.stopSeconds = real(9000.0);
    figures.recordedSeconds = figures.stopSeconds;
    figures.runSeconds = figures.stopSeconds * 0.9;
    figures.starts = 1 + random.bounded(2);
    figures.fuel = real(60.0);
    figures.trackPoints = random.bounded(20'000);
    figures.unitHours = Library::CounterSpan{100.0 + number, 101.0 + number};
    if (number % 5 != 0)
        figures.unitStarts = Library::CounterSpan{200.0 + number, 200.0 + number};
    const int count = flights >= 0 ? flights : number % 4;
    double at = 100.0;
    for (int i = 0; i < count; ++i, at += 1000.0) {
        Library::FlightFigures& one = figures.flights.emplace_back();
        Flight& flight = one.flight;
        flight.startSeconds = at;
        flight.takeOffSeconds = at + 30.0;
        flight.landingSeconds = at + 230.0 + 60.0 * (number % 8);
        flight.endSeconds = flight.landingSeconds + 30.0;
        flight.dateTime = QDateTime(QDate(2020, 1, 1), QTime(8, 0), Qt::UTC).addSecs(number);
        flight.statisticsValid = true;
        for (double Flight::*figure :
             {&Flight::minAltitude, &Flight::maxAltitude, &Flight::altitudeGain, &Flight::climbRate,
              &Flight::descentRate, &Flight::maxGroundSpeed, &Flight::fuelA, &Flight::fuelB,
              &Flight::fuel, &Flight::timePer100m, &Flight::fuelPer100m, &Flight::takeOffDistance,
              &Flight::takeOffDistance15m})
            flight.*figure = real(1000.0);
        one.airSeconds = static_cast<qint64>(flight.landingSeconds - flight.takeOffSeconds);
        one.marked = random.bounded(1 << 18);
    }
    for (int i = 0; i < count && number % 3 == 1; ++i) {
        const bool isLimit = random.bounded(4) == 0;
        const double begin = figures.flights[static_cast<std::size_t>(i)].flight.takeOffSeconds;
        Library::EpisodeRecord& episode = figures.episodes.emplace_back();
        episode.quantity = i % 2 == 0 ? "Oil Temperature" : "EGT";
        episode.parameters = QStringList{"ECU/Oil Temperature", "ECU/Lamp \"Öl\""};
        episode.state = isLimit ? ThresholdState::Limit : ThresholdState::Warning;
        episode.begin = begin;
        episode.end = begin + real(60.0);
        episode.crossings = 1 + random.bounded(5);
        episode.secondsBeyondWarning = real(60.0);
        episode.peak = real(200.0);
        episode.peakSeconds = begin + 1.0;
        episode.peakParameter = "ECU/Oil Temperature";
        episode.phase = "climb";
        episode.flight = i + 1;
        EpisodeCounts& counts = figures.flights[static_cast<std::size_t>(i)].counts;
        (isLimit ? counts.limits : counts.warnings) = {1,
                                                       static_cast<std::size_t>(episode.crossings)};
    }
    if (number % 7 == 2)
        figures.faults.push_back({"ECU/Lane A 100% it's", 50.0, 60.0, true, {}});
    if (number % 11 == 4)
        figures.findings.push_back(
            {"missing-file", "wrong", 10.0, {}, {"A.CAN"}, "It lacks.\n2nd"});
    for (int i = 0; i < quantities; ++i) {
        for (const ThresholdState state :
             {ThresholdState::Ok, ThresholdState::Warning, ThresholdState::Limit}) {
            if (state == ThresholdState::Ok || random.bounded(10) == 0)
                figures.bands.push_back({QString("Quantity %1").arg(i), state, real(5000.0)});
        }
    }
    return figures;
}

inline Library::FiguresSource someSource(const QString& program = "1")
{
    return {"Profile", "2.2", "abc", "915", program};
}

} // namespace KOLT::Test
