#include "map/MapContent.h"

namespace KOLT {

namespace {

constexpr double trackReach = 10.0; ///< pixels around the track that a click may be off

} // namespace

void MapContent::setTrack(const std::vector<TrackPoint>* track, std::vector<TrackGap> gaps)
{
    m_track = track;
    m_gaps = std::move(gaps);
    m_line = {}; // refers to the former track
    m_isLineBuilt = track == nullptr;
}

void MapContent::setColors(TrackColors colors)
{
    m_colors = std::move(colors);
    m_line.setValues(m_colors.values, m_colors.scale);
}

void MapContent::buildLine()
{
    if (m_isLineBuilt)
        return;
    m_isLineBuilt = true;
    m_line = TrackLine(*m_track, m_gaps);
    m_line.setValues(m_colors.values, m_colors.scale);
}

std::optional<Tessa::LatLong> MapContent::start() const
{
    if (m_track == nullptr || m_track->empty())
        return std::nullopt;
    return Tessa::LatLong{m_track->front().latitude, m_track->front().longitude};
}

const MapMark* MapContent::markAt(const Tessa::Globe& globe, Tessa::WindowPoint point) const
{
    return KOLT::markAt(marks, globe, point);
}

std::optional<double> MapContent::secondsAt(const Tessa::Globe& globe,
                                            Tessa::WindowPoint click) const
{
    if (const MapMark* const mark = markAt(globe, click))
        return mark->seconds;
    if (const auto point = m_line.nearestPoint(globe, click, trackReach))
        return (*m_track)[*point].seconds();
    return std::nullopt;
}

} // namespace KOLT
