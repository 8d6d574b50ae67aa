#include "graph/TraceDrawing.h"

#include "graph/TraceLines.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

struct Stroke
{
    double x = 0.0;
    double low = 0.0;
    double high = 0.0;
    double first = 0.0; ///< height of the first sample
    double last = 0.0;
    bool isJoined = false; ///< to the stroke before it
    bool isLong = false;   ///< of more than one sample
};

/// The strokes of all columns with a number, in pixels.
std::vector<Stroke> strokesOf(const Graph& graph, int index, const QRectF& area)
{
    const GraphTrace& trace = graph.trace(index);
    const GraphScale& scale = graph.scaleOf(index);
    // Values far outside the plot would lose precision as float.
    const auto yOf = [&](double value) {
        return std::clamp(scale.yOf(value), area.top() - 1e5, area.bottom() + 1e5);
    };
    std::vector<Stroke> result;
    result.reserve(trace.columns().size());
    bool isJoined = false;
    for (const GraphColumn& column : trace.columns()) {
        const bool isNumber = !std::isnan(column.lowest);
        if (column.mark == SampleMark::AfterGap || !isNumber) // data are missing
            isJoined = false;
        if (!isNumber)
            continue;
        result.push_back({std::clamp(graph.xOf(column.time), -1e6, 1e6), yOf(column.lowest),
                          yOf(column.highest), yOf(column.first), yOf(column.end), isJoined,
                          column.fill != ColumnFill::OneSample});
        isJoined = true;
    }
    return result;
}

/// Whether vertical lines at these places leave no pixel between them, whatever the rounding.
bool isBeside(double left, double right, double pixelRatio)
{
    constexpr double slack = 0.01; ///< tolerance for rounding errors
    const double width =
        std::max(1.0, std::round(static_cast<double>(TraceLines::width) * pixelRatio));
    const double low = std::min(left, right) * pixelRatio;
    const double high = std::max(left, right) * pixelRatio;
    return std::floor(high + slack - (width + 1.0) / 2.0) <=
           std::floor(low - slack + (width - 1.0) / 2.0);
}

/// Adds a line through both ends of each stroke.
void addStrips(TraceLines& lines, const std::vector<Stroke>& drawn)
{
    double x = 0.0;
    double y = 0.0;
    const auto lineTo = [&](double toX, double toY) {
        lines.line(x, y, toX, toY);
        x = toX;
        y = toY;
    };
    for (const Stroke& stroke : drawn) {
        if (!stroke.isJoined) {
            lines.upright(stroke.x, stroke.low, stroke.high);
            x = stroke.x;
            y = stroke.high;
            continue;
        }
        // Start at the end nearer to the first value, so that the line from the column before
        // enters where the samples do.
        const bool isFromLow = stroke.first - stroke.low <= stroke.high - stroke.first;
        lineTo(stroke.x, isFromLow ? stroke.low : stroke.high);
        if (stroke.isLong)
            lineTo(stroke.x, isFromLow ? stroke.high : stroke.low);
    }
}

/// Adds adjacent strokes extended until they overlap; a joining line is only needed where there are
/// pixels between strokes. This takes half as many lines as a strip.
void addDense(TraceLines& lines, const std::vector<Stroke>& drawn, double pixelRatio)
{
    const Stroke* before = nullptr;
    for (const Stroke& stroke : drawn) {
        double low = stroke.low;
        double high = stroke.high;
        if (stroke.isJoined && isBeside(before->x, stroke.x, pixelRatio)) {
            low = std::min(low, before->high);
            high = std::max(high, before->low);
        } else if (stroke.isJoined) {
            lines.line(before->x, before->last, stroke.x, stroke.first);
        }
        lines.upright(stroke.x, low, high);
        before = &stroke;
    }
}

} // namespace

void drawTrace(ScenePen& pen, const Graph& graph, int index, const QRectF& area, double pixelRatio)
{
    const std::vector<Stroke> drawn = strokesOf(graph, index, area);
    if (drawn.empty())
        return;
    constexpr double dense = 1.1; ///< mean pixels between strokes
    const double reach = drawn.back().x - drawn.front().x;
    const bool isDense = reach < dense * static_cast<double>(drawn.size() - 1);
    TraceLines lines(styleOf(graph.trace(index), graph.settings().background), area, graph.xOf(0.0),
                     isDense);
    lines.reserve((isDense ? 1 : 2) * drawn.size());
    if (isDense)
        addDense(lines, drawn, pixelRatio);
    else
        addStrips(lines, drawn);
    lines.addTo(pen);
}

} // namespace KOLT
