#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"
#include "record/TrustDraft.h"

namespace KOLT {

/// The first and the last time of a recording, and where a flight that has no landing took off.
struct RecordedSpan
{
    double first = 0.0;
    double last = 0.0;
    std::optional<double> openTakeOff;
    bool isInOrder = true; ///< times run from first to last
};

/// Finds messages that fall silent while others go on; silences that the drafts explain are left
/// out, and those of several messages at once are told together.
void messageTrust(const Profile& profile, const DataSet& dataSet, const RecordedSpan& recorded,
                  TrustDrafts& drafts);

/// Finds messages that the profile does not know, and parameters that no message carried.
void profileTrust(const Profile& profile, const DataSet& dataSet, TrustDrafts& drafts);

} // namespace KOLT
