#pragma once

#include "record/TrustFinding.h"

#include <QString>

#include <vector>

namespace KOLT {

class Profile;

/// What the description of an export says of its recording, a line for each finding that touches
/// figures; empty for a sound recording.
QString recordingNote(const std::vector<TrustFinding>& findings);

/// The profile that texts and limits come from, and the recording's note below it.
QString sourceNote(const Profile& profile, const std::vector<TrustFinding>& findings);

} // namespace KOLT
