#pragma once

#include "libs/tusk/gl/Mesh.h"
#include "libs/zinc/drawing/MeshBuilder.h"
#include "libs/zinc/drawing/PaintPiece.h"
#include "libs/zinc/drawing/ViewTextures.h"
#include "libs/zinc/layout/ViewFrame.h"

namespace Zinc2D {

/// Draws the draw lists of a view as a mesh of triangles. The triangles of an element are kept
/// until its draw list or the placement of the view changes. Every call, destruction included,
/// needs the context that was current at construction.
class ViewPainter
{
public:
    /// `fontFamily`: for all texts; empty for the application's font.
    explicit ViewPainter(const QString& fontFamily);

    /// `pixels`: size of the framebuffer; `background`: colour behind everything, or 0.
    void draw(TUSK::OpenGL::GlHandler& handler, const ViewFrame& frame, const PixelMap& map,
              const QSize& pixels, Argb background);

private:
    struct CachedElement
    {
        unsigned revision = 0; ///< of the draw list; 0: none yet
        std::vector<PaintPiece> pieces;
    };

    bool takeOver(const ViewFrame& frame);
    void buildElement(const DrawList& list, std::vector<PaintPiece>& pieces);
    PaintStyle styleOf(const DrawList& list, const DrawCommand& command) const;
    void addText(const DrawCommand& command, const QPointF& place, PaintPiece& piece);
    void addImage(const DrawCommand& command, std::span<const QPointF> corners, PaintPiece& piece);
    QRect clipOf(const QRectF& area) const;
    FontKey fontKey(const DrawCommand& command) const;
    void buildMesh();
    void addBatch(const PieceGroup& group);

    ViewTextures m_textures;
    TUSK::OpenGL::Mesh m_mesh;
    PixelMap m_map;
    QSize m_pixels;
    Argb m_background = 0;
    std::vector<CachedElement> m_elements;
    std::vector<TUSK::OpenGL::Mesh::Batch> m_batches;
    std::vector<TUSK::OpenGL::MeshVertex> m_vertices;
};

} // namespace Zinc2D
