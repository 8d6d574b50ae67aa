#pragma once

#include "map/TrackLine.h"

namespace KOLT {

/// Cuts lines into chunks. Lines longer than a chunk may be get vertices on the great circle.
class TrackChunks
{
public:
    using Vector = Tessa::Globe::Vector;

    /// Begins a line.
    void moveTo(const Vector& place);
    /// Goes on with it.
    void lineTo(const Vector& place, std::uint8_t color);
    /// Ends the last line and hands all out.
    std::vector<TrackLine::Chunk> take();

private:
    struct Point
    {
        Vector place;
        std::uint8_t color = TrackLine::noColor;
    };

    void append(const Point& point);
    /// Whether the box around the chunk's points and this one is small enough.
    bool fits(const Vector& place) const;
    void close();

    std::vector<Point> m_points; ///< of the chunk that grows
    Vector m_low;                ///< the box around them
    Vector m_high;
    std::vector<TrackLine::Chunk> m_chunks;
};

} // namespace KOLT
