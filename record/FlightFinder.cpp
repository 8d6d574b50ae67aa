#include "record/FlightFinder.h"

#include "base/Diagnostics.h"
#include "libs/tusk/math/Geodetic.h"
#include "record/FlightDetector.h"
#include "record/FuelUse.h"
#include "record/RoleSeries.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace KOLT {

namespace {

constexpr double marginSeconds = 30.0;
constexpr double brakeReleaseThrottle = 90.0; // percent
constexpr double referenceSpeed = 80.0;       // km/h
constexpr double minValidAltitude = 0.1;      // metres
constexpr double liftOffHeight = 1.0;         // metres
constexpr double obstacleHeight = 15.0;       // metres

/// If the times of a series do not ascend, the figures of each flight need a pass over all of it. A
/// damaged recording can hold thousands of flights; this bounds the total work to O(samples).
constexpr std::size_t maxLooksPerSample = 200;

struct Position
{
    double latitude = 0.0;
    double longitude = 0.0;
};

double distanceBetween(const Position& from, const Position& to)
{
    return TUSK::Geodetic::distance(from.latitude, from.longitude, to.latitude, to.longitude);
}

/// Computes the figures of the flights of one recording.
class FlightStatistic
{
public:
    FlightStatistic(const Profile& profile, const MessageMap& messages, std::size_t sampleCount)
        : m_throttle(profile, messages, Role::ThrottleA)
        , m_fuelA(profile, messages, Role::FuelA)
        , m_fuelB(profile, messages, Role::FuelB)
        , m_groundSpeed(profile, messages, Role::GroundSpeed)
        , m_altitude(profile, messages, Role::Altitude)
        , m_latitude(profile, messages, Role::Latitude)
        , m_longitude(profile, messages, Role::Longitude)
        , m_budget(maxLooksPerSample * (sampleCount + 1))
    {
    }

    /// False if the recording's budget of work is used up; the figures stay 0 then.
    bool compute(Flight& flight)
    {
        const std::size_t work = workFor(flight);
        if (work > m_budget)
            return false;
        m_budget -= work;
        flight.fuelA = fuelUsed(m_fuelA, flight.startSeconds, flight.endSeconds);
        flight.fuelB = fuelUsed(m_fuelB, flight.startSeconds, flight.endSeconds);
        flight.fuel = flight.fuelA + flight.fuelB;
        const Reference reference = speedFigures(flight);
        altitudeFigures(flight, reference);
        flight.timePer100m =
            (flight.landingSeconds - flight.takeOffSeconds) / flight.altitudeGain * 100.0;
        flight.fuelPer100m = flight.fuel / flight.altitudeGain * 100.0;
        flight.statisticsValid = true;
        return true;
    }

private:
    /// The end of the take-off run: heights above the runway are relative to its altitude.
    struct Reference
    {
        double seconds = 0.0;
        double altitude = 0.0;
    };

    std::size_t workFor(const Flight& flight) const
    {
        std::size_t samples = 0;
        for (const RoleSeries* series :
             {&m_throttle, &m_fuelA, &m_fuelB, &m_groundSpeed, &m_altitude})
            samples += series->samples().around(flight.startSeconds, flight.endSeconds).size();
        return samples;
    }

    Position positionAt(double seconds) const
    {
        return {m_latitude.valueAt(seconds), m_longitude.valueAt(seconds)};
    }

    /// The position at the first full throttle.
    Position brakeRelease(const Flight& flight) const
    {
        std::optional<double> time;
        m_throttle.forEach(flight.startSeconds, flight.endSeconds, [&](double t, double throttle) {
            if (!time && throttle > brakeReleaseThrottle)
                time = t;
        });
        return time ? positionAt(*time) : Position{};
    }

