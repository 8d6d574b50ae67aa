#include "graph/ui/WidgetGraphES.h"

#include "libs/tusk/gl/Primitives.h"
#include "libs/tusk/gl/TextureFont.h"

#include <QOpenGLContext>

#include <cmath>

namespace KOLT {

namespace {

QRect inPixels(const QRectF& area, double pixelRatio)
{
    const auto pixels = [pixelRatio](double value) {
        return static_cast<int>(std::lround(value * pixelRatio));
    };
    return {pixels(area.left()), pixels(area.top()), pixels(area.width()), pixels(area.height())};
}

} // namespace

WidgetGraphES::WidgetGraphES(QWidget* parent)
    : WidgetGraphBase(parent)
    , m_handler(std::make_unique<TUSK::OpenGL::GlHandler>())
{
}

WidgetGraphES::~WidgetGraphES()
{
    makeCurrent(); // both release objects of the context
    m_font.reset();
    m_handler.reset();
    doneCurrent();
}

void WidgetGraphES::initializeGL()
{
    m_font.reset();
    m_handler = std::make_unique<TUSK::OpenGL::GlHandler>();
    m_handler->initialize();
}

void WidgetGraphES::drawScene(const GraphScene& scene, double pixelRatio)
{
    m_handler->clear(scene.clearColor);
    m_handler->enableBlending();
    QMatrix4x4 matrix;
    matrix.ortho(0.0F, static_cast<float>(graph().width()), 0.0F,
                 static_cast<float>(graph().height()), -1.0F, 1.0F);
    m_handler->matrices().load(matrix);
    for (const GraphScene::Figure& figure : scene.figures)
        drawFigure(scene, figure, pixelRatio);
    m_handler->clip({});
    if (m_font == nullptr || m_fontRatio != pixelRatio || m_fontOf != font()) {
        m_font = std::make_unique<TUSK::OpenGL::TextureFont>(font(), pixelRatio);
        m_fontOf = font();
        m_fontRatio = pixelRatio;
    }
    for (const GraphScene::Text& text : scene.texts)
        m_font->draw(*m_handler, text.text, text.x, text.y, text.color,
                     text.alignment.testFlag(Qt::AlignRight));
}

void WidgetGraphES::drawFigure(const GraphScene& scene, const GraphScene::Figure& figure,
                               double pixelRatio)
{
    m_handler->clip(inPixels(figure.clip, pixelRatio));
    const std::span<const float> vertices(scene.vertices.data() + 2 * figure.first,
                                          static_cast<std::size_t>(2 * figure.count));
    const auto width = figure.width * static_cast<float>(pixelRatio);
    switch (figure.kind) {
    case GraphScene::Kind::Quads: {
        TUSK::OpenGL::TriangleStrip area; // a strip's order: left to right, not around
        for (const std::size_t corner : {0U, 1U, 3U, 2U})
            area.add(vertices[2 * corner], vertices[2 * corner + 1]);
        area.draw(*m_handler, figure.color);
        break;
    }
    case GraphScene::Kind::Lines: {
        TUSK::OpenGL::Lines lines;
        lines.assign(vertices);
        lines.width = width;
        lines.isStippled = figure.isStippled;
        lines.draw(*m_handler, figure.color);
        break;
    }
    case GraphScene::Kind::Strip: {
        TUSK::OpenGL::LineStrips strip;
        strip.setColor(figure.color);
        strip.setLineWidth(width);
        for (std::size_t i = 0; i + 1 < vertices.size(); i += 2)
            strip.addVertex(vertices[i], vertices[i + 1], 0.0F, figure.color.alphaF());
        strip.render(*m_handler);
        break;
    }
    }
}

} // namespace KOLT
