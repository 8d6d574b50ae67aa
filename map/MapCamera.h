#pragma once

#include "libs/tessamap/globe/Globe.h"
#include "map/MapViewState.h"
#include "map/TrackBounds.h"

#include <optional>

namespace KOLT {

/// The motion keys that are held.
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

/// How input moves the map: rules on a view state, without a window.
///
/// Points and sizes are logical pixels, points counted from the lower left corner. Whatever
/// happens, the width stays within 50 m and 70,000 km, the latitude within the poles and the
/// longitude within [-180, 180); height, metres per pixel and half diagonal follow the width.
/// Numbers that are none change nothing.
class MapCamera
{
public:
    static constexpr double narrowest = 50.0; ///< metres
    static constexpr double widest = 7e7;
    static constexpr double narrowestFit = 1000.0;

    /// The state must outlive the camera.
    explicit MapCamera(MapViewState& state);

    const MapViewState& state() const { return m_state; }

    /// Keeps the width of the range.
    void setWindowSize(double width, double height);

    Tessa::LatLong centre() const { return {m_state.latitude, m_state.longitude}; }

    Tessa::Globe globe() const
    {
        return {centre(), m_state.metresPerPixel, m_windowWidth, m_windowHeight};
    }

    void setRange(double width);
    void setCentre(Tessa::LatLong centre);
    void cancelAnimations();

    /// Sets the width so that the place under the point stays there; about the centre of the
    /// window where the point lies beside the globe, before or after.
    void zoomAbout(Tessa::WindowPoint point, double width);

    /// One frame with keys held: 3 % of zoom, 1.5 % of the visible width of way. Zooming ends a
    /// running zoom animation, moving a running glide.
    void stepKeys(const MapKeys& keys);

    /// One notch of a mouse wheel: towards the user (below 1) zooms out. Ends animations.
    void wheel(Tessa::WindowPoint point, double angleDelta);

    /// Starts gliding to a quarter of the width, about the point.
    void doubleClick(Tessa::WindowPoint point);

    /// Ends animations and follow mode; true when it was on.
    bool endFollowing();

    /// One frame of 0.02 s of the running animations. True while one runs. While the map follows
    /// the aircraft, only the range glides.
    bool stepAnimations();

    /// A button goes down: where drags start from.
    void press(Tessa::WindowPoint point);
    /// Brings the place that was under the press point under this one; pressed beside the globe,
    /// turns the globe. Ends animations and follow mode; true when it was on.
    bool dragTo(Tessa::WindowPoint point);
    /// Zooms by the vertical way from the press point: upwards in, twofold each quarter of the
    /// window's height. Ends animations.
    void dragZoomTo(Tessa::WindowPoint point);

    /// The pointer was dragged more than 20 pixels away from the press point since the press.
    bool hasMoved() const { return m_hasMoved; }

    void release() { m_hasMoved = false; }

    /// Moves the picture by so many pixels, right and up. Ends animations and follow mode; true
    /// when it was on.
    bool pan(double right, double up);
    /// Enlarges the picture by the factor about the point. Ends animations.
    void pinch(Tessa::WindowPoint point, double factor);

    /// Shows all of the bounds with a tenth of their size to spare on each side, at least 1 km.
    /// Ends animations; follow mode then waits for the aircraft to move.
    void fit(const TrackBounds& bounds);

    /// In follow mode, puts the centre on the aircraft. A place of exactly (0, 0), as it stands for
    /// none, is not followed.
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
    std::optional<Tessa::LatLong> m_pressPlace; ///< none beside the globe
    Tessa::LatLong m_pressCentre;
    double m_pressWidth = MapViewState::defaultWidth;
    bool m_hasMoved = false;
};

/// The centre of a globe that shows `place` at an offset in metres from the window's centre. The
/// offset is brought into the disc of the globe. Of the two solutions the one on the side of the
/// pole where `before` has the place; where north up leaves none, the nearest.
Tessa::LatLong centreShowing(Tessa::LatLong place, Tessa::WindowPoint offset,
                             Tessa::LatLong before);

} // namespace KOLT
