#pragma once

#include "graph/Graph.h"
#include "graph/GraphTicks.h"

#include <QRectF>

#include <vector>

namespace KOLT {

/// Divides the plot among its texts: a strip at the top for the numbers of events, at the bottom a
/// line for fractions of seconds, if there are any, and one for the cursor, and the rest for the
/// legend. Rectangles have y pointing up: top() is the lower edge.
class PlotLayout
{
public:
    explicit PlotLayout(const Graph& graph);

    const QRectF& plot() const { return m_plot; }

    QRectF bandOf(int trace) const;

    /// Otherwise all traces share one list, as bands are lower than a line of text.
    bool hasLegendInBands() const;
    /// Whether the area has room for a text at the top and another one at the bottom.
    bool hasTwoLines(const QRectF& area) const;

    /// Those with bands in view.
    const std::vector<int>& traces() const { return m_traces; }

    /// The visible ones, if events are shown.
    const std::vector<EventLine>& events() const { return m_events; }

    const std::vector<GraphTick>& timeTicks() const { return m_ticks; }

    const TimeLabels& timeLabels() const { return m_labels; }

    /// Vertical centre of the events' numbers.
    double eventNumberY() const;
    /// Upper end of an area's texts: below the strip, if the area has room for both.
    double topOfTexts(const QRectF& area) const;
    /// Lower end of an area's texts: above the fractions of seconds.
    double bottomOfTexts(const QRectF& area) const;
    /// Width that the cursor's text takes from a line at y, with a margin.
    double cursorWidthAt(double y) const;
    /// How many of the rows fit between y and the lowest line, which the cursor has. If not all do,
    /// one line is left to count the others.
    std::size_t rowsBelow(double y, std::size_t rows) const;

private:
    bool hasStrip(double height) const;

    const Graph& m_graph;
    double m_line; ///< height of a line of text
    QRectF m_plot;
    std::vector<int> m_traces;
    std::vector<EventLine> m_events;
    std::vector<GraphTick> m_ticks;
    TimeLabels m_labels;
    double m_strip = 0.0; ///< height kept free at the plot's top for event numbers
    double m_cursorWidth = 0.0;
};

} // namespace KOLT
