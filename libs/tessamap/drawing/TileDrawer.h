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

/// The matrix from places relative to `origin` (metres, in space) to the window. The origin is
/// turned and scaled in double, so that places near it keep their precision. What lies behind the
/// limb is cut off by the far plane.
QMatrix4x4 matrixFrom(const Globe& globe, const Globe::Vector& origin);

/// A part of a texture that lies on a whole tile; all of it by default.
struct TextureWindow
{
    float left = 0.0F;
    float top = 0.0F;
    float size = 1.0F; ///< along each side

    /// The part of the ancestor's picture that shows the tile.
    static TextureWindow within(const TileId& tile, const TileId& ancestor);
};

/// Draws curved tiles and the caps around the poles. Needs the current context of its making for
/// all calls and for its end.
class TileDrawer
{
public:
    /// Null when the context lacks what it takes; `error` then tells more.
    static std::unique_ptr<TileDrawer> create(QString& error);

    /// Of a tile: the tile itself, or a border around it. Borders drawn before all tiles fill the
    /// hair cracks of the joints, with the right colours and at the cost of few pixels.
    enum class Piece { Tile, Border };

    void begin(const Globe& globe, double brightness);
    /// `shade` 0: none.
    void draw(Piece piece, const TileId& tile, GLuint image, TextureWindow imageWindow,
              GLuint shade = 0, TextureWindow shadeWindow = {});
    /// From just within the outermost tiles to the pole.
    void drawCap(bool isNorth, const QColor& color);
    void end();

private:
    struct Mesh
    {
        Globe::Vector origin;
        int cells = 0;
        int frame = 0;
        QOpenGLBuffer vertices{QOpenGLBuffer::VertexBuffer};
    };

    /// Triangles of the meshes of so many cells along a side.
    struct Indices
    {
        QOpenGLBuffer buffer{QOpenGLBuffer::IndexBuffer};
        int tileCount = 0;
        int borderCount = 0; ///< behind the tile's
    };

    TileDrawer() = default;

    bool build(QOpenGLShaderProgram& program, const char* fragmentSource, QString& error);
    Mesh& meshOf(const TileId& tile);
    Indices& indicesOf(int cells);
    void dropOldMeshes();
    void bind(QOpenGLShaderProgram& program);

    QOpenGLFunctions m_gl;
    QOpenGLShaderProgram m_plain;
    QOpenGLShaderProgram m_shaded;
    QOpenGLShaderProgram m_flat;
    QOpenGLShaderProgram* m_bound = nullptr;
    std::unordered_map<TileId, Mesh> m_meshes;
    std::unordered_map<int, Indices> m_indices; ///< by cells along a side
    QOpenGLBuffer m_cap{QOpenGLBuffer::VertexBuffer};
    Globe m_globe;
    float m_brightness = 1.0F;
    int m_frame = 0;
};

} // namespace Tessa
