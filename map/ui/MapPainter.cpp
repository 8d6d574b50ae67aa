#include "map/ui/MapPainter.h"

#include "libs/tessamap/drawing/TileDrawer.h"
#include "map/MarkShapes.h"

#include <QIcon>

#include <cmath>

namespace KOLT {

namespace {

constexpr double trackWidth = 3.0;
constexpr QColor trackColor(200, 30, 45);
constexpr QColor noValueColor(120, 120, 120);
constexpr int aircraftSize = 40;

} // namespace

MapPainter::MapPainter(double width, double height, double pixelRatio)
    : m_pixelRatio(pixelRatio)
    , m_labels(m_handler, pixelRatio)
{
    m_handler.initialize();
    const int pixels = static_cast<int>(std::ceil(aircraftSize * pixelRatio));
    m_aircraft.load(QIcon(QStringLiteral(":/icons/aircraft.svg"))
                        .pixmap(QSize(2 * pixels, 2 * pixels), 1.0)
                        .toImage(),
                    aircraftSize, aircraftSize);
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

void MapPainter::drawTrack(const Tessa::Globe& globe, const TrackLine& track)
{
    const std::vector<TrackLine::Chunk>& chunks = track.chunks(globe.metresPerPixel());
    const std::pair<const void*, int> wanted{&chunks, track.revision()};
    if (m_filled != wanted) {
        fillTrack(chunks, track.isColored());
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

void MapPainter::drawMarks(const Tessa::Globe& globe, const std::vector<MapMark>& marks)
{
    MarkShapes shapes;
    for (const auto& [mark, point] : marksInWindow(marks, globe))
        shapes.add(*mark, {point.x / m_pixelRatio, point.y / m_pixelRatio});
    m_handler.drawColored(GL_TRIANGLES, shapes.vertices(), 1.0F);
}

void MapPainter::drawAircraft(const Tessa::Globe& globe, Tessa::LatLong place, double heading)
{
    const auto point = globe.latLong2Window(place);
    if (!point)
        return;
    QMatrix4x4 matrix = m_screen;
    matrix.translate(static_cast<float>(point->x / m_pixelRatio),
                     static_cast<float>(point->y / m_pixelRatio));
    matrix.rotate(static_cast<float>(-heading), 0.0F, 0.0F, 1.0F);
    m_handler.matrices().load(matrix);
    m_aircraft.setColor(Qt::white);
    m_aircraft.render(m_handler);
    m_handler.matrices().load(m_screen);
}

void MapPainter::drawBackdrop(const Tessa::Globe& globe, Tessa::LatLong from,
                              const Backdrop& backdrop)
{
    const double width = backdrop.window.width();
    const double height = backdrop.window.height();
    std::vector<QRectF> covered(backdrop.covered.begin(), backdrop.covered.end());
    QRectF compass = m_labels.compassRect(backdrop.attribution, width);
    compass.moveTop(height - compass.bottom()); // from the upper left corner
    covered.push_back(compass);
    if (const auto origin = globe.latLong2Window(from))
        m_labels.drawGrid(
            MapGrid::around(*origin, globe.metresPerPixel(), width, height, backdrop.system),
            backdrop.window, covered);
    m_labels.drawCompass(backdrop.attribution, width);
}

} // namespace KOLT
