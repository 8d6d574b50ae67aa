#include "map/ui/MapPainter.h"

#include "libs/tessamap/drawing/TileDrawer.h"
#include "map/MarkShapes.h"

#include <QFile>
#include <QFontDatabase>
#include <QIcon>

#include <algorithm>
#include <cmath>

namespace KOLT {

namespace {

constexpr double trackWidth = 3.0;
constexpr QColor trackColor(200, 30, 45);
constexpr QColor noValueColor(120, 120, 120);
constexpr int aircraftSize = 40;
constexpr int fontPixels = 14;
constexpr double textHeight = 18.0;
constexpr double edge = 5.0;
constexpr QColor textColor(20, 24, 30);
constexpr QColor plateColor(255, 255, 255, 190);

/// The font from the program's resources; none when it cannot be read.
std::optional<QFont> loadFont()
{
    QFile file(QStringLiteral(":monofont.ttf"));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    static const int id = QFontDatabase::addApplicationFontFromData(file.readAll());
    const QStringList families = QFontDatabase::applicationFontFamilies(id);
    if (families.isEmpty())
        return std::nullopt;
    QFont font(families.front());
    font.setPixelSize(fontPixels);
    return font;
}

} // namespace

MapPainter::MapPainter(double width, double height, double pixelRatio)
    : m_pixelRatio(pixelRatio)
{
    m_handler.initialize();
    const int pixels = static_cast<int>(std::ceil(aircraftSize * pixelRatio));
    m_aircraft.load(QIcon(QStringLiteral(":/icons/aircraft.svg"))
                        .pixmap(QSize(2 * pixels, 2 * pixels), 1.0)
                        .toImage(),
                    aircraftSize, aircraftSize);
    if (const auto font = loadFont())
        m_font.emplace(*font, pixelRatio);
    begin(width, height);
}

void MapPainter::begin(double width, double height)
{
    m_handler.setViewPort(static_cast<int>(std::lround(width * m_pixelRatio)),
                          static_cast<int>(std::lround(height * m_pixelRatio)));
    m_screen.setToIdentity();
    m_screen.ortho(0.0F, static_cast<float>(width), 0.0F, static_cast<float>(height), -1.0F, 1.0F);
    m_handler.enableBlending();
    m_handler.matrices().load(m_screen);
}

void MapPainter::fillTrack(const std::vector<TrackLine::Chunk>& chunks, bool isColored)
{
    m_lines.clear();
    for (const TrackLine::Chunk& chunk : chunks) {
        TUSK::OpenGL::LineStrips& line = m_lines.emplace_back();
        line.setLineWidth(static_cast<float>(trackWidth * m_pixelRatio));
        line.setUseMultiColor(true);
        line.setArePairs(true);
        const auto add = [&line](const TrackLine::Vertex& vertex) {
            line.addVertex(vertex.x, vertex.y, vertex.z);
        };
        for (std::size_t i = 1; i < chunk.vertices.size(); ++i) {
            const TrackLine::Vertex& vertex = chunk.vertices[i];
            if (vertex.isStart)
                continue;
            // Each line has one colour, without a gradient to the next.
            line.setColor(!isColored                           ? trackColor
                          : vertex.color == TrackLine::noColor ? noValueColor
                                                               : trackColorRamp()[vertex.color]);
            add(chunk.vertices[i - 1]);
            add(vertex);
        }
    }
}

void MapPainter::drawTrack(const Tessa::Globe& globe, const TrackLine& track, bool isColored)
{
    const std::vector<TrackLine::Chunk>& chunks = track.chunks(globe.metresPerPixel());
    const std::tuple<const void*, int, bool> wanted{&chunks, track.revision(), isColored};
    if (m_filled != wanted) {
        fillTrack(chunks, isColored);
        m_filled = wanted;
    }
    m_handler.disableBlending(); // the line is opaque
    for (std::size_t i = 0; i < chunks.size(); ++i) {
        if (!isInView(globe, chunks[i]))
            continue;
        m_handler.matrices().load(Tessa::matrixFrom(globe, chunks[i].origin));
        m_lines[i].render(m_handler);
    }
    m_handler.enableBlending();
    m_handler.matrices().load(m_screen);
}

void MapPainter::polygon(std::initializer_list<Tessa::WindowPoint> corners, const QColor& color)
{
    std::vector<float> vertices;
    for (const Tessa::WindowPoint& corner : corners) {
        vertices.push_back(static_cast<float>(corner.x));
        vertices.push_back(static_cast<float>(corner.y));
    }
    m_handler.draw(GL_TRIANGLE_FAN, vertices, color);
}

void MapPainter::rectangle(double left, double bottom, double width, double height,
                           const QColor& color)
{
    polygon({{left, bottom},
             {left + width, bottom},
             {left + width, bottom + height},
             {left, bottom + height}},
            color);
}

void MapPainter::drawMarks(const Tessa::Globe& globe, const std::vector<MapMark>& marks)
{
    MarkShapes shapes;
    for (const PlacedMark& placed : marksInWindow(marks, globe))
        shapes.add(*placed.mark, logical(placed.place));
    m_handler.drawColored(GL_TRIANGLES, shapes.vertices(), 1.0F);
}

void MapPainter::drawAircraft(Tessa::WindowPoint place, double heading)
{
    QMatrix4x4 matrix = m_screen;
    matrix.translate(static_cast<float>(place.x), static_cast<float>(place.y));
    matrix.rotate(static_cast<float>(-heading), 0.0F, 0.0F, 1.0F);
    m_handler.matrices().load(matrix);
    m_aircraft.setColor(Qt::white);
    m_aircraft.render(m_handler);
    m_handler.matrices().load(m_screen);
}

double MapPainter::textWidth(const QString& text) const
{
    return m_font ? m_font->width(text) : 0.0;
}

void MapPainter::drawText(double x, double y, const QString& text, bool endsAtX)
{
    if (!m_font || text.isEmpty())
        return;
    const double width = m_font->width(text);
    rectangle((endsAtX ? x - width : x) - 3.0, y - textHeight / 2.0, width + 6.0, textHeight,
              plateColor);
    m_font->draw(m_handler, text, x, y, textColor, endsAtX);
}

void MapPainter::drawScaleBar(const ScaleBar& bar, double bottom)
{
    if (!(bar.pixels > 0.0) || !m_font)
        return;
    const double left = edge + 5.0;
    const double width = std::max(bar.pixels, m_font->width(bar.text)) + 10.0;
    rectangle(edge, bottom, width, textHeight + 10.0, plateColor);
    m_font->draw(m_handler, bar.text, left, bottom + 10.0 + textHeight / 2.0, textColor);
    rectangle(left, bottom + 4.0, bar.pixels, 2.0, textColor);
    rectangle(left, bottom + 4.0, 2.0, 7.0, textColor);
    rectangle(left + bar.pixels - 2.0, bottom + 4.0, 2.0, 7.0, textColor);
}

void MapPainter::drawLegend(const TrackColors& colors, double bottom)
{
    if (colors.isEmpty() || !m_font)
        return;
    constexpr double cell = 12.0;
    bottom += edge + textHeight + 12.0; // above the scale bar
    const double ramp = cell * ValueScale::classes;
    const double texts = m_font->width(colors.lowText) + m_font->width(colors.highText) + 12.0;
    const double width = std::max({ramp, texts, m_font->width(colors.name)}) + 10.0;
    const double left = edge + 5.0;
    rectangle(edge, bottom, width, 2.0 * textHeight + 16.0, plateColor);
    m_font->draw(m_handler, colors.name, left, bottom + textHeight * 1.5 + 14.0, textColor);
    const double step = (width - 10.0) / ValueScale::classes;
    for (int i = 0; i < ValueScale::classes; ++i)
        rectangle(left + i * step, bottom + textHeight + 4.0, step, 8.0,
                  trackColorRamp()[static_cast<std::size_t>(i)]);
    m_font->draw(m_handler, colors.lowText, left, bottom + textHeight / 2.0 + 1.0, textColor);
    m_font->draw(m_handler, colors.highText, edge + width - 5.0, bottom + textHeight / 2.0 + 1.0,
                 textColor, true);
}

} // namespace KOLT
