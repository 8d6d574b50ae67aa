#include "record/Track.h"

#include "record/RoleSeries.h"
#include "record/TimeSlots.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr double noFix = 1e-5;        // degrees, of a sample
constexpr double noPosition = 0.0001; // degrees, of a grid point

/// A sampled quantity that is read at ascending times.
class Curve
{
public:
    void append(double seconds, double value) { m_points.push_back({seconds, value}); }

    bool empty() const { return m_points.empty(); }

    double lastSeconds() const { return m_points.back().seconds; }

    /// Linear between the samples around `seconds`, constant outside; 0 without samples.
    double at(double seconds)
    {
        if (m_points.size() < 2)
            return m_points.empty() ? 0.0 : m_points.front().value;
        while (m_cursor + 2 < m_points.size() && m_points[m_cursor + 1].seconds < seconds)
            ++m_cursor;
        const Point& from = m_points[m_cursor];
        const Point& to = m_points[m_cursor + 1];
        const double span = to.seconds - from.seconds;
        // Equal times leave no line between the samples: the later one counts from there on.
        const double fraction =
            span != 0.0 ? (seconds - from.seconds) / span : (seconds >= to.seconds ? 1.0 : 0.0);
        return from.value + std::clamp(fraction, 0.0, 1.0) * (to.value - from.value);
    }

private:
    struct Point
    {
        double seconds;
        double value;
    };

    std::vector<Point> m_points;
    std::size_t m_cursor = 0;
};

Curve sampled(const Profile& profile, const MessageMap& messages, const char* role,
              PositionFilter* filter)
{
    Curve curve;
    RoleSeries(profile, messages, role).forEach(filter, [&](double seconds, double value) {
        if (seconds < maxGridSeconds && (filter == nullptr || std::abs(value) > noFix))
            curve.append(seconds, value);
    });
    return curve;
}

} // namespace

std::vector<TrackPoint> buildTrack(const Profile& profile, const MessageMap& messages)
{
    // One filter, latitude first: its limit for longitudes follows from the latitude.
    PositionFilter filter;
    Curve latitude = sampled(profile, messages, "Latitude", &filter);
    Curve longitude = sampled(profile, messages, "Longitude", &filter);
    if (latitude.empty() || longitude.empty())
        return {};
    Curve altitude = sampled(profile, messages, "Altitude", nullptr);
    Curve groundSpeed = sampled(profile, messages, "GroundSpeed", nullptr);
    Curve track = sampled(profile, messages, "Track", nullptr);

    std::vector<TrackPoint> points;
    const double end = std::min(latitude.lastSeconds(), longitude.lastSeconds());
    const int last = static_cast<int>(end / gridSeconds);
    for (int i = 0; i <= last; ++i) {
        const double t = i * gridSeconds;
        const TrackPoint point{
            i, latitude.at(t), longitude.at(t), altitude.at(t), groundSpeed.at(t), track.at(t)};
        if (std::abs(point.latitude) > noPosition && std::abs(point.longitude) > noPosition)
            points.push_back(point);
    }
    return points;
}

} // namespace KOLT
