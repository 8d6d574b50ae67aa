#pragma once

#include "analysis/ExceedanceTracker.h"
#include "analysis/FlightLog.h"
#include "record/Flight.h"
#include "record/RecordingTrust.h"
#include "record/VariantFit.h"

#include <QDateTime>
#include <QString>

#include <map>
#include <optional>
#include <vector>

namespace KOLT {

/// One flight of an overview. Exceedances count as in FlightLine, which has their number.
struct FlightOverview
{
    Flight flight;
    FlightLine line;
    std::size_t lamps = 0; ///< how often a warning lamp came on
    std::optional<Exceedance> worst;
};

/// One engine cycle in a row: the figures of `kolt-cli flights`, `events` and `report`.
struct CycleOverview
{
    int number = 0;
    QString name;
    QDateTime dateTime;
    double runSeconds = 0.0; ///< by the headers of the files
    std::size_t fileCount = 0;

    bool isComplete = false; ///< all below is known
    double startSeconds = 0.0;
    std::vector<QString> unreadFiles; ///< what could not be read, or not to the end
    std::vector<FlightOverview> flights;
    FlightTotals totals; ///< of the flights
    double maxAltitude = 0.0;
    double fuel = 0.0;                        ///< litres, of the whole run
    std::size_t episodes = 0;                 ///< that the crossings make
    std::size_t outsideEpisodes = 0;          ///< that began in no flight
    std::size_t crossings = 0;                ///< of all parameters, lamps included
    std::size_t outsideCrossings = 0;         ///< those that lie in no flight and its 30 s around
    std::size_t lamps = 0;                    ///< of the crossings, those of warning lamps
    std::map<QString, std::size_t> lampNames; ///< how often each came on, by full name
    std::vector<QString> lampsFromTheStart;   ///< on at their first sample, which is no crossing
    std::optional<Exceedance> worst;

    std::optional<RecordingTrust> trust; ///< none until it is known
    RecordedEngine engine;               ///< known together with trust

    /// What is left of the run's fuel without the flights: engine tests, taxiing, take-offs that
    /// were aborted or whose landing is missing. The margins of two flights within a minute overlap
    /// and count for both.
    double outsideFuel() const { return fuel - totals.fuel; }
};

} // namespace KOLT
