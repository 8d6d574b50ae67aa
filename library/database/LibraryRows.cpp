#include "library/database/LibraryRows.h"

#include "analysis/MomentText.h"

#include <QSqlQuery>
#include <QTimeZone>
#include <QVariant>

#include <limits>

namespace KOLT::Library {

namespace {

constexpr double microsPerUnit = 1e6;

/// Takes the columns of a row one after the other.
class Columns
{
public:
    explicit Columns(const QSqlQuery& query, int first = 0)
        : m_query(query)
        , m_next(first)
    {
    }

    QVariant next() { return m_query.value(m_next++); }

    QString text() { return next().toString(); }

    int number() { return next().toInt(); }

    qint64 big() { return next().toLongLong(); }

    std::size_t count() { return next().toULongLong(); }

    bool isSet() { return next().toInt() != 0; }

    /// Of a column that is null where there is no finite number.
    double real()
    {
        const QVariant value = next();
        return value.isNull() ? std::numeric_limits<double>::quiet_NaN() : value.toDouble();
    }

    std::optional<double> maybeReal()
    {
        const QVariant value = next();
        return value.isNull() ? std::optional<double>() : value.toDouble();
    }

    std::optional<int> maybeNumber()
    {
        const QVariant value = next();
        return value.isNull() ? std::optional<int>() : value.toInt();
    }

    QStringList lines() { return text().split(QLatin1Char('\n'), Qt::SkipEmptyParts); }

private:
    const QSqlQuery& m_query;
    int m_next;
};

} // namespace

QDateTime dateTimeFrom(const QVariant& text)
{
    if (text.isNull())
        return {};
    QDateTime dateTime =
        QDateTime::fromString(text.toString(), QStringLiteral("yyyy-MM-ddThh:mm:ss.zzz"));
    dateTime.setTimeSpec(Qt::UTC);
    return dateTime;
}

QDate dayFrom(const QVariant& text)
{
    return QDate::fromString(text.toString(), QStringLiteral("yyyy-MM-dd"));
}

double secondsOfMicros(const QVariant& micros)
{
    return static_cast<double>(micros.toLongLong()) / microsPerUnit;
}

LibrarySums sumsFrom(const QSqlQuery& query, int first)
{
    Columns columns(query, first);
    LibrarySums sums;
    sums.cycles = columns.number();
    sums.flights = columns.number();
    sums.starts = columns.number();
    sums.episodes = columns.number();
    sums.limits = columns.number();
    sums.runSeconds = secondsOfMicros(columns.next());
    sums.recordedSeconds = secondsOfMicros(columns.next());
    sums.airSeconds = static_cast<double>(columns.big());
    sums.fuel = secondsOfMicros(columns.next());
    return sums;
}

CycleRow cycleFrom(const QSqlQuery& query)
{
    Columns columns(query);
    CycleRow row;
    row.id = columns.big();
    row.folder = columns.text();
    row.unit = static_cast<quint32>(columns.big());
    row.engine = columns.text();
    row.engineType = columns.text();
    row.dateTime = dateTimeFrom(columns.next());
    row.files = columns.number();
    row.hasFigures = !columns.next().isNull();
    row.source.profile = columns.text();
    row.source.profileVersion = columns.text();
    row.source.profileSha256 = columns.text();
    row.source.variant = columns.text();
    row.source.program = columns.text();
    row.worst = static_cast<ThresholdState>(columns.number());
    row.lamps = columns.number();
    row.faults = columns.number();
    const int severity = columns.number();
    if (severity >= 0)
        row.severity = trustSeverityName(static_cast<TrustSeverity>(severity));
    constexpr int behindOwn = 17;
    row.sums = sumsFrom(query, behindOwn);
    return row;
}

FlightRow flightFrom(const QSqlQuery& query)
{
    Columns columns(query);
    FlightRow row;
    row.cycle = columns.big();
    row.folder = columns.text();
    row.unit = static_cast<quint32>(columns.big());
    row.engine = columns.text();
    row.number = columns.number();
    Flight& flight = row.figures.flight;
    flight.dateTime = dateTimeFrom(columns.next());
    flight.startSeconds = columns.real();
    flight.endSeconds = columns.real();
    flight.takeOffSeconds = columns.real();
    flight.landingSeconds = columns.real();
    flight.statisticsValid = columns.isSet();
    for (double Flight::*figure :
         {&Flight::minAltitude, &Flight::maxAltitude, &Flight::altitudeGain, &Flight::climbRate,
          &Flight::descentRate, &Flight::maxGroundSpeed, &Flight::fuelA, &Flight::fuelB,
          &Flight::fuel, &Flight::timePer100m, &Flight::fuelPer100m, &Flight::takeOffDistance,
          &Flight::takeOffDistance15m})
        flight.*figure = columns.real();
    row.figures.marked = static_cast<Figures>(columns.big());
    for (EpisodeCounts::Count EpisodeCounts::*count :
         {&EpisodeCounts::limits, &EpisodeCounts::warnings, &EpisodeCounts::lamps}) {
        (row.figures.counts.*count).episodes = columns.count();
        (row.figures.counts.*count).crossings = columns.count();
    }
    row.figures.airSeconds = columns.big();
    row.worst = static_cast<ThresholdState>(columns.number());
    row.faults = columns.number();
    return row;
}

EpisodeRow episodeFrom(const QSqlQuery& query)
{
    Columns columns(query);
    EpisodeRow row;
    row.cycle = columns.big();
    row.folder = columns.text();
    row.unit = static_cast<quint32>(columns.big());
    row.engine = columns.text();
    const QDateTime start = dateTimeFrom(columns.next());
    EpisodeRecord& episode = row.episode;
    episode.flight = columns.maybeNumber();
    episode.quantity = columns.text();
    episode.parameters = columns.lines();
    episode.state = static_cast<ThresholdState>(columns.number());
    episode.isLampOnly = columns.isSet();
    episode.isHigh = columns.isSet();
    episode.begin = columns.real();
    episode.end = columns.real();
    episode.isCut = columns.isSet();
    episode.crossings = columns.number();
    episode.secondsBeyondWarning = columns.real();
    episode.secondsBeyondLimit = columns.real();
    episode.peak = columns.maybeReal();
    episode.peakSeconds = columns.maybeReal();
    episode.peakParameter = columns.text();
    episode.phase = columns.text();
    episode.engineSpeed = columns.maybeReal();
    row.dateTime = momentOf(start, episode.begin);
    return row;
}

FaultRow faultFrom(const QSqlQuery& query)
{
    Columns columns(query);
    FaultRow row;
    row.cycle = columns.big();
    row.folder = columns.text();
    row.unit = static_cast<quint32>(columns.big());
    const QDateTime start = dateTimeFrom(columns.next());
    row.fault.flight = columns.maybeNumber();
    row.fault.parameter = columns.text();
    row.fault.begin = columns.real();
    row.fault.end = columns.real();
    row.fault.isCut = columns.isSet();
    row.dateTime = momentOf(start, row.fault.begin);
    return row;
}

} // namespace KOLT::Library
