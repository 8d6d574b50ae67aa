#pragma once

#include "analysis/TimeStrip.h"
#include "record/TrustFinding.h"

#include <vector>

namespace KOLT {

/// A finding on a strip along the time axis.
struct StripPiece
{
    enum class Kind {
        Hole,    ///< nothing was recorded
        Overlap, ///< recorded twice
        Jump     ///< the counter goes back or far ahead
    };

    Kind kind = Kind::Hole;
    PixelRun run;
    std::size_t finding = 0; ///< index
};

/// The findings that have a place on the strip, in their order. Each is wide enough to be seen; a
/// jump is a place, where it begins.
std::vector<StripPiece> stripPieces(const TimeStrip& strip,
                                    const std::vector<TrustFinding>& findings);

/// The piece at a pixel, or the nearest within `reach` pixels; of several the one drawn last. Null
/// if there is none.
const StripPiece* pieceAt(const std::vector<StripPiece>& pieces, int x, int reach);

} // namespace KOLT
