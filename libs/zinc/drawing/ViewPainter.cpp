#include "libs/zinc/drawing/ViewPainter.h"

#include <algorithm>
#include <cmath>

namespace Zinc2D {

namespace {

using TUSK::OpenGL::Mesh;
using TUSK::OpenGL::MeshVertex;

constexpr int smallestFont = 4; ///< pixels
constexpr int largestFont = 400;

/// Rotates about a point, clockwise with y downwards.
void turn(std::span<MeshVertex> vertices, const QPointF& about, double angle)
{
    QTransform transform;
    transform.translate(about.x(), about.y());
    transform.rotate(angle);
    transform.translate(-about.x(), -about.y());
    for (MeshVertex& vertex : vertices) {
        const QPointF turned =
            transform.map(QPointF(static_cast<double>(vertex.x), static_cast<double>(vertex.y)));
        vertex.x = static_cast<float>(turned.x());
        vertex.y = static_cast<float>(turned.y());
    }
}

} // namespace

ViewPainter::ViewPainter(const QString& fontFamily)
    : m_textures(fontFamily)
{
    m_mesh.initialize();
}

void ViewPainter::draw(TUSK::OpenGL::GlHandler& handler, const ViewFrame& frame,
                       const PixelMap& map, const QSize& pixels, Argb background)
{
    if (!(map == m_map) || pixels != m_pixels || frame.size() != m_elements.size()) {
        if (map.scale != m_map.scale)
            m_textures.dropFonts();
        m_map = map;
        m_pixels = pixels;
        m_elements.assign(frame.size(), {});
    }
    const bool hasChanged = takeOver(frame);
    if (hasChanged || m_batches.empty() || background != m_background) {
        m_background = background;
        buildMesh();
    }
    QMatrix4x4 matrix;
    matrix.ortho(0.0F, static_cast<float>(pixels.width()), static_cast<float>(pixels.height()),
                 0.0F, -1.0F, 1.0F);
    handler.matrices().push();
    handler.matrices().load(matrix);
    m_mesh.draw(handler, m_batches);
    handler.matrices().pop();
}

/// Builds the elements whose draw lists have changed; false if there are none.
bool ViewPainter::takeOver(const ViewFrame& frame)
{
    std::vector<std::size_t> changed;
    for (std::size_t i = 0; i < frame.size(); ++i) {
        if (m_elements[i].revision == frame.revision(i))
            continue;
        m_elements[i].revision = frame.revision(i);
        changed.push_back(i);
        for (const DrawCommand& command : frame.drawList(i).commands) {
            if (command.kind == DrawCommand::Kind::Text)
                m_textures.font(fontKey(command)).reserve(command.text);
        }
    }
    for (const std::size_t i : changed)
        buildElement(frame.drawList(i), m_elements[i].pieces);
    return !changed.empty();
}

void ViewPainter::buildElement(const DrawList& list, std::vector<PaintPiece>& pieces)
{
    pieces.clear();
    for (const DrawCommand& command : list.commands) {
        PaintStyle style = styleOf(list, command);
        if (pieces.empty() || pieces.back().style != style)
            pieces.emplace_back().style = std::move(style);
        const std::span points(list.points.data() + command.firstPoint, command.pointCount);
        switch (command.kind) {
        case DrawCommand::Kind::Text:
            addText(command, points.front(), pieces.back());
            break;
        case DrawCommand::Kind::Image:
            addImage(command, points, pieces.back());
            break;
        default:
            addMesh(command, points, m_map, pieces.back().vertices);
        }
    }
    for (PaintPiece& piece : pieces)
        piece.measure();
}

PaintStyle ViewPainter::styleOf(const DrawList& list, const DrawCommand& command) const
{
    PaintStyle style;
    if (command.clip >= 0)
        style.clip = clipOf(list.clips[static_cast<std::size_t>(command.clip)]);
    if (command.kind == DrawCommand::Kind::Text) {
        style.paint = Mesh::Paint::Glyph;
        style.font = fontKey(command);
    } else if (command.kind == DrawCommand::Kind::Image) {
        style.paint = Mesh::Paint::Image;
        style.image = command.text;
    }
    return style;
}

void ViewPainter::addText(const DrawCommand& command, const QPointF& place, PaintPiece& piece)
{
    TUSK::OpenGL::TextureFont& glyphs = m_textures.font(piece.style.font);
    const QPointF at = m_map.map(place);
    const double width = glyphs.width(command.text);
    const double before = command.align == Align::Left     ? 0.0
                          : command.align == Align::Center ? width / 2.0
                                                           : width;
    const std::size_t first = piece.vertices.size();
    const bool isLevel = std::fmod(command.angle, 360.0) == 0.0;
    const auto snapped = [isLevel](double value) { return isLevel ? std::round(value) : value; };
    glyphs.append(command.text, snapped(at.x() - before),
                  snapped(at.y() + glyphs.capHeight() / 2.0), TUSK::OpenGL::rgbaOf(command.color),
                  piece.vertices);
    if (!isLevel)
        turn(std::span(piece.vertices).subspan(first), at, command.angle);
}

void ViewPainter::addImage(const DrawCommand& command, std::span<const QPointF> corners,
                           PaintPiece& piece)
{
    const auto vertex = [&](std::size_t corner, float s, float t) {
        const QPointF place = m_map.map(corners[corner]);
        piece.vertices.push_back({static_cast<float>(place.x()), static_cast<float>(place.y()), s,
                                  t, TUSK::OpenGL::rgbaOf(command.color)});
    };
    vertex(0, 0.0F, 0.0F);
    vertex(1, 1.0F, 0.0F);
    vertex(2, 1.0F, 1.0F);
    vertex(0, 0.0F, 0.0F);
    vertex(2, 1.0F, 1.0F);
    vertex(3, 0.0F, 1.0F);
}

QRect ViewPainter::clipOf(const QRectF& area) const
{
    const QRectF mapped(m_map.map(area.topLeft()), m_map.map(area.bottomRight()));
    const QRect inPixels = mapped.toAlignedRect() & QRect(QPoint(), m_pixels);
    if (inPixels.isEmpty())
        return {-1, -1, 1, 1}; // off the picture: an empty area would mean no clipping
    return {inPixels.x(), m_pixels.height() - inPixels.y() - inPixels.height(), inPixels.width(),
            inPixels.height()};
}

FontKey ViewPainter::fontKey(const DrawCommand& command) const
{
    const double pixels =
        std::clamp(command.size * m_map.scale, 1.0 * smallestFont, 1.0 * largestFont);
    return {static_cast<int>(std::lround(pixels)), command.weight};
}

/// Joins the pieces of all elements, on the background, to batches.
void ViewPainter::buildMesh()
{
    PaintPiece background;
    DrawCommand fill;
    fill.color = m_background;
    const double width = m_pixels.width();
    const double height = m_pixels.height();
    const QPointF corners[] = {{0.0, 0.0}, {width, 0.0}, {width, height}, {0.0, height}};
    if ((m_background >> 24) != 0)
        addMesh(fill, corners, {}, background.vertices);
    background.measure();
    std::vector<PieceGroup> groups;
    addToGroups(background, groups);
    for (const CachedElement& element : m_elements) {
        for (const PaintPiece& piece : element.pieces)
            addToGroups(piece, groups);
    }
    m_vertices.clear();
    m_batches.clear();
    for (const PieceGroup& group : groups)
        addBatch(group);
    m_mesh.upload(m_vertices);
}

void ViewPainter::addBatch(const PieceGroup& group)
{
    const PaintStyle& style = group.front()->style;
    Mesh::Batch batch;
    batch.paint = style.paint;
    batch.clip = style.clip;
    batch.first = static_cast<int>(m_vertices.size());
    if (style.paint == Mesh::Paint::Glyph) {
        const TUSK::OpenGL::TextureFont& font = m_textures.font(style.font);
        batch.texture = font.textureId();
        batch.textureSize = font.textureSize();
    } else if (style.paint == Mesh::Paint::Image) {
        const QOpenGLTexture* const picture = m_textures.image(style.image);
        if (picture == nullptr)
            return;
        batch.texture = picture->textureId();
    }
    for (const PaintPiece* piece : group)
        m_vertices.insert(m_vertices.end(), piece->vertices.begin(), piece->vertices.end());
    batch.count = static_cast<int>(m_vertices.size()) - batch.first;
    m_batches.push_back(batch);
}

} // namespace Zinc2D
