#include "library/database/LibrarySchema.h"

#include "library/database/LibraryConnection.h"

#include <array>

namespace KOLT::Library {

namespace {

/// Each turns the schema of the version before into the next one. `ID` and `TEXT` differ between
/// the databases.
constexpr std::array steps{
    R"(CREATE TABLE library_schema (version INTEGER NOT NULL);
INSERT INTO library_schema VALUES (0);
CREATE TABLE source (
    id ID,
    profile TEXT NOT NULL,
    profile_version TEXT NOT NULL,
    profile_sha256 TEXT NOT NULL,
    variant TEXT NOT NULL,
    program TEXT NOT NULL,
    UNIQUE (profile, profile_version, profile_sha256, variant, program));
CREATE TABLE installation (
    engine TEXT NOT NULL,
    unit BIGINT NOT NULL,
    from_day TEXT,
    to_day TEXT);
CREATE TABLE cycle (
    id ID,
    folder TEXT NOT NULL UNIQUE,
    unit BIGINT NOT NULL,
    engine TEXT NOT NULL,
    recorded_engine TEXT NOT NULL,
    engine_type TEXT NOT NULL,
    ecu_type TEXT NOT NULL,
    date_time TEXT,
    day TEXT NOT NULL,
    month TEXT NOT NULL,
    files INTEGER NOT NULL,
    source BIGINT REFERENCES source (id),
    start_seconds DOUBLE PRECISION,
    stop_seconds DOUBLE PRECISION,
    recorded_seconds DOUBLE PRECISION,
    run_seconds DOUBLE PRECISION,
    fuel DOUBLE PRECISION,
    track_points BIGINT,
    unit_hours_first DOUBLE PRECISION,
    unit_hours_last DOUBLE PRECISION,
    unit_starts_first DOUBLE PRECISION,
    unit_starts_last DOUBLE PRECISION,
    outside_limit_episodes INTEGER,
    outside_limit_crossings INTEGER,
    outside_warning_episodes INTEGER,
    outside_warning_crossings INTEGER,
    outside_lamp_episodes INTEGER,
    outside_lamp_crossings INTEGER,
    episodes_left_out BIGINT,
    unread_files TEXT,
    flights INTEGER NOT NULL DEFAULT 0,
    starts INTEGER NOT NULL DEFAULT 0,
    episodes INTEGER NOT NULL DEFAULT 0,
    limits INTEGER NOT NULL DEFAULT 0,
    lamps INTEGER NOT NULL DEFAULT 0,
    faults INTEGER NOT NULL DEFAULT 0,
    worst INTEGER NOT NULL DEFAULT 0,
    severity INTEGER NOT NULL DEFAULT -1,
    run_micros BIGINT NOT NULL DEFAULT 0,
    recorded_micros BIGINT NOT NULL DEFAULT 0,
    air_seconds BIGINT NOT NULL DEFAULT 0,
    fuel_micros BIGINT NOT NULL DEFAULT 0);
CREATE TABLE file (
    cycle BIGINT NOT NULL REFERENCES cycle (id) ON DELETE CASCADE,
    name TEXT NOT NULL,
    sha256 TEXT NOT NULL,
    bytes BIGINT NOT NULL,
    PRIMARY KEY (cycle, name));
CREATE TABLE flight (
    cycle BIGINT NOT NULL REFERENCES cycle (id) ON DELETE CASCADE,
    number INTEGER NOT NULL,
    date_time TEXT,
    start_seconds DOUBLE PRECISION NOT NULL,
    end_seconds DOUBLE PRECISION NOT NULL,
    take_off_seconds DOUBLE PRECISION NOT NULL,
    landing_seconds DOUBLE PRECISION NOT NULL,
    statistics_valid INTEGER NOT NULL,
    min_altitude DOUBLE PRECISION,
    max_altitude DOUBLE PRECISION,
    altitude_gain DOUBLE PRECISION,
    climb_rate DOUBLE PRECISION,
    descent_rate DOUBLE PRECISION,
    max_ground_speed DOUBLE PRECISION,
    fuel_a DOUBLE PRECISION,
    fuel_b DOUBLE PRECISION,
    fuel DOUBLE PRECISION,
    time_per_100m DOUBLE PRECISION,
    fuel_per_100m DOUBLE PRECISION,
    take_off_distance DOUBLE PRECISION,
    take_off_distance_15m DOUBLE PRECISION,
    marked BIGINT NOT NULL,
    limit_episodes INTEGER NOT NULL,
    limit_crossings INTEGER NOT NULL,
    warning_episodes INTEGER NOT NULL,
    warning_crossings INTEGER NOT NULL,
    lamp_episodes INTEGER NOT NULL,
    lamp_crossings INTEGER NOT NULL,
    air_seconds BIGINT NOT NULL,
    worst INTEGER NOT NULL,
    faults INTEGER NOT NULL,
    PRIMARY KEY (cycle, number));
CREATE TABLE episode (
    cycle BIGINT NOT NULL REFERENCES cycle (id) ON DELETE CASCADE,
    number INTEGER NOT NULL,
    flight INTEGER,
    quantity TEXT NOT NULL,
    parameters TEXT NOT NULL,
    state INTEGER NOT NULL,
    lamp_only INTEGER NOT NULL,
    high INTEGER NOT NULL,
    begin_seconds DOUBLE PRECISION NOT NULL,
    end_seconds DOUBLE PRECISION NOT NULL,
    cut INTEGER NOT NULL,
    crossings INTEGER NOT NULL,
    seconds_beyond_warning DOUBLE PRECISION NOT NULL,
    seconds_beyond_limit DOUBLE PRECISION NOT NULL,
    peak DOUBLE PRECISION,
    peak_seconds DOUBLE PRECISION,
    peak_parameter TEXT NOT NULL,
    phase TEXT NOT NULL,
    engine_speed DOUBLE PRECISION,
    PRIMARY KEY (cycle, number));
CREATE TABLE fault (
    cycle BIGINT NOT NULL REFERENCES cycle (id) ON DELETE CASCADE,
    number INTEGER NOT NULL,
    flight INTEGER,
    parameter TEXT NOT NULL,
    begin_seconds DOUBLE PRECISION NOT NULL,
    end_seconds DOUBLE PRECISION NOT NULL,
    cut INTEGER NOT NULL,
    PRIMARY KEY (cycle, number));
CREATE TABLE finding (
    cycle BIGINT NOT NULL REFERENCES cycle (id) ON DELETE CASCADE,
    number INTEGER NOT NULL,
    kind TEXT NOT NULL,
    severity TEXT NOT NULL,
    from_seconds DOUBLE PRECISION,
    to_seconds DOUBLE PRECISION,
    files TEXT NOT NULL,
    told TEXT NOT NULL,
    PRIMARY KEY (cycle, number));
CREATE TABLE band (
    cycle BIGINT NOT NULL REFERENCES cycle (id) ON DELETE CASCADE,
    quantity TEXT NOT NULL,
    state INTEGER NOT NULL,
    micros BIGINT NOT NULL,
    PRIMARY KEY (cycle, quantity, state));
)",
    // Sums of the bands, as a library has millions of them, indexes for the pages, and views for
    // people.
    R"(CREATE TABLE engine_band (
    engine TEXT NOT NULL,
    quantity TEXT NOT NULL,
    state INTEGER NOT NULL,
    micros BIGINT NOT NULL,
    PRIMARY KEY (engine, quantity, state));
INSERT INTO engine_band SELECT cycle.engine, band.quantity, band.state, SUM(band.micros)
    FROM band JOIN cycle ON cycle.id = band.cycle
    GROUP BY cycle.engine, band.quantity, band.state;
CREATE INDEX cycle_by_unit ON cycle (unit, day, flights, starts, episodes, limits, run_micros,
    recorded_micros, air_seconds, fuel_micros, engine, worst);
CREATE INDEX cycle_by_engine ON cycle (engine, month, day, unit, flights, starts, episodes, limits,
    run_micros, recorded_micros, air_seconds, fuel_micros);
CREATE INDEX cycle_by_time ON cycle (day, date_time);
CREATE INDEX flight_by_duration ON flight (air_seconds, cycle);
CREATE INDEX episode_by_quantity ON episode (quantity, state, cycle, flight);
CREATE INDEX fault_by_parameter ON fault (parameter, cycle, flight);
CREATE INDEX file_by_hash ON file (sha256);
CREATE VIEW unit AS SELECT unit, MAX(ecu_type) AS ecu_type, COUNT(*) AS cycles,
    SUM(flights) AS flights, MIN(date_time) AS first, MAX(date_time) AS last
    FROM cycle GROUP BY unit;
CREATE VIEW engine AS SELECT engine, MAX(engine_type) AS engine_type, COUNT(*) AS cycles,
    SUM(flights) AS flights, SUM(starts) AS starts, SUM(run_micros) / 3600000000.0 AS run_hours,
    SUM(air_seconds) / 3600.0 AS air_hours, SUM(fuel_micros) / 1000000.0 AS fuel,
    SUM(episodes) AS episodes, MIN(date_time) AS first, MAX(date_time) AS last
    FROM cycle GROUP BY engine;
)",
    // Sums of the cycles of an engine in a unit.
    R"(CREATE TABLE engine_unit (
    engine TEXT NOT NULL,
    unit BIGINT NOT NULL,
    cycles BIGINT NOT NULL,
    flights BIGINT NOT NULL,
    starts BIGINT NOT NULL,
    episodes BIGINT NOT NULL,
    limits BIGINT NOT NULL,
    run_micros BIGINT NOT NULL,
    recorded_micros BIGINT NOT NULL,
    air_seconds BIGINT NOT NULL,
    fuel_micros BIGINT NOT NULL,
    hours_readings BIGINT NOT NULL,
    starts_readings BIGINT NOT NULL,
    PRIMARY KEY (engine, unit));
