#pragma once

#include <QOpenGLShaderProgram>

#include <initializer_list>
#include <memory>

namespace TUSK::OpenGL {

/// Compiles and links a program for the current context. The named attributes get the locations 0,
/// 1, 2, ... Null on failure; `error` then gets the driver's message.
std::unique_ptr<QOpenGLShaderProgram> makeProgram(const char* vertexSource,
                                                  const char* fragmentSource,
                                                  std::initializer_list<const char*> attributes,
                                                  QString* error = nullptr);

} // namespace TUSK::OpenGL
