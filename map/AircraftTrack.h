#pragma once

#include "record/Track.h"

#include <limits>
#include <map>
#include <vector>

namespace KOLT {

/// Looks up where the aircraft was at a time, by half seconds.
class AircraftTrack
{
public:
    /// What is known of the aircraft at a time. Degrees, metres, km/h.
    struct Record
    {
        double latitude = 0.0;
        double longitude = 0.0;
        double altitude = 0.0;
        double groundSpeed = 0.0;
        double heading = 0.0; ///< over ground
        double seconds = 0.0;

        bool operator==(const Record&) const = default;
    };

    AircraftTrack() = default;

    /// The track must outlive this.
    explicit AircraftTrack(const std::vector<TrackPoint>& track)
        : m_track(&track)
    {
        // The points are sorted, so each is inserted at the end.
        for (std::size_t i = 0; i < track.size(); ++i)
            m_positions.emplace_hint(m_positions.end(), track[i].halfSecond, static_cast<int>(i));
    }

    /// The point of the half second that holds the time. A half second without a point gets the
    /// first point, and keeps it. All zeros without a track.
    Record at(double seconds)
    {
        const TrackPoint* const point = pointAt(seconds);
        if (point == nullptr)
            return {};
        return {point->latitude,    point->longitude, point->altitude,
                point->groundSpeed, point->heading,   point->seconds()};
    }

    /// The point of which at() tells; null without a track.
    const TrackPoint* pointAt(double seconds)
    {
        if (m_track == nullptr || m_track->empty())
            return nullptr;
        const int position = positionOf(seconds);
        if (position < 0 || position >= static_cast<int>(m_track->size()))
            return nullptr;
        return &(*m_track)[static_cast<std::size_t>(position)];
    }

    /// Half seconds with a point, including those that at() has assigned the first point to.
    std::size_t size() const { return m_positions.size(); }

private:
    int positionOf(double seconds)
    {
        const double slot = 2.0 * seconds;
        constexpr double limit = std::numeric_limits<int>::max();
        if (!(slot > -limit && slot < limit))
            return 0;
        return m_positions[static_cast<int>(slot)];
    }

    const std::vector<TrackPoint>* m_track = nullptr;
    std::map<int, int> m_positions; ///< by half seconds
};

} // namespace KOLT
