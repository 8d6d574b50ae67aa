#pragma once

#include "profile/Profile.h"
#include "record/Flight.h"
#include "record/MessageMap.h"

#include <vector>

namespace KOLT {

/// Finds the flights of a recording by its ground speed, in the order of their landings, and works
/// out their figures. Parameters are found by role; what the profile does not name leaves its
/// figures at 0. A take-off without a landing is no flight. `dateTime` is the clock at counter 0.
std::vector<Flight> findFlights(const Profile& profile, const MessageMap& messages,
                                const QDateTime& dateTime);

} // namespace KOLT
