#include "tools/samplecard/Pilot.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace KOLT::SampleCard {

namespace {

// Throttle settings.
constexpr double idle = 0.08;
constexpr double warmUp = 0.13;
constexpr double taxiing = 0.15;
constexpr double runUp = 0.62;

constexpr double taxiSpeed = 5.6;
constexpr double liftOffSpeed = 26.4;
constexpr double towSpeed = 33.0;
constexpr double approachSpeed = 29.2;
constexpr double abortSpeed = 14.7;

// Positions on the field and in the circuit.
constexpr Point apron{450.0, -110.0};
constexpr Point apronExit{440.0, -60.0};
constexpr Point holdingPoint{-25.0, -58.0};
constexpr Point lineUpTurn{-18.0, -16.0};
constexpr double lineUpStop = 45.0;
constexpr double taxiway = -60.0;
constexpr double touchdownAim = 130.0;
constexpr double baseLeg = -1250.0;
constexpr double circuitHeight = 220.0;
constexpr double glideSlope = 0.06;

double wrapped(double angle)
{
    return std::remainder(angle, 2.0 * std::numbers::pi);
}

double bearing(const Motion& motion, Point target)
{
    return std::atan2(target.across - motion.position.across, target.along - motion.position.along);
}

double approach(double value, double target, double maxChange)
{
    return value + std::clamp(target - value, -maxChange, maxChange);
}

} // namespace

Pilot::Pilot(const FlightPlan& plan, Random& random)
    : m_plan(plan)
    , m_random(random)
{
    m_motion.position = apron;
    m_motion.heading = std::numbers::pi / 2;
    prepare(m_phase);
}

void Pilot::step()
{
    switch (m_phase) {
    case Phase::TakeOff:
        stepTakeOff();
        break;
    case Phase::Tow:
    case Phase::Descent:
        stepInAir();
        break;
    case Phase::Downwind:
    case Phase::Base:
        stepCircuit();
        break;
    case Phase::Final:
        stepFinal();
        break;
    case Phase::Abort:
    case Phase::RollOut:
        stepRollOut();
        break;
    default:
        stepOnGround();
        break;
    }
    m_phaseSeconds += stepSeconds;
}

void Pilot::advance(bool done, Phase next)
{
    if (done)
        enter(next);
}

void Pilot::enter(Phase phase)
{
    m_phase = phase;
    m_phaseSeconds = 0.0;
    prepare(phase);
}

void Pilot::prepare(Phase phase)
{
    const Point here = m_motion.position;
    m_next = 0;
    switch (phase) {
    case Phase::TaxiOut:
        m_route = {apronExit, {380.0, taxiway}, {10.0, taxiway}, holdingPoint};
        break;
    case Phase::LineUp:
        m_route = {lineUpTurn};
        break;
    case Phase::Hookup:
        prepareFlight();
        break;
    case Phase::Tow:
        m_route = {vary({1900.0, -250.0}), vary({2400.0, -2300.0}), vary({-1700.0, -2700.0}),
                   vary({-2400.0, -1000.0}), vary({300.0, -1900.0})};
        break;
    case Phase::Descent:
        m_route = {vary({-500.0, -2700.0}), vary({2000.0, -2300.0})};
        break;
    case Phase::Downwind:
        m_route = {{1200.0, -1100.0}, {-900.0, -1000.0}};
        break;
    case Phase::Base:
        m_route = {{baseLeg, -150.0}};
        break;
    case Phase::TaxiBack:
        m_route = {{here.along + 22.0, -14.0},
                   {here.along + 18.0, -48.0},
                   {here.along - 10.0, taxiway},
                   {10.0, taxiway},
                   holdingPoint};
        break;
    case Phase::TaxiIn:
        m_route = {{here.along + 22.0, -14.0},
                   {here.along + 18.0, -48.0},
                   {here.along - 10.0, taxiway},
                   apronExit,
                   apron};
        break;
    default:
        m_route.clear();
        break;
    }
}

void Pilot::prepareFlight()
{
    m_controls.flaps = 10.0;
    m_waitSeconds = m_plan.waiting * m_random.uniform(72.0, 105.0);
    if (m_repeatsFlight) {
        m_repeatsFlight = false;
        return;
    }
    ++m_flight;
    m_pull = m_random.uniform(0.92, 1.04);
    m_towClimb = m_random.uniform(3.1, 4.0);
    m_releaseHeight = m_plan.towHeight * m_random.uniform(620.0, 980.0);
    m_sinkRate = m_random.uniform(4.9, 6.6);
    m_descentSpeed = m_random.uniform(45.5, 51.5);
}

Point Pilot::vary(Point point)
{
    return {point.along + m_random.noise(200.0), point.across + m_random.noise(200.0)};
}

