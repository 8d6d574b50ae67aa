#pragma once

#include "graph/GraphScene.h"
#include "graph/ScenePen.h"

#include <QStringList>

#include <algorithm>
#include <utility>
#include <vector>

namespace KOLT {

/// Puts the parts of a frame together: margins, axes and bands, and what lies over them.
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

    /// Characters that a width holds.
    int charactersIn(double width) const
    {
        return static_cast<int>(std::max(width / m_graph.metrics().characterWidth, 0.0));
    }

    /// A text in the plot, on a plate that keeps it legible above the grid.
    void plotText(double x, double y, Qt::Alignment alignment, const QString& content,
                  const QColor& color);

    QColor plateColor() const;

    /// Dark colours are lightened on a dark plot, and pale ones darkened on a pale one.
    QColor legible(const QColor& color) const;
    QRectF bandRect(int index) const;
    void valueAxis(const QRectF& area, double lower, double upper, int decimals,
                   const QColor& color);
    void timeGrid();
    void band(int index);

    /// The ends of the band's scale, where the legend leaves room for it.
    void scaleLabel(int index, const QRectF& area);
    void thresholds(int index, const QRectF& area);
    void markers();
    /// Takes the events in sight, and keeps a strip at the top free for their numbers.
    void layOutEvents();

    bool hasStrip(double height) const { return height > m_strip + 1.5 * m_row; }

    /// Where the texts of an area begin: below the strip, if the area has room for both.
    double topOfTexts(const QRectF& area) const;
    void eventNumbers();
    void events();
    void layOutCursor();
    void cursor();
    /// Beside the cursor's line at x, where no other text stands if possible.
    double beginOfCursorText(double x, double width) const;

    /// Bands that are lower than a line of text share one list.
    bool hasLegendInBands() const
    {
        return m_graph.settings.isSplit && m_graph.rowHeight() >= m_row;
    }

    /// How many of the rows are shown in the height; the last line then tells of the others.
    std::size_t fitting(std::size_t rows, double height) const;
    static QString moreText(std::size_t count);
    void legend(const std::vector<int>& visible);
    /// Fills the panel, for which the legend leaves room.
    void layOutStatistic(const std::vector<int>& visible);
    double rightOfTexts(double y) const;

    /// Whether a line of text lies where the cursor's does.
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
    QRectF m_plot; ///< top is its lower edge, as y goes up
    GraphScene m_scene;
    ScenePen m_pen{m_scene};
    std::vector<std::pair<QRectF, QColor>> m_swatches; ///< of the legend
    std::vector<QRectF> m_plates;                      ///< below texts in the plot
    QRectF m_panel;                                    ///< of the statistic
    QStringList m_panelLines;
    std::vector<EventLine> m_events; ///< in sight
    double m_strip = 0.0;            ///< at the top of the plot, for their numbers
    double m_cursorWidth = 0.0;      ///< of its text, with some room; 0: none
};

} // namespace KOLT
