#include "analysis/Incidents.h"

#include <algorithm>
#include <map>

namespace KOLT {

namespace {

constexpr double togetherSeconds = 10.0;

/// Crossings of one parameter that follow each other.
struct Run
{
    double first = 0.0;
    double last = 0.0;
    ThresholdState state = ThresholdState::Ok;
};

using Runs = std::map<const ProfileParameter*, std::vector<Run>>;

Runs runsOf(std::vector<ThresholdCrossing> crossings)
{
    std::ranges::sort(crossings, {}, &ThresholdCrossing::seconds);
    Runs runs;
    for (const ThresholdCrossing& crossing : crossings) {
        std::vector<Run>& own = runs[crossing.parameter];
        if (own.empty() || crossing.seconds - own.back().last > togetherSeconds)
            own.push_back({crossing.seconds, crossing.seconds, crossing.state});
        own.back().last = crossing.seconds;
        own.back().state = std::max(own.back().state, crossing.state);
    }
    return runs;
}

/// "Lamp Coolant" is the lamp of "Coolant Temperature A".
bool isLampOf(const ProfileParameter& lamp, const ProfileParameter& parameter)
{
    QStringList words = lamp.name.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    words.removeIf([](const QString& word) {
        return word.compare(QLatin1String("Lamp"), Qt::CaseInsensitive) == 0;
    });
    const QString name = words.join(QLatin1Char(' '));
    return parameter.role != Role::WarningLamp && !name.isEmpty() &&
           parameter.name.startsWith(name, Qt::CaseInsensitive);
}

bool isBeside(const Run& run, const std::vector<Run>& others)
{
    const auto near = std::ranges::lower_bound(others, run.first - togetherSeconds, {}, &Run::last);
    return near != others.end() && near->first <= run.last + togetherSeconds;
}

} // namespace

void IncidentCounts::add(const Incident& incident)
{
    if (incident.isLamp)
        ++lamps;
    else if (incident.state == ThresholdState::Limit)
        ++limits;
    else
        ++warnings;
}

void IncidentCounts::add(const IncidentCounts& other)
{
    limits += other.limits;
    warnings += other.warnings;
    lamps += other.lamps;
}

std::vector<Incident> findIncidents(std::vector<ThresholdCrossing> crossings)
{
    const Runs runs = runsOf(std::move(crossings));
    std::vector<Incident> incidents;
    for (const auto& [parameter, own] : runs) {
        const bool isLamp = parameter->role == Role::WarningLamp;
        std::vector<const std::vector<Run>*> announced;
        for (const auto& [other, others] : runs) {
            if (isLamp && isLampOf(*parameter, *other))
                announced.push_back(&others);
        }
        for (const Run& run : own) {
            if (std::ranges::none_of(announced,
                                     [&](const auto* others) { return isBeside(run, *others); }))
                incidents.push_back({run.first, run.state, isLamp});
        }
    }
    std::ranges::sort(incidents, {}, &Incident::seconds);
    return incidents;
}

} // namespace KOLT
