#pragma once

#include "libs/tessamap/globe/Globe.h"
#include "record/DataSet.h"

#include <QColor>
#include <QString>

#include <optional>
#include <vector>

namespace KOLT {

/// Something to be shown on the map at the place where the aircraft was.
struct MapMark
{
    enum class Kind { TakeOff, Landing, Exceedance };

    Kind kind = Kind::Exceedance;
    double seconds = 0.0;
    Tessa::LatLong place;
    QColor color;
    QString text;
};

/// The latest point not later than a time; none before the first.
std::optional<std::size_t> trackPointAt(const std::vector<TrackPoint>& track, double seconds);

/// Take-offs and landings within the data set's span, by time.
std::vector<MapMark> flightMarks(const DataSet& dataSet);

/// Exceedances of all parameters in the colour of what they reached, by time. Goes through all
/// samples of graded parameters.
std::vector<MapMark> exceedanceMarks(const Profile& profile, const DataSet& dataSet);

} // namespace KOLT
