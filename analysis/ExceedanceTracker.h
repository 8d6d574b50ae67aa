#pragma once

#include "analysis/CrossingDetector.h"

#include <QString>

#include <vector>

namespace KOLT {

/// One crossing of a threshold with the worst value until the return to normal. Valid as long as
/// the profile is not loaded again.
struct Exceedance
{
    const ProfileParameter* parameter = nullptr;
    ThresholdState state = ThresholdState::Ok; ///< that was reached by the crossing
    double seconds = 0.0;                      ///< of the crossing, on the unit's counter
    double peak = 0.0;                         ///< metric
    MessageData peakData{};
    double excess = 0.0; ///< distance of the peak from the threshold, relative to the threshold

    /// The peak in the profile's unit system, with its unit.
    QString peakText(const Profile& profile) const;
};

/// A limit is worse than a warning. Of the same state the one is worse that went farther beyond its
/// threshold in proportion to it, then the earlier one.
bool isWorse(const Exceedance& a, const Exceedance& b);

/// Follows the exceedances of one parameter until they are over.
class ExceedanceTracker
{
public:
    ExceedanceTracker(const ProfileParameter& parameter, PositionFilter filter)
        : m_detector(parameter, filter)
    {
    }

    /// Takes a sample; true if it crossed. What is over is appended to `over`.
    bool step(const Profile& profile, const MessageData& data, std::uint32_t timeHigh,
              std::uint32_t timeLow, std::vector<Exceedance>& over)
    {
        const bool isCrossing = m_detector.step(data);
        if (m_isFirst || isCrossing || !m_open.empty())
            return follow(profile, isCrossing, data, timeHigh, timeLow, over);
        return false;
    }

    /// The recording has ended: nothing lasts longer.
    void finish(std::vector<Exceedance>& over);

    const ProfileParameter& parameter() const { return m_detector.parameter(); }

    /// What the last sample was.
    const CrossingDetector& detector() const { return m_detector; }

    bool isLamp() const { return m_isLamp; }

    /// Whether the first sample was beyond a threshold.
    bool isOnFromTheStart() const { return m_isOnFromTheStart; }

private:
    /// A crossing with the extremes until the next one.
    struct Open
    {
        Exceedance exceedance;
        bool isRising = true;
        double threshold = 0.0;
        double lowest = 0.0;
        double highest = 0.0;
        MessageData lowestData{};
        MessageData highestData{};
    };

    bool follow(const Profile& profile, bool isCrossing, const MessageData& data,
                std::uint32_t timeHigh, std::uint32_t timeLow, std::vector<Exceedance>& over);
    void open(const MessageData& data, double seconds);

    CrossingDetector m_detector;
    std::vector<Open> m_open; ///< since the parameter was normal
    bool m_isLamp = m_detector.parameter().role == Role::WarningLamp;
    bool m_isFirst = true;
    bool m_isOnFromTheStart = false;
};

} // namespace KOLT
