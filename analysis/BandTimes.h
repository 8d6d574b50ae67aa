#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"

#include <array>
#include <vector>

namespace KOLT {

/// How long a quantity was in each of its limit bands. It is where the worst of its measured values
/// is; a sample counts until the next of its message, but not into a hole, and the last one for no
/// time. What no sample shows counts nowhere.
struct BandTimes
{
    QString quantity;
    std::array<double, 3> seconds{}; ///< by ThresholdState
};

/// Of all quantities with measured values, by their order in the profile; those without samples
/// have only zeros. Lamps are not measured. Decodes each graded sample once.
std::vector<BandTimes> bandTimes(const Profile& profile, const DataSet& dataSet);

/// How long the engine turned by itself, and how often it was started.
struct EngineRun
{
    double seconds = 0.0; ///< 0 too where no engine speed is recorded
    int starts = 0;       ///< that are seen: an engine that turns at the first sample had its own
};

/// The engine runs from 500 rpm on. Only when it was below 100 rpm in between, it is started anew.
EngineRun engineRun(const Profile& profile, const DataSet& dataSet);

} // namespace KOLT
