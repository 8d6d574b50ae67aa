#include "libs/zinc/drawing/ViewTextures.h"

#include <QImageReader>

namespace Zinc2D {

namespace {

constexpr int largestImage = 4096;

std::unique_ptr<QOpenGLTexture> textureOf(const QString& path)
{
    QImageReader reader(path);
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > largestImage || size.height() > largestImage)
        return nullptr;
    const QImage picture = reader.read();
    if (picture.isNull())
        return nullptr;
    auto texture = std::make_unique<QOpenGLTexture>(picture);
    texture->setMinMagFilters(QOpenGLTexture::LinearMipMapLinear, QOpenGLTexture::Linear);
    texture->setWrapMode(QOpenGLTexture::ClampToEdge);
    return texture;
}

} // namespace

TUSK::OpenGL::TextureFont& ViewTextures::font(const FontKey& key)
{
    const auto found = m_fonts.find(key);
    if (found != m_fonts.end())
        return found->second;
    QFont font;
    if (!m_fontFamily.isEmpty())
        font.setFamilies({m_fontFamily, QStringLiteral("sans-serif")});
    font.setPixelSize(key.pixels);
    font.setBold(key.weight == Weight::Bold);
    return m_fonts.emplace(key, TUSK::OpenGL::TextureFont::makeEmpty(font, 1.0)).first->second;
}

const QOpenGLTexture* ViewTextures::image(const QString& path)
{
    const auto found = m_images.find(path);
    if (found != m_images.end())
        return found->second.get();
    return m_images.emplace(path, textureOf(path)).first->second.get();
}

} // namespace Zinc2D