void Pilot::stepOnGround()
{
    switch (m_phase) {
    case Phase::PowerOn:
        advance(m_phaseSeconds > 8.0, Phase::Cranking);
        break;
    case Phase::Cranking:
        m_controls.engineOn = true;
        m_controls.starter = true;
        advance(m_phaseSeconds > 2.4, Phase::WarmUp);
        break;
    case Phase::WarmUp:
        m_controls.starter = false;
        m_controls.throttle = warmUp;
        advance(m_phaseSeconds > m_plan.warmUpSeconds, Phase::TaxiOut);
        break;
    case Phase::TaxiOut:
        advance(taxi(), Phase::RunUp);
        break;
    case Phase::RunUp:
        roll(0.0, 1.3, pointOnCentreline(50.0));
        m_controls.throttle =
            m_phaseSeconds > 4.0 && m_phaseSeconds < 4.0 + m_plan.runUpSeconds ? runUp : idle;
        advance(m_phaseSeconds > 10.0 + m_plan.runUpSeconds,
                m_plan.count > 0 ? Phase::LineUp : Phase::TaxiIn);
        break;
    case Phase::TaxiBack:
        advance(taxi(), Phase::LineUp);
        break;
    case Phase::LineUp:
        stepLineUp();
        break;
    case Phase::Hookup:
        stepHookup();
        break;
    case Phase::TaxiIn:
        advance(taxi(), Phase::CoolDown);
        break;
    default:
        roll(0.0, 1.3, apron);
        m_controls.throttle = idle;
        advance(m_phase == Phase::CoolDown && m_phaseSeconds > 60.0, Phase::Done);
        break;
    }
}

void Pilot::stepLineUp()
{
    m_controls.throttle = taxiing;
    const bool onCentreline = m_next >= m_route.size();
    bool finished = false;
    const Point target = onCentreline ? pointOnCentreline(14.0) : nextPoint(9.0, finished);
    const bool braking = m_motion.position.along > lineUpStop - 4.0;
    roll(braking ? 0.0 : 3.5, 1.3, target);
    advance(braking && m_motion.speed < 0.01, Phase::Hookup);
}

void Pilot::stepHookup()
{
    m_controls.throttle = idle;
    m_controls.hookOpen = m_phaseSeconds < 30.0;
    m_controls.ropeAttached = m_phaseSeconds > 45.0;
    advance(m_phaseSeconds > m_waitSeconds, Phase::TakeOff);
}

void Pilot::stepTakeOff()
{
    m_controls.throttle = 1.0;
    // The brakes hold until the engine has spooled up.
    const double pull =
        m_phaseSeconds < 2.5 ? 0.0 : 1.56 * m_pull * (1.0 - std::pow(m_motion.speed / 65.0, 2.0));
    roll(60.0, pull, pointOnCentreline(80.0));
    const bool givesUp = m_flight == m_plan.abortedBefore && !m_hasAborted;
    if (givesUp && m_motion.speed > abortSpeed) {
        m_hasAborted = true;
        m_repeatsFlight = true;
        enter(Phase::Abort);
    } else {
        advance(m_motion.speed > liftOffSpeed, Phase::Tow);
    }
}

void Pilot::stepInAir()
{
    const double height = m_motion.height;
    bool finished = false;
    if (m_phase == Phase::Tow) {
        m_controls.flaps = height > 100.0 ? 0.0 : 10.0;
        m_controls.throttle = height > 150.0 ? 0.97 : 1.0;
        const Point target = height < 120.0 ? pointOnCentreline(600.0) : nextPoint(520.0, finished);
        fly(towSpeed, m_towClimb * (1.0 - height / 4500.0), 0.07, target);
        if (finished)
            m_next = 1;
        advance(height > m_releaseHeight, Phase::Descent);
        const bool isLast = m_plan.endsInTheAir && m_flight > m_plan.count;
        advance(isLast && m_phaseSeconds > 140.0, Phase::Done);
        return;
    }
    m_controls.ropeAttached = false;
    m_controls.hookOpen = m_phaseSeconds < 6.0;
    m_controls.throttle = 0.36;
    fly(m_descentSpeed, -m_sinkRate, 0.11, nextPoint(520.0, finished));
    if (finished)
        m_next = 0;
    advance(height < 330.0, Phase::Downwind);
}

