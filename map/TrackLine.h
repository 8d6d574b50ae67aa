#pragma once

#include "libs/tessamap/globe/Globe.h"
#include "map/TrackBounds.h"
#include "map/TrackColorSteps.h"
#include "map/TrackRuns.h"

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace KOLT {

/// A track prepared for drawing on the globe at any scale.
///
/// For each scale the line is simplified once, by Douglas and Peucker, to half a pixel, and cut
/// into chunks, each with its own origin so that single precision is enough. No line is drawn over
/// more than 10 s without positions. Places are in metres from the centre of the earth.
class TrackLine
{
public:
    static constexpr std::uint8_t noColor = TrackColorSteps::none;
    static constexpr double largestChunk = 80'000.0; ///< metres across
    static constexpr std::size_t mostVertices = 512; ///< per chunk

    struct Vertex
    {
        float x = 0.0F; ///< metres from the chunk's origin
        float y = 0.0F;
        float z = 0.0F;
        std::uint8_t color = noColor; ///< step 0..15 of the line that ends here, or noColor
        bool isStart = false;         ///< no line ends here
    };

    /// Lines through the vertices in their order. Successive chunks share a vertex, except at a
    /// gap.
    struct Chunk
    {
        Tessa::Globe::Vector origin;
        double radius = 0.0; ///< of a sphere around the origin that contains the lines
        std::vector<Vertex> vertices;
    };

    TrackLine() = default;
    explicit TrackLine(const std::vector<TrackPoint>& track,
                       const std::vector<TrackGap>& gaps = {});

    bool isEmpty() const { return m_places.empty(); }

    std::size_t pointCount() const { return m_places.size(); }

    const TrackBounds& bounds() const { return m_bounds; }

    bool isColored() const { return !m_steps.isEmpty(); }

    /// Unique for each track and each call of setValues().
    int revision() const { return m_revision; }

    /// Colours the line by one value per point, NaN for none; see TrackColorSteps. Without colours
    /// unless there are as many values as points.
    void setValues(const std::vector<float>& values, const ValueScale& scale);

    /// The line at a scale; built on the first call for it. Valid until setValues().
    const std::vector<Chunk>& chunks(double metresPerPixel) const;

    /// The index of the point that a click hits: the nearer end of the nearest line that is at most
    /// `mostPixels` away and on the near side of the globe. O(points).
    std::optional<std::size_t> nearestPoint(const Tessa::Globe& globe, Tessa::WindowPoint click,
                                            double mostPixels) const;

private:
    using Vector = Tessa::Globe::Vector;

    std::vector<Chunk> build(double metresPerPixel) const;

    int m_revision = 0;
    TrackBounds m_bounds;
    std::vector<TrackRun> m_runs;
    std::vector<Vector> m_places;
    TrackColorSteps m_steps;
    mutable std::vector<float> m_tolerances; ///< simplificationTolerances(), when first needed
    mutable std::map<int, std::vector<Chunk>> m_levels; ///< by log2 of metres per pixel
};

/// Whether any of the chunk may be in the window and on the near side of the globe.
bool isInView(const Tessa::Globe& globe, const TrackLine::Chunk& chunk);

} // namespace KOLT
