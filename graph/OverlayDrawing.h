#pragma once

#include "graph/GraphInput.h"
#include "graph/PlotLayout.h"
#include "graph/ScenePen.h"

namespace KOLT {

/// The band between the markers, or what is outside them.
void drawMarkers(ScenePen& pen, const Graph& graph);

/// The distance of the markers while the user moves them.
void drawDistance(ScenePen& pen, const Graph& graph, const GraphInput& input);

/// The numbers of the visible events that have room beside each other and other texts.
void drawEventNumbers(ScenePen& pen, const Graph& graph, const PlotLayout& layout);
void drawEventLines(ScenePen& pen, const Graph& graph, const PlotLayout& layout);

/// The lines of notes, and the flags that they are read and clicked at. O(columns).
void drawNotes(ScenePen& pen, const Graph& graph);

/// The cross of the cursor.
void drawCursor(ScenePen& pen, const Graph& graph, const PlotLayout& layout);

/// Its text, beside it and clear of other texts if possible.
void drawCursorText(ScenePen& pen, const Graph& graph, const PlotLayout& layout);

/// The handles of the traces, and where a dragged one would go.
void drawHandles(ScenePen& pen, const Graph& graph, const GraphInput& input);

} // namespace KOLT
