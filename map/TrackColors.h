#pragma once

#include "map/ValueScale.h"
#include "record/DataSet.h"

#include <QColor>
#include <QString>

#include <array>
#include <vector>

namespace KOLT {

/// What the track is coloured by.
struct TrackColorChoice
{
    enum class Kind : int { None = 0, Altitude = 1, GroundSpeed = 2, Parameter = 3 };

    Kind kind = Kind::None;
    QString parameter; ///< full name; of Kind::Parameter only

    friend bool operator==(const TrackColorChoice&, const TrackColorChoice&) = default;
};

/// Values along a track and the legend of their colours, in the profile's unit system.
struct TrackColors
{
    std::vector<float> values; ///< one for each track point, NaN for none; empty: no colours
    ValueScale scale;          ///< from the smallest to the largest value
    QString name;              ///< of the parameter
    QString lowText;           ///< "12.5 bar"
    QString highText;

    bool isEmpty() const { return values.empty(); }
};

/// Altitude and ground speed are the track's own. A parameter counts with its last sample up to the
/// point's time; before its first sample, and from 10 s behind its last, there is none. Empty
/// without any number, track, or such a parameter.
TrackColors trackColors(const TrackColorChoice& choice, const Profile& profile,
                        const DataSet& dataSet);

/// From low to high: lightness rises steadily, so that the order can be told without seeing
/// colours, and all stand out from a light map.
const std::array<QColor, ValueScale::classes>& trackColorRamp();

} // namespace KOLT
