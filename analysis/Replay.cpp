#include "analysis/Replay.h"

#include <algorithm>

namespace KOLT {

void Replay::setSpeed(double speed)
{
    m_speed = std::clamp(speed, minSpeed, maxSpeed);
}

void Replay::toggle(double now)
{
    if (m_state == State::Running) {
        m_state = State::Paused;
        return;
    }
    m_state = State::Running;
    m_lastStep = now;
}

void Replay::stop()
{
    m_state = State::Stopped;
    m_time = m_first;
}

void Replay::step(double now)
{
    if (m_state != State::Running)
        return;
    m_time += (now - m_lastStep) * m_speed;
    m_lastStep = now;
    if (m_time > m_last)
        stop();
}

int Replay::position() const
{
    const double extent = m_last - m_first;
    if (!(extent > 0.0))
        return 0;
    const double position = (m_time - m_first) / extent * positions;
    return static_cast<int>(std::clamp(position, 0.0, static_cast<double>(positions)));
}

double Replay::timeAt(int position) const
{
    return m_first + (m_last - m_first) / positions * position;
}

} // namespace KOLT
