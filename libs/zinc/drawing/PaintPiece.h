#pragma once

#include "libs/tusk/gl/Mesh.h"
#include "libs/zinc/layout/DrawList.h"

#include <QRect>
#include <QString>

#include <vector>

namespace Zinc2D {

/// A font of a view, at a size in pixels.
struct FontKey
{
    int pixels = 0;
    Weight weight = Weight::Normal;

    auto operator<=>(const FontKey&) const = default;
};

/// How triangles are painted. Those with an equal style can be drawn at once.
struct PaintStyle
{
    TUSK::OpenGL::Mesh::Paint paint = TUSK::OpenGL::Mesh::Paint::Plain;
    FontKey font;  ///< of glyphs
    QString image; ///< path
    QRect clip;    ///< pixels from the lower left; empty: none

    bool operator==(const PaintStyle&) const = default;
};

/// Consecutive triangles of one element in one style.
struct PaintPiece
{
    PaintStyle style;
    std::vector<TUSK::OpenGL::MeshVertex> vertices;

    // Bounds in pixels, known after measure()
    float left = 0.0F;
    float right = 0.0F;
    float top = 0.0F;
    float bottom = 0.0F;

    void measure();
    bool touches(const PaintPiece& other) const;
};

/// Pieces of one style that are drawn at once.
using PieceGroup = std::vector<const PaintPiece*>;

/// Adds a piece to the last group of its style, or to a new group if it touches anything that was
/// added since: what overlaps is drawn in the order of the calls.
void addToGroups(const PaintPiece& piece, std::vector<PieceGroup>& groups);

} // namespace Zinc2D
