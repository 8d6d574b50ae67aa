#pragma once

#include "graph/ScenePen.h"
#include "graph/TraceStyle.h"

#include <array>

namespace KOLT {

/// Collects the lines of one trace and adds them to a scene in its style.
class TraceLines
{
public:
    static constexpr float width = 1.4F; ///< pixels

    /// `phase`: x at which the pattern begins; it moves with the data. A dense trace consists of
    /// adjacent upright strokes, whose casing is above and below.
    TraceLines(const TraceStyle& style, const QRectF& area, double phase, bool isDense);

    void reserve(std::size_t lines);
    void line(double x1, double y1, double x2, double y2);
    /// A vertical line, at least a pixel high so that a single value makes a dot.
    void upright(double x, double low, double high);
    void addTo(ScenePen& pen) const;

private:
    using Vertices = std::vector<float>;

    bool isDash(double x) const;
    double endOfPiece(double x) const;
    void dashedLine(double x1, double y1, double x2, double y2);
    static void add(Vertices& to, double x1, double y1, double x2, double y2);

    TraceStyle m_style;
    QRectF m_area;
    double m_phase;
    bool m_isDense;
    Vertices m_casing;
    std::array<Vertices, 2> m_tones; ///< the colour's and the dashes'
};

} // namespace KOLT
