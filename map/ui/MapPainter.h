#pragma once

#include "libs/tessamap/globe/Globe.h"
#include "libs/tusk/gl/GlHandler.h"
#include "libs/tusk/gl/Primitives.h"
#include "libs/tusk/gl/Texture.h"
#include "libs/tusk/gl/TextureFont.h"
#include "map/MapMarks.h"
#include "map/ScaleBar.h"
#include "map/TrackColors.h"
#include "map/TrackLine.h"

#include <optional>
#include <tuple>
#include <vector>

namespace KOLT {

/// Draws what lies on top of the map: the track, marks, the aircraft and texts. Places in the
/// window are logical pixels from the lower left corner. The context in which it was made must be
/// current for all calls, including the destructor.
class MapPainter
{
public:
    /// Loads pictures and font for this ratio of pixels. Without the font no texts are drawn.
    MapPainter(double width, double height, double pixelRatio);

    double pixelRatio() const { return m_pixelRatio; }

    /// False when the context lacks a needed feature; nothing is drawn then.
    bool isReady() const { return m_handler.isReady(); }

    void begin(double width, double height);

    void drawTrack(const Tessa::Globe& globe, const TrackLine& track, bool isColored);
    void drawMarks(const Tessa::Globe& globe, const std::vector<MapMark>& marks);
    /// `heading` in degrees clockwise from north.
    void drawAircraft(Tessa::WindowPoint place, double heading);
    /// At the lower left; `bottom` is its lower edge.
    void drawScaleBar(const ScaleBar& bar, double bottom);
    /// The legend of the track's colours, above the scale bar drawn at the same `bottom`.
    void drawLegend(const TrackColors& colors, double bottom);
    /// On a light plate, starting or ending at x, vertically centred on y.
    void drawText(double x, double y, const QString& text, bool endsAtX);

    /// 0 without the font.
    double textWidth(const QString& text) const;

private:
    Tessa::WindowPoint logical(Tessa::WindowPoint place) const
    {
        return {place.x / m_pixelRatio, place.y / m_pixelRatio};
    }

    void rectangle(double left, double bottom, double width, double height, const QColor& color);
    void polygon(std::initializer_list<Tessa::WindowPoint> corners, const QColor& color);
    void fillTrack(const std::vector<TrackLine::Chunk>& chunks, bool isColored);

    double m_pixelRatio;
    TUSK::OpenGL::GlHandler m_handler;
    std::vector<TUSK::OpenGL::LineStrips> m_lines; ///< of the track's chunks, see m_filled
    std::tuple<const void*, int, bool> m_filled{}; ///< chunks, revision of the track, colours
    TUSK::OpenGL::Texture m_aircraft;
    std::optional<TUSK::OpenGL::TextureFont> m_font;
    QMatrix4x4 m_screen;
};

} // namespace KOLT
