#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"

#include <QString>

#include <vector>

namespace KOLT {

/// A moment at which a parameter's threshold state got worse.
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

/// Length limit of a list. Ten hours read with a wrong profile have millions of exceedances.
constexpr std::size_t maxEvents = 100'000;

/// The first maxEvents exceedances of a data set by time; those of equal time are in profile order.
/// `leftOut` receives the times of the exceedances beyond, ascending.
///
/// An event is a step from Ok to Warning or Limit, or from Warning to Limit. A parameter that
/// exceeds its threshold from its first sample on gives none until it has recovered. Costs one
/// numeric decoding per sample of a parameter with a threshold, and text for the returned events.
std::vector<Event> findEvents(const Profile& profile, const DataSet& dataSet, EventScope scope,
                              std::vector<double>* leftOut = nullptr);

/// An exceedance without its text.
struct ThresholdCrossing
{
    double seconds = 0.0;
    const ProfileParameter* parameter = nullptr;
    ThresholdState state = ThresholdState::Ok; ///< that was reached
};

/// All exceedances of a data set, however many, by time.
std::vector<ThresholdCrossing> findCrossings(const Profile& profile, const DataSet& dataSet);

} // namespace KOLT