INSERT INTO engine_unit SELECT engine, unit, COUNT(*), SUM(flights), SUM(starts), SUM(episodes),
    SUM(limits), SUM(run_micros), SUM(recorded_micros), SUM(air_seconds), SUM(fuel_micros),
    COUNT(unit_hours_last), COUNT(unit_starts_last) FROM cycle GROUP BY engine, unit;
)",
    // Of which archive all of it is.
    R"(ALTER TABLE library_schema ADD COLUMN archive TEXT;
)"};

static_assert(steps.size() == schemaVersion);

constexpr std::array tables{"engine_unit", "engine_band", "band",         "finding",
                            "fault",       "episode",     "flight",       "file",
                            "cycle",       "source",      "installation", "library_schema"};
constexpr std::array views{"engine", "unit"};

/// PostgreSQL sorts texts by the rules of a language otherwise.
QString scriptFor(const LibraryConnection& connection, const char* step)
{
    QString script = QLatin1String(step);
    const bool isServer = connection.isServer();
    script.replace(QLatin1String(" id ID"),
                   isServer
                       ? QLatin1String(" id BIGINT GENERATED BY DEFAULT AS IDENTITY PRIMARY KEY")
                       : QLatin1String(" id INTEGER PRIMARY KEY"));
    if (isServer)
        script.replace(QLatin1String(" TEXT"), QLatin1String(" TEXT COLLATE \"C\""));
    return script;
}

} // namespace

