#pragma once

namespace TUSK::OpenGL {

/// Whether the machine gives OpenGL contexts at all. Tries once, with the default surface format;
/// needs the application object.
bool isAvailable();

} // namespace TUSK::OpenGL
