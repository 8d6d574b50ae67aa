#include "graph/ScenePen.h"

#include "graph/Contrast.h"

#include <algorithm>

namespace KOLT {

GraphScene::Figure& ScenePen::begin(GraphScene::Kind kind, const QColor& color, float width)
{
    GraphScene::Figure& figure = m_scene.figures.emplace_back();
    figure.kind = kind;
    figure.color = color;
    figure.width = width;
    figure.first = vertexCount();
    return figure;
}

void ScenePen::end()
{
    GraphScene::Figure& figure = m_scene.figures.back();
    figure.count = vertexCount() - figure.first;
    if (figure.count == 0)
        m_scene.figures.pop_back();
}

void ScenePen::quad(const QRectF& rect, const QColor& color)
{
    begin(GraphScene::Kind::Quads, color);
    vertex(rect.left(), rect.top());
    vertex(rect.right(), rect.top());
    vertex(rect.right(), rect.bottom());
    vertex(rect.left(), rect.bottom());
    end();
}

void ScenePen::line(double x1, double y1, double x2, double y2, const QColor& color, float width)
{
    begin(GraphScene::Kind::Lines, color, width);
    vertex(x1, y1);
    vertex(x2, y2);
    end();
}

void ScenePen::text(double x, double y, Qt::Alignment alignment, const QString& content,
                    const QColor& color)
{
    m_scene.texts.push_back({x, y, alignment, content, color});
}

void ScenePen::plateText(double x, double y, Qt::Alignment alignment, const QString& content,
                         const QColor& color)
{
    text(x, y, alignment, content, legible(color));
    plate(areaOf(m_scene.texts.back()).adjusted(-2.0, 0.0, 2.0, 0.0));
}

void ScenePen::plate(const QRectF& area)
{
    m_plates.push_back(area);
    quad(area, plateColor());
}

void ScenePen::topText(double x, double y, const QString& content, const QColor& color,
                       const QColor& ground)
{
    GraphScene::Text added{x, y, Qt::AlignLeft, content, color};
    const QRectF area = areaOf(added).adjusted(-2.0, 0.0, 2.0, 0.0);
    // Lines of text that only touch stay: labels of a large font reach into the plot.
    const double slack = m_metrics.lineHeight / 4.0;
    const QRectF covered = area.adjusted(0.0, slack, 0.0, -slack);
    std::erase_if(m_scene.texts,
                  [&](const GraphScene::Text& each) { return covered.intersects(areaOf(each)); });
    quad(area, ground);
    m_scene.texts.push_back(std::move(added));
}

bool ScenePen::isFree(const QRectF& area) const
{
    return std::ranges::none_of(m_plates,
                                [&](const QRectF& plate) { return plate.intersects(area); });
}

QColor ScenePen::plateColor() const
{
    constexpr int plateAlpha = 150;
    return withAlpha(m_background, plateAlpha);
}

QColor ScenePen::legible(const QColor& color) const
{
    constexpr double readable = 4.5; // contrast that small text needs
    return contrasting(color, m_background, readable);
}

QRectF ScenePen::areaOf(const GraphScene::Text& text) const
{
    const double width = m_metrics.widthOf(text.text);
    const double left = text.alignment.testFlag(Qt::AlignRight) ? text.x - width : text.x;
    return {left, text.y - m_metrics.lineHeight / 2.0, width, m_metrics.lineHeight};
}

} // namespace KOLT
