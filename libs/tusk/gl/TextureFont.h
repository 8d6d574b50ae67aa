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

/// Draws antialiased text from a texture of glyphs. A glyph is added when a text first needs it.
/// Needs the handler's context to be current.
class TextureFont
{
public:
    /// Starts with the printable ASCII characters. `pixelRatio`: framebuffer pixels per unit of the
    /// matrix.
    TextureFont(const QFont& font, double pixelRatio);

    /// Starts without glyphs, for large fonts of which few characters are needed.
    static TextureFont makeEmpty(const QFont& font, double pixelRatio);

    double width(const QString& text) const;

    /// The text starts or ends at x, and is vertically centred on y.
    void draw(GlHandler& handler, const QString& text, double x, double y, const QColor& color,
              bool endsAtX = false);

    /// Height of the capital letters.
    double capHeight() const { return m_metrics.capHeight(); }

    /// Adds the characters of a text that will be appended. Reserving all texts first makes the
    /// texture only once.
    void reserve(const QString& text);

    /// Adds the triangles of a text that starts at x with its baseline at y, y downwards. s and t
    /// are in pixels of the texture, so that they stay valid when glyphs are added.
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
    QString m_characters;          ///< in their order in the texture
    qsizetype m_drawnCharacters{}; ///< number of those that are in the texture
    std::unique_ptr<QOpenGLTexture> m_texture;
};

} // namespace TUSK::OpenGL
