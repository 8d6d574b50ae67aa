#include "map/TrackSimplification.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KOLT {

namespace {

using Vector = TUSK::Geodetic::Vector;

constexpr std::size_t pieceSize = 512;
constexpr double finest = 0.001; // metres, below the noise of any position
constexpr float always = std::numeric_limits<float>::infinity();

struct Farthest
{
    std::size_t index = 0;
    double square = -1.0; ///< of the distance
};

/// The point strictly between `first` and `last` that lies farthest from the line between them.
Farthest farthestFrom(std::span<const Vector> places, std::size_t first, std::size_t last)
{
    const Vector origin = places[first];
    const Vector line = places[last] - origin;
    const double length = dot(line, line);
    const double scale = length > 0.0 ? 1.0 / length : 0.0;
    Farthest farthest;
    for (std::size_t i = first + 1; i < last; ++i) {
        const Vector way = places[i] - origin;
        const double along = std::clamp(dot(way, line) * scale, 0.0, 1.0);
        const Vector off = way - along * line;
        const double square = dot(off, off);
        if (square > farthest.square)
            farthest = {i, square};
    }
    return farthest;
}

struct Piece
{
    std::size_t first = 0;
    std::size_t last = 0;
    float limit = always;
};

void findTolerances(std::span<const Vector> places, Piece whole, std::vector<Piece>& open,
                    std::vector<float>& tolerances)
{
    open.assign(1, whole);
    while (!open.empty()) {
        const Piece piece = open.back();
        open.pop_back();
        const Farthest farthest = farthestFrom(places, piece.first, piece.last);
        if (!(farthest.square > finest * finest))
            continue;
        // A point can be kept only at tolerances at which the pieces around it were split.
        const float tolerance =
            std::min(piece.limit, static_cast<float>(std::sqrt(farthest.square)));
        tolerances[farthest.index] = tolerance;
        open.push_back({piece.first, farthest.index, tolerance});
        open.push_back({farthest.index, piece.last, tolerance});
    }
}

} // namespace

std::vector<float> simplificationTolerances(std::span<const Vector> places,
                                            std::span<const TrackRun> runs)
{
    std::vector<float> tolerances(places.size(), 0.0F);
    std::vector<Piece> open;
    for (const TrackRun& run : runs) {
        tolerances[run.first] = always;
        for (std::size_t first = run.first; first < run.last; first += pieceSize) {
            const std::size_t last = std::min(first + pieceSize, run.last);
            tolerances[last] = always;
            findTolerances(places, {first, last}, open, tolerances);
        }
    }
    return tolerances;
}

} // namespace KOLT
