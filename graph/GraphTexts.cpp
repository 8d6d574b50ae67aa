#include "graph/GraphTexts.h"

#include "analysis/MomentText.h"
#include "base/NumberText.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr int shortestName = 4;

QString number(double value, int decimals)
{
    if (!std::isfinite(value))
        return QStringLiteral("---");
    return fixedText(value, decimals);
}

/// The name followed by the rest; the name is cut if both together are too long.
QString named(const QString& name, const QString& rest, int longest)
{
    const auto room = std::max(longest - static_cast<int>(rest.size()), shortestName);
    if (name.size() <= room)
        return name + rest;
    return name.left(room - 1) + QChar(0x2026) + rest;
}

/// The label of a bit field's value, by the same rule as in the data table.
const QString* labelOf(const TraceSource& source, double value)
{
    const ProfileParameter* const parameter = source.parameter;
    constexpr double end = 4294967296.0; // bit fields have 32 bits at most
    if (parameter == nullptr || parameter->enumList == nullptr ||
        parameter->rule != DecodingRule::BitField || !(value >= 0.0 && value < end))
        return nullptr;
    const auto bits = static_cast<std::uint32_t>(value);
    const auto& entries = parameter->enumList->entries;
    const auto entry = entries.find(static_cast<std::int32_t>(bits));
    return entry != entries.end() ? &entry->second.label : nullptr;
}

} // namespace

QString valueText(const Graph& graph, int index, double value)
{
    const QString* const label = labelOf(graph.source(index), value);
    return label != nullptr ? *label : number(value, graph.shownDecimals(index));
}

QString legendText(const Graph& graph, int index, double seconds, int longest)
{
    const GraphTrace& trace = graph.trace(index);
    QString rest;
    if (!trace.unit.isEmpty())
        rest = QStringLiteral(" [%1]").arg(trace.unit);
    const std::optional<double> value = trace.valueAt(seconds);
    rest += QStringLiteral("   ");
    rest += value ? valueText(graph, index, *value) : QStringLiteral("---");
    return named(trace.name, rest, longest);
}

QString highestText(const Graph& graph, int index, double value)
{
    return QCoreApplication::translate("KOLT::GraphScene", "max %1")
        .arg(valueText(graph, index, value));
}

QString lowestText(const Graph& graph, int index, double value)
{
    return QCoreApplication::translate("KOLT::GraphScene", "min %1")
        .arg(valueText(graph, index, value));
}

QString scaleText(const Graph& graph, int index)
{
    const GraphTrace& trace = graph.trace(index);
    const int decimals = graph.shownDecimals(index);
    constexpr int width = 8;
    const auto padded = [decimals](double value) {
        return fixedText(value, decimals).rightJustified(width);
    };
    return padded(trace.scale.lower) + QLatin1Char(' ') + padded(trace.scale.upper) +
           QStringLiteral(" [%1]").arg(trace.unit);
}

QString scaleTip(const Graph& graph, int index)
{
    const GraphTrace& trace = graph.trace(index);
    const int decimals = graph.shownDecimals(index);
    return QCoreApplication::translate("KOLT::GraphScene",
                                       "%1: both ends of the band's scale, %2 and %3 %4")
        .arg(trace.name, fixedText(trace.scale.lower, decimals),
             fixedText(trace.scale.upper, decimals), trace.unit);
}

QString cursorText(double seconds, double value)
{
    return counterText(seconds) + QLatin1Char('/') + fixedText(value, 2);
}

} // namespace KOLT
