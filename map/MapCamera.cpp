#include "map/MapCamera.h"

#include "libs/tusk/math/Filter.h"
#include "libs/tusk/math/Geodetic.h"
#include "map/FreeArea.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

using Tessa::LatLong;
using Tessa::WindowPoint;
using TUSK::Geodetic::metresPerDegree;
using TUSK::Geodetic::radiansPerDegree;

namespace {

constexpr double keyZoom = 1.03;
constexpr double keyStep = 0.015; // of the width
constexpr double longestKeyStep = 90.0;
constexpr double wheelZoom = 1.100000023841858;

constexpr double frameSeconds = 0.02;
constexpr double lagSeconds = 0.2;
constexpr double rangeReached = 10.0;     // metres
constexpr double positionReached = 0.001; // of the width

constexpr double movedPixels = 20.0;
constexpr double doublingsPerHeight = 4.0; // of the scale, per window height dragged
constexpr double fitMargin = 0.1;          // of the bounds' size, on each side

double clampedWidth(double width)
{
    return std::clamp(width, MapCamera::narrowest, MapCamera::widest);
}

/// One frame of a first-order lag towards the target.
double lagged(double value, double target)
{
    return TUSK::Math::Filter::pt1(value, target, lagSeconds, frameSeconds);
}

} // namespace

MapCamera::MapCamera(MapViewState& state)
    : m_state(state)
{
}

void MapCamera::setWindowSize(double width, double height)
{
    m_windowWidth = std::max(1.0, width);
    m_windowHeight = std::max(1.0, height);
    updateRange();
}

void MapCamera::updateRange()
{
    m_state.widgetWidth = m_windowWidth;
    m_state.height = m_state.width * m_windowHeight / m_windowWidth;
    m_state.metresPerPixel = m_state.width / m_windowWidth;
    m_state.halfDiagonal = std::hypot(m_state.width / 2.0, m_state.height / 2.0);
}

void MapCamera::setRange(double width)
{
    if (std::isnan(width))
        return;
    m_state.width = clampedWidth(width);
    updateRange();
}

void MapCamera::setCentre(LatLong centre)
{
    if (!std::isfinite(centre.latitude) || !std::isfinite(centre.longitude))
        return;
    m_state.latitude = std::clamp(centre.latitude, -90.0, 90.0);
    m_state.longitude = Tessa::wrappedLongitude(centre.longitude);
}

void MapCamera::cancelAnimations()
{
    m_state.isRangeAnimated = false;
    m_state.isPositionAnimated = false;
}

WindowPoint MapCamera::offsetOf(WindowPoint point) const
{
    return m_state.metresPerPixel *
           (point - WindowPoint{m_windowWidth / 2.0, m_windowHeight / 2.0});
}

bool MapCamera::isOnGlobe(WindowPoint point) const
{
    return length(offsetOf(point)) <= TUSK::Geodetic::radius;
}

void MapCamera::zoomAbout(WindowPoint point, double width)
{
    const std::optional<LatLong> place = globe().window2LatLong(point);
    setRange(width);
    if (place && isOnGlobe(point))
        setCentre(Tessa::centreShowing(*place, offsetOf(point), centre()));
}

void MapCamera::stepKeys(const MapKeys& keys)
{
    if (keys.zoomIn || keys.zoomOut) {
        m_state.isRangeAnimated = false;
        setRange(m_state.width / (keys.zoomIn ? keyZoom : 1.0) * (keys.zoomOut ? keyZoom : 1.0));
    }
    if (!keys.up && !keys.down && !keys.left && !keys.right)
        return;
    m_state.isPositionAnimated = false;
    const double step = m_state.width * keyStep / metresPerDegree;
    // Longitude steps grow without bound towards the poles.
    const double cosine = std::cos(m_state.latitude * radiansPerDegree);
    const double sideStep = step < longestKeyStep * cosine ? step / cosine : longestKeyStep;
    setCentre({m_state.latitude + (keys.up ? step : 0.0) - (keys.down ? step : 0.0),
               m_state.longitude + (keys.right ? sideStep : 0.0) - (keys.left ? sideStep : 0.0)});
}

void MapCamera::wheel(WindowPoint point, double angleDelta)
{
    const double base = m_state.isRangeAnimated ? m_state.targetWidth : m_state.width;
    cancelAnimations();
    zoomAbout(point, angleDelta < 1.0 ? base * wheelZoom : base / wheelZoom);
}

void MapCamera::doubleClick(WindowPoint point)
{
    const LatLong startCentre = centre();
    const double startWidth = m_state.width;
    zoomAbout(point, clampedWidth(startWidth / 2.0) / 2.0);
    m_state.targetLatitude = m_state.latitude;
    m_state.targetLongitude = m_state.longitude;
    m_state.targetWidth = m_state.width;
    setRange(startWidth);
    setCentre(startCentre);
    m_state.isRangeAnimated = true;
    m_state.isPositionAnimated = true;
}

