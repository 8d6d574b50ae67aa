#pragma once

#include "analysis/NoteMark.h"
#include "libs/tessamap/globe/Globe.h"
#include "record/DataSet.h"

#include <QColor>
#include <QString>

#include <optional>
#include <vector>

namespace KOLT {

/// A sign on the map at the place where the aircraft was at a moment.
struct MapMark
{
    enum class Kind { TakeOff, Landing, Exceedance, Note };

    Kind kind = Kind::Exceedance;
    double seconds = 0.0;
    Tessa::LatLong place;
    QColor color;
    QString text;
};

/// The index of the latest point not later than `seconds`; none before the first point.
std::optional<std::size_t> trackPointAt(const std::vector<TrackPoint>& track, double seconds);

/// Take-offs and landings within the data set's time span, sorted by time.
std::vector<MapMark> flightMarks(const DataSet& dataSet);

/// Episodes of all quantities where they began, in the colour of the threshold step reached:
/// warnings, then limits, each sorted by time. Walks through all samples of parameters with
/// thresholds.
std::vector<MapMark> exceedanceMarks(const Profile& profile, const DataSet& dataSet);

/// Notes within the data set's time span, where the aircraft was then; sorted by time.
std::vector<MapMark> noteMarks(const DataSet& dataSet, const std::vector<NoteMark>& notes);

/// A mark and where it is drawn in the window.
struct PlacedMark
{
    const MapMark* mark = nullptr;
    Tessa::WindowPoint place;
};

/// The marks in the window, in drawing order. Of each kind at most one per pixel is returned: the
/// last, which would cover the others. This bounds the work of drawing them.
std::vector<PlacedMark> marksInWindow(const std::vector<MapMark>& marks, const Tessa::Globe& globe);

/// The mark nearest to a point of the window; of equally near ones the last, which is drawn on top.
/// Null when none is within 8 pixels.
const MapMark* markAt(const std::vector<MapMark>& marks, const Tessa::Globe& globe,
                      Tessa::WindowPoint point);

} // namespace KOLT
