#include "library/database/CycleStore.h"
#include "library/database/LibraryConnection.h"

#include <algorithm>

/// What belongs to the figures of a cycle.
namespace KOLT::Library {

namespace {

ThresholdState worstOf(const EpisodeCounts& counts)
{
    if (counts.limits.episodes > 0 || counts.lamps.episodes > 0)
        return ThresholdState::Limit;
    return counts.warnings.episodes > 0 ? ThresholdState::Warning : ThresholdState::Ok;
}

/// -1 without findings, otherwise that of the worst: 0 note, 1 doubtful, 2 wrong.
int severityOf(const CycleFigures& figures)
{
    int worst = -1;
    for (const FindingRecord& finding : figures.findings) {
        for (const TrustSeverity severity :
             {TrustSeverity::Note, TrustSeverity::Doubtful, TrustSeverity::Wrong}) {
            if (finding.severity == trustSeverityName(severity))
                worst = std::max(worst, static_cast<int>(severity));
        }
    }
    return worst;
}

int number(std::size_t count)
{
    return static_cast<int>(count);
}

int faultsIn(const CycleFigures& figures, int flight)
{
    return static_cast<int>(std::ranges::count_if(
        figures.faults, [=](const FaultRecord& fault) { return fault.flight == flight; }));
}

/// "INSERT INTO table (columns) VALUES (?, ...)".
QString insertInto(const char* table, const char* columns)
{
    const QString names = QLatin1String(columns);
    QStringList places;
    for (qsizetype i = 0; i <= names.count(QLatin1Char(',')); ++i)
        places << QStringLiteral("?");
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
        .arg(QLatin1String(table), names, places.join(QStringLiteral(", ")));
}

} // namespace

std::optional<qint64> CycleStore::idOf(const FiguresSource& source)
{
    const QVariantList values{boundText(source.profile), boundText(source.profileVersion),
                              boundText(source.profileSha256), boundText(source.variant),
                              boundText(source.program)};
    static const QString insert =
        insertInto("source", "profile, profile_version, profile_sha256, variant, program") +
        QStringLiteral(" ON CONFLICT (profile, profile_version, profile_sha256, variant, program) "
                       "DO NOTHING");
    if (!m_connection.run(insert, values))
        return {};
    QSqlQuery& query = m_connection.runKept(
        QStringLiteral("SELECT id FROM source WHERE profile = ? AND profile_version = ? "
                       "AND profile_sha256 = ? AND variant = ? AND program = ?"),
        values);
    std::optional<qint64> id;
    if (query.isActive() && query.next())
        id = query.value(0).toLongLong();
    query.finish();
    return id;
}

bool CycleStore::putFigures(const CycleFigures& figures, qint64 source)
{
    EpisodeCounts all = figures.outside;
    qint64 airSeconds = 0;
    for (const FlightFigures& flight : figures.flights) {
        all.add(flight.counts);
        airSeconds += flight.airSeconds;
    }
    const auto counter = [](const std::optional<CounterSpan>& span, double CounterSpan::*end) {
        return span ? bound((*span).*end) : bound(std::optional<double>());
    };
    return m_connection.run(
        QStringLiteral("UPDATE cycle SET source = ?, start_seconds = ?, stop_seconds = ?, "
                       "recorded_seconds = ?, run_seconds = ?, fuel = ?, track_points = ?, "
                       "unit_hours_first = ?, unit_hours_last = ?, unit_starts_first = ?, "
                       "unit_starts_last = ?, outside_limit_episodes = ?, "
                       "outside_limit_crossings = ?, outside_warning_episodes = ?, "
                       "outside_warning_crossings = ?, outside_lamp_episodes = ?, "
                       "outside_lamp_crossings = ?, episodes_left_out = ?, unread_files = ?, "
                       "flights = ?, starts = ?, episodes = ?, limits = ?, lamps = ?, faults = ?, "
                       "worst = ?, severity = ?, run_micros = ?, recorded_micros = ?, "
                       "air_seconds = ?, fuel_micros = ? WHERE id = ?"),
        {source,
         bound(figures.startSeconds),
         bound(figures.stopSeconds),
         bound(figures.recordedSeconds),
         bound(figures.runSeconds),
         bound(figures.fuel),
         figures.trackPoints,
         counter(figures.unitHours, &CounterSpan::first),
         counter(figures.unitHours, &CounterSpan::last),
         counter(figures.unitStarts, &CounterSpan::first),
         counter(figures.unitStarts, &CounterSpan::last),
         number(figures.outside.limits.episodes),
         number(figures.outside.limits.crossings),
         number(figures.outside.warnings.episodes),
         number(figures.outside.warnings.crossings),
         number(figures.outside.lamps.episodes),
         number(figures.outside.lamps.crossings),
         figures.episodesLeftOut,
         boundText(figures.unreadFiles.join(QLatin1Char('\n'))),
         number(figures.flights.size()),
         figures.starts,
         number(all.limits.episodes + all.warnings.episodes + all.lamps.episodes),
         number(all.limits.episodes),
         number(all.lamps.crossings),
         number(figures.faults.size()),
         static_cast<int>(worstOf(all)),
         severityOf(figures),
         microsOf(figures.runSeconds),
         microsOf(figures.recordedSeconds),
         airSeconds,
         microsOf(figures.fuel),
         m_id});
}

bool CycleStore::putFlights(const CycleFigures& figures)
{
    static const QString insert = insertInto(
        "flight", "cycle, number, date_time, start_seconds, end_seconds, take_off_seconds, "
                  "landing_seconds, statistics_valid, min_altitude, max_altitude, altitude_gain, "
                  "climb_rate, descent_rate, max_ground_speed, fuel_a, fuel_b, fuel, "
                  "time_per_100m, fuel_per_100m, take_off_distance, take_off_distance_15m, marked, "
                  "limit_episodes, limit_crossings, warning_episodes, warning_crossings, "
                  "lamp_episodes, lamp_crossings, air_seconds, worst, faults");
    int i = 0;
    return std::ranges::all_of(figures.flights, [&](const FlightFigures& one) {
        const Flight& f = one.flight;
        ++i;
        return m_connection.run(insert, {m_id,
                                         i,
                                         bound(f.dateTime),
                                         bound(f.startSeconds),
                                         bound(f.endSeconds),
                                         bound(f.takeOffSeconds),
                                         bound(f.landingSeconds),
                                         int{f.statisticsValid},
                                         bound(f.minAltitude),
                                         bound(f.maxAltitude),
                                         bound(f.altitudeGain),
                                         bound(f.climbRate),
                                         bound(f.descentRate),
                                         bound(f.maxGroundSpeed),
                                         bound(f.fuelA),
                                         bound(f.fuelB),
                                         bound(f.fuel),
                                         bound(f.timePer100m),
                                         bound(f.fuelPer100m),
                                         bound(f.takeOffDistance),
                                         bound(f.takeOffDistance15m),
                                         qint64{one.marked},
                                         number(one.counts.limits.episodes),
                                         number(one.counts.limits.crossings),
                                         number(one.counts.warnings.episodes),
                                         number(one.counts.warnings.crossings),
                                         number(one.counts.lamps.episodes),
                                         number(one.counts.lamps.crossings),
                                         one.airSeconds,
                                         static_cast<int>(worstOf(one.counts)),
                                         faultsIn(figures, i)});
    });
}

bool CycleStore::putEpisodes(const CycleFigures& figures)
{
    static const QString insert = insertInto(
        "episode", "cycle, number, flight, quantity, parameters, state, lamp_only, high, "
                   "begin_seconds, end_seconds, cut, crossings, seconds_beyond_warning, "
                   "seconds_beyond_limit, peak, peak_seconds, peak_parameter, phase, engine_speed");
    int i = 0;
    return std::ranges::all_of(figures.episodes, [&](const EpisodeRecord& one) {
        return m_connection.run(
            insert, {m_id, ++i, bound(one.flight), boundText(one.quantity),
                     boundText(one.parameters.join(QLatin1Char('\n'))), static_cast<int>(one.state),
                     int{one.isLampOnly}, int{one.isHigh}, bound(one.begin), bound(one.end),
                     int{one.isCut}, one.crossings, bound(one.secondsBeyondWarning),
                     bound(one.secondsBeyondLimit), bound(one.peak), bound(one.peakSeconds),
                     boundText(one.peakParameter), boundText(one.phase), bound(one.engineSpeed)});
    });
}

bool CycleStore::putFaults(const CycleFigures& figures)
{
    static const QString insert =
        insertInto("fault", "cycle, number, flight, parameter, begin_seconds, end_seconds, cut");
    int i = 0;
    return std::ranges::all_of(figures.faults, [&](const FaultRecord& one) {
        return m_connection.run(insert, {m_id, ++i, bound(one.flight), boundText(one.parameter),
                                         bound(one.begin), bound(one.end), int{one.isCut}});
    });
}

bool CycleStore::putFindings(const CycleFigures& figures)
{
    static const QString insert = insertInto(
        "finding", "cycle, number, kind, severity, from_seconds, to_seconds, files, told");
    int i = 0;
    return std::ranges::all_of(figures.findings, [&](const FindingRecord& one) {
        return m_connection.run(insert, {m_id, ++i, boundText(one.kind), boundText(one.severity),
                                         bound(one.from), bound(one.to),
                                         boundText(one.files.join(QLatin1Char('\n'))),
                                         boundText(one.text)});
    });
}

bool CycleStore::putBands(const CycleFigures& figures)
{
    // In one statement: there are more of them than of all else together.
    QStringList places;
    QVariantList values;
    for (const BandTime& one : figures.bands) {
        const qint64 micros = microsOf(one.seconds);
        if (micros == 0)
            continue;
        places << QStringLiteral("(?, ?, ?, ?)");
        values << m_id << boundText(one.quantity) << static_cast<int>(one.state) << micros;
    }
    return places.isEmpty() ||
           m_connection.run(QStringLiteral("INSERT INTO band (cycle, quantity, state, micros) "
                                           "VALUES %1")
                                .arg(places.join(QStringLiteral(", "))),
                            values);
}

} // namespace KOLT::Library
