#include "tools/samplecard/GpsModel.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace KOLT::SampleCard {

namespace {

constexpr double latitude = 48.0312;
constexpr double longitude = 11.0467;
constexpr double fieldElevation = 452.0;
constexpr double halfRunway = 450.0;
constexpr double westHeading = 260.0; ///< of runway 26
constexpr double metresPerDegree = 60.0 * 1852.0;
constexpr double radians = std::numbers::pi / 180.0;

} // namespace

GpsModel::GpsModel(Runway runway, Random& random)
    : m_runway(runway)
    , m_random(random)
{
    m_firstFix = random.uniform(37.0, 43.0);
}

double GpsModel::elevation()
{
    return fieldElevation;
}

void GpsModel::wander(double& value, double deviation, double seconds)
{
    const double push = deviation * std::sqrt(6.0 * stepSeconds / seconds);
    value += m_random.noise(push) - value * stepSeconds / seconds;
}

void GpsModel::step(const Motion& motion)
{
    m_seconds += stepSeconds;
    // The circuit is south of the field: on the left of one runway, on the right of the other.
    const bool west = m_runway == Runway::West;
    const double hand = west ? 1.0 : -1.0;
    const double direction = (west ? westHeading : westHeading - 180.0) * radians;
    const double along = motion.position.along - halfRunway;
    const double across = hand * motion.position.across;
    m_east = along * std::sin(direction) + across * std::cos(direction);
    m_north = along * std::cos(direction) - across * std::sin(direction);
    m_height = motion.height;
    m_speed = 3.6 * motion.speed;
    if (motion.speed > 0.5) {
        const double track = (direction + hand * motion.heading) / radians;
        m_track = std::fmod(track + 720.0, 360.0);
    }
    wander(m_eastError, 1.1, 60.0);
    wander(m_northError, 1.1, 60.0);
    wander(m_heightError, 0.8, 150.0);
}

void GpsModel::describe(Quantities& out, bool jumps) const
{
    const bool fix = hasFix();
    out.gpsFix = fix ? 3.0 : 0.0;
    out.geoidSeparation = fix ? 47.0 : 0.0;
    out.satellites = fix ? 9.0 + std::floor(2.5 + 2.0 * std::sin(m_seconds / 210.0))
                         : std::floor(m_seconds / 12.0);
    if (!fix) {
        out.latitude = out.longitude = out.altitude = out.groundSpeed = out.track = 0.0;
        return;
    }
    const double offset = jumps ? 0.19 : 0.0;
    out.latitude = latitude + offset + (m_north + m_northError) / metresPerDegree;
    out.longitude = longitude + 1.4 * offset +
                    (m_east + m_eastError) / (metresPerDegree * std::cos(latitude * radians));
    out.altitude = fieldElevation + m_height + m_heightError;
    out.groundSpeed = std::max(0.0, m_speed + 0.25 * m_northError);
    out.track = m_track;
}

} // namespace KOLT::SampleCard
