#pragma once

#include "profile/Profile.h"
#include "record/Flight.h"
#include "record/MessageMap.h"

#include <vector>

namespace KOLT {

/// Finds the flights of a recording by ground speed, in order of landing, and computes their
/// figures. Parameters are found by role; figures whose role the profile lacks stay 0. A take-off
/// without a landing is not a flight. `dateTime` is the clock time at counter 0.
std::vector<Flight> findFlights(const Profile& profile, const MessageMap& messages,
                                const QDateTime& dateTime);

/// The same for a map that holds only the messages of the roles: `sampleCount` is that of the whole
/// recording, which bounds the work on a damaged one.
std::vector<Flight> findFlights(const Profile& profile, const MessageMap& messages,
                                const QDateTime& dateTime, std::size_t sampleCount);

} // namespace KOLT
