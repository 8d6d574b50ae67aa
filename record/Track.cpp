#include "record/Track.h"

#include "record/RoleSeries.h"
#include "record/TimeOrdered.h"
#include "record/TimeSlots.h"
#include "record/TrackGaps.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KOLT {

namespace {

constexpr double noPosition = 0.0001; // degrees
constexpr double never = std::numeric_limits<double>::infinity();

/// A sampled quantity; must be read at ascending times.
class Curve
{
public:
    void append(double seconds, double value) { m_points.push_back({seconds, value}); }

    /// Call after the last append(). Sorts the samples, as at() would never get past a stray time.
    void finish()
    {
        m_lastSeconds = m_points.empty() ? 0.0 : m_points.back().seconds;
        sortByTime(m_points, &Point::seconds);
    }

    bool empty() const { return m_points.empty(); }

    double firstSeconds() const { return m_points.front().seconds; }

    /// Time of the first known value at or after `seconds`: units send 0 until they know it.
    double firstKnownFrom(double seconds) const
    {
        const auto found = std::ranges::find_if(m_points, [&](const Point& point) {
            return point.seconds >= seconds && point.value != 0.0;
        });
        return found == m_points.end() ? never : found->seconds;
    }

    /// Time of the sample appended last.
    double lastSeconds() const { return m_lastSeconds; }

    /// Linear between the samples around `seconds`, constant outside, 0 without samples.
    double at(double seconds) { return between(seconds, 0.0); }

    /// As at(), for an angle in degrees: turns the shorter way round. Within 0..360.
    double angleAt(double seconds)
    {
        const double angle = std::fmod(between(seconds, wholeTurn), wholeTurn);
        return angle < 0.0 ? angle + wholeTurn : angle;
    }

private:
    struct Point
    {
        double seconds;
        double value;
    };

    static constexpr double wholeTurn = 360.0; // degrees

    /// Values that differ by a multiple of `turn` are the same; 0: the values are no angles.
    double between(double seconds, double turn)
    {
        if (m_points.size() < 2)
            return m_points.empty() ? 0.0 : m_points.front().value;
        while (m_cursor + 2 < m_points.size() && m_points[m_cursor + 1].seconds < seconds)
            ++m_cursor;
        const Point& from = m_points[m_cursor];
        const Point& to = m_points[m_cursor + 1];
        const double span = to.seconds - from.seconds;
        // At equal times the value steps to that of the later sample.
        const double fraction =
            span != 0.0 ? (seconds - from.seconds) / span : (seconds >= to.seconds ? 1.0 : 0.0);
        const double step = to.value - from.value;
        const double nearest = turn > 0.0 ? from.value + std::remainder(step, turn) : to.value;
        return std::lerp(from.value, nearest, std::clamp(fraction, 0.0, 1.0));
    }

    std::vector<Point> m_points;
    std::size_t m_cursor = 0;
    double m_lastSeconds = 0.0;
};

/// The finite samples of a role up to maxGridSeconds; of positions, only those with a fix.
Curve sampled(const Profile& profile, const MessageMap& messages, Role role, PositionFilter* filter)
{
    Curve curve;
    const RoleSeries series(profile, messages, role);
    for (const StoredSample& sample : series.samples()) {
        const double seconds = sample.seconds();
        if (seconds >= maxGridSeconds)
            continue;
        const double value = series.value(sample, filter);
        if (filter != nullptr ? isFix(value) : std::isfinite(value))
            curve.append(seconds, value);
    }
    curve.finish();
    return curve;
}

/// Whether a role had a value; without a fix units send 0.
bool wasKnown(const Profile& profile, const SamplesBefore& before, Role role)
{
    const ProfileParameter* const parameter = profile.parameterByRole(role);
    if (parameter == nullptr)
        return false;
    const auto found = before.find(static_cast<std::uint32_t>(parameter->id));
    if (found == before.end())
        return false;
    const double number = decodeNumber(found->second.data, *parameter);
    return std::isfinite(number) && number != 0.0;
}

} // namespace

std::vector<TrackPoint> buildTrack(const Profile& profile, const MessageMap& messages,
                                   double fromSeconds, const SamplesBefore& before)
{
    // One filter, latitude first: its limit for longitudes depends on the latitude.
    PositionFilter filter;
    Curve latitude = sampled(profile, messages, Role::Latitude, &filter);
    Curve longitude = sampled(profile, messages, Role::Longitude, &filter);
    if (latitude.empty() || longitude.empty())
        return {};
    Curve altitude = sampled(profile, messages, Role::Altitude, nullptr);
    Curve groundSpeed = sampled(profile, messages, Role::GroundSpeed, nullptr);
    Curve heading = sampled(profile, messages, Role::Track, nullptr);

    const double firstFix = std::max(latitude.firstSeconds(), longitude.firstSeconds());
    const bool wasAltitudeKnown = !altitude.empty() && wasKnown(profile, before, Role::Latitude) &&
                                  wasKnown(profile, before, Role::Altitude);
    const double firstAltitude = wasAltitudeKnown ? 0.0 : altitude.firstKnownFrom(firstFix);

    const std::vector<TrackGap> gaps = trackGaps(profile, messages);
    auto gap = gaps.begin();

    std::vector<TrackPoint> points;
    const double end = std::min(latitude.lastSeconds(), longitude.lastSeconds());
    const int last = static_cast<int>(end / gridSeconds);
    const int first = static_cast<int>(std::ceil(std::min(fromSeconds, end) / gridSeconds));
    for (int i = first; i <= last; ++i) {
        const double t = i * gridSeconds;
        while (gap != gaps.end() && gap->to <= t)
            ++gap;
        const TrackPoint point{.halfSecond = i,
                               .latitude = latitude.at(t),
                               .longitude = longitude.at(t),
                               .altitude = altitude.at(t),
                               .groundSpeed = groundSpeed.at(t),
                               .heading = heading.angleAt(t),
                               .hasFix = t >= firstFix,
                               .hasAltitude = t >= firstAltitude,
                               .isInGap = gap != gaps.end() && gap->holds(t)};
        if (std::abs(point.latitude) > noPosition && std::abs(point.longitude) > noPosition)
            points.push_back(point);
    }
    return points;
}

} // namespace KOLT
