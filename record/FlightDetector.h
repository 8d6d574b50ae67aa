#pragma once

namespace KOLT {

/// State machine that finds take-offs and landings in a sequence of ground speeds (km/h).
///
/// The limits differ on purpose: a take-off run starts above 50 and continues at 50 or more; a
/// landing run counts samples of 40 or less. Either is confirmed by more than 10 samples. A sample
/// of exactly 40 while airborne counts towards the landing but does not start a landing run.
class FlightDetector
{
public:
    enum class Event { None, TakeOff, Landing };

    Event step(double groundSpeed)
    {
        switch (m_state) {
        case State::Ground:
            if (groundSpeed > takeOffSpeed)
                enter(State::TakeOffRun);
            return Event::None;
        case State::TakeOffRun:
            return takeOffRun(groundSpeed);
        case State::Airborne:
            if (groundSpeed < landingSpeed)
                enter(State::LandingRun);
            break;
        case State::LandingRun:
            break;
        }
        return landingRun(groundSpeed);
    }

private:
    enum class State { Ground, TakeOffRun, Airborne, LandingRun };

    static constexpr double takeOffSpeed = 50.0;
    static constexpr double landingSpeed = 40.0;
    static constexpr int confirmingSamples = 10;

    void enter(State state)
    {
        m_state = state;
        m_counter = 0;
    }

    Event takeOffRun(double groundSpeed)
    {
        if (groundSpeed >= takeOffSpeed) {
            ++m_counter;
        } else {
            m_counter = 1;
            m_state = State::Ground;
        }
        if (m_counter <= confirmingSamples)
            return Event::None;
        // The counter is kept on purpose: a sample of exactly 40 continues from it.
        m_state = State::Airborne;
        return Event::TakeOff;
    }

    Event landingRun(double groundSpeed)
    {
        if (groundSpeed > landingSpeed) {
            m_state = State::Airborne;
            m_counter = 1;
        } else {
            ++m_counter;
        }
        if (m_counter <= confirmingSamples)
            return Event::None;
        m_state = State::Ground;
        return Event::Landing;
    }

    State m_state = State::Ground;
    int m_counter = 0;
};

} // namespace KOLT
