#pragma once

#include "graph/GraphScene.h"
#include "graph/ScenePen.h"

#include <QStringList>

#include <algorithm>
#include <utility>
#include <vector>

namespace KOLT {

/// Builds one frame: margins, axes and bands, then what lies over them.
class SceneBuilder
{
public:
    SceneBuilder(const Graph& graph, const GraphInput& input, double pixelRatio)
        : m_graph(graph)
        , m_input(input)
        , m_pixelRatio(pixelRatio)
        , m_row(graph.metrics().rowHeight)
        , m_plot(graph.plotLeft(), Graph::bottomMargin, graph.plotWidth(), graph.plotHeight())
    {
    }

    GraphScene build();

private:
    void margins();

    void text(double x, double y, Qt::Alignment alignment, const QString& content,
              const QColor& color)
    {
        m_scene.texts.push_back({x, y, alignment, content, color});
    }

    double widthOf(const QString& content) const
    {
        return static_cast<double>(content.size()) * m_graph.metrics().characterWidth;
    }

    /// Number of characters that fit into a width.
    int charactersIn(double width) const
    {
        return static_cast<int>(std::max(width / m_graph.metrics().characterWidth, 0.0));
    }

    /// A text in the plot, on a translucent plate that keeps it legible over the grid.
    void plotText(double x, double y, Qt::Alignment alignment, const QString& content,
                  const QColor& color);

    QColor plateColor() const;

    /// The colour, lightened on a dark background or darkened on a light one if too close to it.
    QColor legible(const QColor& color) const;
    QRectF bandRect(int index) const;
    void valueAxis(const QRectF& area, double lower, double upper, int decimals,
                   const QColor& color);
    void timeGrid();
    void band(int index);

    /// Both ends of the band's scale, if the legend leaves room for them.
    void scaleLabel(int index, const QRectF& area);
    void thresholds(int index, const QRectF& area);
    void markers();
    /// Collects the visible events and reserves a strip at the top for their numbers.
    void layOutEvents();

    bool hasStrip(double height) const { return height > m_strip + 1.5 * m_row; }

    /// Upper end of an area's texts: below the strip, if the area has room for both.
    double topOfTexts(const QRectF& area) const;
    void eventNumbers();
    void events();
    void layOutCursor();
    void cursor();
    /// Left end of the cursor's text beside its line at x, clear of other texts if possible.
    double beginOfCursorText(double x, double width) const;

    /// Otherwise all traces share one list, as bands are lower than a line of text.
    bool hasLegendInBands() const
    {
        return m_graph.settings.isSplit && m_graph.rowHeight() >= m_row;
    }

    /// How many rows fit into the height; if not all do, one line is kept to count the rest.
    std::size_t fitting(std::size_t rows, double height) const;
    static QString moreText(std::size_t count);
    void legend(const std::vector<int>& visible);
    /// Fills the panel's lines and places it; the legend then leaves room for it.
    void layOutStatistic(const std::vector<int>& visible);
    double rightOfTexts(double y) const;

    /// Whether a line of text at y is on the cursor text's line.
    bool isCursorRow(double y) const
    {
        return m_cursorWidth > 0.0 && y < m_plot.top() + 1.5 * m_row;
    }

    void statistic();
    void handles(const std::vector<int>& visible);

    const Graph& m_graph;
    const GraphInput& m_input;
    double m_pixelRatio;
    double m_row;  ///< height of a line of text
    QRectF m_plot; ///< y points up: top() is the lower edge
    GraphScene m_scene;
    ScenePen m_pen{m_scene};
    std::vector<std::pair<QRectF, QColor>> m_swatches; ///< colour squares of the legend
    std::vector<QRectF> m_plates;                      ///< below texts in the plot
    QRectF m_panel;                                    ///< area of the statistic
    QStringList m_panelLines;
    std::vector<EventLine> m_events; ///< visible ones
    double m_strip = 0.0;            ///< height kept free at the plot's top for event numbers
    double m_cursorWidth = 0.0;      ///< width of the cursor's text with a margin; 0 without one
};

} // namespace KOLT