SchemaVersion schemaVersionOf(LibraryConnection& connection)
{
    QSqlQuery query = connection.select(
        connection.isServer()
            ? QStringLiteral("SELECT COUNT(*) FROM pg_tables WHERE tablename = 'library_schema' "
                             "AND schemaname = current_schema()")
            : QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE name = 'library_schema'"));
    if (!query.isActive() || !query.next())
        return {};
    if (query.value(0).toInt() == 0)
        return {0, true};
    query = connection.select(QStringLiteral("SELECT version FROM library_schema"));
    if (!query.isActive() || !query.next())
        return {};
    return {query.value(0).toInt(), true};
}

bool upgradeSchema(LibraryConnection& connection)
{
    Transaction transaction(connection);
    if (!transaction.isOpen())
        return false;
    const SchemaVersion found = schemaVersionOf(connection); // by whoever was first
    if (!found.isKnown)
        return false;
    for (int version = found.version; version < schemaVersion; ++version) {
        const char* const step = steps.at(static_cast<std::size_t>(version));
        if (!connection.runScript(scriptFor(connection, step)))
            return false;
    }
    return connection.run(QStringLiteral("UPDATE library_schema SET version = ?"),
                          {std::max(found.version, schemaVersion)}) &&
           transaction.commit();
}

bool dropSchema(LibraryConnection& connection)
{
    QString script;
    for (const char* view : views)
        script += QStringLiteral("DROP VIEW IF EXISTS %1;\n").arg(QLatin1String(view));
    for (const char* table : tables)
        script += QStringLiteral("DROP TABLE IF EXISTS %1;\n").arg(QLatin1String(table));
    return connection.runScript(script);
}

} // namespace KOLT::Library
