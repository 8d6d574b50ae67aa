#include "map/TrackChunkBuilder.h"

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

/// The angle between two places, from the centre of the earth.
double angleBetween(const Vector& a, const Vector& b)
{
    return std::atan2(length(cross(a, b)), dot(a, b));
}

/// The place at a fraction of the way along the great circle.
Vector between(const Vector& a, const Vector& b, double angle, double fraction)
{
    const double fromA = std::sin((1.0 - fraction) * angle) / std::sin(angle);
    const double fromB = std::sin(fraction * angle) / std::sin(angle);
    return fromA * a + fromB * b;
}

} // namespace

TrackChunkBuilder::TrackChunkBuilder(double metresPerPixel)
    : m_largest(std::clamp(chunkPixels * metresPerPixel, smallestChunk, TrackLine::largestChunk))
{
}

void TrackChunkBuilder::moveTo(const Vector& place)
{
    if (!m_points.empty() && m_points.back().isStart)
        m_points.pop_back();
    append({place, TrackLine::noColor, true});
}

void TrackChunkBuilder::lineTo(const Vector& place, std::uint8_t color)
{
    const Vector from = m_points.back().place;
    const double longestLine = longestLinePart * m_largest;
    if (length(place - from) > longestLine) {
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

void TrackChunkBuilder::append(const Point& point)
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

bool TrackChunkBuilder::fits(const Vector& place) const
{
    return length(highest(m_high, place) - lowest(m_low, place)) <= m_largest;
}

void TrackChunkBuilder::close()
{
    if (!m_points.empty() && m_points.back().isStart)
        m_points.pop_back();
    if (m_points.empty())
        return;
    TrackLine::Chunk chunk;
    chunk.origin = 0.5 * (m_low + m_high);
    chunk.vertices.reserve(m_points.size());
    for (const Point& point : m_points) {
        const Vector offset = point.place - chunk.origin;
        chunk.radius = std::max(chunk.radius, length(offset));
        chunk.vertices.push_back({static_cast<float>(offset.x), static_cast<float>(offset.y),
                                  static_cast<float>(offset.z), point.color, point.isStart});
    }
    m_chunks.push_back(std::move(chunk));
}

std::vector<TrackLine::Chunk> TrackChunkBuilder::take()
{
    close();
    m_points.clear();
    return std::move(m_chunks);
}

} // namespace KOLT
