#include "libs/tessamap/globe/TileSelection.h"

#include "libs/tessamap/globe/Mercator.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace Tessa {

namespace {

constexpr int tileSize = 256;

/// The extent of a tile in the window, from points sampled on it.
struct Outline
{
    double left = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double bottom = std::numeric_limits<double>::infinity();
    double top = -std::numeric_limits<double>::infinity();
    double nearest = -std::numeric_limits<double>::infinity(); ///< towards the viewer, metres
};

constexpr std::size_t mostPoints = 17;

std::size_t pointsOf(const TileId& tile)
{
    return tile.zoom < 3 ? mostPoints : 5;
}

Outline outlineOf(const TileId& tile, const Globe& globe)
{
    const std::size_t points = pointsOf(tile);
    const double side = TileId::count(tile.zoom);
    std::array<double, mostPoints> sinLambda{};
    std::array<double, mostPoints> cosLambda{};
    for (std::size_t i = 0; i < points; ++i) {
        const double lambda =
            2.0 * std::numbers::pi *
            ((tile.x + static_cast<double>(i) / static_cast<double>(points - 1)) / side - 0.5);
        sinLambda[i] = std::sin(lambda);
        cosLambda[i] = std::cos(lambda);
    }
    Outline outline;
    for (std::size_t j = 0; j < points; ++j) {
        // sin(phi) = tanh(t) and cos(phi) = 1 / cosh(t) on the Mercator map.
        const double t =
            2.0 * std::numbers::pi *
            (0.5 - (tile.y + static_cast<double>(j) / static_cast<double>(points - 1)) / side);
        const double sinPhi = std::tanh(t);
        const double cosPhi = 1.0 / std::cosh(t);
        for (std::size_t i = 0; i < points; ++i) {
            const double radius = TUSK::Geodetic::radius;
            const auto view = globe.toView(
                {radius * cosPhi * sinLambda[i], radius * sinPhi, radius * cosPhi * cosLambda[i]});
            const WindowPoint point = globe.windowOf(view);
            outline.left = std::min(outline.left, point.x);
            outline.right = std::max(outline.right, point.x);
            outline.bottom = std::min(outline.bottom, point.y);
            outline.top = std::max(outline.top, point.y);
            outline.nearest = std::max(outline.nearest, view.z);
        }
    }
    return outline;
}

/// How far, in metres, the surface may reach beyond the sampled points at most.
double paddingOf(const TileId& tile)
{
    const std::size_t points = pointsOf(tile);
    const double side = Mercator::circumference / TileId::count(tile.zoom);
    const double arc = std::min(side / static_cast<double>(points - 1) * std::numbers::sqrt2 / 2.0 /
                                    TUSK::Geodetic::radius,
                                std::numbers::pi / 2.0);
    return TUSK::Geodetic::radius * (1.0 - std::cos(arc));
}

bool isInView(const TileId& tile, const Globe& globe, const Outline& outline)
{
    const double padding = paddingOf(tile);
    const double pixels = padding / globe.metresPerPixel() + 1.0;
    return outline.nearest + padding >= 0.0 && outline.right + pixels >= 0.0 &&
           outline.left - pixels <= globe.width() && outline.top + pixels >= 0.0 &&
           outline.bottom - pixels <= globe.height();
}

/// The size of the tile's largest pixel in pixels of the window, at the centre of the view.
double magnification(const TileId& tile, const Globe& globe)
{
    const TileEdges edges = edgesOf(tile);
    double nearestToEquator = 0.0;
    if (edges.south > 0.0 || edges.north < 0.0)
        nearestToEquator = std::min(std::abs(edges.south), std::abs(edges.north));
    return Mercator::metres(nearestToEquator) / TileId::count(tile.zoom) / tileSize /
           globe.metresPerPixel();
}

void walk(const TileId& tile, const Globe& globe, std::vector<SelectedTile>& selected)
{
    const Outline outline = outlineOf(tile, globe);
    if (!isInView(tile, globe, outline))
        return;
    if (tile.zoom < deepestZoom && magnification(tile, globe) > std::numbers::sqrt2) {
        for (const int child : {0, 1, 2, 3})
            walk({tile.zoom + 1, 2 * tile.x + child % 2, 2 * tile.y + child / 2}, globe, selected);
        return;
    }
    const WindowPoint middle = globe.windowOf(globe.toView(placeInTile(tile, 0.5, 0.5)));
    const WindowPoint centre{globe.width() / 2.0, globe.height() / 2.0};
    selected.push_back({tile, length(middle - centre)});
}

} // namespace

TileEdges edgesOf(const TileId& tile)
{
    const double side = TileId::count(tile.zoom);
    return {Mercator::latitude(tile.y / side), Mercator::latitude((tile.y + 1) / side),
            Mercator::longitude(tile.x / side), Mercator::longitude((tile.x + 1) / side)};
}

Globe::Vector placeInTile(const TileId& tile, double u, double v)
{
    const double side = TileId::count(tile.zoom);
    return TUSK::Geodetic::latLong2Cartesian(Mercator::latitude((tile.y + v) / side),
                                             Mercator::longitude((tile.x + u) / side));
}

std::vector<SelectedTile> selectTiles(const Globe& globe)
{
    std::vector<SelectedTile> selected;
    walk({0, 0, 0}, globe, selected);
    std::ranges::stable_sort(selected, {}, &SelectedTile::distance);
    return selected;
}

} // namespace Tessa
