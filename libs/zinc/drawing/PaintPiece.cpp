#include "libs/zinc/drawing/PaintPiece.h"

#include <algorithm>

namespace Zinc2D {

void PaintPiece::measure()
{
    if (vertices.empty())
        return;
    left = right = vertices.front().x;
    top = bottom = vertices.front().y;
    for (const TUSK::OpenGL::MeshVertex& vertex : vertices) {
        left = std::min(left, vertex.x);
        right = std::max(right, vertex.x);
        top = std::min(top, vertex.y);
        bottom = std::max(bottom, vertex.y);
    }
}

bool PaintPiece::touches(const PaintPiece& other) const
{
    return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
}

void addToGroups(const PaintPiece& piece, std::vector<PieceGroup>& groups)
{
    if (piece.vertices.empty())
        return;
    for (auto group = groups.rbegin(); group != groups.rend(); ++group) {
        if (group->front()->style == piece.style) {
            group->push_back(&piece);
            return;
        }
        if (std::ranges::any_of(*group,
                                [&](const PaintPiece* other) { return other->touches(piece); }))
            break;
    }
    groups.push_back({&piece});
}

} // namespace Zinc2D
