#pragma once

#include "analysis/FlightPhase.h"
#include "profile/Profile.h"

#include <QString>

#include <cstddef>
#include <optional>
#include <vector>

/// What an engine shop judges: how far and how long a quantity was beyond its thresholds
/// (docs/flights.md, "Episodes"). Times are seconds on the unit's counter, values are metric.
/// Parameters live until the profile is loaded again.
namespace KOLT {

/// A value at one moment.
struct MomentValue
{
    const ProfileParameter* parameter = nullptr;
    double number = 0.0;
};

/// How long an episode was beyond one level between step and peak.
struct EpisodeLevel
{
    double level = 0.0;
    double seconds = 0.0;
};

/// The value farthest from normal on the side to which it left.
struct EpisodePeak
{
    const ProfileParameter* parameter = nullptr;
    double number = 0.0;
    double seconds = 0.0;
};

/// Crossings of one quantity that belong together.
struct Episode
{
    static constexpr int levelCount = 10;

    QString quantity;                                ///< of lamps alone, the lamp's name
    std::vector<const ProfileParameter*> parameters; ///< that crossed, in profile order
    ThresholdState state = ThresholdState::Ok;       ///< the worst that measured values reached
    bool isLampOnly = false;                         ///< no measured value crossed
    bool isHigh = true;                              ///< it left upwards
    double begin = 0.0;                              ///< the first crossing
    double end = 0.0;          ///< all are back by the hysteresis, or no longer recorded
    bool isCut = false;        ///< by a hole or the recording's edge: figures are "at least"
    std::size_t crossings = 0; ///< events of the lists
    double secondsBeyondWarning = 0.0; ///< beyond a limit included
    double secondsBeyondLimit = 0.0;
    std::optional<EpisodePeak> peak;          ///< none of lamps
    std::optional<double> warningStep;        ///< on that side, of the peak's parameter; where
    std::optional<double> limitStep;          ///< normal ends, and where the limit begins
    std::vector<EpisodeLevel> levels;         ///< levelCount from the step on; none without a peak
    FlightPhase phase = FlightPhase::Unknown; ///< this and what follows: at the peak; of lamps
    std::optional<double> engineSpeed;        ///< alone, at the begin. None if it is not known
    std::optional<double> throttle;
    std::optional<double> altitude;
    std::optional<double> groundSpeed;
    std::vector<MomentValue> group; ///< the other parameters with the peak's threshold list

    double duration() const { return end - begin; }

    /// The moment that the figures above are of.
    double moment() const { return peak ? peak->seconds : begin; }

    /// With its unit, in the profile's unit system; empty without a peak.
    QString peakText(const Profile& profile) const;
};

/// In a line: "Engine Speed 5803 rpm, for 5.0 s: 1 episode (8 crossings)".
QString episodeLine(const Profile& profile, const Episode& episode);

/// The colour of the threshold step that was reached.
QRgb episodeColor(const Episode& episode);

/// Full counts: "1 episode (8 crossings)".
QString episodeCountText(std::size_t episodes, std::size_t crossings);

/// For a table: the same, or "0" without crossings.
QString episodeCellText(std::size_t episodes, std::size_t crossings);

/// Episodes with their crossings, counted apart.
struct EpisodeCounts
{
    struct Count
    {
        std::size_t episodes = 0;
        std::size_t crossings = 0;

        bool operator==(const Count&) const = default;
    };

    Count limits;
    Count warnings;
    Count lamps; ///< alone

    void add(const Episode& episode);
    void add(const EpisodeCounts& other);

    bool operator==(const EpisodeCounts&) const = default;
};

/// A parameter that was beyond a threshold at its first sample, which is no crossing.
struct StateAtStart
{
    const ProfileParameter* parameter = nullptr;
    ThresholdState state = ThresholdState::Ok;
};

/// A time in which a fault of a matrix was set.
struct FaultOccurrence
{
    const ProfileParameter* parameter = nullptr;
    double begin = 0.0;
    double end = 0.0;
    bool isCut = false; ///< by a hole or the recording's edge: it lasted at least so long

    double duration() const { return end - begin; }
};

} // namespace KOLT
