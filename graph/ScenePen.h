#pragma once

#include "graph/GraphScene.h"

namespace KOLT {

inline QColor withAlpha(QColor color, int alpha)
{
    color.setAlpha(alpha);
    return color;
}

/// Adds figures and texts to a scene, and remembers where texts have plates.
class ScenePen
{
public:
    ScenePen(GraphScene& scene, const Graph& graph)
        : m_scene(scene)
        , m_metrics(graph.metrics())
        , m_background(graph.settings().background)
    {
    }

    GraphScene& scene() { return m_scene; }

    const GraphMetrics& metrics() const { return m_metrics; }

    void vertex(double x, double y)
    {
        m_scene.vertices.insert(m_scene.vertices.end(),
                                {static_cast<float>(x), static_cast<float>(y)});
    }

    void vertices(const std::vector<float>& all)
    {
        m_scene.vertices.insert(m_scene.vertices.end(), all.begin(), all.end());
    }

    GraphScene::Figure& begin(GraphScene::Kind kind, const QColor& color, float width = 1.0F);
    /// Drops figures without vertices.
    void end();
    void quad(const QRectF& rect, const QColor& color);
    void line(double x1, double y1, double x2, double y2, const QColor& color, float width = 1.0F);

    void text(double x, double y, Qt::Alignment alignment, const QString& content,
              const QColor& color);
    /// A text in the plot, on a translucent plate that keeps it legible over the grid.
    void plateText(double x, double y, Qt::Alignment alignment, const QString& content,
                   const QColor& color);
    void plate(const QRectF& area);
    /// A text above all others, which are dropped where it is.
    void topText(double x, double y, const QString& content, const QColor& color,
                 const QColor& ground);

    const std::vector<QRectF>& plates() const { return m_plates; }

    /// Whether no plate is in the area.
    bool isFree(const QRectF& area) const;
    QColor plateColor() const;
    /// The colour, lightened on a dark background or darkened on a light one if it lacks contrast.
    QColor legible(const QColor& color) const;
    /// The area that a text of the scene covers.
    QRectF areaOf(const GraphScene::Text& text) const;

private:
    int vertexCount() const { return static_cast<int>(m_scene.vertices.size() / 2); }

    GraphScene& m_scene;
    GraphMetrics m_metrics;
    QColor m_background;
    std::vector<QRectF> m_plates;
};

} // namespace KOLT
