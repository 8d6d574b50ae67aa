#pragma once

#include "tools/samplecard/Quantities.h"

#include <optional>
#include <string_view>

/// Maps parameters to simulated quantities, and messages to their rates.
namespace KOLT::SampleCard {

struct ParameterSource
{
    std::string_view name; ///< parameter name without the device
    double Quantities::*value = nullptr;
    double noise = 0.0; ///< amplitude of the sensor's noise
};

/// Null for an unknown name.
const ParameterSource* parameterSource(std::string_view name);

/// Simulation steps between two messages with this identifier; none for an unknown one.
std::optional<int> messagePeriod(int identifier);

} // namespace KOLT::SampleCard
