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

} // namespace KOLT
