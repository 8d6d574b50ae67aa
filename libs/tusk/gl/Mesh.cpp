#include "libs/tusk/gl/Mesh.h"

#include "libs/tusk/gl/ShaderProgram.h"

#include <cstddef>

namespace TUSK::OpenGL {

namespace {

/// In the order in which the program takes them.
enum Location { positionLocation, textureLocation, colorLocation };

constexpr auto vertexSource = R"(
attribute highp vec2 position;
attribute highp vec2 place;
attribute lowp vec4 color;
uniform highp mat4 matrix;
uniform highp vec2 textureScale;
varying highp vec2 texturePlace;
varying lowp vec4 vertexColor;
void main()
{
    texturePlace = place * textureScale;
    vertexColor = color;
    gl_Position = matrix * vec4(position, 0.0, 1.0);
}
)";

constexpr auto fragmentSource = R"(
uniform int paint;
uniform sampler2D image;
varying highp vec2 texturePlace;
varying lowp vec4 vertexColor;
void main()
{
    if (paint == 0)
        gl_FragColor = vertexColor;
    else if (paint == 1)
        gl_FragColor = vec4(vertexColor.rgb, vertexColor.a * texture2D(image, texturePlace).a);
    else
        gl_FragColor = texture2D(image, texturePlace) * vec4(1.0, 1.0, 1.0, vertexColor.a);
}
)";

} // namespace

bool Mesh::initialize()
{
    initializeOpenGLFunctions();
    m_program = makeProgram(vertexSource, fragmentSource, {"position", "place", "color"});
    m_buffer = std::make_unique<QOpenGLBuffer>(QOpenGLBuffer::VertexBuffer);
    m_isReady = m_program != nullptr && m_buffer->create();
    if (!m_isReady)
        return false;
    m_buffer->setUsagePattern(QOpenGLBuffer::DynamicDraw);
    m_paint = m_program->uniformLocation("paint");
    m_scale = m_program->uniformLocation("textureScale");
    return true;
}

void Mesh::upload(std::span<const MeshVertex> vertices)
{
    if (!m_isReady)
        return;
    m_buffer->bind();
    m_buffer->allocate(vertices.data(), static_cast<int>(vertices.size_bytes()));
    m_buffer->release();
}

void Mesh::draw(GlHandler& handler, std::span<const Batch> batches)
{
    if (!m_isReady || batches.empty())
        return;
    const QOpenGLVertexArrayObject::Binder bound(&m_arrays);
    m_program->bind();
    m_program->setUniformValue("matrix", handler.matrices().top());
    m_program->setUniformValue("image", 0);
    m_buffer->bind();
    constexpr int stride = sizeof(MeshVertex);
    for (const int location : {positionLocation, textureLocation, colorLocation})
        m_program->enableAttributeArray(location);
    m_program->setAttributeBuffer(positionLocation, GL_FLOAT, offsetof(MeshVertex, x), 2, stride);
    m_program->setAttributeBuffer(textureLocation, GL_FLOAT, offsetof(MeshVertex, s), 2, stride);
    m_program->setAttributeBuffer(colorLocation, GL_UNSIGNED_BYTE, offsetof(MeshVertex, rgba), 4,
                                  stride);
    glActiveTexture(GL_TEXTURE0);
    for (const Batch& batch : batches)
        drawBatch(handler, batch);
    handler.clip({});
    glBindTexture(GL_TEXTURE_2D, 0);
    for (const int location : {positionLocation, textureLocation, colorLocation})
        m_program->disableAttributeArray(location);
    m_buffer->release();
    m_program->release();
}

void Mesh::drawBatch(GlHandler& handler, const Batch& batch)
{
    handler.clip(batch.clip);
    m_program->setUniformValue(m_paint, static_cast<int>(batch.paint));
    if (batch.paint != Paint::Plain) {
        glBindTexture(GL_TEXTURE_2D, batch.texture);
        m_program->setUniformValue(m_scale, 1.0F / static_cast<float>(batch.textureSize.width()),
                                   1.0F / static_cast<float>(batch.textureSize.height()));
    }
    glDrawArrays(GL_TRIANGLES, batch.first, batch.count);
}

} // namespace TUSK::OpenGL
