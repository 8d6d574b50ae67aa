#include "libs/tusk/gl/TextureFont.h"

#include <QImage>
#include <QPainter>

#include <cmath>
#include <vector>

namespace TUSK::OpenGL {

namespace {

constexpr int columns = 16;
constexpr int padding = 2; ///< pixels around a glyph, which filtering may blend in

} // namespace

TextureFont::TextureFont(const QFont& font, double pixelRatio)
    : m_font(font)
    , m_metrics(font)
    , m_pixelRatio(pixelRatio)
{
    for (char16_t character = u' '; character <= u'~'; ++character)
        m_characters += QChar(character);
}

TextureFont TextureFont::makeEmpty(const QFont& font, double pixelRatio)
{
    TextureFont made(font, pixelRatio);
    made.m_characters.clear();
    return made;
}

void TextureFont::reserve(const QString& text)
{
    for (const QChar character : text) {
        if (!m_characters.contains(character))
            m_characters += character;
    }
}

double TextureFont::width(const QString& text) const
{
    double width = 0.0;
    for (const QChar character : text)
        width += m_metrics.horizontalAdvance(character);
    return width;
}

void TextureFont::addGlyphs(const QString& text)
{
    reserve(text);
    if (m_texture != nullptr && m_drawnCharacters == m_characters.size())
        return;
    m_drawnCharacters = m_characters.size();
    const int cellWidth =
        static_cast<int>(std::ceil(m_metrics.maxWidth() * m_pixelRatio)) + 2 * padding;
    const int cellHeight =
        static_cast<int>(std::ceil(m_metrics.height() * m_pixelRatio)) + 2 * padding;
    const int rows = static_cast<int>((m_characters.size() + columns - 1) / columns);
    QImage image(columns * cellWidth, rows * cellHeight, QImage::Format_RGBA8888);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setPen(Qt::white);
    painter.setFont(m_font);
    m_glyphs.clear();
    for (int i = 0; i < m_characters.size(); ++i) {
        const QPoint cell(i % columns * cellWidth, i / columns * cellHeight);
        painter.resetTransform();
        painter.translate(cell + QPoint(padding, padding));
        painter.scale(m_pixelRatio, m_pixelRatio);
        painter.drawText(QPointF(0.0, m_metrics.ascent()), QString(m_characters[i]));
        Glyph& glyph = m_glyphs[m_characters[i]];
        glyph.place = QRectF(static_cast<double>(cell.x()) / image.width(),
                             static_cast<double>(cell.y()) / image.height(),
                             static_cast<double>(cellWidth) / image.width(),
                             static_cast<double>(cellHeight) / image.height());
        glyph.size = QSizeF(cellWidth, cellHeight) / m_pixelRatio;
        glyph.advance = m_metrics.horizontalAdvance(m_characters[i]);
    }
    painter.end();
    m_texture = std::make_unique<QOpenGLTexture>(image, QOpenGLTexture::DontGenerateMipMaps);
    m_texture->setMinMagFilters(QOpenGLTexture::Linear, QOpenGLTexture::Linear);
    m_texture->setWrapMode(QOpenGLTexture::ClampToEdge);
}

void TextureFont::draw(GlHandler& handler, const QString& text, double x, double y,
                       const QColor& color, bool endsAtX)
{
    addGlyphs(text);
    const double edge = padding / m_pixelRatio;
    // Glyphs are sharp on whole pixels of the framebuffer.
    const auto snapped = [this](double value) {
        return std::round(value * m_pixelRatio) / m_pixelRatio;
    };
    double left = snapped(endsAtX ? x - width(text) : x) - edge;
    const double bottom = snapped(y - m_metrics.height() / 2.0) - edge;
    std::vector<float> vertices;
    for (const QChar character : text) {
        const Glyph& glyph = m_glyphs[character];
        const auto add = [&](double dx, double dy) {
            vertices.push_back(static_cast<float>(left + dx * glyph.size.width()));
            vertices.push_back(static_cast<float>(bottom + dy * glyph.size.height()));
            vertices.push_back(static_cast<float>(glyph.place.left() + dx * glyph.place.width()));
            // t = 0 is the top of the image.
            vertices.push_back(
                static_cast<float>(glyph.place.top() + (1.0 - dy) * glyph.place.height()));
        };
        for (const auto& [dx, dy] :
             {std::pair(0.0, 0.0), {1.0, 0.0}, {1.0, 1.0}, {0.0, 0.0}, {1.0, 1.0}, {0.0, 1.0}})
            add(dx, dy);
        left += glyph.advance;
    }
    handler.drawTextured(vertices, color, m_texture->textureId());
}

void TextureFont::append(const QString& text, double x, double y, std::uint32_t rgba,
                         std::vector<MeshVertex>& vertices)
{
    addGlyphs(text);
    const QSizeF texture = textureSize();
    const double edge = padding / m_pixelRatio;
    const double top = y - m_metrics.ascent() - edge;
    double left = x - edge;
    for (const QChar character : text) {
        const Glyph& glyph = m_glyphs[character];
        const auto vertex = [&](double dx, double dy) {
            vertices.push_back({static_cast<float>(left + dx * glyph.size.width()),
                                static_cast<float>(top + dy * glyph.size.height()),
                                static_cast<float>((glyph.place.left() + dx * glyph.place.width()) *
                                                   texture.width()),
                                static_cast<float>((glyph.place.top() + dy * glyph.place.height()) *
                                                   texture.height()),
                                rgba});
        };
        for (const auto& [dx, dy] :
             {std::pair(0.0, 0.0), {1.0, 0.0}, {1.0, 1.0}, {0.0, 0.0}, {1.0, 1.0}, {0.0, 1.0}})
            vertex(dx, dy);
        left += glyph.advance;
    }
}

} // namespace TUSK::OpenGL
