#pragma once

#include "libs/tessamap/globe/Globe.h"
#include "map/MapViewState.h"
#include "map/TrackBounds.h"

#include <QRectF>

#include <optional>
#include <span>

namespace KOLT {

/// The motion keys that are held down.
struct MapKeys
{
    bool zoomIn = false;
    bool zoomOut = false;
    bool up = false;
    bool down = false;
    bool left = false;
    bool right = false;

    bool any() const { return zoomIn || zoomOut || up || down || left || right; }
};

/// Moves the view as the user's input asks, without a window.
///
/// Points and sizes are in logical pixels; the origin is the lower left corner. The width stays
/// within 50 m and 70,000 km, the latitude within [-90, 90] and the longitude within [-180, 180);
/// height, metres per pixel and half diagonal are derived from the width. NaN and infinity are
/// ignored.
class MapCamera
{
public:
    static constexpr double narrowest = 50.0; ///< metres
    static constexpr double widest = 7e7;
    static constexpr double narrowestFit = 1000.0;

    /// The state must outlive the camera.
    explicit MapCamera(MapViewState& state);

    const MapViewState& state() const { return m_state; }

    /// The width of the visible range is kept.
    void setWindowSize(double width, double height);

    Tessa::LatLong centre() const { return {m_state.latitude, m_state.longitude}; }

    Tessa::Globe globe() const
    {
        return {centre(), m_state.metresPerPixel, m_windowWidth, m_windowHeight};
    }

    void setRange(double width);
    void setCentre(Tessa::LatLong centre);
    void cancelAnimations();

    /// Sets the width and keeps the place under the point where it is. When the point is off the
    /// globe before or after, the centre of the window is kept instead.
    void zoomAbout(Tessa::WindowPoint point, double width);

    /// One frame with keys held: zooms by 3 %, moves by 1.5 % of the visible width. Zooming ends a
    /// range animation, moving a position animation.
    void stepKeys(const MapKeys& keys);

    /// One notch of a mouse wheel; an angle below 1 (towards the user) zooms out. Ends animations.
    void wheel(Tessa::WindowPoint point, double angleDelta);

    /// Starts animating to a quarter of the width, about the point.
    void doubleClick(Tessa::WindowPoint point);

    /// Ends animations and follow mode. True when follow mode was on.
    bool endFollowing();

    /// Advances the animations by one frame of 0.02 s; true while any is running. In follow mode
    /// only the range is animated.
    bool stepAnimations();

    /// A mouse button goes down: drags start from here.
    void press(Tessa::WindowPoint point);
    /// Moves the place that was under the press point to this point; turns the globe when the press
    /// was off the globe. Ends animations and follow mode. True when follow mode was on.
    bool dragTo(Tessa::WindowPoint point);
    /// Zooms by the vertical distance from the press point: upwards zooms in, twofold for each
    /// quarter of the window's height. Ends animations.
    void dragZoomTo(Tessa::WindowPoint point);

    /// Whether a drag has been more than 20 pixels away from the press point.
    bool hasMoved() const { return m_hasMoved; }

    void release() { m_hasMoved = false; }

    /// Moves the picture by `right` and `up` pixels. Ends animations and follow mode. True when
    /// follow mode was on.
    bool pan(double right, double up);
    /// Enlarges the picture by the factor about the point. Ends animations.
    void pinch(Tessa::WindowPoint point, double factor);

    /// Shows the whole bounds in the area that `covered` leaves free (from the top left corner, see
    /// freeArea()), with a margin of a tenth of their size on each side, the window at least 1 km
    /// wide. Ends animations; follow mode is suspended until the aircraft moves.
    void fit(const TrackBounds& bounds, std::span<const QRectF> covered = {});

    /// In follow mode, centres the map on the aircraft. (0, 0) means no position and is ignored.
    void follow(Tessa::LatLong aircraft);

private:
    /// Metres from the centre of the window.
    Tessa::WindowPoint offsetOf(Tessa::WindowPoint point) const;
    bool isOnGlobe(Tessa::WindowPoint point) const;
    void noteMovement(Tessa::WindowPoint point);
    void updateRange();

    MapViewState& m_state;
    double m_windowWidth = 1.0;
    double m_windowHeight = 1.0;
    Tessa::WindowPoint m_pressPoint;
    std::optional<Tessa::LatLong> m_pressPlace; ///< none off the globe
    Tessa::LatLong m_pressCentre;
    double m_pressWidth = MapViewState::defaultWidth;
    bool m_hasMoved = false;
};

} // namespace KOLT
