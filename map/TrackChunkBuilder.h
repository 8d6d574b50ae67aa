#pragma once

#include "map/TrackLine.h"

namespace KOLT {

/// Cuts lines into chunks. Lines too long for a chunk get further vertices on the great circle.
class TrackChunkBuilder
{
public:
    using Vector = Tessa::Globe::Vector;

    /// Chunks are at most 1000 pixels wide at this scale (but at least 2 km, at most
    /// TrackLine::largestChunk), so that little outside of the window is drawn.
    explicit TrackChunkBuilder(double metresPerPixel);

    /// Starts a line.
    void moveTo(const Vector& place);
    /// Continues the line; `color` is that of this stretch.
    void lineTo(const Vector& place, std::uint8_t color);
    /// Ends the last line and returns all chunks.
    std::vector<TrackLine::Chunk> take();

private:
    struct Point
    {
        Vector place;
        std::uint8_t color = TrackLine::noColor;
        bool isStart = false;
    };

    void append(const Point& point);
    /// Whether the box around the chunk's points and this one is small enough.
    bool fits(const Vector& place) const;
    void close();

    double m_largest;            ///< metres across
    std::vector<Point> m_points; ///< of the current chunk
    Vector m_low;                ///< bounding box of m_points
    Vector m_high;
    std::vector<TrackLine::Chunk> m_chunks;
};

} // namespace KOLT
