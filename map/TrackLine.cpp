#include "map/TrackLine.h"

#include "map/TrackChunks.h"
#include "map/TrackCoverage.h"
#include "map/TrackWeights.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

// Powers of two: 4 mm to 500 km per pixel.
constexpr int finestLevel = -8;
constexpr int coarsestLevel = 19;

constexpr double rounding = 1e-6; // seconds: error of the samples' times

constexpr double tolerancePixels = 0.5;
constexpr double shortestColor = 2.0;      // pixels
constexpr double coverageCell = 1.0;       // pixels
constexpr std::ptrdiff_t leastLeftOut = 8; // lines; every break costs a chunk
constexpr double mostCells = 1e6;          // looked at for a level
constexpr double longestDivided = 50e3;    // metres; still straight enough

/// The squared distance of a point from the line between two others.
double squareFromLine(Tessa::WindowPoint click, Tessa::WindowPoint from, Tessa::WindowPoint to)
{
    const double x = to.x - from.x;
    const double y = to.y - from.y;
    const double length = x * x + y * y;
    const double along = (click.x - from.x) * x + (click.y - from.y) * y;
    const double part = length > 0.0 ? std::clamp(along / length, 0.0, 1.0) : 0.0;
    const double dx = click.x - from.x - part * x;
    const double dy = click.y - from.y - part * y;
    return dx * dx + dy * dy;
}

int nextRevision()
{
    static int last = 0; // used in the GUI thread only
    return ++last;
}

double distance(const Tessa::Globe::Vector& a, const Tessa::Globe::Vector& b)
{
    return std::hypot(a.x - b.x, a.y - b.y, a.z - b.z);
}

} // namespace

TrackLine::TrackLine(const std::vector<TrackPoint>& track, const std::vector<TrackGap>& gaps)
    : m_revision(nextRevision())
    , m_bounds(TrackBounds::of(track))
{
    m_places.reserve(track.size());
    for (const TrackPoint& point : track)
        m_places.push_back(TUSK::Geodetic::latLong2Cartesian(point.latitude, point.longitude));
    findRuns(track, gaps);
}

void TrackLine::findRuns(const std::vector<TrackPoint>& track, const std::vector<TrackGap>& gaps)
{
    auto gap = gaps.begin();
    std::size_t first = 0;
    const auto endRun = [&](std::size_t last) {
        if (last > first)
            m_runs.push_back({first, last});
        first = last + 1;
    };
    for (std::size_t i = 1; i < track.size(); ++i) {
        const double before = track[i - 1].seconds();
        const double now = track[i].seconds();
        while (gap != gaps.end() && gap->to <= before + rounding)
            ++gap;
        if (now - before > longestTrackGap || (gap != gaps.end() && gap->from < now - rounding))
            endRun(i - 1);
    }
    if (!track.empty())
        endRun(track.size() - 1);
}

void TrackLine::setValues(const std::vector<float>& values, const ValueScale& scale)
{
    m_classes = values.size() == m_places.size() ? TrackClasses(values, scale) : TrackClasses();
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

std::vector<TrackLine::Corner> TrackLine::simplified(const TrackRun& run,
                                                     double metresPerPixel) const
{
    const double tolerance = tolerancePixels * metresPerPixel;
    std::vector<TrackPart> parts{{run.last, noColor}};
    if (!m_classes.isEmpty())
        parts = m_classes.partsOf(run, m_places, shortestColor * metresPerPixel);
    std::vector<Corner> corners{{m_places[run.first], noColor}};
    std::size_t i = run.first + 1;
    for (const TrackPart& part : parts) {
        for (; i <= part.last; ++i) {
            if (static_cast<double>(m_weights[i]) > tolerance || i == part.last)
                corners.push_back({m_places[i], part.color});
        }
    }
    return corners;
}

std::vector<TrackLine::Corner> TrackLine::divided(const std::vector<Corner>& corners,
                                                  double longest)
{
    std::vector<Corner> pieces{corners.front()};
    for (std::size_t i = 1; i < corners.size(); ++i) {
        const Vector from = pieces.back().place;
        const Vector to = corners[i].place;
        const double length = distance(from, to);
        const double count = length <= longestDivided ? std::ceil(length / longest) : 1.0;
        for (double piece = 1.0; piece < count; ++piece) {
            const double part = piece / count;
            pieces.push_back({{from.x + part * (to.x - from.x), from.y + part * (to.y - from.y),
                               from.z + part * (to.z - from.z)},
                              corners[i].color,
                              true});
        }
        pieces.push_back(corners[i]);
    }
    return pieces;
}

void TrackLine::draw(const std::vector<Corner>& corners, TrackChunks& chunks)
{
    chunks.moveTo(corners.front().place);
    const Corner* within = nullptr; // the last one skipped; needed only where the line ends
    const auto endLine = [&] {
        if (within != nullptr)
            chunks.lineTo(within->place, within->color);
        within = nullptr;
    };
    auto corner = corners.begin() + 1;
    while (corner != corners.end()) {
        const auto drawn =
            std::find_if(corner, corners.end(), [](const Corner& c) { return !c.isCovered; });
        if (drawn - corner >= leastLeftOut) {
            endLine();
            chunks.moveTo(std::prev(drawn)->place);
            corner = drawn;
            continue;
        }
        const auto end = drawn == corners.end() ? drawn : std::next(drawn);
        for (; corner != end; ++corner) {
            within = corner->isWithin ? &*corner : nullptr;
            if (within == nullptr)
                chunks.lineTo(corner->place, corner->color);
        }
    }
    endLine();
}

std::vector<TrackLine::Chunk> TrackLine::build(double metresPerPixel) const
{
    if (m_weights.empty())
        m_weights = trackWeights(m_places, m_runs);
    std::vector<std::vector<Corner>> lines;
    double length = 0.0;
    for (const TrackRun& run : m_runs) {
        lines.push_back(simplified(run, metresPerPixel));
        for (std::size_t i = 1; i < lines.back().size(); ++i)
            length += distance(lines.back()[i - 1].place, lines.back()[i].place);
    }
    // At close scales little of the track is in the window; only short lines are checked then.
    const double cell = coverageCell * metresPerPixel;
    const bool areDivided = length <= mostCells * cell;
    std::map<std::uint8_t, TrackCoverage> coverages; // by colour
    TrackChunks chunks(metresPerPixel);
    for (std::vector<Corner>& corners : lines) {
        if (areDivided)
            corners = divided(corners, (TrackCoverage::longestLine - 1.0) * cell);
        for (std::size_t i = 1; i < corners.size(); ++i) {
            TrackCoverage& coverage = coverages.try_emplace(corners[i].color, cell).first->second;
            corners[i].isCovered = coverage.cover(corners[i - 1].place, corners[i].place);
        }
        draw(corners, chunks);
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
