#pragma once

#include "graph/GraphScene.h"

namespace KOLT {

inline QColor withAlpha(QColor color, int alpha)
{
    color.setAlpha(alpha);
    return color;
}

/// Adds figures to a scene.
class ScenePen
{
public:
    explicit ScenePen(GraphScene& scene)
        : m_scene(scene)
    {
    }

    void vertex(double x, double y)
    {
        m_scene.vertices.insert(m_scene.vertices.end(),
                                {static_cast<float>(x), static_cast<float>(y)});
    }

    int vertexCount() const { return static_cast<int>(m_scene.vertices.size() / 2); }

    GraphScene::Figure& begin(GraphScene::Kind kind, const QColor& color, float width = 1.0F)
    {
        GraphScene::Figure& figure = m_scene.figures.emplace_back();
        figure.kind = kind;
        figure.color = color;
        figure.width = width;
        figure.first = vertexCount();
        return figure;
    }

    /// Drops figures without vertices.
    void end()
    {
        GraphScene::Figure& figure = m_scene.figures.back();
        figure.count = vertexCount() - figure.first;
        if (figure.count == 0)
            m_scene.figures.pop_back();
    }

    void quad(const QRectF& rect, const QColor& color)
    {
        begin(GraphScene::Kind::Quads, color);
        vertex(rect.left(), rect.top());
        vertex(rect.right(), rect.top());
        vertex(rect.right(), rect.bottom());
        vertex(rect.left(), rect.bottom());
        end();
    }

    void line(double x1, double y1, double x2, double y2, const QColor& color, float width = 1.0F)
    {
        begin(GraphScene::Kind::Lines, color, width);
        vertex(x1, y1);
        vertex(x2, y2);
        end();
    }

private:
    GraphScene& m_scene;
};

} // namespace KOLT
