#pragma once

#include "libs/tusk/gl/GlHandler.h"
#include "libs/tusk/gl/MeshVertex.h"

namespace TUSK::OpenGL {

/// Triangles of many colours in a buffer that stays until it is filled anew: a picture of which
/// nothing changed is drawn again without sending a vertex. Needs the context of its making.
class Mesh : protected QOpenGLFunctions
{
public:
    enum class Paint {
        Plain, ///< the vertices' colours
        Glyph, ///< with the alpha of the texture
        Image  ///< the texture, with the alpha of the vertices
    };

    /// Some of the vertices and what they are painted with.
    struct Batch
    {
        Paint paint = Paint::Plain;
        GLuint texture = 0;
        QSizeF textureSize{1.0, 1.0}; ///< s and t of its far corner
        QRect clip;                   ///< pixels from the lower left; empty: none
        int first = 0;
        int count = 0;
    };

    /// False when the program does not compile; nothing is then drawn.
    bool initialize();

    void upload(std::span<const MeshVertex> vertices);

    /// In their order, with the handler's matrix.
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
