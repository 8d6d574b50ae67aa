#pragma once

#include "tools/samplecard/Random.h"

#include <vector>

/// The tow plane's motion on the airfield and in the air: a point mass steered from waypoint to
/// waypoint.
namespace KOLT::SampleCard {

/// Length of one simulation step in seconds.
constexpr double stepSeconds = 0.02;

enum class Phase {
    PowerOn,
    Cranking,
    WarmUp,
    TaxiOut,
    RunUp,
    LineUp,
    Hookup,
    TakeOff,
    Abort,
    Tow,
    Descent,
    Downwind,
    Base,
    Final,
    RollOut,
    TaxiBack,
    TaxiIn,
    CoolDown,
    Done,
};

enum class Runway { West, East }; ///< take-off direction: runway 26 or 08

struct FlightPlan
{
    Runway runway = Runway::West;
    int count = 1;             ///< 0: ground test of the engine only
    int abortedBefore = 0;     ///< flight whose first take-off is aborted, 0: none
    bool endsInTheAir = false; ///< one more take-off, recorded only until the climb
    double warmUpSeconds = 120.0;
    double runUpSeconds = 12.0;
    double towHeight = 1.0; ///< factor of the heights at which gliders release
    double waiting = 1.0;   ///< factor of the times between line-up and take-off, from 0.7
};

/// Metres along the runway and across it; the circuit is on the negative side.
struct Point
{
    double along = 0.0;
    double across = 0.0;
};

/// SI units, radians. Height above the airfield; heading clockwise from the runway's direction.
struct Motion
{
    Point position;
    double height = 0.0;
    double speed = 0.0;
    double climb = 0.0;
    double heading = 0.0;
    double turnRate = 0.0;
    double acceleration = 0.0;
};

struct Controls
{
    double throttle = 0.0; ///< 0..1
    bool engineOn = false;
    bool starter = false;
    bool hookOpen = true;
    bool ropeAttached = false;
    double flaps = 0.0; ///< degrees
};

class Pilot
{
public:
    Pilot(const FlightPlan& plan, Random& random);

    void step();

    Phase phase() const { return m_phase; }

    /// Number of the current flight, from 1; it starts with the hook-up. 0 before the first.
    int flight() const { return m_flight; }

    const Motion& motion() const { return m_motion; }

    const Controls& controls() const { return m_controls; }

private:
    void advance(bool done, Phase next);
    void enter(Phase phase);
    void prepare(Phase phase);
    void prepareFlight();
    void stepOnGround();
    void stepLineUp();
    void stepHookup();
    void stepTakeOff();
    void stepInAir();
    void stepCircuit();
    void stepFinal();
    void stepRollOut();

    /// Follows the route; true at its end.
    bool taxi();
    void roll(double targetSpeed, double acceleration, Point target);
    void fly(double targetSpeed, double targetClimb, double maxTurnRate, Point target);
    /// The waypoint to steer for; sets `finished` once the last one is within `reach`.
    Point nextPoint(double reach, bool& finished);
    Point vary(Point point);

    Point pointOnCentreline(double ahead) const { return {m_motion.position.along + ahead, 0.0}; }

    void move();

    FlightPlan m_plan;
    Random& m_random;
    Phase m_phase = Phase::PowerOn;
    double m_phaseSeconds = 0.0;
    int m_flight = 0;
    bool m_hasAborted = false;
    bool m_repeatsFlight = false;
    Motion m_motion;
    Controls m_controls;
    std::vector<Point> m_route;
    std::size_t m_next = 0;

    // Drawn at random for each flight.
    double m_waitSeconds = 0.0;
    double m_pull = 1.0; ///< factor of the take-off acceleration: 1 for a light glider
    double m_towClimb = 3.2;
    double m_releaseHeight = 700.0;
    double m_sinkRate = 5.5;
    double m_descentSpeed = 48.0;
};

} // namespace KOLT::SampleCard
