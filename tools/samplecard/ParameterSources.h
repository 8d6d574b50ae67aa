#pragma once

#include "tools/samplecard/Quantities.h"

#include <optional>
#include <string_view>

/// Which simulated quantity feeds which parameter, and how often each message is sent.
namespace KOLT::SampleCard {

struct ParameterSource
{
    std::string_view name; ///< of the parameter, without its device
    double Quantities::*value = nullptr;
    double noise = 0.0; ///< amplitude of what the sensor adds
};

/// Null for a name that no quantity feeds.
const ParameterSource* parameterSource(std::string_view name);

/// Simulation steps between two messages of the identifier; none when it is not known.
std::optional<int> messagePeriod(int identifier);

} // namespace KOLT::SampleCard
