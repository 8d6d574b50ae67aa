#pragma once

#include "analysis/Episode.h"
#include "graph/ScenePen.h"
#include "profile/Profile.h"
#include "record/DataSet.h"

namespace KOLT {

/// The small graph of an episode: what crossed, over the steps of its thresholds as bands, with the
/// other parameters of the group as thin lines, from a minute before to a minute after.
class EpisodePicture
{
public:
    static constexpr double secondsAround = 60.0;

    /// Reads only the samples of the time that is shown, and keeps them. The profile must stay as
    /// it is until the next call.
    void show(const Profile& profile, const DataSet& dataSet, const Episode& episode);

    /// Forgets the profile's parameters.
    void clear() { *this = EpisodePicture(); }

    const Graph& graph() const { return m_graph; }

    /// Costs O(pixels), like buildScene().
    GraphScene scene(const QSizeF& size, const GraphMetrics& metrics, double pixelRatio = 1.0);

private:
    void drawBands(ScenePen& pen) const;
    void drawNames(ScenePen& pen) const;
    QPointF namesPlace(const QSizeF& names) const;
    bool isCrossed(const QRectF& area) const;

    Graph m_graph;
    int m_ownTraces = 0;     ///< the first ones; those behind are the group's
    TimeRange m_episode;     ///< begin and end
    TraceSource m_reference; ///< whose steps are the bands
    std::optional<EpisodePeak> m_peak;
};

} // namespace KOLT
