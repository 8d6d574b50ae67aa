#pragma once

namespace KOLT {

/// The one current time of a data set, and the replay that moves it. Times of the data set are
/// seconds on the unit's counter, `now` is a wall clock in seconds. Knows no timer and no window:
/// who owns it calls step() as often as it likes, and the speed does not depend on how often.
class Replay
{
public:
    enum class State { Stopped, Running, Paused };

    static constexpr double minSpeed = 1.0;
    static constexpr double maxSpeed = 100.0;
    /// Steps of the position slider.
    static constexpr int positions = 10'000;

    /// Takes the span of a data set and goes to its start, stopped.
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

    /// Stops and rewinds.
    void stop();

    /// Moves the time by the wall-clock time since the last step times the speed. Beyond the end it
    /// stops and rewinds. Does nothing unless running.
    void step(double now);

    /// The slider's position of the current time, 0..positions within the span. 0 for a data set
    /// without extent.
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
