#include "graph/TraceStyle.h"

#include "graph/Contrast.h"

#include <array>

namespace KOLT {

namespace {

struct Pattern
{
    double on = 0.0;
    double off = 0.0;
};

constexpr std::array<Pattern, 9> patterns{
    {{0, 0}, {12, 12}, {4, 8}, {24, 6}, {6, 24}, {2, 4}, {30, 30}, {8, 2}, {2, 16}}};

} // namespace

TraceStyle styleOf(const GraphTrace& trace, const QColor& background)
{
    constexpr double readable = 3.0; // contrast that a line needs
    constexpr double casingContrast = 7.0;
    constexpr double dashPart = 0.65;
    const auto round = static_cast<std::size_t>(trace.style / GraphTrace::colorCount);
    const auto [on, off] = patterns[round % patterns.size()];
    TraceStyle style{
        trace.color, mixed(trace.color, oppositeOf(background), dashPart), {}, on, off};
    if (contrastOf(trace.color, background) < readable)
        style.casing = contrasting(trace.color, background, casingContrast);
    return style;
}

} // namespace KOLT
