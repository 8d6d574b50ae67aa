#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"

namespace KOLT {

/// Whether anything was recorded of the first parameter with the role. Points of the track have a
/// value of 0 otherwise.
inline bool isRoleRecorded(const Profile& profile, const DataSet& dataSet, Role role)
{
    const ProfileParameter* const parameter = profile.parameterByRole(role);
    return parameter != nullptr && !seriesOf(dataSet.messages, *parameter).empty();
}

} // namespace KOLT
