#pragma once

#include "libs/tusk/gl/GlHandler.h"
#include "libs/tusk/gl/MeshVertex.h"

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QOpenGLTexture>

#include <memory>
#include <vector>

namespace TUSK::OpenGL {

/// Texts drawn from one texture that holds the font's glyphs, antialiased. Glyphs are added when a
/// text needs them. Needs the current context like its handler.
class TextureFont
{
public:
    /// `pixelRatio`: pixels of the framebuffer for each unit of the matrix.
    TextureFont(const QFont& font, double pixelRatio);

    /// Takes up only characters that are asked for: for large fonts of which few are needed.
    static TextureFont makeEmpty(const QFont& font, double pixelRatio);

    double width(const QString& text) const;

    /// The text begins at x, or ends there, with its middle at the height y.
    void draw(GlHandler& handler, const QString& text, double x, double y, const QColor& color,
              bool endsAtX = false);

    /// Height of the capital letters.
    double capHeight() const { return m_metrics.capHeight(); }

    /// Takes up the characters of a text that will be appended, so that the texture is made once.
    void reserve(const QString& text);

    /// Adds the glyphs as triangles for a mesh: from x on, standing on the height y, with y
    /// downwards and s and t in pixels of the texture. They stay right when more characters come.
    void append(const QString& text, double x, double y, std::uint32_t rgba,
                std::vector<MeshVertex>& vertices);

    GLuint textureId() const { return m_texture != nullptr ? m_texture->textureId() : 0; }

    QSizeF textureSize() const
    {
        return m_texture != nullptr ? QSizeF(m_texture->width(), m_texture->height())
                                    : QSizeF(1.0, 1.0);
    }

private:
    struct Glyph
    {
        QRectF place; ///< in the texture, 0..1
        QSizeF size;  ///< units
        double advance = 0.0;
    };

    void addGlyphs(const QString& text);

    QFont m_font;
    QFontMetricsF m_metrics;
    double m_pixelRatio;
    QHash<QChar, Glyph> m_glyphs;
    QString m_characters;          ///< all glyphs, in their order in the texture
    qsizetype m_drawnCharacters{}; ///< those that the texture has
    std::unique_ptr<QOpenGLTexture> m_texture;
};

} // namespace TUSK::OpenGL
