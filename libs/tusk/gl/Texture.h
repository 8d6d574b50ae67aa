#pragma once

#include "libs/tusk/gl/GlHandler.h"

#include <QImage>
#include <QOpenGLTexture>

#include <memory>

namespace TUSK::OpenGL {

/// A picture in a rectangle centred on the origin. Needs the handler's context to be current.
class Texture
{
public:
    /// False for a null picture. `width` and `height`: of the rectangle, in the matrix's units.
    bool load(const QImage& image, double width, double height);

    /// Multiplied with the picture's colours.
    void setColor(const QColor& color) { m_color = color; }

    void render(GlHandler& handler) const;

private:
    std::unique_ptr<QOpenGLTexture> m_texture;
    QColor m_color = Qt::white;
    float m_halfWidth = 0.0F;
    float m_halfHeight = 0.0F;
};

} // namespace TUSK::OpenGL
