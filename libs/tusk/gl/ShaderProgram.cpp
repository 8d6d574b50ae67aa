#include "libs/tusk/gl/ShaderProgram.h"

namespace TUSK::OpenGL {

std::unique_ptr<QOpenGLShaderProgram> makeProgram(const char* vertexSource,
                                                  const char* fragmentSource,
                                                  std::initializer_list<const char*> attributes,
                                                  QString* error)
{
    auto program = std::make_unique<QOpenGLShaderProgram>();
    int location = 0;
    for (const char* const attribute : attributes)
        program->bindAttributeLocation(attribute, location++);
    if (program->addShaderFromSourceCode(QOpenGLShader::Vertex, vertexSource) &&
        program->addShaderFromSourceCode(QOpenGLShader::Fragment, fragmentSource) &&
        program->link())
        return program;
    if (error != nullptr)
        *error = program->log().trimmed();
    return nullptr;
}

} // namespace TUSK::OpenGL
