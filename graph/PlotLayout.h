#pragma once

#include "graph/Graph.h"

#include <QRectF>
#include <QStringList>

#include <vector>

namespace KOLT {

/// Divides the plot among its texts: a strip at the top for the numbers of events, the lowest line
/// for the cursor, a panel for the statistic, and the rest for the legend. Rectangles have y
/// pointing up: top() is the lower edge.
class PlotLayout
{
public:
    explicit PlotLayout(const Graph& graph);

    const QRectF& plot() const { return m_plot; }

    QRectF bandOf(int trace) const;

    /// Otherwise all traces share one list, as bands are lower than a line of text.
    bool hasLegendInBands() const;

    const std::vector<int>& visibleTraces() const { return m_visible; }

    /// The visible ones, if events are shown.
    const std::vector<EventLine>& events() const { return m_events; }

    /// Vertical centre of the events' numbers.
    double eventNumberY() const;
    /// Upper end of an area's texts: below the strip, if the area has room for both.
    double topOfTexts(const QRectF& area) const;
    /// Right end of a line of text at y: beside the panel and the cursor's text.
    double rightOfTexts(double y) const;
    /// Width that the cursor's text takes from a line at y, with a margin.
    double cursorWidthAt(double y) const;
    /// How many of the rows fit between y and the lowest line, which the cursor has. If not all do,
    /// one line is left to count the others.
    std::size_t rowsBelow(double y, std::size_t rows) const;

    /// Of the statistic; empty without one.
    const QRectF& panel() const { return m_panel; }

    const QStringList& panelLines() const { return m_panelLines; }

    /// "... and 3 more".
    static QString moreText(std::size_t count);

    static constexpr double panelPadding = 8.0;

private:
    bool hasStrip(double height) const;
    std::size_t fitting(std::size_t rows, double height) const;
    void layOutPanel();

    const Graph& m_graph;
    double m_line; ///< height of a line of text
    QRectF m_plot;
    std::vector<int> m_visible;
    std::vector<EventLine> m_events;
    double m_strip = 0.0; ///< height kept free at the plot's top for event numbers
    double m_cursorWidth = 0.0;
    QRectF m_panel;
    QStringList m_panelLines;
};

} // namespace KOLT
