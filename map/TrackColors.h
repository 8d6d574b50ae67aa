#pragma once

#include "map/ValueScale.h"
#include "record/DataSet.h"

#include <QColor>
#include <QString>

#include <array>
#include <vector>

namespace KOLT {

/// The quantity that the track is coloured by.
struct TrackColorChoice
{
    enum class Kind : int { None = 0, Altitude = 1, GroundSpeed = 2, Parameter = 3 };

    Kind kind = Kind::None;
    QString parameter; ///< full name; of Kind::Parameter only

    friend bool operator==(const TrackColorChoice&, const TrackColorChoice&) = default;
};

/// Values along a track and the legend of its colours, in the profile's unit system.
struct TrackColors
{
    std::vector<float> values; ///< one per track point, NaN without a value; empty: no colours
    ValueScale scale;          ///< from the smallest to the largest value
    QString name;              ///< of the parameter
    QString lowText;           ///< "12.5 bar"
    QString highText;

    bool isEmpty() const { return values.empty(); }
};

/// Altitude and ground speed are taken from the track, none before they are known. A parameter has
/// the value of its latest sample at the point's time; none before its first sample, nor later than
/// 10 s after its last. Empty when there is no track, no such parameter or no finite value.
TrackColors trackColors(const TrackColorChoice& choice, const Profile& profile,
                        const DataSet& dataSet);

/// Colours from low to high. Lightness rises steadily, so that the order is visible without colour
/// vision; all stand out from a light map.
const std::array<QColor, ValueScale::steps>& trackColorRamp();

} // namespace KOLT
