#pragma once

#include "analysis/ExcursionTracker.h"
#include "profile/Profile.h"

#include <span>
#include <vector>

namespace KOLT {

/// The graded parameters that have their episodes together, in profile order.
struct Quantity
{
    QString name;
    std::vector<const ProfileParameter*> members;
    double holdSeconds = 0.0; ///< the longest of their lists

    bool hasSeveral() const { return members.size() > 1; }
};

/// All quantities in the order of their first members.
std::vector<Quantity> quantitiesOf(const Profile& profile);

/// When an episode was, without its figures.
struct EpisodeSpan
{
    double begin = 0.0;
    double end = 0.0;
    bool isCut = false;
    bool isHigh = true;
    bool isLampOnly = true;
    ThresholdState state = ThresholdState::Ok; ///< of measured values, if any crossed
    std::size_t crossings = 0;
    double firstWorst = 0.0; ///< the first crossing that reached the state

    /// The excursions of each member: [first, behind) of its list.
    struct Part
    {
        std::size_t first = 0;
        std::size_t behind = 0;
        bool hasCrossed = false;
    };

    std::vector<Part> parts; ///< one for each member of the quantity

    void add(const EpisodeSpan& later);
};

/// The excursions of one member of a quantity.
using ExcursionList = std::span<const Excursion>;

/// Joins what overlaps, and what follows within the hold time. `lists` has one for each member.
std::vector<EpisodeSpan> joinExcursions(const Quantity& quantity,
                                        const std::vector<ExcursionList>& lists);

} // namespace KOLT
