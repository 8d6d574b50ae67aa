#pragma once

#include <QImage>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

/// The expected contents of a picture of the map, calculated independently of the map's code.
namespace KOLT::Test {

constexpr double degree = std::numbers::pi / 180.0;
constexpr double earthRadius = 60.0 * 1852.0 / degree; ///< metres, of the sphere

struct Place
{
    double latitude = 0.0;
    double longitude = 0.0;
};

/// A view from straight above: the window's centre, scale and size in pixels.
struct View
{
    Place centre;
    double metresPerPixel = 1.0;
    QSizeF size;

    /// Inverse orthographic projection of pixels from the top left; none outside the globe.
    std::optional<Place> placeAt(double x, double y) const
    {
        const double east = (x - size.width() / 2.0) * metresPerPixel;
        const double north = (size.height() / 2.0 - y) * metresPerPixel;
        const double rho = std::hypot(east, north);
        if (rho > earthRadius)
            return std::nullopt;
        if (rho == 0.0)
            return centre;
        const double c = std::asin(rho / earthRadius);
        const double phi = centre.latitude * degree;
        const double up = std::cos(c) * std::sin(phi) + north * std::sin(c) * std::cos(phi) / rho;
        const double turn = std::atan2(east * std::sin(c), rho * std::cos(phi) * std::cos(c) -
                                                               north * std::sin(phi) * std::sin(c));
        const double longitude = centre.longitude + turn / degree;
        return Place{std::asin(std::clamp(up, -1.0, 1.0)) / degree,
                     longitude - 360.0 * std::floor((longitude + 180.0) / 360.0)};
    }

    /// Pixels from the top left, for a place on the near side.
    QPointF pixelOf(Place place) const
    {
        const double phi = place.latitude * degree;
        const double middle = centre.latitude * degree;
        const double turn = (place.longitude - centre.longitude) * degree;
        const double east = std::cos(phi) * std::sin(turn);
        const double north =
            std::cos(middle) * std::sin(phi) - std::sin(middle) * std::cos(phi) * std::cos(turn);
        const double pixels = earthRadius / metresPerPixel;
        return {size.width() / 2.0 + pixels * east, size.height() / 2.0 - pixels * north};
    }

    /// Distance in pixels between a point and the expected position of a place.
    double distance(QPointF point, Place place) const
    {
        const QPointF way = pixelOf(place) - point;
        return std::hypot(way.x(), way.y());
    }
};

struct Tile
{
    int zoom = 0;
    int x = 0;
    int y = 0;

    friend bool operator==(const Tile&, const Tile&) = default;
};

/// The web map tile that contains a place; none beyond the map's edges.
inline std::optional<Tile> tileAt(Place place, int zoom)
{
    const double phi = place.latitude * degree;
    const double side = std::exp2(zoom);
    const double y =
        side * (0.5 - std::log(std::tan(phi) + 1.0 / std::cos(phi)) / (2.0 * std::numbers::pi));
    if (!(y >= 0.0 && y < side))
        return std::nullopt;
    const double x = side * (place.longitude + 180.0) / 360.0;
    return Tile{zoom, static_cast<int>(x) % static_cast<int>(side), static_cast<int>(y)};
}

/// The colour that identifies a tile: encodes the zoom, and column and row modulo 251.
inline QColor colorOf(const Tile& tile)
{
    return QColor((tile.x * 5 + 40) % 251, (tile.y * 5 + 40) % 251, 4 + tile.zoom * 12);
}

inline int zoomOf(const QColor& color)
{
    return qRound((color.blue() - 4) / 12.0);
}

inline bool isNear(const QColor& one, const QColor& other, int tolerance = 2)
{
    return std::abs(one.red() - other.red()) <= tolerance &&
           std::abs(one.green() - other.green()) <= tolerance &&
           std::abs(one.blue() - other.blue()) <= tolerance;
}

inline bool isBlack(QRgb color)
{
    return qRed(color) + qGreen(color) + qBlue(color) < 30;
}

/// Number of undrawn pixels inside the globe's disc, except for its smoothed edge.
inline int countHoles(const QImage& picture, double metresPerPixel)
{
    const double edge = earthRadius / metresPerPixel - 2.0;
    int holes = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const bool isInside = std::hypot(x + 0.5 - picture.width() / 2.0,
                                             y + 0.5 - picture.height() / 2.0) < edge;
            holes += isInside && isBlack(picture.pixel(x, y)) ? 1 : 0;
        }
    }
    return holes;
}

} // namespace KOLT::Test
