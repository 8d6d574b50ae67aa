#include "map/TrackLine.h"

#include "map/TrackChunkBuilder.h"
#include "map/TrackSimplification.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

// Powers of two: 4 mm to 500 km per pixel.
constexpr int finestLevel = -8;
constexpr int coarsestLevel = 19;

constexpr double tolerancePixels = 0.5;
constexpr double shortestColor = 2.0; // pixels

/// The squared distance of a point from the line between two others.
double squareFromLine(Tessa::WindowPoint click, Tessa::WindowPoint from, Tessa::WindowPoint to)
{
    const Tessa::WindowPoint line = to - from;
    const double square = dot(line, line);
    const double along = dot(click - from, line);
    const double part = square > 0.0 ? std::clamp(along / square, 0.0, 1.0) : 0.0;
    const Tessa::WindowPoint off = click - from - part * line;
    return dot(off, off);
}

int nextRevision()
{
    static int last = 0; // used in the GUI thread only
    return ++last;
}

} // namespace

TrackLine::TrackLine(const std::vector<TrackPoint>& track, const std::vector<TrackGap>& gaps)
    : m_revision(nextRevision())
    , m_bounds(TrackBounds::of(track))
    , m_runs(runsOf(track, gaps))
{
    m_places.reserve(track.size());
    for (const TrackPoint& point : track)
        m_places.push_back(TUSK::Geodetic::latLong2Cartesian(point.latitude, point.longitude));
}

void TrackLine::setValues(const std::vector<float>& values, const ValueScale& scale)
{
    m_steps = values.size() == m_places.size() ? TrackColorSteps(values, scale) : TrackColorSteps();
    m_levels.clear();
    m_revision = nextRevision();
}

const std::vector<TrackLine::Chunk>& TrackLine::chunks(double metresPerPixel) const
{
    const double power = metresPerPixel > 0.0 ? std::floor(std::log2(metresPerPixel)) : 0.0;
    const int level = static_cast<int>(std::clamp<double>(power, finestLevel, coarsestLevel));
    const auto found = m_levels.find(level);
    if (found != m_levels.end())
        return found->second;
    return m_levels.emplace(level, build(std::exp2(level))).first->second;
}

std::vector<TrackLine::Chunk> TrackLine::build(double metresPerPixel) const
{
    if (m_tolerances.empty())
        m_tolerances = simplificationTolerances(m_places, m_runs);
    const double tolerance = tolerancePixels * metresPerPixel;
    TrackChunkBuilder chunks(metresPerPixel);
    for (const TrackRun& run : m_runs) {
        std::vector<TrackPart> parts{{run.last, noColor}};
        if (isColored())
            parts = m_steps.partsOf(run, m_places, shortestColor * metresPerPixel);
        chunks.moveTo(m_places[run.first]);
        std::size_t i = run.first + 1;
        for (const TrackPart& part : parts) {
            for (; i <= part.last; ++i) {
                if (static_cast<double>(m_tolerances[i]) > tolerance || i == part.last)
                    chunks.lineTo(m_places[i], part.color);
            }
        }
    }
    return chunks.take();
}

std::optional<std::size_t> TrackLine::nearestPoint(const Tessa::Globe& globe,
                                                   Tessa::WindowPoint click,
                                                   double mostPixels) const
{
    std::optional<std::size_t> nearest;
    double nearestSquare = mostPixels * mostPixels;
    const auto look = [&](std::size_t index, double square) {
        if (square < nearestSquare || (!nearest && square <= nearestSquare)) {
            nearest = index;
            nearestSquare = square;
        }
    };
    for (const TrackRun& run : m_runs) {
        Tessa::WindowPoint before;
        bool wasInView = false;
        for (std::size_t i = run.first; i <= run.last; ++i) {
            const Vector view = globe.toView(m_places[i]);
            const Tessa::WindowPoint point = globe.windowOf(view);
            if (view.z >= 0.0 && wasInView) {
                const bool isFirst =
                    squareFromLine(click, before, before) < squareFromLine(click, point, point);
                look(isFirst ? i - 1 : i, squareFromLine(click, before, point));
            }
            wasInView = view.z >= 0.0;
            before = point;
        }
    }
    return nearest;
}

bool isInView(const Tessa::Globe& globe, const TrackLine::Chunk& chunk)
{
    const Tessa::Globe::Vector view = globe.toView(chunk.origin);
    const double room = chunk.radius / globe.metresPerPixel() + 2.0; // half of the line's width
    const Tessa::WindowPoint point = globe.windowOf(view);
    return view.z >= -chunk.radius && point.x >= -room && point.x <= globe.width() + room &&
           point.y >= -room && point.y <= globe.height() + room;
}

} // namespace KOLT
