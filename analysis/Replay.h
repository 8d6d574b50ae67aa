#pragma once

namespace KOLT {

/// The current time within a data set, and the replay that advances it. Times are seconds on the
/// counter; `now` is a wall clock in seconds. Has no timer: the owner calls step() at any rate, and
/// the replay's speed does not depend on that rate.
class Replay
{
public:
    enum class State { Stopped, Running, Paused };

    static constexpr double minSpeed = 1.0;
    static constexpr double maxSpeed = 100.0;
    /// Range of the position slider.
    static constexpr int positions = 10'000;

    /// Sets the span of a data set, stops and goes to its start.
    void setSpan(double first, double last)
    {
        m_first = first;
        m_last = last;
        stop();
    }

    State state() const { return m_state; }

    double time() const { return m_time; }

    double first() const { return m_first; }

    double last() const { return m_last; }

    double speed() const { return m_speed; }

    void setTime(double time) { m_time = time; }

    void setSpeed(double speed);

    /// Starts, pauses or resumes.
    void toggle(double now);

    /// Stops and goes to the start.
    void stop();

    /// Advances the time by the wall-clock time since the last step, times the speed. Past the end
    /// it stops and goes to the start. Does nothing unless running.
    void step(double now);

    /// The slider position of the current time, from 0 to `positions`; 0 if the span is empty.
    int position() const;
    double timeAt(int position) const;

private:
    State m_state = State::Stopped;
    double m_first = 0.0;
    double m_last = 0.0;
    double m_time = 0.0;
    double m_speed = minSpeed;
    double m_lastStep = 0.0;
};

} // namespace KOLT
