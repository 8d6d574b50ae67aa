#include "graph/MarkerTable.h"

#include "analysis/MomentText.h"
#include "base/NumberText.h"
#include "graph/GraphTexts.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr int meanDecimals = 2; ///< at least: the mean of integers is rarely an integer

QStringList rowOf(const Graph& graph, int index, const TimeRange& markers)
{
    const GraphTrace& trace = graph.trace(index);
    const QString none = QStringLiteral("---");
    const auto textOf = [&](const std::optional<double>& value) {
        return value ? valueText(graph, index, *value) : none;
    };
    const int decimals = graph.shownDecimals(index);
    const auto left = trace.valueAt(markers.start);
    const auto right = trace.valueAt(markers.end);
    const auto between = trace.statistic(markers.start, markers.end);
    QStringList row{trace.name, trace.unit, textOf(left), textOf(right), none, none, none, none};
    if (left && right && std::isfinite(*right - *left))
        row[4] = fixedText(*right - *left, decimals);
    if (between) {
        row[5] = textOf(between->minimum);
        row[6] = textOf(between->maximum);
        row[7] = fixedText(between->mean, std::max(decimals, meanDecimals));
    }
    return row;
}

} // namespace

MarkerTable markerTableOf(const Graph& graph)
{
    const TimeRange markers = graph.markers().ordered();
    MarkerTable table;
    table.heading = MarkerTable::tr("Markers at %1 and %2, dt = %3 s")
                        .arg(counterText(markers.start), counterText(markers.end),
                             fixedText(markers.length(), 3));
    table.columns = {MarkerTable::tr("Trace"),      MarkerTable::tr("Unit"),
                     MarkerTable::tr("Left"),       MarkerTable::tr("Right"),
                     MarkerTable::tr("Difference"), MarkerTable::tr("Min"),
                     MarkerTable::tr("Max"),        MarkerTable::tr("Mean")};
    for (const int index : graph.visibleTraces())
        table.rows << rowOf(graph, index, markers);
    return table;
}

QString MarkerTable::text() const
{
    QStringList lines{heading, columns.join(QLatin1Char('\t'))};
    for (const QStringList& row : rows)
        lines << row.join(QLatin1Char('\t'));
    return lines.join(QLatin1Char('\n'));
}

} // namespace KOLT
