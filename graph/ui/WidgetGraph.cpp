#include "graph/ui/WidgetGraph.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLPaintDevice>
#include <QPainter>

#include <GL/gl.h>
#include <array>
#include <cmath>
#include <span>
#include <utility>
#include <vector>

namespace KOLT {

namespace {

constexpr double depthReach = 7000.0;

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

/// Every other pixel, as a chessboard.
constexpr std::array<GLubyte, 128> stipple = [] {
    std::array<GLubyte, 128> pattern{};
    for (std::size_t i = 0; i < pattern.size(); ++i)
        pattern[i] = i / 4 % 2 == 0 ? 0x55 : 0xAA;
    return pattern;
}();

/// Draws horizontal and vertical lines as thin stippled quads: a software renderer draws these many
/// times faster than stippled lines, which it splits into one line per dot.
void drawStippled(std::span<const float> ends, float width)
{
    const float half = width / 2.0F;
    std::vector<float> corners;
    corners.reserve(2 * ends.size());
    for (std::size_t i = 0; i + 3 < ends.size(); i += 4) {
        const bool isLevel = ends[i + 1] == ends[i + 3];
        const float dx = isLevel ? 0.0F : half;
        const float dy = isLevel ? half : 0.0F;
        corners.insert(corners.end(),
                       {ends[i] - dx, ends[i + 1] - dy, ends[i + 2] - dx, ends[i + 3] - dy,
                        ends[i + 2] + dx, ends[i + 3] + dy, ends[i] + dx, ends[i + 1] + dy});
    }
    glEnable(GL_POLYGON_STIPPLE);
    glVertexPointer(2, GL_FLOAT, 0, corners.data());
    glDrawArrays(GL_QUADS, 0, static_cast<GLsizei>(corners.size() / 2));
    glDisable(GL_POLYGON_STIPPLE);
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

bool WidgetGraph::isSupported()
{
    static const bool answer = [] {
        QOpenGLContext context;
        QOffscreenSurface surface;
        surface.create();
        if (!context.create() || !context.makeCurrent(&surface))
            return true; // the widget will report the error
        const QSurfaceFormat format = context.format();
        const bool isCore = format.profile() == QSurfaceFormat::CoreProfile;
        return !context.isOpenGLES() && !isCore;
    }();
    return answer;
}

void WidgetGraph::drawFigures(const GraphScene& scene, double pixelRatio) const
{
    const auto ratio = static_cast<float>(pixelRatio);
    glClearColor(scene.clearColor.redF(), scene.clearColor.greenF(), scene.clearColor.blueF(),
                 1.0F);
    glDisable(GL_SCISSOR_TEST);
    glClear(GL_COLOR_BUFFER_BIT);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE); // keep the widget opaque
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0.0, graph().width(), 0.0, graph().height(), -depthReach, depthReach);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glEnableClientState(GL_VERTEX_ARRAY);
    glPolygonStipple(stipple.data());
    for (const GraphScene::Figure& figure : scene.figures) {
        clipTo(figure.clip, pixelRatio);
        if (figure.color.alpha() < 255)
            glEnable(GL_BLEND);
        else
            glDisable(GL_BLEND); // faster on a software renderer
        glColor4f(figure.color.redF(), figure.color.greenF(), figure.color.blueF(),
                  figure.color.alphaF());
        const float* const vertices = scene.vertices.data() + 2 * figure.first;
        if (figure.isStippled) {
            drawStippled({vertices, static_cast<std::size_t>(2 * figure.count)},
                         std::max(1.0F, std::round(figure.width * ratio)) / ratio);
            continue;
        }
        glLineWidth(figure.width * ratio);
        glVertexPointer(2, GL_FLOAT, 0, vertices);
        glDrawArrays(modeOf(figure.kind), 0, figure.count);
    }
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisable(GL_SCISSOR_TEST);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
}

void WidgetGraph::drawScene(const GraphScene& scene, double pixelRatio)
{
    // What a painter on the widget itself draws is missing in a snapshot of the page.
    QOpenGLPaintDevice device(size() * pixelRatio);
    device.setDevicePixelRatio(pixelRatio);
    QPainter painter(&device);
    painter.beginNativePainting();
    drawFigures(scene, pixelRatio);
    painter.endNativePainting();
    drawTexts(painter, scene);
}

void WidgetGraph::drawTexts(QPainter& painter, const GraphScene& scene)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setFont(font());
    const auto lineHeight = static_cast<int>(graph().metrics().lineHeight);
    QHash<QString, QStaticText> before = std::exchange(m_texts, {});
    if (m_textFont != font()) {
        before.clear();
        m_textFont = font();
    }
    for (const GraphScene::Text& text : scene.texts) {
        const QStaticText& laidOut = staticText(text.text, before);
        const QSizeF size = laidOut.size();
        const int top = static_cast<int>(graph().height() - text.y) - lineHeight / 2;
        const int x = static_cast<int>(text.x);
        const double left = text.alignment.testFlag(Qt::AlignRight) ? x - size.width() : x;
        painter.setPen(text.color);
        painter.drawStaticText(QPointF(left, top + (lineHeight - size.height()) / 2.0), laidOut);
    }
}

const QStaticText& WidgetGraph::staticText(const QString& text, QHash<QString, QStaticText>& before)
{
    if (const auto found = m_texts.constFind(text); found != m_texts.constEnd())
        return *found;
    if (before.contains(text))
        return *m_texts.insert(text, before.take(text));
    QStaticText laidOut(text);
    laidOut.setTextFormat(Qt::PlainText);
    laidOut.prepare({}, font());
    return *m_texts.insert(text, laidOut);
}

} // namespace KOLT
