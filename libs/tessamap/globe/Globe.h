#pragma once

#include "libs/tusk/math/Geodetic.h"

#include <array>
#include <optional>

namespace Tessa {

/// A place on the earth, in degrees.
struct LatLong
{
    double latitude = 0.0;
    double longitude = 0.0;
};

/// A place in the window, in pixels from its lower left corner.
using WindowPoint = TUSK::Math::Vector2;

/// The longitude wrapped into [-180, 180).
double wrappedLongitude(double longitude);

/// The projection of the view: the sphere seen orthographically from straight above a centre, north
/// up. A value type, computed in doubles.
///
/// A place in space is rotated by minus the centre's longitude about the y axis, then by its
/// latitude about the x axis. The view's axes are x to the right, y up and z towards the viewer, in
/// metres from the centre of the sphere.
class Globe
{
public:
    using Vector = TUSK::Geodetic::Vector;

    Globe() = default;
    /// `width` and `height`: of the window in pixels, at least 1.
    Globe(LatLong centre, double metresPerPixel, double width, double height);

    LatLong centre() const { return m_centre; }

    double metresPerPixel() const { return m_metresPerPixel; }

    double width() const { return m_width; }

    double height() const { return m_height; }

    /// Rotates a place or direction from space into the view.
    Vector toView(const Vector& place) const;

    /// The rotation of toView(), row by row.
    const std::array<double, 9>& rotation() const { return m_rotation; }

    WindowPoint windowOf(const Vector& view) const
    {
        return {view.x / m_metresPerPixel + m_width / 2.0,
                view.y / m_metresPerPixel + m_height / 2.0};
    }

    /// None for a place on the far side.
    std::optional<WindowPoint> latLong2Window(LatLong place) const;

    /// None for a point off the globe.
    std::optional<LatLong> window2LatLong(WindowPoint point) const;

private:
    LatLong m_centre;
    double m_metresPerPixel = 1.0;
    double m_width = 1.0;
    double m_height = 1.0;
    std::array<double, 9> m_rotation{1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0};
};

/// The centre of a globe, north up, that shows `place` at an offset in metres from the window's
/// centre. An offset beyond the limb is moved onto it. Of two solutions, the one that leaves the
/// place on the same side of the pole as the centre `before` does; without any, the nearest centre.
LatLong centreShowing(LatLong place, WindowPoint offset, LatLong before);

} // namespace Tessa
