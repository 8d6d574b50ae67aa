#include "libs/tusk/gl/GlSupport.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <utility>

namespace TUSK::OpenGL {

namespace {

bool probe()
{
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!context.create() || !context.makeCurrent(&surface))
        return false;
    // Without a driver, some systems offer OpenGL 1.1: a whole window would stay black with it.
    return context.format().version() >= std::pair(2, 0) &&
           context.functions()->hasOpenGLFeature(QOpenGLFunctions::Framebuffers);
}

} // namespace

bool isAvailable()
{
    static const bool isAvailable = probe();
    return isAvailable;
}

} // namespace TUSK::OpenGL
