#pragma once

#include "libs/tessamap/globe/Globe.h"
#include "libs/tusk/gl/GlHandler.h"
#include "libs/tusk/gl/Primitives.h"
#include "libs/tusk/gl/Texture.h"
#include "map/MapMarks.h"
#include "map/TrackLine.h"
#include "map/ui/MapLabels.h"

#include <utility>
#include <vector>

namespace KOLT {

/// Draws what lies on top of the map: the track, marks and the aircraft; labels() draws texts.
/// Places in the window are logical pixels from the lower left corner. The context in which it was
/// made must be current for all calls, including the destructor.
class MapPainter
{
public:
    /// Loads pictures and font for this ratio of pixels.
    MapPainter(double width, double height, double pixelRatio);

    double pixelRatio() const { return m_pixelRatio; }

    /// False when the context lacks a needed feature; nothing is drawn then.
    bool isReady() const { return m_handler.isReady(); }

    void begin(double width, double height);

    void drawTrack(const Tessa::Globe& globe, const TrackLine& track);
    void drawMarks(const Tessa::Globe& globe, const std::vector<MapMark>& marks);
    /// `heading` in degrees clockwise from north.
    void drawAircraft(const Tessa::Globe& globe, Tessa::LatLong place, double heading);

    struct Backdrop
    {
        QString attribution;
        UnitSystem system = UnitSystem::Metric;
        QSizeF window;
        std::span<const QRectF> covered; ///< by panels, from the upper left corner
    };

    /// A grid with distances from a place, and a compass: they give the track a scale where there
    /// are no tiles. `globe` in logical pixels.
    void drawBackdrop(const Tessa::Globe& globe, Tessa::LatLong from, const Backdrop& backdrop);

    MapLabels& labels() { return m_labels; }

private:
    void fillTrack(const std::vector<TrackLine::Chunk>& chunks, bool isColored);

    double m_pixelRatio;
    TUSK::OpenGL::GlHandler m_handler;
    std::vector<TUSK::OpenGL::LineStrips> m_lines; ///< of the track's chunks
    std::pair<const void*, int> m_filled{};        ///< what m_lines show: chunks, revision of track
    TUSK::OpenGL::Texture m_aircraft;
    MapLabels m_labels;
    QMatrix4x4 m_screen;
};

} // namespace KOLT
