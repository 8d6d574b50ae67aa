#pragma once

#include "report/EngineReport.h"

namespace KOLT {

/// Collects episodes of one cycle after the other and keeps the worst: limits, then warnings, then
/// lamps alone; among these by how far the peak lies beyond its step (divided by the step, unless
/// that is 0), then by the time beyond, then by cycle and begin. Only the first keep a graph.
class EpisodeRanking
{
public:
    EpisodeRanking(const Profile& profile, EngineReport& report)
        : m_profile(profile)
        , m_report(report)
    {
    }

    /// Adds the episodes of a cycle.
    void add(int cycle, const DataSet& dataSet, const std::vector<Episode>& episodes);

    /// Puts them into the report.
    void finish();

private:
    /// Compares as "worse".
    struct Rank
    {
        int group = 0; ///< limits, warnings, lamps alone
        double excess = 0.0;
        double seconds = 0.0; ///< beyond
        int cycle = 0;
        double begin = 0.0;

        bool operator<(const Rank& other) const;
    };

    struct Entry
    {
        Rank rank;
        ReportEpisode episode;
    };

    static Rank rankOf(int cycle, const Episode& episode);
    ReportEpisode told(int cycle, const DataSet& dataSet, const Episode& episode) const;

    const Profile& m_profile;
    EngineReport& m_report;
    std::vector<Entry> m_entries; ///< the worst first
};

} // namespace KOLT
