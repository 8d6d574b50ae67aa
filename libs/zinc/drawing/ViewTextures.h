#pragma once

#include "libs/tusk/gl/TextureFont.h"
#include "libs/zinc/drawing/PaintPiece.h"

#include <QOpenGLTexture>

#include <map>
#include <memory>

namespace Zinc2D {

/// The fonts and images of a view as textures, made when first asked for. Every call, destruction
/// included, needs the context that was current at construction.
class ViewTextures
{
public:
    /// `fontFamily`: for all texts; empty for the application's font.
    explicit ViewTextures(const QString& fontFamily)
        : m_fontFamily(fontFamily)
    {
    }

    /// Stays valid until dropFonts().
    TUSK::OpenGL::TextureFont& font(const FontKey& key);

    void dropFonts() { m_fonts.clear(); }

    /// Null if the file is not a picture of at most 4096 x 4096 pixels.
    const QOpenGLTexture* image(const QString& path);

private:
    QString m_fontFamily;
    std::map<FontKey, TUSK::OpenGL::TextureFont> m_fonts;
    std::map<QString, std::unique_ptr<QOpenGLTexture>> m_images;
};

} // namespace Zinc2D
