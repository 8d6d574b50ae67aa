#pragma once

namespace TUSK::OpenGL {

/// Whether an OpenGL context of the default surface format can be created, and has shaders and
/// framebuffers, which widgets need. Tried once; needs the application object.
bool isAvailable();

} // namespace TUSK::OpenGL
