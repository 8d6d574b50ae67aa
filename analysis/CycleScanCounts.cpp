#include "analysis/CycleScan.h"
#include "analysis/EpisodeJoiner.h"
#include "record/FlightFinder.h"

#include <algorithm>

namespace KOLT {

void CycleScan::countEpisodes()
{
    std::map<const ProfileParameter*, const ExcursionTracker*> byParameter;
    for (std::size_t i = 0; i < m_late.size(); ++i)
        byParameter[&m_late[i].parameter()] = &m_lateExcursions[i];
    for (const auto& [id, message] : m_known) {
        for (std::size_t i = 0; i < message.trackers.size(); ++i)
            byParameter[&message.trackers[i].parameter()] = &message.excursions[i];
    }
    for (const Quantity& quantity : quantitiesOf(m_profile)) {
        std::vector<ExcursionList> lists;
        for (const ProfileParameter* member : quantity.members)
            lists.emplace_back(byParameter.at(member)->excursions());
        for (const EpisodeSpan& span : joinExcursions(quantity, lists))
            m_episodeBegins.push_back(span.begin);
    }
    std::ranges::sort(m_episodeBegins);
    m_overview.episodes = m_episodeBegins.size();
}

void CycleScan::addFlights()
{
    const auto within = [](const std::vector<double>& times, const Flight& flight) {
        const auto first = std::ranges::lower_bound(times, flight.startSeconds);
        const auto behind = std::ranges::upper_bound(times, flight.endSeconds);
        return first < behind ? static_cast<std::size_t>(behind - first) : 0;
    };
    for (const Flight& flight :
         findFlights(m_profile, m_messages, m_overview.dateTime, m_sampleCount)) {
        FlightOverview& row = m_overview.flights.emplace_back();
        row.flight = flight;
        row.line = flightLine(flight, static_cast<int>(m_overview.flights.size()),
                              m_overview.dateTime, m_crossings, m_episodeBegins);
        row.lamps = within(m_lampCrossings, flight);
        const auto first =
            std::ranges::lower_bound(m_exceedances, flight.startSeconds, {}, &Exceedance::seconds);
        for (auto it = first; it != m_exceedances.end() && it->seconds <= flight.endSeconds; ++it) {
            if (!row.worst || isWorse(*it, *row.worst))
                row.worst = *it;
        }
        m_overview.totals.add(row.line);
        m_overview.maxAltitude = std::max(m_overview.maxAltitude, flight.maxAltitude);
    }
}

void CycleScan::countOutside()
{
    // In the order of their starts; windows may overlap, and lie in each other where times jump.
    std::vector<const Flight*> flights;
    for (const FlightOverview& row : m_overview.flights)
        flights.push_back(&row.flight);
    std::ranges::sort(flights, {}, &Flight::startSeconds);
    const auto countIn = [&](const std::vector<double>& times) {
        std::size_t outside = 0;
        auto next = times.begin();
        double end = -1.0;
        for (const Flight* flight : flights) {
            if (flight->startSeconds > end) {
                const auto start = std::lower_bound(next, times.end(), flight->startSeconds);
                outside += static_cast<std::size_t>(start - next);
                next = start;
            }
            end = std::max(end, flight->endSeconds);
            next = std::upper_bound(next, times.end(), end);
        }
        return outside + static_cast<std::size_t>(times.end() - next);
    };
    m_overview.outsideCrossings = countIn(m_crossings);
    m_overview.outsideEpisodes = countIn(m_episodeBegins);
}

} // namespace KOLT
