#include "graph/WidgetGraph.h"

#include <GL/gl.h>
#include <cmath>

namespace KOLT {

namespace {

constexpr double depthReach = 7000.0;
constexpr GLushort stipple = 0xAAAA;

GLenum modeOf(GraphScene::Kind kind)
{
    switch (kind) {
    case GraphScene::Kind::Quads:
        return GL_QUADS;
    case GraphScene::Kind::Strip:
        return GL_LINE_STRIP;
    case GraphScene::Kind::Lines:
        break;
    }
    return GL_LINES;
}

void clipTo(const QRectF& clip, double pixelRatio)
{
    if (clip.isEmpty()) {
        glDisable(GL_SCISSOR_TEST);
        return;
    }
    const auto pixels = [pixelRatio](double value) {
        return static_cast<GLint>(std::lround(value * pixelRatio));
    };
    glEnable(GL_SCISSOR_TEST);
    glScissor(pixels(clip.left()), pixels(clip.top()), pixels(clip.width()), pixels(clip.height()));
}

} // namespace

void WidgetGraph::drawFigures(const GraphScene& scene, double pixelRatio)
{
    const auto ratio = static_cast<float>(pixelRatio);
    glClearColor(scene.clearColor.redF(), scene.clearColor.greenF(), scene.clearColor.blueF(),
                 1.0F);
    glDisable(GL_SCISSOR_TEST);
    glClear(GL_COLOR_BUFFER_BIT);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE); // the widget stays opaque
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0.0, graph().width(), 0.0, graph().height(), -depthReach, depthReach);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(2, GL_FLOAT, 0, scene.vertices.data());
    for (const GraphScene::Figure& figure : scene.figures) {
        clipTo(figure.clip, pixelRatio);
        glColor4f(figure.color.redF(), figure.color.greenF(), figure.color.blueF(),
                  figure.color.alphaF());
        glLineWidth(figure.width * ratio);
        if (figure.isStippled) {
            glLineStipple(static_cast<GLint>(std::max(1.0F, ratio)), stipple);
            glEnable(GL_LINE_STIPPLE);
        }
        glDrawArrays(modeOf(figure.kind), figure.first, figure.count);
        if (figure.isStippled)
            glDisable(GL_LINE_STIPPLE);
    }
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisable(GL_SCISSOR_TEST);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
}

} // namespace KOLT
