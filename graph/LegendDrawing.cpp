#include "graph/LegendDrawing.h"

#include "graph/GraphTexts.h"
#include "graph/TraceStyle.h"

#include <QCoreApplication>

#include <span>

namespace KOLT {

namespace {

constexpr double legendIndent = 18.0;
constexpr double edge = 4.0;
constexpr double apart = 12.0;      ///< texts of one line
constexpr int leastCharacters = 14; ///< of a legend, before the extremes are shown too

/// The square before a name: its right half has the tone of the dashes.
void drawSwatch(ScenePen& pen, const Graph& graph, int index, double y)
{
    const QRectF area(graph.plotLeft() + 6.0, y - 4.0, 8.0, 8.0);
    const TraceStyle style = styleOf(graph.trace(index), graph.settings().background);
    if (style.casing)
        pen.quad(area.adjusted(-1.0, -1.0, 1.0, 1.0), *style.casing);
    pen.quad(area, style.color);
    if (style.isDashed())
        pen.quad(area.adjusted(area.width() / 2.0, 0.0, 0.0, 0.0), style.dash);
}

void drawEntry(ScenePen& pen, const Graph& graph, int index, double y, double right)
{
    const double left = graph.plotLeft() + legendIndent;
    drawSwatch(pen, graph, index, y);
    const int room = pen.metrics().charactersIn(right - left);
    pen.plateText(left, y, Qt::AlignLeft, legendText(graph, index, graph.cursor().time, room),
                  graph.trace(index).color);
}

/// The scale label, if the line has room for it beside the whole legend.
void drawScaleLabel(ScenePen& pen, const Graph& graph, int index, double y, double right)
{
    const QString label = scaleText(graph, index);
    double left = graph.plotLeft();
    if (graph.settings().hasLegend)
        left += legendIndent + apart +
                pen.metrics().widthOf(legendText(graph, index, graph.cursor().time));
    if (left + pen.metrics().widthOf(label) > right)
        return;
    pen.plateText(right, y, Qt::AlignRight, label, graph.trace(index).color);
    pen.scene().scaleLabels.push_back({pen.plates().back(), index});
}

void drawBandTexts(ScenePen& pen, const Graph& graph, const PlotLayout& layout, int index)
{
    const QRectF area = layout.bandOf(index);
    const double half = pen.metrics().lineHeight / 2.0;
    const double y = layout.topOfTexts(area) - half;
    double right = area.right() - edge - layout.cursorWidthAt(y);
    const auto extremes = graph.trace(index).extremes();
    const double least = legendIndent + leastCharacters * pen.metrics().characterWidth;
    const bool isWide =
        extremes && right - area.left() >=
                        least + pen.metrics().widthOf(highestText(graph, index, extremes->second));
    if (isWide && layout.hasTwoLines(area)) {
        const auto corner = [&](double place, const QString& text) {
            pen.plateText(area.right() - edge, place, Qt::AlignRight, text,
                          graph.trace(index).color);
        };
        const QString highest = highestText(graph, index, extremes->second);
        corner(y, highest);
        corner(layout.bottomOfTexts(area) + half, lowestText(graph, index, extremes->first));
        right -= pen.metrics().widthOf(highest) + apart;
    }
    drawScaleLabel(pen, graph, index, y, right);
    if (graph.settings().hasLegend)
        drawEntry(pen, graph, index, y, right);
}

/// All traces below each other.
void drawList(ScenePen& pen, const Graph& graph, const PlotLayout& layout)
{
    const double line = pen.metrics().lineHeight;
    const std::vector<int>& traces = layout.traces();
    const double top = layout.topOfTexts(layout.plot());
    const std::size_t shown = layout.rowsBelow(top, traces.size());
    double y = top - line / 2.0;
    for (const int index : std::span(traces).first(shown)) {
        drawEntry(pen, graph, index, y, layout.plot().right() - layout.cursorWidthAt(y));
        y -= line;
    }
    const int n = static_cast<int>(traces.size() - shown);
    if (n > 0)
        pen.plateText(
            layout.plot().left() + legendIndent, y, Qt::AlignLeft,
            QCoreApplication::translate("KOLT::GraphScene", "... and %n more", nullptr, n),
            graph.settings().labelColor);
}

} // namespace

void drawLegend(ScenePen& pen, const Graph& graph, const PlotLayout& layout)
{
    if (layout.hasLegendInBands()) {
        for (const int index : layout.traces())
            drawBandTexts(pen, graph, layout, index);
    } else if (graph.settings().hasLegend) {
        drawList(pen, graph, layout);
    }
}

} // namespace KOLT
