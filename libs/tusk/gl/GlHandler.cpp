#include "libs/tusk/gl/GlHandler.h"

#include "libs/tusk/gl/ShaderProgram.h"

namespace TUSK::OpenGL {

namespace {

constexpr auto plainVertex = R"(
attribute highp vec2 position;
uniform highp mat4 matrix;
void main()
{
    gl_Position = matrix * vec4(position, 0.0, 1.0);
}
)";

// A stippled line has every other pixel left out.
constexpr auto plainFragment = R"(
uniform lowp vec4 color;
uniform bool isStippled;
void main()
{
    if (isStippled && mod(floor(gl_FragCoord.x) + floor(gl_FragCoord.y), 2.0) < 0.5)
        discard;
    gl_FragColor = color;
}
)";

constexpr auto coloredVertex = R"(
attribute highp vec3 position;
attribute lowp vec4 color;
uniform highp mat4 matrix;
varying lowp vec4 vertexColor;
void main()
{
    vertexColor = color;
    gl_Position = matrix * vec4(position, 1.0);
}
)";

constexpr auto coloredFragment = R"(
varying lowp vec4 vertexColor;
void main()
{
    gl_FragColor = vertexColor;
}
)";

constexpr auto texturedVertex = R"(
attribute highp vec2 position;
attribute highp vec2 place;
uniform highp mat4 matrix;
varying highp vec2 texturePlace;
void main()
{
    texturePlace = place;
    gl_Position = matrix * vec4(position, 0.0, 1.0);
}
)";

constexpr auto texturedFragment = R"(
uniform lowp vec4 color;
uniform sampler2D image;
varying highp vec2 texturePlace;
void main()
{
    gl_FragColor = vec4(color.rgb, color.a * texture2D(image, texturePlace).a);
}
)";

constexpr auto imageFragment = R"(
uniform lowp vec4 color;
uniform sampler2D image;
varying highp vec2 texturePlace;
void main()
{
    gl_FragColor = color * texture2D(image, texturePlace);
}
)";

} // namespace

bool GlHandler::initialize()
{
    initializeOpenGLFunctions();
    m_plain = makeProgram(plainVertex, plainFragment, {"position"});
    m_colored = makeProgram(coloredVertex, coloredFragment, {"position", "color"});
    m_textured = makeProgram(texturedVertex, texturedFragment, {"position", "place"});
    m_image = makeProgram(texturedVertex, imageFragment, {"position", "place"});
    m_buffer = std::make_unique<QOpenGLBuffer>(QOpenGLBuffer::VertexBuffer);
    m_isReady = m_plain != nullptr && m_colored != nullptr && m_textured != nullptr &&
                m_image != nullptr && m_buffer->create();
    m_buffer->setUsagePattern(QOpenGLBuffer::StreamDraw);
    return m_isReady;
}

void GlHandler::draw(GLenum mode, std::span<const float> vertices, const QColor& color,
                     const LineLook& look)
{
    if (!m_isReady || vertices.empty())
        return;
    m_plain->bind();
    m_plain->setUniformValue("color", color);
    m_plain->setUniformValue("isStippled", look.isStippled);
    glLineWidth(look.width);
    drawVertices(*m_plain, mode, vertices, {2, 0});
}

void GlHandler::drawColored(GLenum mode, std::span<const float> vertices, float lineWidth)
{
    if (!m_isReady || vertices.empty())
        return;
    m_colored->bind();
    glLineWidth(lineWidth);
    drawVertices(*m_colored, mode, vertices, {3, 4});
}

void GlHandler::drawTextured(std::span<const float> vertices, const QColor& color, GLuint texture)
{
    if (m_isReady)
        drawTriangles(*m_textured, vertices, color, texture);
}

void GlHandler::drawImage(std::span<const float> vertices, const QColor& color, GLuint texture)
{
    if (m_isReady)
        drawTriangles(*m_image, vertices, color, texture);
}

void GlHandler::drawTriangles(QOpenGLShaderProgram& program, std::span<const float> vertices,
                              const QColor& color, GLuint texture)
{
    if (vertices.empty())
        return;
    program.bind();
    program.setUniformValue("color", color);
    program.setUniformValue("image", 0);
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, texture);
    drawVertices(program, GL_TRIANGLES, vertices, {2, 2});
    glBindTexture(GL_TEXTURE_2D, 0);
}

void GlHandler::drawVertices(QOpenGLShaderProgram& program, GLenum mode,
                             std::span<const float> vertices, std::array<int, 2> attributes)
{
    constexpr int bytes = sizeof(float);
    const int floats = attributes[0] + attributes[1];
    const QOpenGLVertexArrayObject::Binder bound(&m_arrays);
    program.setUniformValue("matrix", m_matrices.top());
    m_buffer->bind();
    m_buffer->allocate(vertices.data(), static_cast<int>(vertices.size_bytes()));
    const int count = attributes[1] > 0 ? 2 : 1;
    for (int i = 0; i < count; ++i) {
        program.enableAttributeArray(i);
        program.setAttributeBuffer(i, GL_FLOAT, i * attributes[0] * bytes,
                                   attributes[static_cast<std::size_t>(i)], floats * bytes);
    }
    glDrawArrays(mode, 0, static_cast<GLsizei>(vertices.size()) / floats);
    for (int i = 0; i < count; ++i)
        program.disableAttributeArray(i);
    m_buffer->release();
    program.release();
}

void GlHandler::setViewPort(int width, int height)
{
    glViewport(0, 0, width, height);
}

void GlHandler::clear(const QColor& color)
{
    glDisable(GL_SCISSOR_TEST);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glClearColor(color.redF(), color.greenF(), color.blueF(), 1.0F);
    glClear(GL_COLOR_BUFFER_BIT);
}

void GlHandler::enableBlending()
{
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    // The framebuffer stays opaque.
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ZERO, GL_ONE);
}

void GlHandler::disableBlending()
{
    glDisable(GL_BLEND);
}

void GlHandler::clip(const QRect& area)
{
    if (area.isEmpty()) {
        glDisable(GL_SCISSOR_TEST);
        return;
    }
    glEnable(GL_SCISSOR_TEST);
    glScissor(area.x(), area.y(), area.width(), area.height());
}

} // namespace TUSK::OpenGL
