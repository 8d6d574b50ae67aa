#include "map/TrackChunks.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

using Vector = Tessa::Globe::Vector;

constexpr double chunkPixels = 1000.0;
constexpr double longestLinePart = 0.75; // of a chunk
constexpr double smallestChunk = 2000.0; // metres

Vector lowest(const Vector& a, const Vector& b)
{
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::min(a.z, b.z)};
}

Vector highest(const Vector& a, const Vector& b)
{
    return {std::max(a.x, b.x), std::max(a.y, b.y), std::max(a.z, b.z)};
}

double distance(const Vector& a, const Vector& b)
{
    const double x = a.x - b.x;
    const double y = a.y - b.y;
    const double z = a.z - b.z;
    return std::sqrt(x * x + y * y + z * z);
}

/// The angle between two places, from the centre of the earth.
double angleBetween(const Vector& a, const Vector& b)
{
    const double cross =
        std::hypot(a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x);
    return std::atan2(cross, a.x * b.x + a.y * b.y + a.z * b.z);
}

/// The place at a fraction of the way along the great circle.
Vector between(const Vector& a, const Vector& b, double angle, double fraction)
{
    const double fromA = std::sin((1.0 - fraction) * angle) / std::sin(angle);
    const double fromB = std::sin(fraction * angle) / std::sin(angle);
    return {fromA * a.x + fromB * b.x, fromA * a.y + fromB * b.y, fromA * a.z + fromB * b.z};
}

} // namespace

TrackChunks::TrackChunks(double metresPerPixel)
    : m_largest(std::clamp(chunkPixels * metresPerPixel, smallestChunk, TrackLine::largestChunk))
{
}

void TrackChunks::moveTo(const Vector& place)
{
    if (!m_points.empty() && m_points.back().isStart)
        m_points.pop_back();
    append({place, TrackLine::noColor, true});
}

void TrackChunks::lineTo(const Vector& place, std::uint8_t color)
{
    const Vector from = m_points.back().place;
    const double longestLine = longestLinePart * m_largest;
    if (distance(from, place) > longestLine) {
        const double angle = angleBetween(from, place);
        if (std::sin(angle) < 1e-9) { // between antipodes the great circle is not unique
            moveTo(place);
            return;
        }
        const double steps = std::ceil(angle * TUSK::Geodetic::radius / longestLine);
        for (double i = 1.0; i < steps; ++i)
            append({between(from, place, angle, i / steps), color});
    }
    append({place, color});
}

void TrackChunks::append(const Point& point)
{
    if (!m_points.empty() && (m_points.size() == TrackLine::mostVertices || !fits(point.place))) {
        const Vector joint = m_points.back().place;
        close();
        m_points.clear();
        if (!point.isStart) {
            m_points.push_back({joint, TrackLine::noColor, true});
            m_low = m_high = joint;
        }
    }
    m_low = m_points.empty() ? point.place : lowest(m_low, point.place);
    m_high = m_points.empty() ? point.place : highest(m_high, point.place);
    m_points.push_back(point);
}

bool TrackChunks::fits(const Vector& place) const
{
    return distance(lowest(m_low, place), highest(m_high, place)) <= m_largest;
}

void TrackChunks::close()
{
    if (!m_points.empty() && m_points.back().isStart)
        m_points.pop_back();
    if (m_points.empty())
        return;
    TrackLine::Chunk chunk;
    chunk.origin = {(m_low.x + m_high.x) / 2.0, (m_low.y + m_high.y) / 2.0,
                    (m_low.z + m_high.z) / 2.0};
    chunk.vertices.reserve(m_points.size());
    for (const Point& point : m_points) {
        chunk.radius = std::max(chunk.radius, distance(point.place, chunk.origin));
        chunk.vertices.push_back({static_cast<float>(point.place.x - chunk.origin.x),
                                  static_cast<float>(point.place.y - chunk.origin.y),
                                  static_cast<float>(point.place.z - chunk.origin.z), point.color,
                                  point.isStart});
    }
    m_chunks.push_back(std::move(chunk));
}

std::vector<TrackLine::Chunk> TrackChunks::take()
{
    close();
    m_points.clear();
    return std::move(m_chunks);
}

} // namespace KOLT
