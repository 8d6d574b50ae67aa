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

/// A damaged time stamp (a stray) does not tell when a sample was recorded. A time stamp counts as
/// stray if it fits neither the sample before it nor the one after it; successive samples fit if
/// time goes forward by at most straySeconds or back by at most disorderSeconds. It is also a stray
/// if its neighbours lie within disorderSeconds of each other and it does not.
constexpr double straySeconds = 3600.0;
constexpr double disorderSeconds = 60.0;

/// The span from the earliest to the latest sample, without strays and times beyond maxGridSeconds;
/// for a loaded flight its own span. Long gaps and steps back in time (several recordings) do not
/// make strays, as the samples there fit their other neighbour. None if no sample has a usable
/// time. O(samples).
std::optional<SampleSpan> sampleSpan(const DataSet& dataSet);

} // namespace KOLT
