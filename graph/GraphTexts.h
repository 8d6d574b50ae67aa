#pragma once

#include "graph/Graph.h"

namespace KOLT {

/// A value of a trace in its unit, with the decimals that the shown range needs; the label where it
/// is an enumerated one that has one, "---" where it is no number.
QString valueText(const Graph& graph, int trace, double value);

/// "name [unit]   value" as the legend shows it, or "name [unit]   ---" where the trace has none.
/// `longest`: a longer name is cut, so that the value stays in sight; characters of the whole.
QString legendText(const Graph& graph, int trace, double seconds, int longest = 1000);

/// "name  minimum  maximum  mean" between two moments; the mean has decimals of its own.
QString statisticText(const Graph& graph, int trace, double from, double to, int longest = 1000);

/// The ends of the trace's scale and its unit.
QString scaleText(const Graph& graph, int trace);

/// The shortest text that reads as the same number.
QString roundTripText(double number);

/// "hh:mm:ss.zzz/value" at the cursor.
QString cursorText(double seconds, double value);

} // namespace KOLT
