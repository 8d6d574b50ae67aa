#include "analysis/FlightPhase.h"

#include "record/FlightDetector.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <limits>

namespace KOLT {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// As in docs/flights.md.
constexpr double flyingSpeed = 50.0;       // km/h; faster at the first sample: it is in the air
constexpr double rollingSpeed = 20.0;      // km/h, at which the take-off run begins
constexpr double nearGround = 50.0;        // metres of height
constexpr double longestNearGround = 60.0; // seconds
constexpr double runningSpeed = 500.0;     // rpm
constexpr double startSeconds = 30.0;
constexpr double stopSeconds = 10.0;
constexpr double knownSeconds = 10.0; // without a ground speed nothing is known
constexpr double slopeSeconds = 15.0; // before and after, in which the rate of climb is taken
constexpr double shortestSlope = 5.0;
constexpr double levelRate = 1.0; // m/s

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(KOLT::FlightPhase)
};

struct Moment
{
    double seconds;
    double value;
};

/// The finite values within [from, to], by time.
std::vector<Moment> valuesWithin(const RoleSeries& series, const TimeOrdered& byTime, double from,
                                 double to)
{
    std::vector<Moment> values;
    std::size_t i =
        byTime.countWhile([=](const StoredSample& one) { return one.seconds() < from; });
    for (; i < byTime.size() && byTime[i].seconds() <= to; ++i) {
        const double value = series.value(byTime[i]);
        if (std::isfinite(value))
            values.push_back({byTime[i].seconds(), value});
    }
    return values;
}

} // namespace

QString phaseName(FlightPhase phase)
{
    switch (phase) {
    case FlightPhase::Start:
        return QStringLiteral("start");
    case FlightPhase::Ground:
        return QStringLiteral("ground");
    case FlightPhase::TakeOff:
        return QStringLiteral("take-off");
    case FlightPhase::Climb:
        return QStringLiteral("climb");
    case FlightPhase::Cruise:
        return QStringLiteral("cruise");
    case FlightPhase::Descent:
        return QStringLiteral("descent");
    case FlightPhase::Landing:
        return QStringLiteral("landing");
    case FlightPhase::Shutdown:
        return QStringLiteral("shutdown");
    case FlightPhase::Unknown:
        break;
    }
    return QStringLiteral("unknown");
}

QString phaseTitle(FlightPhase phase)
{
    switch (phase) {
    case FlightPhase::Start:
        return Text::tr("Engine start");
    case FlightPhase::Ground:
        return Text::tr("On the ground");
    case FlightPhase::TakeOff:
        return Text::tr("Take-off");
    case FlightPhase::Climb:
        return Text::tr("Climb");
    case FlightPhase::Cruise:
        return Text::tr("Cruise");
    case FlightPhase::Descent:
        return Text::tr("Descent");
    case FlightPhase::Landing:
        return Text::tr("Landing");
    case FlightPhase::Shutdown:
        return Text::tr("Shutdown");
    case FlightPhase::Unknown:
        break;
    }
    return Text::tr("Unknown");
}

FlightPhases::FlightPhases(const Profile& profile, const DataSet& dataSet)
    : m_profile(profile)
    , m_dataSet(dataSet)
    , m_speeds(profile, dataSet.messages, Role::GroundSpeed)
    , m_altitudes(profile, dataSet.messages, Role::Altitude)
    , m_speedsByTime(m_speeds.samples())
    , m_altitudesByTime(m_altitudes.samples())
{
    findAir();
    findRuns();
}

