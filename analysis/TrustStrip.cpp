#include "analysis/TrustStrip.h"

#include <algorithm>
#include <optional>

namespace KOLT {

namespace {

constexpr int leastWidth = 4;
constexpr int jumpWidth = 7;

std::optional<StripPiece::Kind> kindOf(TrustKind kind)
{
    switch (kind) {
    case TrustKind::Hole:
    case TrustKind::MissingFile:
    case TrustKind::TruncatedFile:
    case TrustKind::UnreadableFile:
        return StripPiece::Kind::Hole;
    case TrustKind::DuplicateFile:
    case TrustKind::OverlappingFiles:
        return StripPiece::Kind::Overlap;
    case TrustKind::TimeJump:
        return StripPiece::Kind::Jump;
    default:
        return std::nullopt;
    }
}

/// Of this width, within the strip.
PixelRun runAround(const TimeStrip& strip, int center, int width)
{
    const int most = std::max(strip.right() - width + 1, strip.left);
    const int left = std::clamp(center - width / 2, strip.left, most);
    return {left, std::min(left + width - 1, strip.right())};
}

} // namespace

std::vector<StripPiece> stripPieces(const TimeStrip& strip,
                                    const std::vector<TrustFinding>& findings)
{
    std::vector<StripPiece> pieces;
    for (std::size_t i = 0; i < findings.size(); ++i) {
        const TrustFinding& finding = findings[i];
        const auto kind = kindOf(finding.kind);
        if (!kind || (!finding.from && !finding.to))
            continue;
        // A stretch whose other end is not known is shown where it begins or ends.
        const int left = strip.xOf(finding.from ? *finding.from : *finding.to);
        const int right = strip.xOf(finding.to ? *finding.to : *finding.from);
        if (*kind == StripPiece::Kind::Jump)
            pieces.push_back({*kind, runAround(strip, left, jumpWidth), i});
        else if (right - left + 1 < leastWidth)
            pieces.push_back({*kind, runAround(strip, (left + right) / 2, leastWidth), i});
        else
            pieces.push_back({*kind, {left, right}, i});
    }
    // Wide pieces must not cover narrow ones.
    std::ranges::stable_sort(pieces, std::ranges::greater{}, [](const StripPiece& piece) {
        return piece.run.right - piece.run.left;
    });
    return pieces;
}

const StripPiece* pieceAt(const std::vector<StripPiece>& pieces, int x, int reach)
{
    const StripPiece* nearest = nullptr;
    int least = reach;
    for (const StripPiece& piece : pieces) {
        const int distance = std::max({piece.run.left - x, x - piece.run.right, 0});
        if (distance <= least) {
            nearest = &piece;
            least = distance;
        }
    }
    return nearest;
}

} // namespace KOLT
