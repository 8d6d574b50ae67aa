#pragma once

#include "library/database/CycleFigures.h"

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// What the library's pages show. Times in seconds, fuel in litres; dates are the recording's, as
/// UTC, and invalid where it has none.
namespace KOLT::Library {

/// What to show. All given conditions must hold; texts match parts, in upper or lower case.
struct LibraryFilter
{
    std::optional<quint32> unit;
    std::optional<QString> engine;          ///< exactly
    QDate from;                             ///< day of the cycle; invalid: no bound
    QDate to;                               ///< that day included
    QString serial;                         ///< in the serial number of unit or engine
    std::optional<ThresholdState> exceeded; ///< at least this far; lamps count as limits
    QString quantity;                       ///< of an exceedance
    QString fault;                          ///< in the full name of a fault
    std::optional<double> shortest;         ///< from take-off to landing
    std::optional<double> longest;
    std::optional<QStringList> folders; ///< only these cycles, such as those with a note

    bool isEmpty() const { return *this == LibraryFilter(); }

    bool operator==(const LibraryFilter&) const = default;
};

/// Sums over whole cycles, of which something lets them through the filter. The order in which they
/// came into the library does not matter to the last digit.
struct LibrarySums
{
    int cycles = 0;
    int flights = 0;
    int starts = 0;
    int episodes = 0;
    int limits = 0;          ///< of the episodes, those that reached a limit; without lamps
    double runSeconds = 0.0; ///< the engine turned
    double recordedSeconds = 0.0;
    double airSeconds = 0.0; ///< from take-off to landing, each to whole seconds as shown
    double fuel = 0.0;
};

struct UnitRow
{
    quint32 unit = 0;
    QString ecuType;
    QStringList engines; ///< that were in it
    QDate first;         ///< invalid where no cycle has a date
    QDate last;
    LibrarySums sums;
};

struct YearRow
{
    int year = 0; ///< 0: cycles without a date
    LibrarySums sums;
};

struct DayRow
{
    QDate date;
    LibrarySums sums;
};

struct CycleRow
{
    qint64 id = 0; ///< in this database; another after a rebuild
    QString folder;
    quint32 unit = 0;
    QString engine;
    QString engineType;
    QDateTime dateTime;
    int files = 0;
    bool hasFigures = false; ///< all below is known
    FiguresSource source;
    LibrarySums sums; ///< of this cycle
    ThresholdState worst = ThresholdState::Ok;
    int lamps = 0;
    int faults = 0;
    QString severity; ///< of the worst finding of trust, empty without one
};

struct FlightRow
{
    qint64 cycle = 0; ///< id of the cycle
    QString folder;
    quint32 unit = 0;
    QString engine;
    int number = 0; ///< from 1 within the cycle
    FlightFigures figures;
    ThresholdState worst = ThresholdState::Ok;
    int faults = 0;
};

struct EpisodeRow
{
    qint64 cycle = 0;
    QString folder;
    quint32 unit = 0;
    QString engine;
    QDateTime dateTime; ///< when it began
    EpisodeRecord episode;
};

struct FaultRow
{
    qint64 cycle = 0;
    QString folder;
    quint32 unit = 0;
    QDateTime dateTime; ///< when it began
    FaultRecord fault;
};

/// What the unit counts itself, in the cycles of one engine: from the first of them to the last.
struct UnitCounters
{
    quint32 unit = 0;
    std::optional<CounterSpan> hours;
    std::optional<CounterSpan> starts;
};

struct EngineRow
{
    QString engine; ///< empty: files that name none
    QString engineType;
    QList<quint32> units;
    QDate first;
    QDate last;
    LibrarySums sums;
    std::vector<UnitCounters> counters; ///< by unit
    std::optional<double> unitHours;    ///< the last reading of the unit that has it now
    std::optional<double> unitStarts;
    std::vector<BandTime> bands; ///< by quantity, then state
};

struct MonthRow
{
    QDate month; ///< its first day; invalid: cycles without a date
    LibrarySums sums;
};

} // namespace KOLT::Library
