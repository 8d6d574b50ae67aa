#pragma once

#include "map/AircraftTrack.h"
#include "map/MapMarks.h"
#include "map/TrackColors.h"
#include "map/TrackLine.h"
#include "record/TrackGaps.h"

#include <optional>
#include <vector>

namespace KOLT {

/// What the map shows of a data set: the track and its colours, the marks, the aircraft; and what
/// lies at a point of the window.
class MapContent
{
public:
    /// The track must stay valid until the next call; null for none. Its line is empty until
    /// buildLine().
    void setTrack(const std::vector<TrackPoint>* track, std::vector<TrackGap> gaps);
    /// Empty colours: the track has one colour.
    void setColors(TrackColors colors);

    bool isLineBuilt() const { return m_isLineBuilt; }

    void buildLine();

    const TrackLine& line() const { return m_line; }

    const TrackColors& colors() const { return m_colors; }

    /// Where the track begins; none without one.
    std::optional<Tessa::LatLong> start() const;

    /// The mark at a point of the window; null when there is none.
    const MapMark* markAt(const Tessa::Globe& globe, Tessa::WindowPoint point) const;

    /// The time of the mark or else of the point of the track that a click hits.
    std::optional<double> secondsAt(const Tessa::Globe& globe, Tessa::WindowPoint click) const;

    std::vector<MapMark> marks;
    AircraftTrack::Record aircraft;

private:
    const std::vector<TrackPoint>* m_track = nullptr;
    std::vector<TrackGap> m_gaps;
    bool m_isLineBuilt = true;
    TrackLine m_line;
    TrackColors m_colors;
};

} // namespace KOLT
