#include "graph/LegendDrawing.h"

#include "graph/GraphTexts.h"

#include <span>

namespace KOLT {

namespace {

constexpr double legendIndent = 18.0;
constexpr QColor panelColor(255, 255, 255, 235);

} // namespace

std::vector<LegendSwatch> drawLegend(ScenePen& pen, const Graph& graph, const PlotLayout& layout)
{
    std::vector<LegendSwatch> swatches;
    const double line = pen.metrics().lineHeight;
    const std::vector<int>& visible = layout.visibleTraces();
    const bool isInBands = layout.hasLegendInBands();
    const double top = layout.topOfTexts(layout.plot());
    const std::size_t shown = isInBands ? visible.size() : layout.rowsBelow(top, visible.size());
    const double left = layout.plot().left() + legendIndent;
    double y = top - line / 2.0;
    for (const int index : std::span(visible).first(shown)) {
        const GraphTrace& trace = graph.trace(index);
        if (isInBands)
            y = layout.topOfTexts(layout.bandOf(index)) - line / 2.0;
        swatches.push_back({{layout.plot().left() + 6.0, y - 4.0, 8.0, 8.0}, trace.color});
        const int room = pen.metrics().charactersIn(layout.rightOfTexts(y) - left);
        pen.plateText(left, y, Qt::AlignLeft, legendText(graph, index, graph.cursor().time, room),
                      trace.color);
        y -= line;
    }
    if (shown < visible.size())
        pen.plateText(left, y, Qt::AlignLeft, PlotLayout::moreText(visible.size() - shown),
                      graph.settings().labelColor);
    return swatches;
}

void drawScaleLabel(ScenePen& pen, const Graph& graph, const PlotLayout& layout, int index)
{
    constexpr double apart = 40.0;
    const QRectF area = layout.bandOf(index);
    const QString label = scaleText(graph, index);
    const double y = layout.topOfTexts(area) - pen.metrics().lineHeight / 2.0;
    double beside = layout.cursorWidthAt(y);
    if (graph.settings().hasLegend)
        beside += pen.metrics().widthOf(legendText(graph, index, graph.cursor().time)) + apart;
    if (pen.metrics().widthOf(label) + beside < area.width())
        pen.plateText(area.right() - 4.0, y, Qt::AlignRight, label, graph.trace(index).color);
}

void drawStatistic(ScenePen& pen, const PlotLayout& layout)
{
    if (layout.panelLines().isEmpty())
        return;
    const QRectF& panel = layout.panel();
    // Texts are drawn over all figures: those below the panel would show through.
    std::erase_if(pen.scene().texts,
                  [&](const GraphScene::Text& text) { return panel.intersects(pen.areaOf(text)); });
    pen.quad(panel, panelColor);
    constexpr double padding = PlotLayout::panelPadding;
    double y = panel.bottom() - padding / 2.0 - pen.metrics().lineHeight / 2.0;
    for (const QString& line : layout.panelLines()) {
        pen.text(panel.left() + padding, y, Qt::AlignLeft, line, Qt::black);
        y -= pen.metrics().lineHeight;
    }
}

} // namespace KOLT
