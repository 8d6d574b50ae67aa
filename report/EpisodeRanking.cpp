#include "report/EpisodeRanking.h"

#include "analysis/MomentText.h"
#include "graph/EpisodePicture.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <tuple>

namespace KOLT {

namespace {

/// Graph texts have this size in the scene's units; ReportPrinter draws them with it.
constexpr GraphMetrics graphMetrics{13.0, 6.2};
constexpr double graphResolution = 4.0; ///< steps of a line per unit, for paper

double excessOf(const Episode& episode)
{
    const std::optional<double>& step =
        episode.state == ThresholdState::Limit ? episode.limitStep : episode.warningStep;
    if (!episode.peak || !step)
        return 0.0;
    const double beyond = std::abs(episode.peak->number - *step);
    const double excess = *step == 0.0 ? beyond : beyond / std::abs(*step);
    return std::isfinite(excess) ? excess : 0.0;
}

std::optional<int> flightOf(const DataSet& dataSet, double seconds)
{
    for (std::size_t i = 0; i < dataSet.flights.size(); ++i) {
        const Flight& flight = dataSet.flights[i];
        if (flight.startSeconds <= seconds && seconds <= flight.endSeconds)
            return static_cast<int>(i) + 1;
    }
    return {};
}

} // namespace

bool EpisodeRanking::Rank::operator<(const Rank& other) const
{
    return std::tuple(group, -excess, -seconds, cycle, begin) <
           std::tuple(other.group, -other.excess, -other.seconds, other.cycle, other.begin);
}

EpisodeRanking::Rank EpisodeRanking::rankOf(int cycle, const Episode& episode)
{
    const bool isLimit = episode.state == ThresholdState::Limit;
    return {episode.isLampOnly ? 2
            : isLimit          ? 0
                               : 1,
            excessOf(episode), isLimit ? episode.secondsBeyondLimit : episode.secondsBeyondWarning,
            cycle, episode.begin};
}

ReportEpisode EpisodeRanking::told(int cycle, const DataSet& dataSet, const Episode& episode) const
{
    ReportEpisode result;
    result.cycle = cycle;
    result.flight = flightOf(dataSet, episode.begin);
    result.begins = momentOf(dataSet, episode.begin);
    result.title = titleOf(episode);
    result.quantity = episode.quantity;
    for (const ProfileParameter* parameter : episode.parameters)
        result.parameters << parameter->fullName;
    result.state = episode.state;
    result.isLampOnly = episode.isLampOnly;
    result.begin = episode.begin;
    result.end = episode.end;
    result.isCut = episode.isCut;
    result.crossings = episode.crossings;
    result.secondsBeyondWarning = episode.secondsBeyondWarning;
    result.secondsBeyondLimit = episode.secondsBeyondLimit;
    if (episode.peak)
        result.peak = episode.peak->number;
    result.peakText = episode.peakText(m_profile);
    result.phase = phaseTitle(episode.phase);
    result.figures = figuresOf(m_profile, episode);
    return result;
}

void EpisodeRanking::add(int cycle, const DataSet& dataSet, const std::vector<Episode>& episodes)
{
    // Ranked first: texts and graphs of those that are left out would take long.
    std::vector<std::pair<Rank, const Episode*>> ranked;
    for (const Episode& episode : episodes) {
        m_report.counts.add(episode);
        ranked.emplace_back(rankOf(cycle, episode), &episode);
    }
    const auto rank = [](const auto& entry) { return entry.first; };
    std::ranges::stable_sort(ranked, std::less<>(), rank);
    const std::size_t kept = std::min(ranked.size(), EngineReport::maxEpisodes);
    m_report.episodesLeftOut += ranked.size() - kept;
    for (std::size_t i = 0; i < kept; ++i) {
        const Episode& episode = *ranked[i].second;
        Entry entry{ranked[i].first, told(cycle, dataSet, episode)};
        if (i < EngineReport::graphCount) {
            EpisodePicture picture;
            picture.show(m_profile, dataSet, episode);
            entry.episode.graph =
                picture.scene(entry.episode.graphSize(), graphMetrics, graphResolution);
        }
        m_entries.push_back(std::move(entry));
    }
    std::ranges::stable_sort(m_entries, std::less<>(), &Entry::rank);
    if (m_entries.size() > EngineReport::maxEpisodes) {
        m_report.episodesLeftOut += m_entries.size() - EngineReport::maxEpisodes;
        m_entries.resize(EngineReport::maxEpisodes);
    }
    for (std::size_t i = EngineReport::graphCount; i < m_entries.size(); ++i)
        m_entries[i].episode.graph.reset();
}

void EpisodeRanking::finish()
{
    for (Entry& entry : m_entries)
        m_report.episodes.push_back(std::move(entry.episode));
    m_entries.clear();
}

} // namespace KOLT