bool MapCamera::stepAnimations()
{
    if (m_state.isRangeAnimated) {
        setRange(lagged(m_state.width, m_state.targetWidth));
        if (std::abs(m_state.width - m_state.targetWidth) <= rangeReached) {
            setRange(m_state.targetWidth);
            m_state.isRangeAnimated = false;
        }
    }
    if (m_state.follow != 0 && !m_state.isFollowWaiting)
        m_state.isPositionAnimated = false;
    if (m_state.isPositionAnimated) {
        // The shorter way around, which may cross 180 degrees.
        const double way = Tessa::wrappedLongitude(m_state.targetLongitude - m_state.longitude);
        setCentre({lagged(m_state.latitude, m_state.targetLatitude),
                   lagged(m_state.longitude, m_state.longitude + way)});
        if (TUSK::Geodetic::distance(m_state.latitude, m_state.longitude, m_state.targetLatitude,
                                     m_state.targetLongitude) < m_state.width * positionReached) {
            setCentre({m_state.targetLatitude, m_state.targetLongitude});
            m_state.isPositionAnimated = false;
        }
    }
    return m_state.isRangeAnimated || m_state.isPositionAnimated;
}

bool MapCamera::endFollowing()
{
    cancelAnimations();
    const bool wasOn = m_state.follow != 0;
    m_state.follow = 0;
    m_state.isFollowWaiting = false;
    return wasOn;
}

void MapCamera::press(WindowPoint point)
{
    m_pressPoint = point;
    m_pressPlace = globe().window2LatLong(point);
    m_pressCentre = centre();
    m_pressWidth = m_state.width;
    m_hasMoved = false;
}

void MapCamera::noteMovement(WindowPoint point)
{
    if (length(point - m_pressPoint) > movedPixels)
        m_hasMoved = true;
}

bool MapCamera::dragTo(WindowPoint point)
{
    const bool wasFollowing = endFollowing();
    noteMovement(point);
    if (m_pressPlace) {
        setCentre(Tessa::centreShowing(*m_pressPlace, offsetOf(point), centre()));
        return wasFollowing;
    }
    const double perPixel = m_state.metresPerPixel / metresPerDegree;
    setCentre({m_pressCentre.latitude - (point.y - m_pressPoint.y) * perPixel,
               m_pressCentre.longitude - (point.x - m_pressPoint.x) * perPixel});
    return wasFollowing;
}

void MapCamera::dragZoomTo(WindowPoint point)
{
    cancelAnimations();
    noteMovement(point);
    const double doublings = (point.y - m_pressPoint.y) / m_windowHeight * doublingsPerHeight;
    setRange(m_pressWidth / std::exp2(doublings));
}

bool MapCamera::pan(double right, double up)
{
    const bool wasFollowing = endFollowing();
    setCentre(Tessa::centreShowing(
        centre(), {right * m_state.metresPerPixel, up * m_state.metresPerPixel}, centre()));
    return wasFollowing;
}

void MapCamera::pinch(WindowPoint point, double factor)
{
    cancelAnimations();
    if (factor > 0.0)
        zoomAbout(point, m_state.width / factor);
}

void MapCamera::fit(const TrackBounds& bounds, std::span<const QRectF> covered)
{
    cancelAnimations();
    setCentre({(bounds.minLatitude + bounds.maxLatitude) / 2.0, (bounds.west + bounds.east) / 2.0});
    const Tessa::Globe globe = this->globe();
    // In the view the edges are curved, and may lie behind the limb: sample the whole area.
    constexpr int steps = 32;
    double right = 0.0;
    double top = 0.0;
    for (int i = 0; i <= steps; ++i) {
        for (int j = 0; j <= steps; ++j) {
            const auto view = globe.toView(TUSK::Geodetic::latLong2Cartesian(
                std::lerp(bounds.minLatitude, bounds.maxLatitude, i / double{steps}),
                std::lerp(bounds.west, bounds.east, j / double{steps})));
            right = view.z < 0.0 ? TUSK::Geodetic::radius : std::max(right, std::abs(view.x));
            top = view.z < 0.0 ? TUSK::Geodetic::radius : std::max(top, std::abs(view.y));
        }
    }
    const QSizeF window(m_windowWidth, m_windowHeight);
    const QRectF area = freeArea(window, covered, std::max(right, 1.0) / std::max(top, 1.0));
    const double half = std::max(right / area.width(), top / area.height()) * m_windowWidth;
    setRange(std::max(half * 2.0 * (1.0 + 2.0 * fitMargin), narrowestFit));
    const QPointF aside = area.center() - QRectF({0.0, 0.0}, window).center();
    setCentre(Tessa::centreShowing(
        centre(), {aside.x() * m_state.metresPerPixel, -aside.y() * m_state.metresPerPixel},
        centre()));
    m_state.isFollowWaiting = m_state.follow != 0;
}

void MapCamera::follow(LatLong aircraft)
{
    if (m_state.follow != 0 && !m_state.isFollowWaiting &&
        (aircraft.latitude != 0.0 || aircraft.longitude != 0.0))
        setCentre(aircraft);
}

} // namespace KOLT
