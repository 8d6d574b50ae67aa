#pragma once

#include "libs/tusk/GlHandler.h"

#include <vector>

namespace TUSK::OpenGL {

/// A set of vertices that is filled and drawn, and filled anew for the next frame.
class VertexSet
{
public:
    void clear() { m_vertices.clear(); }

    bool isEmpty() const { return m_vertices.empty(); }

    void add(float x, float y)
    {
        m_vertices.push_back(x);
        m_vertices.push_back(y);
    }

    /// Takes all at once.
    void assign(std::span<const float> vertices)
    {
        m_vertices.assign(vertices.begin(), vertices.end());
    }

protected:
    std::vector<float> m_vertices;
};

/// Single lines, two vertices each.
class Lines : public VertexSet
{
public:
    float width = 1.0F;      ///< pixels of the framebuffer
    bool isStippled = false; ///< every other pixel is left out

    void draw(GlHandler& handler, const QColor& color) const
    {
        handler.draw(GL_LINES, m_vertices, color, width, isStippled);
    }
};

/// One line through all vertices.
class LineStrips : public VertexSet
{
public:
    float width = 1.0F; ///< pixels of the framebuffer

    void draw(GlHandler& handler, const QColor& color) const
    {
        handler.draw(GL_LINE_STRIP, m_vertices, color, width);
    }
};

/// A filled area: each vertex makes a triangle with the two before it.
class TriangleStrip : public VertexSet
{
public:
    void draw(GlHandler& handler, const QColor& color) const
    {
        handler.draw(GL_TRIANGLE_STRIP, m_vertices, color);
    }
};

} // namespace TUSK::OpenGL
