#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"

#include <QString>

#include <vector>

namespace KOLT {

/// The moment at which a parameter crossed one of its thresholds for the worse.
struct Event
{
    double seconds = 0.0; ///< on the unit's counter
    const ProfileParameter* parameter = nullptr;
    QString group;
    QString text; ///< group, parameter, value and unit, in the profile's unit system
    Grade grade;
    bool isRising = true; ///< the value went up when it crossed
};

enum class EventScope {
    AllParameters,
    WarningLamps ///< only parameters of role "WarningLamp"
};

/// More are not listed: ten hours under a wrong profile have millions.
constexpr std::size_t maxEvents = 100'000;

/// The exceedances of a data set by ascending time, equal times in profile order; the first
/// maxEvents of them. `leftOut` is told how many more there are.
///
/// A step from Ok to anything, or from Warning to Limit, is an event. A parameter that is beyond
/// its threshold from the first sample on gives none until it has been back. Costs one numeric
/// decoding per sample of a graded parameter; text is made for events only.
std::vector<Event> findEvents(const Profile& profile, const DataSet& dataSet, EventScope scope,
                              std::size_t* leftOut = nullptr);

/// The times of all exceedances, ascending, for those who only count them.
std::vector<double> eventTimes(const Profile& profile, const DataSet& dataSet, EventScope scope);

} // namespace KOLT
