#pragma once

#include "libs/tusk/GlHandler.h"

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QOpenGLTexture>

#include <memory>

namespace TUSK::OpenGL {

/// Texts drawn from one texture that holds the font's glyphs, antialiased. Glyphs are added when a
/// text needs them. Needs the current context like its handler.
class TextureFont
{
public:
    /// `pixelRatio`: pixels of the framebuffer for each unit of the matrix.
    TextureFont(const QFont& font, double pixelRatio);

    double width(const QString& text) const;

    /// The text begins at x, or ends there, with its middle at the height y.
    void draw(GlHandler& handler, const QString& text, double x, double y, const QColor& color,
              bool endsAtX = false);

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
    QString m_characters; ///< all glyphs, in their order in the texture
    std::unique_ptr<QOpenGLTexture> m_texture;
};

} // namespace TUSK::OpenGL
