#pragma once

#include <array>

namespace KOLT {

/// What the map shows and how. Owned by the map page and shared with the map widget. In metres and
/// degrees.
struct MapViewState
{
    static constexpr double defaultWidth = 6e6;

    double width = defaultWidth;  ///< of the visible range, 50 to 7e7
    double height = defaultWidth; ///< width * window height / window width
    double metresPerPixel = 1.0;
    double latitude = 48.0; ///< of the centre
    double longitude = 11.0;
    double halfDiagonal = 0.0;
    double widgetWidth = 0.0; ///< pixels

    double targetLatitude = 48.0;
    double targetLongitude = 11.0;
    double targetWidth = defaultWidth;
    bool isRangeAnimated = false;
    bool isPositionAnimated = false;

    bool isShaded = true;
    double contrast = 1.0;
    double brightness = 1.0;
    double factor = 0.5;
    std::array<float, 3> lightDirection{1.0F, -1.0F, -1.0F}; ///< in which light travels

    int follow = 2;               ///< not 0: every frame is centred on the aircraft
    bool isFollowWaiting = false; ///< suspended until the aircraft moves, as after a fit
    bool needsRepaint = false;
};

} // namespace KOLT
