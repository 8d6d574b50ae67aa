#pragma once

#include "analysis/EventFinder.h"

#include <vector>

namespace KOLT {

/// What happened to one parameter, or to one warning lamp without its parameter, within a short
/// time: its crossings that follow each other within ten seconds.
struct Incident
{
    double seconds = 0.0;                      ///< of the first crossing
    ThresholdState state = ThresholdState::Ok; ///< the worst that was reached
    bool isLamp = false;
};

/// Incidents counted apart; each counts once.
struct IncidentCounts
{
    std::size_t limits = 0;
    std::size_t warnings = 0;
    std::size_t lamps = 0;

    void add(const Incident& incident);
    void add(const IncidentCounts& other);

    bool operator==(const IncidentCounts&) const = default;
};

/// The incidents of some crossings, by time (docs/flights.md).
std::vector<Incident> findIncidents(std::vector<ThresholdCrossing> crossings);

} // namespace KOLT
