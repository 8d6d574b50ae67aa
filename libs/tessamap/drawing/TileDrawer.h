#pragma once

#include "libs/tessamap/globe/Globe.h"
#include "libs/tessamap/globe/TileId.h"

#include <QColor>
#include <QMatrix4x4>
#include <QOpenGLBuffer>
#include <QOpenGLFunctions>
#include <QOpenGLShaderProgram>

#include <memory>
#include <unordered_map>

namespace Tessa {

/// The matrix from places relative to `origin` (in space, metres) to clip coordinates. The origin
/// is transformed in double, so that places near it keep their precision. The far plane clips what
/// is behind the limb.
QMatrix4x4 matrixFrom(const Globe& globe, const Globe::Vector& origin);

/// A texture and the square part of it that covers a tile.
struct TextureView
{
    GLuint texture = 0; ///< 0: none
    float left = 0.0F;
    float top = 0.0F;
    float size = 1.0F; ///< along each side

    /// The part of an ancestor's picture that shows the tile.
    static TextureView within(const TileId& tile, const TileId& ancestor, GLuint texture);
};

/// Draws curved tiles and the caps around the poles. The context in which it was made must be
/// current for all calls, including the destructor.
class TileDrawer
{
public:
    /// Null when the context lacks a needed feature; `error` then has the driver's message.
    static std::unique_ptr<TileDrawer> create(QString& error);

    /// The tile itself, or a narrow border around it. Borders, drawn before all tiles, fill the
    /// hairline gaps between tiles with matching colours.
    enum class Piece { Tile, Border };
    enum class Pole { North, South };

    void begin(const Globe& globe, double brightness);
    /// `shade` may be none.
    void draw(Piece piece, const TileId& tile, const TextureView& image, const TextureView& shade);
    /// The area around a pole that tiles do not reach.
    void drawCap(Pole pole, const QColor& color);
    void end();

private:
    struct Mesh
    {
        Globe::Vector origin;
        int cells = 0;
        int frame = 0;
        QOpenGLBuffer vertices{QOpenGLBuffer::VertexBuffer};
    };

    /// The triangles of all meshes with the same number of cells.
    struct Indices
    {
        QOpenGLBuffer buffer{QOpenGLBuffer::IndexBuffer};
        int tileCount = 0;
        int borderCount = 0; ///< follow the tile's
    };

    TileDrawer() = default;

    Mesh& meshOf(const TileId& tile);
    Indices& indicesOf(int cells);
    void dropOldMeshes();
    void bind(QOpenGLShaderProgram& program);
    void bindVertices(QOpenGLBuffer& vertices);

    QOpenGLFunctions m_gl;
    std::unique_ptr<QOpenGLShaderProgram> m_plain;
    std::unique_ptr<QOpenGLShaderProgram> m_shaded;
    std::unique_ptr<QOpenGLShaderProgram> m_flat;
    QOpenGLShaderProgram* m_bound = nullptr;
    std::unordered_map<TileId, Mesh> m_meshes;
    std::unordered_map<int, Indices> m_indices; ///< by cells along a side
    QOpenGLBuffer m_cap{QOpenGLBuffer::VertexBuffer};
    Globe m_globe;
    float m_brightness = 1.0F;
    int m_frame = 0;
};

} // namespace Tessa
