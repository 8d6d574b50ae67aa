#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"

#include <cstdint>
#include <optional>
#include <vector>

/// What the instrument view is fed with.
namespace KOLT {

/// A parameter that the view shows; its variable has its name.
struct ViewParameter
{
    QString name;
    std::int32_t id = 0; ///< message identifier
    const ProfileParameter* parameter = nullptr;
};

/// The parameters whose `viewId` is "EMU", in file order.
std::vector<ViewParameter> viewParameters(const Profile& profile);

struct ViewValue
{
    double number = 0.0; ///< metric; NaN where there is none
    int state = 0;       ///< of the threshold: 0 normal, 1 warning, 2 limit; of no number 0
};

/// The value of the first sample at or after the time; behind the last sample that one, as a 0
/// there would be a false alarm. No number where the message was never recorded, or its type does
/// not decode.
ViewValue viewValueAt(const DataSet& dataSet, const ViewParameter& parameter, double seconds);

/// The variant's name as a decimal number; 0 where it is none.
int variantNumber(const Profile& profile);

} // namespace KOLT
