#pragma once

#include "profile/Profile.h"
#include "record/DataSet.h"

#include <optional>

namespace KOLT {

/// Looks up what parameters showed at some moments: the last sample up to the moment, if it is at
/// most ten seconds old. Where times step back, a look-up takes a walk through the message; after
/// 200 looks per sample all further values are unknown. Profile and data set must outlive it.
class ValuesUpTo
{
public:
    explicit ValuesUpTo(const DataSet& dataSet);

    /// None without the parameter or a value that is a number.
    std::optional<double> at(const ProfileParameter* parameter, double seconds);

    /// The sample that shows it; null if there is none.
    const StoredSample* sampleAt(const ProfileParameter& parameter, double seconds);

private:
    const MessageMap& m_messages;
    std::size_t m_budget;
};

} // namespace KOLT
