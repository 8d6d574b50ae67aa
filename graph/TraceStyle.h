#pragma once

#include "graph/GraphTrace.h"

#include <optional>

namespace KOLT {

/// How a trace is told from the others, as there are only six colours: from the seventh on, a
/// pattern of dashes in another tone. The pieces between are not left out, which would look like
/// missing data and could hide a spike.
struct TraceStyle
{
    QColor color;
    QColor dash;                  ///< the other tone
    std::optional<QColor> casing; ///< around a line whose colour is too close to the background
    double on = 0.0;              ///< pixels of a dash, 0 for a plain line
    double off = 0.0;             ///< pixels between dashes

    bool isDashed() const { return on > 0.0; }
};

TraceStyle styleOf(const GraphTrace& trace, const QColor& background);

} // namespace KOLT