void Pilot::stepCircuit()
{
    m_controls.throttle = m_phase == Phase::Downwind ? 0.34 : 0.27;
    m_controls.flaps = m_phase == Phase::Downwind ? 10.0 : 20.0;
    const Point here = m_motion.position;
    const double toFinal = touchdownAim - baseLeg - here.across;
    const double toBase = m_next == 0 ? 2.0 * circuitHeight / glideSlope : here.along - baseLeg;
    const double wayToGo = m_phase == Phase::Downwind ? toFinal + toBase : toFinal;

    const double wanted = std::min(circuitHeight, glideSlope * wayToGo);
    const double along = wanted < circuitHeight ? -glideSlope * m_motion.speed : 0.0;
    const double climb = std::clamp(along + 0.3 * (wanted - m_motion.height), -5.0, 0.8);
    bool finished = false;
    const Point target = nextPoint(m_phase == Phase::Downwind ? 380.0 : 60.0, finished);
    fly(m_phase == Phase::Downwind ? 37.0 : 32.0, climb, 0.11, target);
    advance(finished || (m_phase == Phase::Base && here.across > -400.0),
            m_phase == Phase::Downwind ? Phase::Base : Phase::Final);
}

void Pilot::stepFinal()
{
    Motion& motion = m_motion;
    m_controls.flaps = 30.0;
    const double wanted = glideSlope * std::max(0.0, touchdownAim - motion.position.along);
    const bool flare = motion.height < 6.0;
    m_controls.throttle = flare ? idle : 0.24;
    const double glide = -glideSlope * motion.speed + 0.35 * (wanted - motion.height);
    const double climb = flare ? -0.5 - 0.14 * motion.height : std::clamp(glide, -4.0, 0.5);
    fly(flare ? approachSpeed - 2.5 : approachSpeed, climb, 0.12, pointOnCentreline(320.0));
    if (motion.height > 0.0)
        return;
    motion.height = 0.0;
    motion.climb = 0.0;
    enter(Phase::RollOut);
}

void Pilot::stepRollOut()
{
    m_controls.throttle = idle;
    const bool rejected = m_phase == Phase::Abort;
    m_controls.ropeAttached = false;
    m_controls.hookOpen = true;
    // A rejected take-off is braked hard, a landing gently.
    roll(taxiSpeed, rejected ? 2.4 : 1.7, pointOnCentreline(80.0));
    const bool lastFlight = m_flight >= m_plan.count && !m_plan.endsInTheAir;
    advance(m_motion.speed <= taxiSpeed + 0.01,
            lastFlight && !rejected ? Phase::TaxiIn : Phase::TaxiBack);
}

bool Pilot::taxi()
{
    m_controls.throttle = taxiing;
    m_controls.flaps = 0.0;
    bool finished = false;
    const Point target = nextPoint(10.0, finished);
    roll(taxiSpeed, m_motion.speed > taxiSpeed ? 1.3 : 0.6, target);
    return finished;
}

void Pilot::roll(double targetSpeed, double acceleration, Point target)
{
    const double before = m_motion.speed;
    m_motion.speed = approach(before, targetSpeed, acceleration * stepSeconds);
    m_motion.acceleration = (m_motion.speed - before) / stepSeconds;
    m_motion.climb = 0.0;
    // The nose wheel allows a turning radius of eight metres.
    const double limit = std::min(0.5, before / 8.0);
    const double error = wrapped(bearing(m_motion, target) - m_motion.heading);
    m_motion.turnRate = std::clamp(error, -limit, limit);
    move();
}

void Pilot::fly(double targetSpeed, double targetClimb, double maxTurnRate, Point target)
{
    const double before = m_motion.speed;
    const double change = std::clamp(0.25 * (targetSpeed - before), -0.8, 1.1);
    m_motion.speed += change * stepSeconds;
    m_motion.acceleration = change;
    const double pull = std::clamp((targetClimb - m_motion.climb) / 1.2, -1.6, 1.6);
    m_motion.climb += pull * stepSeconds;

    const double error = wrapped(bearing(m_motion, target) - m_motion.heading);
    const double wanted = std::clamp(0.35 * error, -maxTurnRate, maxTurnRate);
    m_motion.turnRate += (wanted - m_motion.turnRate) * stepSeconds / 0.9;
    move();
}

Point Pilot::nextPoint(double reach, bool& finished)
{
    const Point here = m_motion.position;
    const Point target = m_route[std::min(m_next, m_route.size() - 1)];
    if (std::hypot(target.along - here.along, target.across - here.across) < reach)
        ++m_next;
    finished = m_next >= m_route.size();
    return target;
}

void Pilot::move()
{
    m_motion.heading = wrapped(m_motion.heading + m_motion.turnRate * stepSeconds);
    m_motion.position.along += m_motion.speed * std::cos(m_motion.heading) * stepSeconds;
    m_motion.position.across += m_motion.speed * std::sin(m_motion.heading) * stepSeconds;
    m_motion.height += m_motion.climb * stepSeconds;
}

} // namespace KOLT::SampleCard