    Reference speedFigures(Flight& flight) const
    {
        std::optional<double> time;
        m_groundSpeed.forEach(flight.startSeconds, flight.endSeconds, [&](double t, double speed) {
            flight.maxGroundSpeed = std::max(flight.maxGroundSpeed, speed);
            if (!time && speed > referenceSpeed)
                time = t;
        });
        return time ? Reference{*time, m_altitude.valueAt(*time)} : Reference{};
    }

    void altitudeFigures(Flight& flight, const Reference& reference) const
    {
        bool any = false;
        double maximumSeconds = 0.0;
        std::optional<double> liftOff;
        std::optional<double> obstacle;
        m_altitude.forEach(flight.startSeconds, flight.endSeconds, [&](double t, double altitude) {
            if (altitude < minValidAltitude)
                return;
            const double height = altitude - reference.altitude;
            if (t > reference.seconds && !liftOff && height > liftOffHeight)
                liftOff = t;
            if (t > reference.seconds && !obstacle && height > obstacleHeight)
                obstacle = t;
            if (!any || altitude < flight.minAltitude)
                flight.minAltitude = altitude;
            if (!any || altitude > flight.maxAltitude) {
                flight.maxAltitude = altitude;
                maximumSeconds = t;
            }
            any = true;
        });
        flight.altitudeGain = flight.maxAltitude - flight.minAltitude;
        flight.climbRate = flight.altitudeGain / (maximumSeconds - flight.takeOffSeconds);
        flight.descentRate = flight.altitudeGain / (flight.landingSeconds - maximumSeconds);

        const Position release = brakeRelease(flight);
        flight.takeOffDistance =
            distanceBetween(release, liftOff ? positionAt(*liftOff) : Position{});
        flight.takeOffDistance15m =
            distanceBetween(release, obstacle ? positionAt(*obstacle) : Position{});
    }

    RoleSeries m_throttle;
    RoleSeries m_fuelA;
    RoleSeries m_fuelB;
    RoleSeries m_groundSpeed;
    RoleSeries m_altitude;
    RoleSeries m_latitude;
    RoleSeries m_longitude;
    std::size_t m_budget; ///< samples that may still be looked at
};

} // namespace

std::vector<Flight> findFlights(const Profile& profile, const MessageMap& messages,
                                const QDateTime& dateTime)
{
    return findFlights(profile, messages, dateTime, messages.sampleCount());
}

std::vector<Flight> findFlights(const Profile& profile, const MessageMap& messages,
                                const QDateTime& dateTime, std::size_t sampleCount)
{
    std::vector<Flight> flights;
    FlightStatistic statistic(profile, messages, sampleCount);
    std::size_t withoutFigures = 0;
    FlightDetector detector;
    Flight flight;
    const RoleSeries groundSpeed(profile, messages, Role::GroundSpeed);
    for (const StoredSample& sample : groundSpeed.samples()) {
        const double t = sample.seconds();
        const double speed = groundSpeed.value(sample);
        if (!std::isfinite(speed)) // neither a fast nor a slow sample
            continue;
        switch (detector.step(speed)) {
        case FlightDetector::Event::None:
            break;
        case FlightDetector::Event::TakeOff:
            flight = {};
            flight.takeOffSeconds = t;
            flight.startSeconds = std::max(0.0, t - marginSeconds);
            flight.dateTime = dateTime.addSecs(static_cast<qint64>(t));
            break;
        case FlightDetector::Event::Landing:
            flight.landingSeconds = t;
            flight.endSeconds = t + marginSeconds;
            if (!statistic.compute(flight))
                ++withoutFigures;
            flights.push_back(flight);
            break;
        }
    }
    for (const Flight& found : flights) {
        Diagnostics::print("Flight %f -> %f <%s>\n", found.startSeconds, found.endSeconds,
                           qUtf8Printable(found.dateTime.toString(QStringLiteral("hh:mm:ss"))));
    }
    if (withoutFigures > 0)
        Diagnostics::print("findFlights: %zu of %zu flights overlap too much for figures\n",
                           withoutFigures, flights.size());
    return flights;
}

} // namespace KOLT
