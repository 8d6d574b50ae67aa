#pragma once

#include "libs/tusk/gl/GlHandler.h"

#include <vector>

namespace TUSK::OpenGL {

/// Vertices of x and y that are collected and drawn in each frame.
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

    /// Replaces all vertices: x, y, x, y, ...
    void assign(std::span<const float> vertices)
    {
        m_vertices.assign(vertices.begin(), vertices.end());
    }

protected:
    std::vector<float> m_vertices;
};

/// Separate lines of two vertices each.
class Lines : public VertexSet
{
public:
    float width = 1.0F;      ///< pixels of the framebuffer
    bool isStippled = false; ///< leaves out every other pixel

    void draw(GlHandler& handler, const QColor& color) const
    {
        handler.draw(GL_LINES, m_vertices, color, {width, isStippled});
    }
};

/// A line through points in space.
///
/// Vertices are relative to an origin that the caller chooses and applies by the matrix, as floats
/// are precise to a millimetre only near their origin.
class LineStrips
{
public:
    void clearVertex() { m_vertices.clear(); }

    bool isEmpty() const { return m_vertices.empty(); }

    void setColor(const QColor& color) { m_color = color; }

    /// Pixels of the framebuffer.
    void setLineWidth(float width) { m_width = width; }

    /// True: a vertex keeps the colour that was set when it was added. False: all have the last.
    void setUseMultiColor(bool isMultiColor) { m_isMultiColor = isMultiColor; }

    void addVertex(float x, float y, float z, float alpha = 1.0F)
    {
        m_vertices.insert(m_vertices.end(),
                          {x, y, z, m_color.redF(), m_color.greenF(), m_color.blueF(), alpha});
    }

    /// Separate lines of two vertices each instead of one line through all.
    void setArePairs(bool arePairs) { m_arePairs = arePairs; }

    void render(GlHandler& handler)
    {
        if (!m_isMultiColor) {
            for (std::size_t i = 0; i < m_vertices.size(); i += floatsPerVertex) {
                m_vertices[i + 3] = m_color.redF();
                m_vertices[i + 4] = m_color.greenF();
                m_vertices[i + 5] = m_color.blueF();
            }
        }
        handler.drawColored(m_arePairs ? GL_LINES : GL_LINE_STRIP, m_vertices, m_width);
    }

private:
    static constexpr std::size_t floatsPerVertex = 7;

    std::vector<float> m_vertices;
    QColor m_color = Qt::white;
    float m_width = 1.0F;
    bool m_isMultiColor = false;
    bool m_arePairs = false;
};

/// A filled area: each vertex forms a triangle with the two before it.
class TriangleStrip : public VertexSet
{
public:
    void draw(GlHandler& handler, const QColor& color) const
    {
        handler.draw(GL_TRIANGLE_STRIP, m_vertices, color);
    }
};

} // namespace TUSK::OpenGL
