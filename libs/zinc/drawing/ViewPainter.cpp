#include "libs/zinc/drawing/ViewPainter.h"

#include <QImageReader>

#include <algorithm>
#include <cmath>

namespace Zinc2D {

namespace {

using TUSK::OpenGL::Mesh;
using TUSK::OpenGL::MeshVertex;
using TUSK::OpenGL::TextureFont;

constexpr int smallestFont = 4; ///< pixels
constexpr int largestFont = 400;
constexpr int largestImage = 4096;

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
    : m_fontFamily(fontFamily)
{
    m_mesh.initialize();
}

bool ViewPainter::Piece::isLike(const Piece& other) const
{
    return paint == other.paint && font == other.font && image == other.image && clip == other.clip;
}

void ViewPainter::Piece::measure()
{
    if (vertices.empty())
        return;
    left = right = vertices.front().x;
    top = bottom = vertices.front().y;
    for (const MeshVertex& vertex : vertices) {
        left = std::min(left, vertex.x);
        right = std::max(right, vertex.x);
        top = std::min(top, vertex.y);
        bottom = std::max(bottom, vertex.y);
    }
}

bool ViewPainter::Piece::touches(const Piece& other) const
{
    return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
}

void ViewPainter::draw(TUSK::OpenGL::GlHandler& handler, const ViewFrame& frame,
                       const PixelMap& map, const QSize& pixels, Argb background)
{
    if (!(map == m_map) || pixels != m_pixels || frame.size() != m_elements.size()) {
        if (map.scale != m_map.scale)
            m_fonts.clear();
        m_map = map;
        m_pixels = pixels;
        m_elements.assign(frame.size(), {});
    }
    const bool hasChanged = takeOver(frame);
    if (hasChanged || m_batches.empty() || background != m_background) {
        m_background = background;
        joinPieces(background);
        m_mesh.upload(m_vertices);
    }
    QMatrix4x4 matrix;
    matrix.ortho(0.0F, static_cast<float>(pixels.width()), static_cast<float>(pixels.height()),
                 0.0F, -1.0F, 1.0F);
    handler.matrices().push();
    handler.matrices().load(matrix);
    m_mesh.draw(handler, m_batches);
    handler.matrices().pop();
}

bool ViewPainter::takeOver(const ViewFrame& frame)
{
    const auto isDue = [&](std::size_t i) { return m_elements[i].revision != frame.revision(i); };
    for (std::size_t i = 0; i < frame.size(); ++i) {
        if (isDue(i))
            reserveCharacters(frame, i);
    }
    bool hasChanged = false;
    for (std::size_t i = 0; i < frame.size(); ++i) {
        if (!isDue(i))
            continue;
        hasChanged = true;
        m_elements[i].revision = frame.revision(i);
        buildElement(frame.drawList(i), m_elements[i]);
    }
    return hasChanged;
}

void ViewPainter::reserveCharacters(const ViewFrame& frame, std::size_t element)
{
    for (const DrawCommand& command : frame.drawList(element).commands) {
        if (command.kind == DrawCommand::Kind::Text)
            font(fontKey(command)).reserve(command.text);
    }
}

void ViewPainter::buildElement(const DrawList& list, CachedElement& cached)
{
    cached.pieces.clear();
    for (const DrawCommand& command : list.commands) {
        const std::span points(list.points.data() + command.firstPoint, command.pointCount);
        Piece piece;
        piece.clip = clipOf(list, command);
        if (command.kind == DrawCommand::Kind::Text) {
            piece.paint = Mesh::Paint::Glyph;
            piece.font = fontKey(command);
        } else if (command.kind == DrawCommand::Kind::Image) {
            piece.paint = Mesh::Paint::Image;
            piece.image = command.text;
        }
        if (cached.pieces.empty() || !cached.pieces.back().isLike(piece))
            cached.pieces.push_back(std::move(piece));
        Piece& target = cached.pieces.back();
        if (command.kind == DrawCommand::Kind::Text)
            addText(command, points.front(), target);
        else if (command.kind == DrawCommand::Kind::Image)
            addImage(command, points, target);
        else
            addMesh(command, points, m_map, target.vertices);
    }
    for (Piece& piece : cached.pieces)
        piece.measure();
}

void ViewPainter::addText(const DrawCommand& command, const QPointF& place, Piece& piece)
{
    TextureFont& glyphs = font(piece.font);
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
                           Piece& piece)
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

QRect ViewPainter::clipOf(const DrawList& list, const DrawCommand& command) const
{
    if (command.clip < 0)
        return {};
    const QRectF& area = list.clips[static_cast<std::size_t>(command.clip)];
    const QRectF mapped(m_map.map(area.topLeft()), m_map.map(area.bottomRight()));
    const QRect inPixels = mapped.toAlignedRect() & QRect(QPoint(), m_pixels);
    if (inPixels.isEmpty())
        return {-1, -1, 1, 1}; // off the picture: an empty area would mean no clipping
    return {inPixels.x(), m_pixels.height() - inPixels.y() - inPixels.height(), inPixels.width(),
            inPixels.height()};
}

void ViewPainter::joinPieces(Argb background)
{
    Piece behind;
    if ((background >> 24) != 0) {
        DrawCommand command;
        command.color = background;
        const QPointF corners[] = {
            {0.0, 0.0},
            {1.0 * m_pixels.width(), 0.0},
            {1.0 * m_pixels.width(), 1.0 * m_pixels.height()},
            {0.0, 1.0 * m_pixels.height()},
        };
        addMesh(command, corners, {}, behind.vertices);
        behind.measure();
    }
    std::vector<Group> groups;
    addToGroups(behind, groups);
    for (const CachedElement& element : m_elements) {
        for (const Piece& piece : element.pieces)
            addToGroups(piece, groups);
    }
    m_vertices.clear();
    m_batches.clear();
    for (const Group& group : groups)
        addBatch(group);
}

void ViewPainter::addToGroups(const Piece& piece, std::vector<Group>& groups)
{
    if (piece.vertices.empty())
        return;
    // A piece may be painted earlier than others that it does not touch.
    for (auto group = groups.rbegin(); group != groups.rend(); ++group) {
        if (group->front()->isLike(piece)) {
            group->push_back(&piece);
            return;
        }
        if (std::ranges::any_of(*group, [&](const Piece* other) { return other->touches(piece); }))
            break;
    }
    groups.push_back({&piece});
}

void ViewPainter::addBatch(const Group& group)
{
    const Piece& look = *group.front();
    Mesh::Batch batch;
    batch.paint = look.paint;
    batch.clip = look.clip;
    batch.first = static_cast<int>(m_vertices.size());
    if (look.paint == Mesh::Paint::Glyph) {
        batch.texture = font(look.font).textureId();
        batch.textureSize = font(look.font).textureSize();
    } else if (look.paint == Mesh::Paint::Image) {
        const QOpenGLTexture* const picture = image(look.image);
        if (picture == nullptr)
            return;
        batch.texture = picture->textureId();
    }
    for (const Piece* piece : group)
        m_vertices.insert(m_vertices.end(), piece->vertices.begin(), piece->vertices.end());
    batch.count = static_cast<int>(m_vertices.size()) - batch.first;
    m_batches.push_back(batch);
}

ViewPainter::FontKey ViewPainter::fontKey(const DrawCommand& command) const
{
    const double pixels =
        std::clamp(command.size * m_map.scale, 1.0 * smallestFont, 1.0 * largestFont);
    return {static_cast<int>(std::lround(pixels)), command.isBold};
}

TextureFont& ViewPainter::font(const FontKey& key)
{
    const auto found = m_fonts.find(key);
    if (found != m_fonts.end())
        return found->second;
    QFont font;
    if (!m_fontFamily.isEmpty())
        font.setFamilies({m_fontFamily, QStringLiteral("sans-serif")});
    font.setPixelSize(key.pixels);
    font.setBold(key.isBold);
    return m_fonts.emplace(key, TextureFont::makeEmpty(font, 1.0)).first->second;
}

QOpenGLTexture* ViewPainter::image(const QString& path)
{
    const auto found = m_images.find(path);
    if (found != m_images.end())
        return found->second.get();
    std::unique_ptr<QOpenGLTexture>& texture = m_images[path];
    QImageReader reader(path);
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > largestImage || size.height() > largestImage)
        return nullptr;
    const QImage picture = reader.read();
    if (picture.isNull())
        return nullptr;
    texture = std::make_unique<QOpenGLTexture>(picture);
    texture->setMinMagFilters(QOpenGLTexture::LinearMipMapLinear, QOpenGLTexture::Linear);
    texture->setWrapMode(QOpenGLTexture::ClampToEdge);
    return texture.get();
}

} // namespace Zinc2D