void FlightPhases::findAir()
{
    FlightDetector detector;
    double slow = -infinity; // the last time at which it did not roll
    bool isFirst = true;
    bool isInTheAir = false;
    bool beganInTheAir = false;
    m_speeds.forEach(-infinity, infinity, [&](double seconds, double speed) {
        if (isFirst)
            beganInTheAir = speed > flyingSpeed;
        isFirst = false;
        if (speed < rollingSpeed && !isInTheAir)
            slow = seconds;
        const FlightDetector::Event event = detector.step(speed);
        if (event == FlightDetector::Event::TakeOff) {
            isInTheAir = true;
            Air air{{std::isfinite(slow) ? slow : seconds, infinity}, seconds, infinity};
            if (beganInTheAir && m_air.empty()) {
                air.from = air.takeOffEnd = -infinity;
            } else {
                air.takeOffEnd = seconds + longestNearGround;
                const double field = m_altitudes.valueAt(seconds);
                for (const Moment& at :
                     valuesWithin(m_altitudes, m_altitudesByTime, seconds, air.takeOffEnd)) {
                    if (at.value >= field + nearGround)
                        air.takeOffEnd = std::min(air.takeOffEnd, at.seconds);
                }
            }
            m_air.push_back(air);
        } else if (event == FlightDetector::Event::Landing && !m_air.empty()) {
            isInTheAir = false;
            Air& air = m_air.back();
            air.to = seconds;
            air.landingBegin = seconds - longestNearGround;
            const double field = m_altitudes.valueAt(seconds);
            for (const Moment& at :
                 valuesWithin(m_altitudes, m_altitudesByTime, air.landingBegin, seconds)) {
                if (at.value >= field + nearGround)
                    air.landingBegin = std::max(air.landingBegin, at.seconds);
            }
        }
    });
    std::ranges::stable_sort(m_air, {}, &Air::from);
}

void FlightPhases::findRuns()
{
    const RoleSeries speeds(m_profile, m_dataSet.messages, Role::EngineSpeed);
    bool isRunning = false;
    speeds.forEach(-infinity, infinity, [&](double seconds, double speed) {
        if ((speed >= runningSpeed) == isRunning)
            return;
        isRunning = !isRunning;
        if (isRunning)
            m_runs.push_back({seconds, infinity});
        else
            m_runs.back().to = std::max(m_runs.back().from, seconds);
    });
    // An engine that runs at the first sample was started before.
    const auto first = speeds.samples().begin();
    if (!m_runs.empty() && m_runs.front().from <= (*first).seconds())
        m_runs.front().from = -infinity;
    std::ranges::stable_sort(m_runs, {}, &Span::from);
}

FlightPhase FlightPhases::at(double seconds) const
{
    const auto behind = std::ranges::upper_bound(m_air, seconds, {}, &Air::from);
    if (behind == m_air.begin() || std::prev(behind)->to < seconds)
        return onGround(seconds);
    const Air& air = *std::prev(behind);
    if (seconds < air.takeOffEnd)
        return FlightPhase::TakeOff;
    return seconds >= air.landingBegin ? FlightPhase::Landing : inTheAir(seconds);
}

FlightPhase FlightPhases::onGround(double seconds) const
{
    const auto next = std::ranges::upper_bound(m_runs, seconds, {}, &Span::from);
    const bool hasRun = next != m_runs.begin();
    const bool isRunning = hasRun && seconds < std::prev(next)->to;
    if (!isRunning && next != m_runs.end() && (!hasRun || next->from - seconds <= startSeconds))
        return FlightPhase::Start;
    if (hasRun && !isRunning)
        return FlightPhase::Shutdown;
    if (isRunning && seconds - std::prev(next)->from <= startSeconds)
        return FlightPhase::Start;
    if (isRunning && std::prev(next)->to - seconds <= stopSeconds)
        return FlightPhase::Shutdown;
    const bool isKnown =
        !valuesWithin(m_speeds, m_speedsByTime, seconds - knownSeconds, seconds + knownSeconds)
             .empty();
    return isKnown ? FlightPhase::Ground : FlightPhase::Unknown;
}

FlightPhase FlightPhases::inTheAir(double seconds) const
{
    const std::vector<Moment> values = valuesWithin(m_altitudes, m_altitudesByTime,
                                                    seconds - slopeSeconds, seconds + slopeSeconds);
    if (values.empty())
        return FlightPhase::Unknown;
    const auto [first, last] = std::ranges::minmax_element(values, {}, &Moment::seconds);
    const double time = last->seconds - first->seconds;
    if (time < shortestSlope)
        return FlightPhase::Unknown;
    const double rate = (last->value - first->value) / time;
    if (rate > levelRate)
        return FlightPhase::Climb;
    return rate < -levelRate ? FlightPhase::Descent : FlightPhase::Cruise;
}

} // namespace KOLT
