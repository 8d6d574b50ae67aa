#pragma once

#include "record/DataSet.h"

#include <optional>

namespace KOLT {

/// Seconds on the unit's counter.
struct SampleSpan
{
    double first = 0.0;
    double last = 0.0;

    double seconds() const { return last - first; }
};

/// A time stamp is a stray where it lies more than straySeconds away from those of the samples
/// recorded before and after it, or more than disorderSeconds before the earlier one; or where the
/// recording goes on behind it as if it were not there. A damaged one says nothing about when
/// something was recorded.
constexpr double straySeconds = 3600.0;
constexpr double disorderSeconds = 60.0;

/// From the earliest to the latest sample, strays left out, and all times beyond maxGridSeconds;
/// of a loaded flight the whole flight. Long gaps and times that run back (several recordings)
/// count, as the samples beside them lie close to each other. Nothing where no sample has a usable
/// time. O(samples).
std::optional<SampleSpan> sampleSpan(const DataSet& dataSet);

} // namespace KOLT
