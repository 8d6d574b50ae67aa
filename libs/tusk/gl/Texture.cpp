#include "libs/tusk/gl/Texture.h"

#include <array>

namespace TUSK::OpenGL {

bool Texture::load(const QImage& image, double width, double height)
{
    m_texture.reset();
    if (image.isNull())
        return false;
    m_texture = std::make_unique<QOpenGLTexture>(image, QOpenGLTexture::GenerateMipMaps);
    m_texture->setMinMagFilters(QOpenGLTexture::LinearMipMapLinear, QOpenGLTexture::Linear);
    m_texture->setWrapMode(QOpenGLTexture::ClampToEdge);
    m_halfWidth = static_cast<float>(width / 2.0);
    m_halfHeight = static_cast<float>(height / 2.0);
    return true;
}

void Texture::render(GlHandler& handler) const
{
    if (m_texture == nullptr)
        return;
    const float x = m_halfWidth;
    const float y = m_halfHeight;
    // t = 0 is the top of the image.
    const std::array<float, 24> vertices{-x, -y, 0.0F, 1.0F, x, -y, 1.0F, 1.0F, x,  y, 1.0F, 0.0F,
                                         -x, -y, 0.0F, 1.0F, x, y,  1.0F, 0.0F, -x, y, 0.0F, 0.0F};
    handler.drawImage(vertices, m_color, m_texture->textureId());
}

} // namespace TUSK::OpenGL
