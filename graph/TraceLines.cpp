#include "graph/TraceLines.h"

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr double casing = 1.0; ///< pixels on each side

} // namespace

TraceLines::TraceLines(const TraceStyle& style, const QRectF& area, double phase, bool isDense)
    : m_style(style)
    , m_area(area)
    , m_phase(phase)
    , m_isDense(isDense)
{
}

void TraceLines::reserve(std::size_t lines)
{
    constexpr std::size_t floatsPerLine = 4;
    m_tones[0].reserve(floatsPerLine * lines);
}

void TraceLines::add(Vertices& to, double x1, double y1, double x2, double y2)
{
    to.insert(to.end(), {static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2),
                         static_cast<float>(y2)});
}

/// Dashes come last in each period: the plain colour is seen first.
bool TraceLines::isDash(double x) const
{
    const double period = m_style.on + m_style.off;
    const double place = std::fmod(x - m_phase, period);
    return (place < 0.0 ? place + period : place) >= m_style.off;
}

/// Where the dash, or the piece between two, ends that x is in.
double TraceLines::endOfPiece(double x) const
{
    const double period = m_style.on + m_style.off;
    const double begin = m_phase + std::floor((x - m_phase) / period) * period;
    return isDash(x) ? begin + period : begin + m_style.off;
}

void TraceLines::line(double x1, double y1, double x2, double y2)
{
    if (m_style.casing)
        add(m_casing, x1, y1, x2, y2);
    if (m_style.isDashed())
        dashedLine(x1, y1, x2, y2);
    else
        add(m_tones[0], x1, y1, x2, y2);
}

/// The ends beyond the area are left whole, as they may be far away.
void TraceLines::dashedLine(double x1, double y1, double x2, double y2)
{
    constexpr double shortest = 0.1; // of a piece, so that rounding cannot stop the loop
    const double slope = x2 > x1 ? (y2 - y1) / (x2 - x1) : 0.0;
    double x = x1;
    while (x < x2 - shortest) {
        double end = x < m_area.left() ? std::min(x2, m_area.left()) : x2;
        if (x >= m_area.left() && x < m_area.right())
            end = std::min(std::max(endOfPiece(x), x + shortest), x2);
        if (end > x2 - shortest)
            end = x2;
        add(m_tones[isDash(x) ? 1 : 0], x, y1 + (x - x1) * slope, end,
            end == x2 ? y2 : y1 + (end - x1) * slope);
        x = end;
    }
    if (x == x1) // upright, or nearly
        add(m_tones[isDash(x) ? 1 : 0], x1, y1, x2, y2);
}

void TraceLines::upright(double x, double low, double high)
{
    const double room = std::max(0.0, (1.0 - (high - low)) / 2.0);
    if (m_style.casing)
        add(m_casing, x, low - room - casing, x, high + room + casing);
    add(m_tones[m_style.isDashed() && isDash(x) ? 1 : 0], x, low - room, x, high + room);
}

void TraceLines::addTo(ScenePen& pen) const
{
    const auto addFigure = [&](const Vertices& lines, const QColor& color, float lineWidth) {
        pen.begin(GraphScene::Kind::Lines, color, lineWidth).clip = m_area;
        pen.vertices(lines);
        pen.end();
    };
    if (m_style.casing)
        addFigure(m_casing, *m_style.casing,
                  m_isDense ? width : width + 2.0F * static_cast<float>(casing));
    addFigure(m_tones[0], m_style.color, width);
    addFigure(m_tones[1], m_style.dash, width);
}

} // namespace KOLT
