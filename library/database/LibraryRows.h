#pragma once

#include "library/database/LibraryRecords.h"

class QSqlQuery;

/// Rows of the database as records. Each has the columns that it reads, in their order.
namespace KOLT::Library {

/// Of a sum over cycles.
inline constexpr QLatin1String sumColumns(
    "COUNT(*), COALESCE(SUM(c.flights), 0), COALESCE(SUM(c.starts), 0), "
    "COALESCE(SUM(c.episodes), 0), COALESCE(SUM(c.limits), 0), COALESCE(SUM(c.run_micros), 0), "
    "COALESCE(SUM(c.recorded_micros), 0), COALESCE(SUM(c.air_seconds), 0), "
    "COALESCE(SUM(c.fuel_micros), 0)");
inline constexpr int sumColumnCount = 9;
LibrarySums sumsFrom(const QSqlQuery& query, int first);

/// Of cycle c with source s.
inline constexpr QLatin1String cycleColumns(
    "c.id, c.folder, c.unit, c.engine, c.engine_type, c.date_time, c.files, c.source, s.profile, "
    "s.profile_version, s.profile_sha256, s.variant, s.program, c.worst, c.lamps, c.faults, "
    "c.severity, 1, c.flights, c.starts, c.episodes, c.limits, c.run_micros, c.recorded_micros, "
    "c.air_seconds, c.fuel_micros");
CycleRow cycleFrom(const QSqlQuery& query);

/// Of flight f and cycle c.
inline constexpr QLatin1String flightColumns(
    "f.cycle, c.folder, c.unit, c.engine, f.number, f.date_time, f.start_seconds, f.end_seconds, "
    "f.take_off_seconds, f.landing_seconds, f.statistics_valid, f.min_altitude, f.max_altitude, "
    "f.altitude_gain, f.climb_rate, f.descent_rate, f.max_ground_speed, f.fuel_a, f.fuel_b, "
    "f.fuel, f.time_per_100m, f.fuel_per_100m, f.take_off_distance, f.take_off_distance_15m, "
    "f.marked, f.limit_episodes, f.limit_crossings, f.warning_episodes, f.warning_crossings, "
    "f.lamp_episodes, f.lamp_crossings, f.air_seconds, f.worst, f.faults");
FlightRow flightFrom(const QSqlQuery& query);

/// Of episode e and cycle c.
inline constexpr QLatin1String episodeColumns(
    "e.cycle, c.folder, c.unit, c.engine, c.date_time, e.flight, e.quantity, e.parameters, "
    "e.state, e.lamp_only, e.high, e.begin_seconds, e.end_seconds, e.cut, e.crossings, "
    "e.seconds_beyond_warning, e.seconds_beyond_limit, e.peak, e.peak_seconds, e.peak_parameter, "
    "e.phase, e.engine_speed");
EpisodeRow episodeFrom(const QSqlQuery& query);

/// Of fault b and cycle c.
inline constexpr QLatin1String
    faultColumns("b.cycle, c.folder, c.unit, c.date_time, b.flight, b.parameter, b.begin_seconds, "
                 "b.end_seconds, b.cut");
FaultRow faultFrom(const QSqlQuery& query);

QDateTime dateTimeFrom(const QVariant& text);
QDate dayFrom(const QVariant& text);
double secondsOfMicros(const QVariant& micros);

} // namespace KOLT::Library
