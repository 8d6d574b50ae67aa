#pragma once

#include "graph/Graph.h"

namespace KOLT {

/// A value of a trace with the decimals of shownDecimals(), or its label if the parameter has one
/// for it; "---" for NaN and infinity.
QString valueText(const Graph& graph, int trace, double value);

/// "name [unit]   value" for the legend, "name [unit]   ---" where the trace has no value.
/// `longest` is the number of characters allowed; the name is cut so that the value stays visible.
QString legendText(const Graph& graph, int trace, double seconds, int longest = 1000);

/// "max 12" and "min 3", for the corners of a band.
QString highestText(const Graph& graph, int trace, double value);
QString lowestText(const Graph& graph, int trace, double value);

/// Both ends of the trace's scale and its unit.
QString scaleText(const Graph& graph, int trace);
/// Explains scaleText(), which looks like a minimum and a maximum.
QString scaleTip(const Graph& graph, int trace);

/// "hh:mm:ss.zzz/value" at the cursor.
QString cursorText(double seconds, double value);

} // namespace KOLT
