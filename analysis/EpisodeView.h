#pragma once

namespace KOLT {

class Profile;
struct DataSet;
struct Episode;

/// Shows one episode below a list of exceedances. Other rooms implement it, as they can draw it.
class EpisodeView
{
public:
    EpisodeView() = default;
    EpisodeView(const EpisodeView&) = delete;
    EpisodeView& operator=(const EpisodeView&) = delete;
    virtual ~EpisodeView() = default;

    /// Shows an episode of a data set. All must stay valid until the next call.
    virtual void showEpisode(const DataSet& dataSet, const Episode& episode) = 0;
    /// Forgets it, as it is about to be deleted.
    virtual void clear() = 0;
};

} // namespace KOLT
