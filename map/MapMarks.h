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

/// Exceedances of all parameters in the colour of what they reached, limits after warnings, each by
/// time. Goes through all samples of graded parameters.
std::vector<MapMark> exceedanceMarks(const Profile& profile, const DataSet& dataSet);

/// A mark to be drawn, at a point of the window.
struct PlacedMark
{
    const MapMark* mark = nullptr;
    Tessa::WindowPoint place;
};

/// The marks in the window, in their order, which is that of drawing. However many there are, of a
/// kind there is one at most on each pixel: the last, which would cover the others.
std::vector<PlacedMark> marksInWindow(const std::vector<MapMark>& marks, const Tessa::Globe& globe);

/// The mark nearest to a point of the window, of equally near ones the last; null when none is
/// within reach.
const MapMark* markAt(const std::vector<MapMark>& marks, const Tessa::Globe& globe,
                      Tessa::WindowPoint point);

} // namespace KOLT
