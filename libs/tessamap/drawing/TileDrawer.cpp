#include "libs/tessamap/drawing/TileDrawer.h"

#include "libs/tessamap/globe/TileSelection.h"
#include "libs/tusk/gl/ShaderProgram.h"

#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

namespace Tessa {

namespace {

constexpr int positionLocation = 0; ///< in the order of the names in create()
constexpr int placeLocation = 1;
constexpr int floatsPerVertex = 5; ///< x, y, z, u, v
constexpr int stride = floatsPerVertex * static_cast<int>(sizeof(float));
constexpr std::size_t mostMeshes = 1024;
/// As a fraction of the tile; wider than any gap between the meshes of neighbours.
constexpr double borderWidth = 1.5 / 256.0;
constexpr int capSegments = 128;
constexpr double capLatitude = 84.5;

constexpr auto vertexSource = R"(
attribute highp vec3 position;
attribute highp vec2 place;
uniform highp mat4 matrix;
varying highp vec2 tilePlace;
void main()
{
    tilePlace = place;
    gl_Position = matrix * vec4(position, 1.0);
}
)";

constexpr auto plainSource = R"(
uniform sampler2D image;
uniform highp vec3 imageWindow;
uniform lowp float brightness;
varying highp vec2 tilePlace;
void main()
{
    gl_FragColor = vec4(texture2D(image, tilePlace * imageWindow.z + imageWindow.xy).rgb * brightness, 1.0);
}
)";

// A shade of 128 / 255 leaves the picture unchanged.
constexpr auto shadedSource = R"(
uniform sampler2D image;
uniform sampler2D shade;
uniform highp vec3 imageWindow;
uniform highp vec3 shadeWindow;
uniform lowp float brightness;
varying highp vec2 tilePlace;
void main()
{
    highp float light = 1.9921875 * texture2D(shade, tilePlace * shadeWindow.z + shadeWindow.xy).r;
    gl_FragColor = vec4(texture2D(image, tilePlace * imageWindow.z + imageWindow.xy).rgb * brightness * light, 1.0);
}
)";

constexpr auto flatSource = R"(
uniform lowp vec4 color;
varying highp vec2 tilePlace;
void main()
{
    gl_FragColor = color;
}
)";

/// Cells along a side, so that the mesh is within half a texel of the sphere.
int cellsOf(int zoom)
{
    if (zoom <= 2)
        return 32;
    if (zoom == 3)
        return 16;
    if (zoom <= 5)
        return 8;
    return zoom <= 7 ? 4 : 2;
}

void add(std::vector<float>& vertices, const Globe::Vector& place, const Globe::Vector& origin,
         double u, double v)
{
    for (const double value : {place.x - origin.x, place.y - origin.y, place.z - origin.z, u, v})
        vertices.push_back(static_cast<float>(value));
}

} // namespace

QMatrix4x4 matrixFrom(const Globe& globe, const Globe::Vector& origin)
{
    const double sx = 2.0 / (globe.width() * globe.metresPerPixel());
    const double sy = 2.0 / (globe.height() * globe.metresPerPixel());
    // The limb lies on the far plane, the point nearest to the viewer in the middle of the depth
    // range.
    const double sz = -1.0 / TUSK::Geodetic::radius;
    const auto& r = globe.rotation();
    const Globe::Vector view = globe.toView(origin);
    const auto f = [](double value) { return static_cast<float>(value); };
    return {f(sx * r[0]), f(sx * r[1]), f(sx * r[2]), f(sx * view.x),
            f(sy * r[3]), f(sy * r[4]), f(sy * r[5]), f(sy * view.y),
            f(sz * r[6]), f(sz * r[7]), f(sz * r[8]), f(1.0 + sz * view.z),
            0.0F,         0.0F,         0.0F,         1.0F};
}

