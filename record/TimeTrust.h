#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"
#include "record/FileTrust.h"

namespace KOLT {

/// Finds what the times of a data set tell: holes in which no message came, times that jump, and
/// messages that fell silent alone. Adds to the drafts, which explain some of it already.
void timeTrust(const Profile& profile, const DataSet& dataSet, FileTrust& trust);

/// The figures that are made from a message, as the profile has it.
Figures figuresOfMessage(const Profile& profile, std::uint32_t id);

/// The figures that are made from a parameter of that role.
Figures figuresOfRole(Role role);

} // namespace KOLT
