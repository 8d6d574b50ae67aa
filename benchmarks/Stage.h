#pragma once

#include <QColor>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>

#include <memory>

namespace KOLT::Bench {

/// A current OpenGL context with a framebuffer to draw into.
class Stage
{
public:
    explicit Stage(const QSize& size, int samplesPerPixel = 0)
    {
        m_surface.create();
        m_context.create();
        m_context.makeCurrent(&m_surface);
        QOpenGLFramebufferObjectFormat format;
        format.setSamples(samplesPerPixel);
        format.setAttachment(QOpenGLFramebufferObject::CombinedDepthStencil);
        m_picture = std::make_unique<QOpenGLFramebufferObject>(size, format);
        m_picture->bind();
        gl().glViewport(0, 0, size.width(), size.height());
    }

    QOpenGLFunctions& gl() { return *m_context.functions(); }

    void clear(const QColor& color)
    {
        gl().glClearColor(color.redF(), color.greenF(), color.blueF(), 1.0F);
        gl().glClear(GL_COLOR_BUFFER_BIT);
    }

private:
    QOffscreenSurface m_surface;
    QOpenGLContext m_context;
    std::unique_ptr<QOpenGLFramebufferObject> m_picture;
};

} // namespace KOLT::Bench