TextureView TextureView::within(const TileId& tile, const TileId& ancestor, GLuint texture)
{
    const int levels = tile.zoom - ancestor.zoom;
    const double size = 1.0 / TileId::count(levels);
    return {texture, static_cast<float>((tile.x - (ancestor.x << levels)) * size),
            static_cast<float>((tile.y - (ancestor.y << levels)) * size), static_cast<float>(size)};
}

std::unique_ptr<TileDrawer> TileDrawer::create(QString& error)
{
    auto drawer = std::unique_ptr<TileDrawer>(new TileDrawer);
    drawer->m_gl.initializeOpenGLFunctions();
    const auto make = [&error](const char* fragmentSource) {
        return TUSK::OpenGL::makeProgram(vertexSource, fragmentSource, {"position", "place"},
                                         &error);
    };
    drawer->m_plain = make(plainSource);
    drawer->m_shaded = make(shadedSource);
    drawer->m_flat = make(flatSource);
    const bool isReady = drawer->m_plain && drawer->m_shaded && drawer->m_flat;
    return isReady ? std::move(drawer) : nullptr;
}

TileDrawer::Mesh& TileDrawer::meshOf(const TileId& tile)
{
    Mesh& mesh = m_meshes[tile];
    mesh.frame = m_frame;
    if (mesh.cells > 0)
        return mesh;
    mesh.cells = cellsOf(tile.zoom);
    mesh.origin = placeInTile(tile, 0.5, 0.5);
    // The border is one more cell on each side.
    const auto part = [&mesh](int i) {
        return i < 0            ? -borderWidth
               : i > mesh.cells ? 1.0 + borderWidth
                                : static_cast<double>(i) / mesh.cells;
    };
    std::vector<float> vertices;
    for (int j = -1; j <= mesh.cells + 1; ++j) {
        for (int i = -1; i <= mesh.cells + 1; ++i)
            add(vertices, placeInTile(tile, part(i), part(j)), mesh.origin, part(i), part(j));
    }
    mesh.vertices.create();
    mesh.vertices.bind();
    mesh.vertices.allocate(vertices.data(), static_cast<int>(vertices.size() * sizeof(float)));
    return mesh;
}

TileDrawer::Indices& TileDrawer::indicesOf(int cells)
{
    const auto known = m_indices.find(cells);
    if (known != m_indices.end())
        return known->second;
    std::vector<std::uint16_t> tile;
    std::vector<std::uint16_t> border;
    const int row = cells + 3;
    for (int j = 0; j < cells + 2; ++j) {
        for (int i = 0; i < cells + 2; ++i) {
            const bool isInside = i > 0 && i <= cells && j > 0 && j <= cells;
            std::vector<std::uint16_t>& piece = isInside ? tile : border;
            // Counterclockwise seen from outside: rows run southwards.
            const int first = j * row + i;
            for (const int corner :
                 {first, first + row, first + 1, first + 1, first + row, first + row + 1})
                piece.push_back(static_cast<std::uint16_t>(corner));
        }
    }
    Indices& indices = m_indices[cells];
    indices.tileCount = static_cast<int>(tile.size());
    indices.borderCount = static_cast<int>(border.size());
    tile.insert(tile.end(), border.begin(), border.end());
    indices.buffer.create();
    indices.buffer.bind();
    indices.buffer.allocate(tile.data(), static_cast<int>(tile.size() * sizeof(std::uint16_t)));
    return indices;
}

void TileDrawer::dropOldMeshes()
{
    if (m_meshes.size() > mostMeshes)
        std::erase_if(m_meshes, [this](const auto& each) { return each.second.frame < m_frame; });
}

void TileDrawer::begin(const Globe& globe, double brightness)
{
    dropOldMeshes();
    ++m_frame;
    m_globe = globe;
    m_brightness = static_cast<float>(brightness);
    m_bound = nullptr;
    m_gl.glDisable(GL_DEPTH_TEST);
    m_gl.glDisable(GL_BLEND);
    m_gl.glEnable(GL_CULL_FACE);
    m_gl.glCullFace(GL_BACK);
    m_gl.glFrontFace(GL_CCW);
}

