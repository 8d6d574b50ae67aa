#include "libs/tusk/gl/GlSupport.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>

namespace TUSK::OpenGL {

namespace {

bool probe()
{
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    return context.create() && context.makeCurrent(&surface);
}

} // namespace

bool isAvailable()
{
    static const bool isAvailable = probe();
    return isAvailable;
}

} // namespace TUSK::OpenGL
