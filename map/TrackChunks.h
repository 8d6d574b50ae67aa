#pragma once

#include "map/TrackLine.h"

namespace KOLT {

/// Cuts lines into chunks. Lines longer than a chunk may be get more vertices on the great circle.
class TrackChunks
{
public:
    using Vector = Tessa::Globe::Vector;

    /// For drawing at a scale: at most 1000 pixels wide, within 2 km and the largest chunk, so that
    /// what lies beside the window is not drawn.
    explicit TrackChunks(double metresPerPixel);

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
        bool isStart = false;
    };

    void append(const Point& point);
    /// Whether the box around the chunk's points and this one is small enough.
    bool fits(const Vector& place) const;
    void close();

    double m_largest;            ///< metres across
    std::vector<Point> m_points; ///< of the chunk that grows
    Vector m_low;                ///< the box around them
    Vector m_high;
    std::vector<TrackLine::Chunk> m_chunks;
};

} // namespace KOLT