void TileDrawer::bind(QOpenGLShaderProgram& program)
{
    if (m_bound == &program)
        return;
    m_bound = &program;
    program.bind();
    program.setUniformValue("image", 0);
    program.setUniformValue("shade", 1);
    program.setUniformValue("brightness", m_brightness);
    program.enableAttributeArray(positionLocation);
    program.enableAttributeArray(placeLocation);
}

void TileDrawer::bindVertices(QOpenGLBuffer& vertices)
{
    vertices.bind();
    m_bound->setAttributeBuffer(positionLocation, GL_FLOAT, 0, 3, stride);
    m_bound->setAttributeBuffer(placeLocation, GL_FLOAT, 3 * static_cast<int>(sizeof(float)), 2,
                                stride);
}

void TileDrawer::draw(Piece piece, const TileId& tile, const TextureView& image,
                      const TextureView& shade)
{
    Mesh& mesh = meshOf(tile);
    bind(shade.texture != 0 ? *m_shaded : *m_plain);
    m_bound->setUniformValue("matrix", matrixFrom(m_globe, mesh.origin));
    m_bound->setUniformValue("imageWindow", image.left, image.top, image.size);
    if (shade.texture != 0) {
        m_bound->setUniformValue("shadeWindow", shade.left, shade.top, shade.size);
        m_gl.glActiveTexture(GL_TEXTURE1);
        m_gl.glBindTexture(GL_TEXTURE_2D, shade.texture);
        m_gl.glActiveTexture(GL_TEXTURE0);
    }
    m_gl.glBindTexture(GL_TEXTURE_2D, image.texture);
    bindVertices(mesh.vertices);
    Indices& indices = indicesOf(mesh.cells);
    indices.buffer.bind();
    if (piece == Piece::Tile) {
        m_gl.glDrawElements(GL_TRIANGLES, indices.tileCount, GL_UNSIGNED_SHORT, nullptr);
    } else {
        const auto start = static_cast<std::uintptr_t>(indices.tileCount) * sizeof(std::uint16_t);
        m_gl.glDrawElements(GL_TRIANGLES, indices.borderCount, GL_UNSIGNED_SHORT,
                            reinterpret_cast<const void*>(start));
    }
}

void TileDrawer::drawCap(Pole pole, const QColor& color)
{
    const double sign = pole == Pole::North ? 1.0 : -1.0;
    const Globe::Vector tip = TUSK::Geodetic::latLong2Cartesian(90.0 * sign, 0.0);
    std::vector<float> vertices;
    add(vertices, tip, tip, 0.0, 0.0);
    for (int i = 0; i <= capSegments; ++i) {
        // Counterclockwise seen from outside.
        const double longitude = sign * 360.0 * i / capSegments;
        add(vertices, TUSK::Geodetic::latLong2Cartesian(capLatitude * sign, longitude), tip, 0.0,
            0.0);
    }
    bind(*m_flat);
    m_bound->setUniformValue("matrix", matrixFrom(m_globe, tip));
    m_bound->setUniformValue("color", color);
    if (!m_cap.isCreated())
        m_cap.create();
    m_cap.bind();
    m_cap.allocate(vertices.data(), static_cast<int>(vertices.size() * sizeof(float)));
    bindVertices(m_cap);
    m_gl.glDrawArrays(GL_TRIANGLE_FAN, 0, capSegments + 2);
}

void TileDrawer::end()
{
    if (m_bound != nullptr) {
        m_bound->disableAttributeArray(positionLocation);
        m_bound->disableAttributeArray(placeLocation);
        m_bound->release();
    }
    QOpenGLBuffer::release(QOpenGLBuffer::VertexBuffer);
    QOpenGLBuffer::release(QOpenGLBuffer::IndexBuffer);
    m_gl.glBindTexture(GL_TEXTURE_2D, 0);
    m_gl.glDisable(GL_CULL_FACE);
    m_bound = nullptr;
}

} // namespace Tessa
