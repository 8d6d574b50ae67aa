#pragma once

#include "libs/tusk/gl/MatrixStack.h"

#include <QColor>
#include <QOpenGLBuffer>
#include <QOpenGLFunctions>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>

#include <memory>
#include <span>

namespace TUSK::OpenGL {

/// What the primitives draw with: a few small shader programs that every pipeline has, a buffer for
/// vertices, and the matrix stack. Needs the current context of its making for all it does, its
/// destruction included.
class GlHandler : protected QOpenGLFunctions
{
public:
    /// Compiles the programs for the current context. False when that fails; nothing is then drawn.
    bool initialize();

    bool isReady() const { return m_isReady; }

    MatrixStack& matrices() { return m_matrices; }

    /// Vertices of x and y in the matrix's units.
    void draw(GLenum mode, std::span<const float> vertices, const QColor& color,
              float lineWidth = 1.0F, bool isStippled = false);

    /// Vertices of x, y and z in the matrix's units, and red, green, blue and alpha from 0 to 1.
    void drawColored(GLenum mode, std::span<const float> vertices, float lineWidth);

    /// Triangles with x, y, s and t; the texture's alpha is that of the colour.
    void drawTextured(std::span<const float> vertices, const QColor& color, GLuint texture);

    /// The same with the texture's own colours, multiplied with the colour.
    void drawImage(std::span<const float> vertices, const QColor& color, GLuint texture);

    /// In pixels of the framebuffer.
    void setViewPort(int width, int height);

    void clear(const QColor& color);
    void enableBlending();
    void disableBlending();
    /// In pixels of the framebuffer from the lower left; an empty area ends the clipping.
    void clip(const QRect& area);

private:
    bool build(QOpenGLShaderProgram& program, const char* vertexSource, const char* fragmentSource);
    void upload(std::span<const float> vertices);
    void drawTriangles(QOpenGLShaderProgram& program, std::span<const float> vertices,
                       const QColor& color, GLuint texture);

    bool m_isReady = false;
    MatrixStack m_matrices;
    std::unique_ptr<QOpenGLShaderProgram> m_plain;
    std::unique_ptr<QOpenGLShaderProgram> m_colored;
    std::unique_ptr<QOpenGLShaderProgram> m_textured;
    std::unique_ptr<QOpenGLShaderProgram> m_image;
    std::unique_ptr<QOpenGLBuffer> m_buffer;
    QOpenGLVertexArrayObject m_arrays; ///< core profiles draw nothing without one
};

} // namespace TUSK::OpenGL
