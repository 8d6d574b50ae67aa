#pragma once

#include "profile/ProfileParameter.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace KOLT {

/// When a sample came, and the one of the same message before it. Seconds on the counter.
struct SampleTime
{
    double seconds = 0.0;
    double before = 0.0;   ///< of the sample before
    double first = 0.0;    ///< of the message's first sample
    std::size_t index = 0; ///< of the sample in its message; the first has none before it

    /// Whether the message was silent before this sample: for more than two seconds and ten times
    /// the mean spacing of its samples until then.
    bool isBehindHole() const;
};

/// A time in which a parameter was not back to normal: beyond a threshold, or so close to it that
/// the hysteresis lies in between.
struct Excursion
{
    double from = 0.0;
    double to = 0.0;            ///< the sample that is back, or the last one before a hole or end
    double firstCrossing = 0.0; ///< this and the next two: only with crossings
    double firstWorst = 0.0;    ///< the first crossing that reached the state
    ThresholdState state = ThresholdState::Ok; ///< the worst that a crossing reached
    bool isHigh = true;                        ///< that crossing left normal upwards
    bool isCut = false;                        ///< began or ended unseen, or with a hole in it
    std::uint32_t crossings = 0;
    std::uint32_t firstIndex = 0; ///< of its samples in the message
    std::uint32_t behindIndex = 0;
};

/// Finds the excursions of one parameter, from all of its samples in stored order.
class ExcursionTracker
{
public:
    /// The parameter must have a threshold. Without `keepsBands`, excursions without a crossing are
    /// dropped.
    ExcursionTracker(const ProfileParameter& parameter, bool keepsBands);

    /// Whether the value is back and was so before: then there is no need to call step(), which may
    /// also be left out for samples that are the same as the one before.
    bool isIdle(double number) const
    {
        return !m_isOpen && number >= m_backLow && number <= m_backHigh;
    }

    void step(double number, ThresholdState state, bool isCrossing, const SampleTime& time);

    /// The recording has ended; `count` samples, the last of them at the time.
    void finish(double lastSeconds, std::size_t count);

    /// By their order in the recording.
    const std::vector<Excursion>& excursions() const { return m_excursions; }

private:
    struct Range
    {
        double low;
        double high;
        double backLow; ///< the part of it that is back
        double backHigh;
    };

    bool findBack(double number);

    /// Whether a value beyond a threshold lies above what was normal last.
    bool isHigh(double number) const;

    void open(ThresholdState state, const SampleTime& time, bool isBehindHole);
    void close(double seconds, std::size_t behindIndex);

    std::vector<Range> m_normal; ///< the values that are normal, ascending
    bool m_keepsBands;
    bool m_isOpen = false;
    double m_backLow = 0.0; ///< the last part that was back; at first none
    double m_backHigh = -1.0;
    Excursion m_current;
    std::vector<Excursion> m_excursions;
};

} // namespace KOLT
