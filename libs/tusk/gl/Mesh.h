#pragma once

#include "libs/tusk/gl/GlHandler.h"
#include "libs/tusk/gl/MeshVertex.h"

namespace TUSK::OpenGL {

/// Coloured and textured triangles in a buffer that is kept between frames, so that an unchanged
/// picture is drawn without sending vertices. Every call, destruction included, needs the context
/// that was current in initialize().
class Mesh : protected QOpenGLFunctions
{
public:
    enum class Paint {
        Plain, ///< the vertices' colours
        Glyph, ///< with the alpha of the texture
        Image  ///< the texture, with the alpha of the vertices
    };

    /// A range of the vertices and how it is painted.
    struct Batch
    {
        Paint paint = Paint::Plain;
        GLuint texture = 0;
        QSizeF textureSize{1.0, 1.0}; ///< s and t of the texture's far corner
        QRect clip;                   ///< framebuffer pixels from the lower left; empty: none
        int first = 0;
        int count = 0;
    };

    /// Compiles the program for the current context. On failure nothing is ever drawn.
    bool initialize();

    void upload(std::span<const MeshVertex> vertices);

    /// Draws the batches in order, with the handler's matrix.
    void draw(GlHandler& handler, std::span<const Batch> batches);

private:
    void drawBatch(GlHandler& handler, const Batch& batch);

    bool m_isReady = false;
    std::unique_ptr<QOpenGLShaderProgram> m_program;
    std::unique_ptr<QOpenGLBuffer> m_buffer;
    QOpenGLVertexArrayObject m_arrays; ///< core profiles draw nothing without one
    int m_paint = -1;
    int m_scale = -1;
};

} // namespace TUSK::OpenGL
