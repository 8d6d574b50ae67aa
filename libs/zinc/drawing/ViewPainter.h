#pragma once

#include "libs/tusk/gl/Mesh.h"
#include "libs/tusk/gl/TextureFont.h"
#include "libs/zinc/drawing/MeshBuilder.h"
#include "libs/zinc/layout/ViewFrame.h"

#include <QOpenGLTexture>

#include <map>

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
    struct FontKey
    {
        int pixels = 0;
        bool isBold = false;

        auto operator<=>(const FontKey&) const = default;
    };

    /// Consecutive vertices of one element that are painted alike.
    struct Piece
    {
        TUSK::OpenGL::Mesh::Paint paint = TUSK::OpenGL::Mesh::Paint::Plain;
        FontKey font;
        QString image;
        QRect clip;
        std::vector<TUSK::OpenGL::MeshVertex> vertices;
        // Bounds in pixels
        float left = 0.0F;
        float right = 0.0F;
        float top = 0.0F;
        float bottom = 0.0F;

        bool isLike(const Piece& other) const;
        void measure();
        bool touches(const Piece& other) const;
    };

    /// Pieces that are painted alike, in one batch.
    using Group = std::vector<const Piece*>;

    struct CachedElement
    {
        unsigned revision = 0; ///< of the draw list; 0: none yet
        std::vector<Piece> pieces;
    };

    bool takeOver(const ViewFrame& frame);
    void reserveCharacters(const ViewFrame& frame, std::size_t element);
    void buildElement(const DrawList& list, CachedElement& cached);
    void addText(const DrawCommand& command, const QPointF& place, Piece& piece);
    void addImage(const DrawCommand& command, std::span<const QPointF> corners, Piece& piece);
    QRect clipOf(const DrawList& list, const DrawCommand& command) const;
    void joinPieces(Argb background);
    void addToGroups(const Piece& piece, std::vector<Group>& groups);
    void addBatch(const Group& group);
    FontKey fontKey(const DrawCommand& command) const;
    TUSK::OpenGL::TextureFont& font(const FontKey& key);
    QOpenGLTexture* image(const QString& path);

    QString m_fontFamily;
    TUSK::OpenGL::Mesh m_mesh;
    PixelMap m_map;
    QSize m_pixels;
    Argb m_background = 0;
    std::vector<CachedElement> m_elements;
    std::vector<TUSK::OpenGL::Mesh::Batch> m_batches;
    std::vector<const Piece*>
        m_batchPieces; ///< the first piece of each batch; null: the background
    std::vector<TUSK::OpenGL::MeshVertex> m_vertices;
    std::map<FontKey, TUSK::OpenGL::TextureFont> m_fonts;
    std::map<QString, std::unique_ptr<QOpenGLTexture>> m_images;
};

} // namespace Zinc2D
