#pragma once

#include "libs/tusk/gl/MatrixStack.h"

#include <QColor>
#include <QOpenGLBuffer>
#include <QOpenGLFunctions>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>

#include <array>
#include <memory>
#include <span>

namespace TUSK::OpenGL {

/// How lines are drawn.
struct LineLook
{
    float width = 1.0F;      ///< framebuffer pixels
    bool isStippled = false; ///< leaves out every other pixel
};

/// Draws vertices: a few small shader programs that run on any OpenGL version, a vertex buffer and
/// a matrix stack. Every call, destruction included, needs the context that was current in
/// initialize().
class GlHandler : protected QOpenGLFunctions
{
public:
    /// Compiles the programs for the current context. On failure nothing is ever drawn.
    bool initialize();

    bool isReady() const { return m_isReady; }

    MatrixStack& matrices() { return m_matrices; }

    /// Vertices of x and y in the matrix's units.
    void draw(GLenum mode, std::span<const float> vertices, const QColor& color,
              const LineLook& look = {});

    /// Vertices of x, y and z in the matrix's units, and red, green, blue and alpha from 0 to 1.
    void drawColored(GLenum mode, std::span<const float> vertices, float lineWidth);

    /// Triangles with x, y, s and t, in the colour with its alpha multiplied by the texture's.
    void drawTextured(std::span<const float> vertices, const QColor& color, GLuint texture);

    /// Triangles with x, y, s and t, in the texture's colours multiplied by the colour.
    void drawImage(std::span<const float> vertices, const QColor& color, GLuint texture);

    /// In pixels of the framebuffer.
    void setViewPort(int width, int height);

    void clear(const QColor& color);
    void enableBlending();
    void disableBlending();
    /// Clips drawing to framebuffer pixels from the lower left; an empty area ends the clipping.
    void clip(const QRect& area);

private:
    void drawTriangles(QOpenGLShaderProgram& program, std::span<const float> vertices,
                       const QColor& color, GLuint texture);
    /// `attributes`: the number of floats of the two attributes of a vertex; the second may be 0.
    void drawVertices(QOpenGLShaderProgram& program, GLenum mode, std::span<const float> vertices,
                      std::array<int, 2> attributes);

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
