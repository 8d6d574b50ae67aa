#include "libs/tusk/gl/GlHandler.h"

namespace TUSK::OpenGL {

namespace {

constexpr int positionSize = 2;
constexpr int texturedSize = 4;
constexpr int coloredSize = 7;
constexpr int spaceSize = 3;
constexpr int positionLocation = 0;
constexpr int textureLocation = 1;

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
attribute lowp vec4 place;
uniform highp mat4 matrix;
varying lowp vec4 vertexColor;
void main()
{
    vertexColor = place;
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

bool GlHandler::build(QOpenGLShaderProgram& program, const char* vertexSource,
                      const char* fragmentSource)
{
    program.bindAttributeLocation("position", positionLocation);
    program.bindAttributeLocation("place", textureLocation);
    return program.addShaderFromSourceCode(QOpenGLShader::Vertex, vertexSource) &&
           program.addShaderFromSourceCode(QOpenGLShader::Fragment, fragmentSource) &&
           program.link();
}

bool GlHandler::initialize()
{
    initializeOpenGLFunctions();
    m_plain = std::make_unique<QOpenGLShaderProgram>();
    m_colored = std::make_unique<QOpenGLShaderProgram>();
    m_textured = std::make_unique<QOpenGLShaderProgram>();
    m_image = std::make_unique<QOpenGLShaderProgram>();
    m_buffer = std::make_unique<QOpenGLBuffer>(QOpenGLBuffer::VertexBuffer);
    m_isReady = build(*m_plain, plainVertex, plainFragment) &&
                build(*m_colored, coloredVertex, coloredFragment) &&
                build(*m_textured, texturedVertex, texturedFragment) &&
                build(*m_image, texturedVertex, imageFragment) && m_buffer->create();
    m_buffer->setUsagePattern(QOpenGLBuffer::StreamDraw);
    return m_isReady;
}

void GlHandler::upload(std::span<const float> vertices)
{
    m_buffer->bind();
    m_buffer->allocate(vertices.data(), static_cast<int>(vertices.size_bytes()));
}

void GlHandler::draw(GLenum mode, std::span<const float> vertices, const QColor& color,
                     float lineWidth, bool isStippled)
{
    if (!m_isReady || vertices.empty())
        return;
    const QOpenGLVertexArrayObject::Binder bound(&m_arrays);
    m_plain->bind();
    m_plain->setUniformValue("matrix", m_matrices.top());
    m_plain->setUniformValue("color", color);
    m_plain->setUniformValue("isStippled", isStippled);
    upload(vertices);
    m_plain->enableAttributeArray(positionLocation);
    m_plain->setAttributeBuffer(positionLocation, GL_FLOAT, 0, positionSize);
    glLineWidth(lineWidth);
    glDrawArrays(mode, 0, static_cast<GLsizei>(vertices.size() / positionSize));
    m_plain->disableAttributeArray(positionLocation);
    m_buffer->release();
    m_plain->release();
}

void GlHandler::drawColored(GLenum mode, std::span<const float> vertices, float lineWidth)
{
    if (!m_isReady || vertices.empty())
        return;
    constexpr int stride = coloredSize * static_cast<int>(sizeof(float));
    const QOpenGLVertexArrayObject::Binder bound(&m_arrays);
    m_colored->bind();
    m_colored->setUniformValue("matrix", m_matrices.top());
    upload(vertices);
    m_colored->enableAttributeArray(positionLocation);
    m_colored->enableAttributeArray(textureLocation);
    m_colored->setAttributeBuffer(positionLocation, GL_FLOAT, 0, spaceSize, stride);
    m_colored->setAttributeBuffer(textureLocation, GL_FLOAT,
                                  spaceSize * static_cast<int>(sizeof(float)),
                                  coloredSize - spaceSize, stride);
    glLineWidth(lineWidth);
    glDrawArrays(mode, 0, static_cast<GLsizei>(vertices.size() / coloredSize));
    m_colored->disableAttributeArray(positionLocation);
    m_colored->disableAttributeArray(textureLocation);
    m_buffer->release();
    m_colored->release();
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
    if (!m_isReady || vertices.empty())
        return;
    constexpr int stride = texturedSize * static_cast<int>(sizeof(float));
    const QOpenGLVertexArrayObject::Binder bound(&m_arrays);
    program.bind();
    program.setUniformValue("matrix", m_matrices.top());
    program.setUniformValue("color", color);
    program.setUniformValue("image", 0);
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, texture);
    upload(vertices);
    for (const int location : {positionLocation, textureLocation}) {
        program.enableAttributeArray(location);
        program.setAttributeBuffer(location, GL_FLOAT,
                                   location * positionSize * static_cast<int>(sizeof(float)),
                                   positionSize, stride);
    }
    glDrawArrays(GL_TRIANGLES, 0, static_cast<GLsizei>(vertices.size() / texturedSize));
    for (const int location : {positionLocation, textureLocation})
        program.disableAttributeArray(location);
    m_buffer->release();
    glBindTexture(GL_TEXTURE_2D, 0);
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
