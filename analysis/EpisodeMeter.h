#pragma once

#include "analysis/Episode.h"
#include "analysis/EpisodeJoiner.h"
#include "record/DataSet.h"

namespace KOLT {

/// Works out peak, times and levels of an episode by walks through the samples of its excursions,
/// those of all members in order of time. A sample counts until the next of its message, but not
/// into a hole. `lists` are those that the span was joined from.
class EpisodeMeter
{
public:
    EpisodeMeter(const DataSet& dataSet, const Quantity& quantity,
                 const std::vector<ExcursionList>& lists, const EpisodeSpan& span);

    /// Sets peak, steps, levels and seconds.
    void measure(Episode& episode) const;

private:
    /// What a member shows since a moment.
    struct Shown
    {
        double number = 0.0;
        ThresholdState state = ThresholdState::Ok; ///< Ok too where nothing is known
    };

    struct Cursor;

    /// Calls visit(shown, from, to) for each piece of time within the episode in which the shown
    /// values of all measured members stay the same; `to` may equal `from`.
    template <typename Visit>
    void walk(Visit&& visit) const;

    bool isMeasured(std::size_t member) const;
    void findPeak(Episode& episode) const;
    void findSteps(Episode& episode) const;
    void addUpTimes(Episode& episode) const;

    const DataSet& m_dataSet;
    const Quantity& m_quantity;
    const std::vector<ExcursionList>& m_lists;
    const EpisodeSpan& m_span;
};

} // namespace KOLT
