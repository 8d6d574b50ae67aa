#include "libs/tessamap/globe/Globe.h"

#include <algorithm>
#include <cmath>

namespace Tessa {

using TUSK::Geodetic::radiansPerDegree;
using TUSK::Geodetic::radius;

namespace {

/// The latitude of the centre, in degrees, that shows a place at height `y` in the view. On the
/// unit sphere, `sine` is the place's height above the equator and `cosine` its distance from the
/// axis along the meridian of the centre. The result may lie beyond a pole; none for a place on the
/// view's horizontal axis of rotation, which no latitude moves.
std::optional<double> latitudeShowing(double sine, double cosine, double y)
{
    // y = sine * cos(c) - cosine * sin(c) = length * cos(c + angle); of the two solutions, the one
    // on the near side.
    const double length = std::hypot(sine, cosine);
    if (length < 1e-12)
        return std::nullopt;
    const double c = std::acos(std::clamp(y / length, -1.0, 1.0)) - std::atan2(cosine, sine);
    return wrappedLongitude(c / radiansPerDegree);
}

} // namespace

double wrappedLongitude(double longitude)
{
    return longitude - 360.0 * std::floor((longitude + 180.0) / 360.0);
}

Globe::Globe(LatLong centre, double metresPerPixel, double width, double height)
    : m_centre(centre)
    , m_metresPerPixel(metresPerPixel)
    , m_width(std::max(1.0, width))
    , m_height(std::max(1.0, height))
{
    const double sinPhi = std::sin(centre.latitude * radiansPerDegree);
    const double cosPhi = std::cos(centre.latitude * radiansPerDegree);
    const double sinLambda = std::sin(centre.longitude * radiansPerDegree);
    const double cosLambda = std::cos(centre.longitude * radiansPerDegree);
    m_rotation = {cosLambda,           0.0,    -sinLambda,
                  -sinPhi * sinLambda, cosPhi, -sinPhi * cosLambda,
                  cosPhi * sinLambda,  sinPhi, cosPhi * cosLambda};
}

Globe::Vector Globe::toView(const Vector& place) const
{
    const auto& r = m_rotation;
    return {r[0] * place.x + r[1] * place.y + r[2] * place.z,
            r[3] * place.x + r[4] * place.y + r[5] * place.z,
            r[6] * place.x + r[7] * place.y + r[8] * place.z};
}

std::optional<WindowPoint> Globe::latLong2Window(LatLong place) const
{
    const Vector view = toView(TUSK::Geodetic::latLong2Cartesian(place.latitude, place.longitude));
    if (view.z < 0.0)
        return std::nullopt;
    return windowOf(view);
}

std::optional<LatLong> Globe::window2LatLong(WindowPoint point) const
{
    const double x = (point.x - m_width / 2.0) * m_metresPerPixel;
    const double y = (point.y - m_height / 2.0) * m_metresPerPixel;
    const double square = radius * radius - x * x - y * y;
    if (!(square >= 0.0))
        return std::nullopt;
    const double z = std::sqrt(square);
    // The transposed rotation is the inverse one.
    const auto& r = m_rotation;
    const double px = r[0] * x + r[3] * y + r[6] * z;
    const double py = r[1] * x + r[4] * y + r[7] * z;
    const double pz = r[2] * x + r[5] * y + r[8] * z;
    return LatLong{std::atan2(py, std::hypot(px, pz)) / radiansPerDegree,
                   std::atan2(px, pz) / radiansPerDegree};
}

LatLong centreShowing(LatLong place, WindowPoint offset, LatLong before)
{
    const double length = std::hypot(offset.x, offset.y);
    const double radii = std::max(radius, length);
    const double x = offset.x / radii;
    const double y = offset.y / radii;
    const double sinPhi = std::sin(place.latitude * radiansPerDegree);
    const double cosPhi = std::cos(place.latitude * radiansPerDegree);
    const double sinDelta = cosPhi > 1e-12 ? std::clamp(x / cosPhi, -1.0, 1.0) : 0.0;
    const double cosBefore = std::cos((place.longitude - before.longitude) * radiansPerDegree);
    const double cosDelta =
        std::copysign(std::sqrt(1.0 - sinDelta * sinDelta), cosBefore < 0.0 ? -1.0 : 1.0);

    const auto centreAt = [&](double cosine) -> LatLong {
        const double delta = std::atan2(sinDelta, cosine) / radiansPerDegree;
        return {latitudeShowing(sinPhi, cosPhi * cosine, y).value_or(before.latitude),
                wrappedLongitude(place.longitude - delta)};
    };
    LatLong centre = centreAt(cosDelta);
    if (std::abs(centre.latitude) > 90.0) {
        if (const LatLong other = centreAt(-cosDelta); std::abs(other.latitude) <= 90.0)
            return other;
        centre.latitude = std::clamp(centre.latitude, -90.0, 90.0);
    }
    return centre;
}

} // namespace Tessa
